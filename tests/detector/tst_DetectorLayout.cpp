// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/DetectorLayout.h"
#include "tests/beam/profile/PixelWiring.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using Axis = DetectorLayout::Axis;

namespace {

const QString mm = QStringLiteral("mm");

DetectorDescription strips(const DetectorAxis &x, const DetectorAxis &y = {})
{
    DetectorDescription description;
    description.kind = DetectorKind::Strips;
    description.x = x;
    description.y = y;
    return description;
}

QString text(const QVector<double> &numbers)
{
    QStringList words;
    for (double number : numbers)
        words << QString::number(number);
    return words.join(' ');
}

//! Changes an axis; returns false if it has no such field.
bool changeAxis(DetectorAxis &axis, const QString &field, const QVector<double> &numbers)
{
    if (field == "cells")
        axis.cells = int(numbers[0]);
    else if (field == "positions")
        axis.positions = numbers;
    else if (field == "at")
        axis = DetectorAxis::at(numbers, mm);
    else if (field == "count")
        axis = DetectorAxis::counted(int(numbers[0]));
    else if (field == "uniform")
        axis = DetectorAxis::uniform(int(numbers[0]), numbers[1], mm);
    else if (field == "pitch")
        axis.pitch = numbers[0];
    else if (field == "offset")
        axis.offset = numbers[0];
    else if (field == "widths")
        axis.widths = numbers;
    else if (field == "reversed")
        axis.reversed = true;
    else
        return false;
    return true;
}

//! Changes what is not of one axis.
void changeRest(DetectorDescription &description,
                const QString &what,
                const QVector<double> &numbers)
{
    if (what == "matrix")
        description.kind = DetectorKind::Matrix;
    else if (what == "channels")
        description.kind = DetectorKind::Channels;
    else if (what == "wiring")
        description.wiring = QVector<int>(numbers.begin(), numbers.end());
    else if (what == "readings")
        description.readings = int(numbers[0]);
    else if (what == "noise")
        description.noise = numbers[0];
    else if (what == "density")
        description.density = true;
    else if (what == "gains")
        for (const double gain : numbers) {
            description.channels.resize(description.channels.size() + 1);
            description.channels.last().gain = gain;
        }
    else
        qFatal("no such step: %s", qPrintable(what));
}

/*! Changes a description by a script, such as "x.positions 0 1 3; x.reversed; wiring 0 7 -1": numbers behind the name of what they
    are for. "x.count 3" states cells without a pitch, "x.uniform 4 2" four cells with a pitch of 2 mm. */
void change(DetectorDescription &description, const QString &script)
{
    for (const QString &step : script.split("; ")) {
        const QStringList words = step.split(' ');
        QVector<double> numbers;
        for (const QString &word : words.mid(1))
            numbers << word.toDouble();
        DetectorAxis &axis = step.startsWith("y.") ? description.y : description.x;
        if (!changeAxis(axis, words[0].section('.', 1), numbers))
            changeRest(description, words[0], numbers);
    }
}

} // namespace

class tst_DetectorLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void places_data()
    {
        tableFrom(R"(
            | script | positions | widths | edges
            a pitch has its zero in the middle | x.uniform 4 2 | -3 -1 1 3 | 2 2 2 2 | -4 4
            an offset moves all cells | x.uniform 3 1; x.offset 0.5 | -0.5 0.5 1.5 | 1 1 1 | -1 2
            a reversed axis changes its sign before the offset | x.at 0 1 3; x.reversed; x.offset 10 | 10 9 7 | 1 1.5 2 | 6 10.5
            without a pitch, cells are counted from 1 | x.count 3 | 1 2 3 | 1 1 1 | 0.5 3.5
            a reversed count | x.count 3; x.reversed | 3 2 1 | 1 1 1 | 0.5 3.5
            strips with gaps between them | x.at 0 2 6; x.widths 1.5 | 0 2 6 | 1.5 1.5 1.5 | -1 8
            densities are samples at thin wires | x.at 0 2 6; density | 0 2 6 | 0 0 0 | -1 8
            a single strip | x.uniform 1 3 | 0 | 3 | -1.5 1.5
        )");
    }
    void places()
    {
        DetectorDescription description = strips({});
        change(description, cell("script"));
        DetectorFault fault;
        const DetectorLayout layout = DetectorLayout::fromDescription(description, &fault);
        QCOMPARE(fault.message(), QString());
        QTEST(text(layout.positions(Axis::X)), "positions");
        QTEST(text(layout.widths(Axis::X)), "widths");
        QTEST(text({layout.lowerEdge(Axis::X), layout.upperEdge(Axis::X)}), "edges");
        for (int i = 0; i < layout.cells(Axis::X); ++i)
            QCOMPARE(layout.positionAt(Axis::X, i), layout.positions(Axis::X).at(i));
    }

    void indexesBetweenCellsHaveAPosition()
    {
        const auto layout =
            DetectorLayout::fromDescription(strips(DetectorAxis::at({0, 1, 3}, mm)));
        QCOMPARE(text({layout.positionAt(Axis::X, 0.5),
                       layout.positionAt(Axis::X, 1.25),
                       layout.positionAt(Axis::X, -1),
                       layout.positionAt(Axis::X, 2.5)}),
                 QString("0.5 1.5 -1 4"));
    }

    void mistakesAreToldWithTheirPlace_data()
    {
        tableFrom(R"(
            | script | message
            no cells | x.cells 0; x.positions | x.cells: the strips of neither x nor y are stated
            negative cells | y.cells -1 | y.cells: must be between 0 and 4096
            a matrix beyond all bounds | matrix; x.count 256; y.count 2000000000 | y.cells: must be between 0 and 256
            a matrix without rows | matrix | y.cells: a matrix has rows and columns
            repeated positions | x.positions 0 1 1
                | x.positions[2]: 1 follows 1: positions must rise, or fall, without repeating
            a position that is not a number | x.positions 0 nan 3 | x.positions[1]: is not a usable length
            a position too few | x.positions 0 1 | x.positions: has 2 positions for 3 cells
            positions and a pitch | x.pitch 1 | x.pitch: is stated beside positions
            a pitch of 0 | y.uniform 4 0 | y.pitch: is not above 0
            overlapping strips | x.widths 1.5 | x.widths[1]: overlaps the cell before it
            an infinite offset | x.offset inf | x.offset: is not a usable length
            a reading wired twice | wiring 0 1 0 | wiring[2]: reading 1 is wired twice
            a reading that no frame has | wiring 0 7 -1 | wiring[1]: there is no reading 8
            a short wiring table | wiring 0 | wiring: has 1 entry for 3 cells
            too few readings | readings 2 | readings: there are fewer readings (2) than cells (3)
            too few channels | gains 1 | channels: has 1 entry for 3 readings
            a gain of 0 | gains 1 0 1 | channels.gain[1]: is 0 or not a usable number
            a list of channels with an axis | channels | x: a list of channels has no axes
            a noise of 0 | noise 0 | noise: is not above 0
        )");
    }
    void mistakesAreToldWithTheirPlace()
    {
        DetectorDescription description = strips(DetectorAxis::at({0, 1, 3}, mm));
        change(description, cell("script"));
        DetectorFault fault;
        QVERIFY(DetectorLayout::fromDescription(description, &fault).isEmpty());
        QTEST(fault.message(), "message");
    }

    //! The display of the strip pair reads 2 x (index - 15.5) mm, of readings 0 to 31 and 64 to 95.
    void theStripPairIsAPreset()
    {
        const DetectorLayout layout = DetectorLayout::stripPair();
        QCOMPARE(layout.summary(), QString("strips 32 + 32, mm"));
        QCOMPARE(layout.readings(), 128);
        for (double index : {0.0, 7.3, 15.5, 22.123456789, 31.0})
            for (Axis axis : {Axis::X, Axis::Y})
                QVERIFY(layout.positionAt(axis, index) == 2.0 * (index - 15.5));
        QCOMPARE(layout.readingAt(31), 31);
        QCOMPARE(layout.readingAt(32), 64);
        QCOMPARE(layout.readingAt(63), 95);
        QCOMPARE(layout.readingAt(64), -1);
    }

    //! The display of the pixel matrix reads (column + 0.5 - 6) x 3.8F mm to the right, and up from the lower rows.
    void thePixelMatrixIsAPreset()
    {
        const DetectorLayout layout = DetectorLayout::pixelMatrix();
        QCOMPARE(layout.summary(), QString("matrix 12 x 12, mm"));
        QCOMPARE(layout.unwiredCells(), 24);
        for (int row = 0; row < 12; ++row) {
            QVERIFY(layout.positionAt(Axis::X, row) == (row + 0.5 - 6.0) * double(3.8F));
            QVERIFY(layout.positionAt(Axis::Y, row) == (6.0 - (row + 0.5)) * double(3.8F));
            for (int column = 0; column < 12; ++column)
                QCOMPARE(layout.readingAt(row * 12 + column), PixelWiring::readingAt(row, column));
        }
    }

    void equalDescriptionsGiveEqualLayoutsAndChannelsHaveDefaults()
    {
        DetectorDescription description = strips(DetectorAxis::at({0, 1, 3}, mm));
        const auto layout = DetectorLayout::fromDescription(description);
        QVERIFY(DetectorLayout::fromDescription(description) == layout);
        description.channels.resize(3);
        description.channels[2].gain = 1.5;
        const auto other = DetectorLayout::fromDescription(description);
        QVERIFY(other != layout);
        QVERIFY(DetectorLayout() != layout);
        QCOMPARE(other.channel(2).gain, 1.5);
        QCOMPARE(layout.channel(2).gain, 1.0);
        QCOMPARE(layout.channel(99).dead, false);
    }
};

CORVALE_QT_TEST_MAIN(tst_DetectorLayout)
#include "tst_DetectorLayout.moc"
