// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/DetectorFile.h"
#include "corvale_qt/detector/DetectorLines.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using Axis = DetectorLayout::Axis;

namespace {

QString text(const QVector<double> &numbers)
{
    QStringList words;
    for (double number : numbers)
        words << QString::number(number);
    return words.join(' ');
}

//! What a stream of so many readings is without lines about its detector.
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

class tst_DetectorFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

    //! The examples of the documentation, each in a file of its own, and the presets.
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
        const auto row =
            [](const char *name, const char *from, const char *to, const char *message) {
                QTest::newRow(name) << QByteArray(from) << QByteArray(to) << message;
            };
        row("no unit", ", \"unit\": \"mm\" }", " }", "line 4, x.unit: is missing");
        row("a key spelt with an escape",
            "\"pitch\"",
            "\"\\u0063ells\"",
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
        columns<QStringList, int, QString, QString, QString>("lines",
                                                             "readings",
                                                             "summary",
                                                             "x",
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
            "#detector {\"detector\":1,\"kind\":\"strips\",\"x\":{\"cells\":4}}|#pitch x 2 mm",
            4)
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
        QFETCH(QStringList, lines);
        QFETCH(int, readings);
        DetectorLines taken;
        for (const QString &line : qAsConst(lines)) {
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
        for (const char *line : {"#gain 1.02,0.98,1",
                                 "#pedestal 0.5",
                                 "#saturation 500",
                                 "#dead 3",
                                 "#noise 0.1",
                                 "#density"})
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

CORVALE_QT_TEST_MAIN(tst_DetectorFile)
#include "tst_DetectorFile.moc"
