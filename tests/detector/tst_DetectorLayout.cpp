// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/DetectorFile.h"
#include "corvale_qt/detector/DetectorLayout.h"
#include "corvale_qt/detector/DetectorLines.h"
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
void changeRest(DetectorDescription &description, const QString &what,
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

//! What a stream of this many readings is without lines about its detector.
DetectorDescription stream(DetectorKind kind, int readings)
{
    DetectorDescription description;
    description.kind = kind;
    description.readings = readings;
    return description;
}

const QByteArray kHarp = R"({
  "detector": 1,
  "kind": "strips",
  "x": { "positions": [-26.3, -18, 0, 18, 26.3], "unit": "mm" },
  "y": { "cells": 4, "pitch": 2.5, "unit": "mm", "direction": "reverse" },
  "noise": 0.02,
  "verdict": { "residual_rms": 0.03 },
  "channels": { "gain": 1.5, "dead": [3, 9] }
})";

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
        QCOMPARE(text({layout.positionAt(Axis::X, 0.5), layout.positionAt(Axis::X, 1.25),
                       layout.positionAt(Axis::X, -1), layout.positionAt(Axis::X, 2.5)}),
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

    void aFileIsRead()
    {
        DetectorFault fault;
        const DetectorLayout layout = detectorFromJson(kHarp, &fault);
        QCOMPARE(fault.message(), QString());
        QCOMPARE(layout.summary(), QString("strips 5 + 4, mm"));
        QCOMPARE(text(layout.positions(Axis::X)), QString("-26.3 -18 0 18 26.3"));
        QCOMPARE(text(layout.positions(Axis::Y)), QString("3.75 1.25 -1.25 -3.75"));
        QCOMPARE(layout.channel(8).gain, 1.5);
        QVERIFY(layout.channel(2).dead && layout.channel(8).dead && !layout.channel(3).dead);
        QCOMPARE(layout.description().noise, 0.02);
        QCOMPARE(layout.description().verdictLimits.residualRms, 0.03);
        QCOMPARE(layout.description().verdictLimits.worstResidualRms, 0.2);
    }

    //! The presets, and the examples of the documentation, each in a separate file.
    void whatIsWrittenIsReadAgain_data()
    {
        QTest::addColumn<DetectorLayout>("layout");
        QTest::newRow("strip pair") << DetectorLayout::stripPair();
        QTest::newRow("pixel matrix") << DetectorLayout::pixelMatrix();
        QTest::newRow("harp") << detectorFromJson(kHarp);
        QTest::newRow("usual limits that are stated")
            << detectorFromJson(R"({"detector":1,"kind":"channels","readings":4,"verdict":{}})");
        const QDir folder(QStringLiteral(CORVALE_QT_SOURCE_DIR "/docs/detectors"));
        const QStringList names = folder.entryList({QStringLiteral("*.json")});
        QVERIFY(names.size() >= 4);
        for (const QString &name : names) {
            DetectorFault fault;
            QTest::newRow(qPrintable(name)) << detectorFromFile(folder.filePath(name), &fault);
            QCOMPARE(fault.message(), QString());
        }
    }
    void whatIsWrittenIsReadAgain()
    {
        QFETCH(DetectorLayout, layout);
        QVERIFY(!layout.isEmpty());
        for (bool compact : {false, true}) {
            DetectorFault fault;
            const QByteArray json = detectorToJson(layout, compact);
            QCOMPARE(json.count('\n') == 0, compact);
            const DetectorLayout read = detectorFromJson(json, &fault);
            QCOMPARE(fault.message(), QString());
            QVERIFY(read == layout);
        }
    }

    void mistakesAreToldWithLineAndKey_data()
    {
        tableFrom(R"(
            | QByteArray from | QByteArray to | message
            an open end               | 9] }\n} | 9] }\n | line 9, unterminated object
            another version           | : 1, | : 2, | line 2, detector: must be the version, 1
            an unknown kind           | strips | stripes | line 3, kind: is none of: channels, strips, matrix
            falling back              | 18, 26 | 28, 26
                | line 4, x.positions[4]: 26.3 follows 28: positions must rise, or fall, without repeating
            a text among numbers      | -18 | "-18" | line 4, x.positions[1]: is not a number
            half a cell               | "cells": 4 | "cells": 4.5 | line 5, y.cells: is not a whole number from 0 to 65536
            a spelling mistake        | "pitch" | "pich" | line 5, y.pich: is not a known key
            a key twice               | "noise" | "y": { "cells": 3 },\n"noise"
                | line 6, the key "y" is given twice, or with a backslash
            a limit below 0           | : 0.03 | : -0.03 | line 7, verdict.residual_rms: is not a number from 0 on
            a limit that nobody knows | residual_rms | residuals | line 7, verdict.residuals: is not a known key
            a gain too few            | 1.5 | [1.5, 1.4] | line 8, channels.gain: has 2 numbers for 9 readings
            a gain of 0               | 1.5 | [1,1,1,0,1,1,1,1,1] | line 8, channels.gain[3]: is 0 or not a usable number
            a channel 10              | 3, 9 | 3, 10 | line 8, channels.dead[1]: there is no such channel
            a list for an object      | { "gain" | [ 1 ], "a": { "gain" | line 8, channels: is not an object in braces
            huge numbers              | 0.02 | 1e999 | line 6, illegal number
            rows in the wiring        | "noise": 0.02 | "wiring": [[1,2,3],\n[4,5,6],\n[7,1,9]]
                | line 8, wiring[2][1]: reading 1 is wired twice
        )");
        const auto row = [](const char *name, const char *from, const char *to,
                            const char *message) {
            QTest::newRow(name) << QByteArray(from) << QByteArray(to) << message;
        };
        row("no unit", ", \"unit\": \"mm\" }", " }", "line 4, x.unit: is missing");
        row("a key spelt with an escape", "\"pitch\"", "\"\\u0063ells\"",
            "line 5, the key \"\\u0063ells\" is given twice, or with a backslash");
    }
    void mistakesAreToldWithLineAndKey()
    {
        QFETCH(QByteArray, from);
        QByteArray json = kHarp;
        const int at = json.indexOf(from);
        QVERIFY(at >= 0);
        json.replace(at, from.size(), cell<QByteArray>("to"));
        DetectorFault fault;
        QVERIFY(detectorFromJson(json, &fault).isEmpty());
        QTEST(fault.message(), "message");
    }

    void hostileTextsAreRefused()
    {
        const QByteArray deep(100000, '[');
        const QByteArray large(kLongestDetectorFile + 1, ' ');
        QByteArray many =
            "{\"detector\":1,\"kind\":\"strips\",\"x\":{\"unit\":\"mm\",\"positions\":[";
        for (int i = 0; i < 70000; ++i)
            many += QByteArray::number(i) + ',';
        many += "0]}}";
        for (const QByteArray &json : {deep, large, many, QByteArray("[]"), QByteArray()}) {
            DetectorFault fault;
            QVERIFY(detectorFromJson(json, &fault).isEmpty());
            QVERIFY(!fault.isEmpty());
        }
        DetectorFault fault;
        QVERIFY(detectorFromFile(QStringLiteral("/nowhere/detector.json"), &fault).isEmpty());
        QCOMPARE(fault.message(), QString("No such file or directory"));
    }

    void linesMakeALayout_data()
    {
        columns<QStringList, int, QString, QString, QString>("lines", "readings", "summary", "x",
                                                             "y");
        const auto row = [](const char *name, const char *lines, int readings) -> QTestData & {
            return QTest::newRow(name) << QString::fromLatin1(lines).split('|') << readings;
        };
        row("a pitch for both planes", "#pitch 2 mm", 4) << "strips 2 + 2, mm"
                                                         << "-1 1"
                                                         << "-1 1";
        row("a pitch each", "#pitch x 2 mm|#pitch y 3 cm", 4) << "strips 2 + 2, mm"
                                                              << "-1 1"
                                                              << "-1.5 1.5";
        row("numbers of strips", "#layout strips 3 1|#pitch 2 mm", 4) << "strips 3 + 1, mm"
                                                                      << "-2 0 2"
                                                                      << "0";
        row("positions tell the numbers", "#positions x -26.3,0, 26.3 mm|#pitch y 2 mm", 4)
            << "strips 3 + 1, mm"
            << "-26.3 0 26.3"
            << "0";
        row("an offset in any order", "#offset x 0.5 mm|#pitch 2 mm|#direction y reverse", 4)
            << "strips 2 + 2, mm"
            << "-0.5 1.5"
            << "1 -1";
        row("numbers alone are counted in cells", "#layout strips 2 2", 4)
            << "strips 2 + 2, positions in cells"
            << "1 2"
            << "1 2";
        row("rows and columns", "#layout matrix 1 4|#pitch 2 mm", 4) << "matrix 1 x 4, mm"
                                                                     << "-3 -1 1 3"
                                                                     << "0";
        row("JSON, amended",
            "#detector {\"detector\":1,\"kind\":\"strips\",\"x\":{\"cells\":4}}|#pitch x 2 mm", 4)
            << "strips 4 + 0, mm"
            << "-3 -1 1 3"
            << "";
        row("a pitch replaces positions", "#positions x 1,2 mm|#pitch x 4 mm", 4)
            << "strips 2 + 2, mm"
            << "-2 2"
            << "1 2";
    }
    void linesMakeALayout()
    {
        QFETCH(int, readings);
        DetectorLines taken;
        for (const QString &line : cell<QStringList>("lines")) {
            QVERIFY2(taken.take(line) == DetectorLines::Line::Taken,
                     qPrintable(taken.fault().message()));
        }
        DetectorFault fault;
        const DetectorLayout layout = taken.layout(stream(DetectorKind::Strips, readings), &fault);
        QCOMPARE(fault.message(), QString());
        QTEST(layout.summary(), "summary");
        QTEST(text(layout.positions(Axis::X)), "x");
        QTEST(text(layout.positions(Axis::Y)), "y");
    }

    void linesAboutChannels()
    {
        DetectorLines lines;
        for (const char *line : {"#gain 1.02,0.98,1", "#pedestal 0.5", "#saturation 500", "#dead 3",
                                 "#noise 0.1", "#density"})
            QVERIFY(lines.take(line) == DetectorLines::Line::Taken);
        const DetectorLayout layout = lines.layout(stream(DetectorKind::Channels, 3));
        QCOMPARE(layout.summary(), QString("3 channels"));
        QCOMPARE(layout.channel(1).gain, 0.98);
        QCOMPARE(layout.channel(2).pedestal, 0.5);
        QCOMPARE(layout.channel(0).saturation, 500.0);
        QVERIFY(layout.channel(2).dead && !layout.channel(1).dead);
        QVERIFY(layout.description().density);
        QVERIFY(lines.take("#pitch x 2 mm") == DetectorLines::Line::Taken);
        QCOMPARE(lines.layout(stream(DetectorKind::Channels, 3)).summary(),
                 QString("strips 3 + 0, mm"));
        QVERIFY(DetectorLines().layout(stream(DetectorKind::Strips, 4)).isEmpty());
    }

    void wrongLinesAreTold_data()
    {
        QTest::addColumn<QString>("message");
        QTest::newRow("#pitch x two mm") << "#pitch: the pitch is not a number above 0";
        QTest::newRow("#pitch 2") << "#pitch: the unit is missing";
        QTest::newRow("#positions x 1,b,3 mm") << "#positions: number 2, \"b\", is not a number";
        QTest::newRow("#positions x") << "#positions: the numbers are missing";
        QTest::newRow("#offset 1 cm") << "#offset: the unit is cm, but mm before";
        QTest::newRow("#layout strips 16")
            << "#layout: two numbers of cells must follow strips or matrix";
        QTest::newRow("#gain") << "#gain: the numbers are missing";
        QTest::newRow("#dead 0") << "#dead: there is no channel 0; channels are counted from 1";
        QTest::newRow("#direction x down")
            << "#direction: the direction is neither forward nor reverse";
        QTest::newRow("#noise nan") << "#noise: the noise is not a number above 0";
        QTest::newRow("#detector {\"detector\":1}") << "#detector: kind: is missing";
    }
    void wrongLinesAreTold()
    {
        DetectorLines lines;
        QVERIFY(lines.take("#pitch 2 mm") == DetectorLines::Line::Taken);
        QVERIFY(lines.take(QTest::currentDataTag()) == DetectorLines::Line::Wrong);
        QTEST(lines.fault().message(), "message");
        const auto layout = lines.layout(stream(DetectorKind::Strips, 4));
        QCOMPARE(layout.summary(), QString("strips 2 + 2, mm"));
        QVERIFY(lines.take("#range 1,2") == DetectorLines::Line::Other);
    }

    void linesMustFitTheStream_data()
    {
        QTest::addColumn<QString>("message");
        QTest::newRow("#layout strips 5 5")
            << "readings: the detector has 10 readings, the stream 4";
        QTest::newRow("#layout strips 1 2")
            << "readings: the detector has 3 readings, the stream 4";
        QTest::newRow("#gain 1,2,3") << "#gain: has 3 numbers for 4 readings";
        QTest::newRow("#dead 5") << "#dead: there is no channel 5";
        QTest::newRow("#positions x 3,1,2 mm")
            << "x.positions[2]: 2 follows 1: positions must rise, or fall, without repeating";
        QTest::newRow("#positions x 1,2,3,4,5 mm")
            << "readings: there are fewer readings (4) than cells (5)";
        QTest::newRow("#detector {\"detector\":1,\"kind\":\"strips\",\"x\":{\"cells\":3}}")
            << "readings: the detector has 3 readings, the stream 4";
    }
    void linesMustFitTheStream()
    {
        DetectorLines lines;
        QVERIFY(lines.take(QTest::currentDataTag()) == DetectorLines::Line::Taken);
        DetectorFault fault;
        QVERIFY(lines.layout(stream(DetectorKind::Strips, 4), &fault).isEmpty());
        QTEST(fault.message(), "message");
    }
};

CORVALE_QT_TEST_MAIN(tst_DetectorLayout)
#include "tst_DetectorLayout.moc"
