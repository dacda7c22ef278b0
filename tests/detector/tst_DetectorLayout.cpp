// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/DetectorLayout.h"
#include "tests/beam/profile/PixelWiring.h"
#include "tests/support/Rows.h"
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

} // namespace

using Change = std::function<void(DetectorDescription &)>;
Q_DECLARE_METATYPE(Change)

class tst_DetectorLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void places_data()
    {
        columns<Change, QString, QString, QString>("change", "positions", "widths", "edges");
        const auto row = [](const char *name, const Change &change) -> QTestData & {
            return QTest::newRow(name) << change;
        };
        row("a pitch has its zero in the middle",
            [](DetectorDescription &d) {
                d.x = DetectorAxis::uniform(4, 2, mm);
            })
            << "-3 -1 1 3"
            << "2 2 2 2"
            << "-4 4";
        row("an offset moves all cells",
            [](DetectorDescription &d) {
                d.x = DetectorAxis::uniform(3, 1, mm);
                d.x.offset = 0.5;
            })
            << "-0.5 0.5 1.5"
            << "1 1 1"
            << "-1 2";
        row("a reversed axis changes its sign before the offset",
            [](DetectorDescription &d) {
                d.x = DetectorAxis::at({0, 1, 3}, mm);
                d.x.reversed = true;
                d.x.offset = 10;
            })
            << "10 9 7"
            << "1 1.5 2"
            << "6 10.5";
        row("without a pitch, cells are counted from 1",
            [](DetectorDescription &d) {
                d.x = DetectorAxis::counted(3);
            })
            << "1 2 3"
            << "1 1 1"
            << "0.5 3.5";
        row("a reversed count",
            [](DetectorDescription &d) {
                d.x = DetectorAxis::counted(3);
                d.x.reversed = true;
            })
            << "3 2 1"
            << "1 1 1"
            << "0.5 3.5";
        row("strips with gaps between them",
            [](DetectorDescription &d) {
                d.x = DetectorAxis::at({0, 2, 6}, mm);
                d.x.widths = {1.5};
            })
            << "0 2 6"
            << "1.5 1.5 1.5"
            << "-1 8";
        row("densities are samples at thin wires",
            [](DetectorDescription &d) {
                d.x = DetectorAxis::at({0, 2, 6}, mm);
                d.density = true;
            })
            << "0 2 6"
            << "0 0 0"
            << "-1 8";
        row("a single strip",
            [](DetectorDescription &d) {
                d.x = DetectorAxis::uniform(1, 3, mm);
            })
            << "0"
            << "3"
            << "-1.5 1.5";
    }
    void places()
    {
        QFETCH(Change, change);
        DetectorDescription description = strips({});
        change(description);
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
        columns<Change, QString>("change", "message");
        const auto row = [](const char *name, const char *message, const Change &change) {
            QTest::newRow(name) << change << message;
        };
        row("no cells", "x.cells: the strips of neither x nor y are stated", [](auto &d) {
            d.x.cells = 0;
            d.x.positions.clear();
        });
        row("negative cells", "y.cells: must be between 0 and 4096", [](auto &d) {
            d.y.cells = -1;
        });
        row("a matrix beyond all bounds", "y.cells: must be between 0 and 256", [](auto &d) {
            d = {};
            d.kind = DetectorKind::Matrix;
            d.x = DetectorAxis::counted(256);
            d.y = DetectorAxis::counted(2000000000);
        });
        row("a matrix without rows", "y.cells: a matrix has rows and columns", [](auto &d) {
            d.kind = DetectorKind::Matrix;
        });
        row("repeated positions",
            "x.positions[2]: 1 follows 1: positions must rise, or fall, without repeating",
            [](auto &d) {
                d.x.positions = {0, 1, 1};
            });
        row("a position that is not a number",
            "x.positions[1]: is not a usable length",
            [](auto &d) {
                d.x.positions[1] = qQNaN();
            });
        row("a position too few", "x.positions: has 2 positions for 3 cells", [](auto &d) {
            d.x.positions.removeLast();
        });
        row("positions and a pitch", "x.pitch: is stated beside positions", [](auto &d) {
            d.x.pitch = 1;
        });
        row("a pitch of 0", "y.pitch: is not above 0", [](auto &d) {
            d.y = DetectorAxis::uniform(4, 0, mm);
        });
        row("overlapping strips", "x.widths[1]: overlaps the cell before it", [](auto &d) {
            d.x.widths = {1.5};
        });
        row("an infinite offset", "x.offset: is not a usable length", [](auto &d) {
            d.x.offset = qInf();
        });
        row("a reading wired twice", "wiring[2]: reading 1 is wired twice", [](auto &d) {
            d.wiring = {0, 1, 0};
        });
        row("a reading that no frame has", "wiring[1]: there is no reading 8", [](auto &d) {
            d.wiring = {0, 7, -1};
        });
        row("a short wiring table", "wiring: has 1 entries for 3 cells", [](auto &d) {
            d.wiring = {0};
        });
        row("too few readings", "readings: 2 readings are fewer than 3 cells", [](auto &d) {
            d.readings = 2;
        });
        row("too few channels", "channels: there are 1 channels for 3 readings", [](auto &d) {
            d.channels.resize(1);
        });
        row("a gain of 0", "channels.gain[1]: is 0 or not a usable number", [](auto &d) {
            d.channels.resize(3);
            d.channels[1].gain = 0;
        });
        row("a list of channels with an axis", "x: a list of channels has no axes", [](auto &d) {
            d.kind = DetectorKind::Channels;
        });
        row("a noise of 0", "noise: is not above 0", [](auto &d) {
            d.noise = 0;
        });
    }
    void mistakesAreToldWithTheirPlace()
    {
        QFETCH(Change, change);
        DetectorDescription description = strips(DetectorAxis::at({0, 1, 3}, mm));
        change(description);
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
