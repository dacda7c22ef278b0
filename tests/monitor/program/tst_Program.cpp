// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/monitor/support/FileSizeLimit.h"
#include "tests/monitor/support/TaskInFolder.h"
#include "tests/support/Files.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestMain.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <csignal>
#include <set>

//! The program as a user starts it: pictures of every display, and exit codes.
class tst_Program : public QObject, protected TaskInFolder
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        putFile(path("good.csv"), "time_s,a_nA,b_nA\n0,1,2\n0.5,2,3\n1,3,7\n");
        putFile(path("bad.csv"), "time_s,a_nA,b_nA\n0,1,2\n0.5,2,3\nwhat is this\n1,3,7\n");
        putFile(path("empty.csv"), "");
        putFile(path("cut.h5"), "\x89HDF\r\n\x1a\n");
        putFile(path("names.csv"), "time_s,a_nA\n");
        QByteArray pauses =
            "#corvale 1\n# source: tcp://here\n#t0 2026-03-01T12:00:00Z\n#channels a nA\n";
        for (const int time : {0, 1, 2, 3, 4, 9, 10, 11, 12, 42, 43, 44, 45, 53})
            pauses += QByteArray::number(time) + ",1\n";
        for (const char *name :
             {"set.csv", "set-2.csv", "set-4.csv.zst", "set-8.csv", "set-130000.csv"})
            putFile(path(name), pauses);
        putFile(path("set-6.csv"), "#corvale 1\n# source: tcp://elsewhere\n0,1\n");
        putFile(path("dark.csv"), "#layout strips\n0" + QByteArray(",0").repeated(64) + "\n");
    }

    void exitCodes_data()
    {
        tableFrom(R"(
            | arguments | int code | said
            help                       | --help | 0 | Usage: corvale-monitor
            version                    | --version | 0 | corvale-monitor 2.
            good statistics            | --stats good.csv | 0 | nA
            good check                 | --check good.csv | 0 | 3 readings, 0 lines dropped
            good conversion            | --convert out.csv good.csv | 0 |
            option                     | --nonsense | 1 | Try corvale-monitor --help
            source                     | --stats gopher://x | 1 | not a known kind of source
            display that the data lack | --screenshot v.png --view spots good.csv | 1 | no data for the display
            picture without a beam     | --screenshot v.png --view profile dark.csv | 0 |
            fits without a beam        | --stats dark.csv | 0 | no peak above 5 times the noise
            gaps                       | --check set-130000.csv | 0
                | 3 gaps\nthe longest gap lasts 30 s, after 12 s (2026-03-01T12:00:12.000Z)\n
            missing file               | --check set-4.csv.zst | 2 | missing of this recording: set-3.csv\n
            bad line                   | --stats bad.csv | 2 | 1 line could not be used; --check shows it
            bad line found             | --check bad.csv | 2 | what is this
            empty                      | --stats empty.csv | 2 | no readings
            only names                 | --check names.csv | 2 | no readings
            no file                    | --stats nowhere.csv | 3 | nowhere.csv cannot be opened
            no picture of no file      | --screenshot v.png nowhere.csv | 3 | Check the path
            a folder                   | --stats . | 3 | no files called *.pgm
            nobody listens             | --stats tcp://127.0.0.1:1 | 3 | switched on
            conversion to HDF5         | --convert good.h5 good.csv | 0 |
            statistics of HDF5         | --stats good.h5 | 0 | nA
            check of HDF5              | --check good.h5 | 0 | 3 readings, 0 lines dropped
            conversion from HDF5       | --convert again.csv good.h5 | 0 |
            existing HDF5              | --convert good.h5 good.csv | 4 | good.h5 exists already
            HDF5 that is the source    | --convert good.h5 --overwrite good.h5 | 4 | is the source
            HDF5 without readings      | --convert none.h5 names.csv | 2 | no readings
            no folder for HDF5         | --convert no/o.h5 good.csv | 4 | no/o.h5 cannot be written
            HDF5 that is cut           | --stats cut.h5 | 3 | it is not a whole HDF5 file
            repair of HDF5             | --repair cut.h5 | 2 | --repair does not read
            existing output            | --convert good.csv good.csv | 4 | exists already
            no folder for output       | --convert no/o.csv good.csv | 4 | no/o.csv
            no folder for the picture  | --screenshot no/v.png good.csv | 4 | no/v.png
            output that is the source  | --convert good.csv --overwrite ./good.csv | 4 | is the source
            full disk below a window   | sim:ic4 --settings full.xui --record /dev/full --overwrite --after 5frames | 4
                | 5 readings are missing: /dev/full: No space left
            full disk                  | --convert /dev/full --overwrite good.csv | 4 | /dev/full
        )");
        // on stdout or stderr
    }

    void exitCodes()
    {
        QFETCH(QString, arguments);
        QFETCH(int, code);
        if (arguments.contains("/dev/full") && !hasFullDevice())
            QSKIP("there is no full device here");
        const Outcome outcome = run(arguments.split(QLatin1Char(' ')));
        const QByteArray all = outcome.out + outcome.err;
        if (all.contains("built without HDF5"))
            QSKIP("the monitor was built without HDF5");
        QVERIFY2(outcome.code == code, all + " code " + QByteArray::number(outcome.code));
        QVERIFY2(all.contains(cell("said").toUtf8()), all);
        const bool errorOnStderr = code == 0 || !outcome.err.isEmpty();
        QVERIFY(errorOnStderr);
    }

    void everyDisplay_data()
    {
        columns<QString, QString>("source", "display");
        row("strip", "sim:ic4", "strip");
        row("scope", "sim:ic4", "scope");
        row("histogram", "sim:strips", "histogram");
        row("profile of strips", "sim:strips", "profile");
        row("profile of pixels", "sim:pixels", "profile");
        row("position", "sim:pixels", "position");
        row("spots", "sim:spots", "spots");
    }

    //! The middle of the window, where the display is, must show more than an empty display.
    void everyDisplay()
    {
        QFETCH(QString, display);
        QFile::remove(path("display.png"));
        // A sweep is drawn when it is complete.
        const QString frames = display == "scope" ? "300frames" : "25frames";
        const QString arguments =
            "%1 --screenshot display.png --view %2 --size 1300x850 --after %3";
        const Outcome outcome = run(arguments.arg(cell("source"), display, frames).split(' '));
        QVERIFY2(outcome.code == 0, outcome.err);
        const QImage image(path("display.png"));
        QCOMPARE(image.size(), QSize(1300, 850));
        const QImage middle = image.copy(400, 100, 515, 430);
        std::set<QRgb> colours;
        forEachPixel(middle, [&](int x, int y) { colours.insert(middle.pixel(x, y)); });
        const int bright = countPixels(middle, [](const QColor &color) {
            return color.value() > 150 && color.saturation() > 150;
        });
        QVERIFY(display == "spots" ? colours.size() > 60 : bright > 20);
    }

    void picturesAreTheSameEachTime()
    {
        QByteArray table = "time_s,left_nA,right_nA\n";
        for (int i = 0; i < 500; ++i)
            table += QByteArray::number(0.01 * i) + "," + QByteArray::number(i % 50) + ","
                + QByteArray::number(i % 70) + "\n";
        putFile(path("saw.csv"), table);
        QImage pictures[2];
        for (QImage &picture : pictures) {
            QVERIFY(run({"saw.csv", "--screenshot", "saw.png", "--after", "300frames"}).code == 0);
            picture = QImage(path("saw.png")).copy(400, 60, 700, 500);
        }
        QCOMPARE(pictures[0], pictures[1]);
    }

    void aPictureWithNothingInIt()
    {
        QFile::remove(path("none.png"));
        // The terminal is told in English, whatever the language of the picture.
        const Outcome empty = run({"names.csv", "--language", "de", "--screenshot", "none.png"});
        QCOMPARE(empty.code, 2);
        QVERIFY2(empty.err.contains("there is nothing to draw"), empty.err.constData());
        QVERIFY(!QFile::exists(path("none.png")));
        // The source sends lines, but no readings.
        const Outcome talk =
            run({"-", "--screenshot", "none.png"}, "HTTP/1.1 400 Bad Request\r\n\r\n");
        QCOMPARE(talk.code, 2);
        QVERIFY(!QFile::exists(path("none.png")));
    }

    void statisticsOfALongPipe()
    {
        QByteArray lines = "#corvale 1\n#channels a,b,c\n#unit nA\n";
        constexpr int count = 200000;
        for (int i = 0; i < count; ++i)
            lines += QByteArray::number(i) + ",1," + QByteArray::number(i % 2) + ",-5\n";
        const Outcome outcome = run({"-", "--stats", "--json"}, lines);
        QVERIFY2(outcome.code == 0, outcome.err);
        const QJsonObject report = QJsonDocument::fromJson(outcome.out).object();
        QCOMPARE(report["readings"].toInt(), count);
        const QJsonArray channels = report["channels"].toArray();
        QCOMPARE(channels.size(), 3);
        QCOMPARE(channels[1].toObject()["mean"].toDouble(), 0.5);
        QCOMPARE(channels[1].toObject()["n"].toInt(), count);
        QCOMPARE(channels[2].toObject()["max"].toDouble(), -5.0);
    }

    //! Each source has a report, lines and a recording of its own; a fault of one of them is reported with its name.
    void severalSources()
    {
        putFile(path("east/halo.csv"),
                "#t0 2026-03-01T12:00:00Z\ntime_s,a_nA\n0,1\n0.1,2\n0.2,6\n");
        putFile(path("west/halo.csv"), "#t0 2026-03-01T12:00:02.5Z\ntime_s,a_nA\n0,10\n1,30\n");
        const QStringList both{"east/halo.csv", "--source", "west=west/halo.csv"};
        const Outcome told = run(both + QStringList{"--stats", "--json", "--record", "run.csv"});
        QVERIFY2(told.code == 0, told.err);
        QStringList reports;
        for (const QJsonValue value : QJsonDocument::fromJson(told.out)["sources"].toArray())
            reports += QString("%1 %2 %3 from %4")
                           .arg(value["name"].toString())
                           .arg(value["readings"].toInt())
                           .arg(value["channels"][0]["mean"].toDouble())
                           .arg(value["start_time"].toString());
        QCOMPARE(reports,
                 QStringList({"halo 3 3 from 2026-03-01T12:00:00.000Z",
                              "west 2 20 from 2026-03-01T12:00:02.500Z"}));
        // The recordings are what the sources were.
        QVERIFY(!QFile::exists(path("run.csv")));
        const Outcome check = run({"run-west.csv", "run-halo.csv", "bad.csv", "--check"});
        QCOMPARE(check.code, 2);
        for (const char *line :
             {"run-west: 2 readings, 0 lines dropped", "run-halo: 3 readings, 0 lines dropped",
              "bad: 3 readings, 1 line dropped"})
            QVERIFY2(check.out.contains(line), check.out);
        QCOMPARE(check.out.count("what is this"), 1);

        // The same names are numbered; a source that is lost does not end the others.
        const Outcome lost = run({"east/halo.csv", "west/halo.csv", "nowhere.csv", "--stats"});
        QCOMPARE(lost.code, 3);
        QVERIFY2(lost.err.contains("nowhere: nowhere.csv cannot be opened"), lost.err);
        QVERIFY2(lost.out.contains("name      halo\n") && lost.out.contains("name      halo-2\n"),
                 lost.out);
        const Outcome itself = run(both + QStringList{"--stats", "--record", "west/halo.csv"});
        QCOMPARE(itself.code, 0); // the files have other names
        putFile(path("x.csv"), "0,1\n");
        putFile(path("x-west.csv"), "0,1\n1,2\n");
        const Outcome replaced = run({"--source", "west=x.csv", "x-west.csv", "--stats", "--record",
                                      "x.csv", "--overwrite"});
        QCOMPARE(replaced.code, 4);
        QVERIFY2(replaced.err.contains("x-west.csv exists already and is the source"),
                 replaced.err);
    }

    void severalSourcesInAWindow()
    {
        const Outcome window =
            run({"sim:ic4", "--source", "halo=sim:strips", "--settings", "beside.xui", "--record",
                 "beside.csv", "--after", "50readings"});
        QVERIFY2(window.code == 0, window.err);
        QCOMPARE(run({"beside-ic4.csv", "beside-halo.csv", "--check"}).code, 0);
        const Outcome tape = run({"sim:ic4", "good.csv", "--settings", "beside.xui"});
        QCOMPARE(tape.code, 1);
        QVERIFY2(tape.err.contains("good.csv is a recording, and"), tape.err);
    }

    void twentySources()
    {
        QDir(m_folder.path()).mkpath("many");
        QStringList arguments{"--stats", "--json", "--after", "50readings", "--record", "many"};
        for (int i = 1; i <= 20; ++i)
            arguments += QString("sim:ic4?seed=%1").arg(i);
        const Outcome outcome = run(arguments);
        QVERIFY2(outcome.code == 0, outcome.err);
        const QJsonArray sources = QJsonDocument::fromJson(outcome.out)["sources"].toArray();
        QCOMPARE(sources.size(), 20);
        for (const QJsonValue &source : sources)
            QCOMPARE(source["readings"].toInt(), 50);
        QCOMPARE(QDir(path("many")).entryList({"corvale-*-ic4*.csv"}).size(), 20);
    }

    //! The fits find Gaussians of known positions and widths.
    void lastFits()
    {
        QByteArray line = "0";
        for (const double mean : {12.25, 20.5})
            for (int i = 1; i <= 32; ++i)
                line +=
                    "," + QByteArray::number(50.0 * std::exp(-0.5 * std::pow((i - mean) / 3.0, 2)));
        const Outcome outcome =
            run({"-", "--stats", "--json"}, "#corvale 1\n#layout strips\n" + line + "\n");
        QVERIFY2(outcome.code == 0, outcome.err);
        const QJsonArray fits = QJsonDocument::fromJson(outcome.out).object()["fits"].toArray();
        QCOMPARE(fits.size(), 2);
        const double expected[] = {12.25, 20.5};
        for (int i = 0; i < 2; ++i) {
            const QJsonObject fit = fits[i].toObject();
            QVERIFY(fit["valid"].toBool());
            QVERIFY(std::abs(fit["position"].toDouble() - expected[i]) < 1e-3);
            QVERIFY(std::abs(fit["sigma"].toDouble() - 3.0) < 1e-3);
            QVERIFY(std::abs(fit["integral"].toDouble() - 50.0 * 3.0 * std::sqrt(2.0 * M_PI))
                    < 0.5);
        }
    }

    //! A window of one strip to each side of the peak cuts off the tails; the fit of all strips does not follow it.
    void reportsUseTheFitParametersOfAWindow()
    {
        QByteArray line = "0";
        for (int i = 0; i < 64; ++i)
            line += "," + QByteArray::number(10.0 * std::exp(-std::pow((i % 32 - 15) / 4.0, 2)));
        putFile(path("kept.ini"),
                "[StatisticsSetupPage]\ncenter-of-gravity=true\ncenter-of-gravity-window=true\n"
                "center-of-window=1\n");
        const auto sigma = [&](const QStringList &more) {
            const Outcome outcome = run(QStringList{"-", "--stats", "--json"} + more,
                                        "#corvale 1\n#layout strips\n" + line + "\n");
            const auto report = QJsonDocument::fromJson(outcome.out).object();
            for (const QJsonValue estimate : report["estimates"].toArray())
                if (estimate["estimator"].toString() == "centre_of_gravity")
                    return estimate["sigma"].toDouble();
            return 0.0;
        };
        QVERIFY(sigma({}) > 2.0);
        const double cut = sigma({"--settings", path("kept.ini")});
        QVERIFY2(cut > 0.7 && cut < 1.0, qPrintable(QString::number(cut)));
    }

    //! A flat field has no Gaussian, though a regression finds one.
    void aFitThatDescribesNothingIsNotValid()
    {
        QByteArray line = "0";
        for (int i = 0; i < 64; ++i)
            line += "," + QByteArray::number(10.0 * std::exp(-std::pow((i % 32 - 15.5) / 8.0, 8)));
        const Outcome outcome =
            run({"-", "--stats", "--json"}, "#corvale 1\n#layout strips\n" + line + "\n");
        const QJsonArray fits = QJsonDocument::fromJson(outcome.out).object()["fits"].toArray();
        QCOMPARE(fits.size(), 2);
        // Limits from settings that are not there are the usual ones, and nothing is written.
        QCOMPARE(run({"-", "--stats", "--json", "--settings", path("no/none.xui")},
                     "#corvale 1\n#layout strips\n" + line + "\n")
                     .out,
                 outcome.out);
        QVERIFY(!QFileInfo::exists(path("no")));
        for (const QJsonValue &fit : fits) {
            QCOMPARE(fit["unit"].toString(), QString("channels"));
            QVERIFY(!fit["valid"].toBool() && fit["position"].isUndefined());
            QVERIFY2(fit["message"].toString().startsWith("DATA NOT VALID: "),
                     qPrintable(fit["message"].toString()));
        }
    }

    //! Each plane has a fit of its own, however many strips it has; with places, the table shows them in millimetres only.
    void fitsOfUnequalPlanes()
    {
        QByteArray beam = "0", flat = "0";
        for (int i = 1; i <= 16; ++i) {
            beam += "," + QByteArray::number(50.0 * std::exp(-0.5 * std::pow((i - 9.25) / 2, 2)));
            flat += "," + QByteArray::number(10.0 * std::exp(-std::pow((i - 8.5) / 4, 8)));
        }
        for (int i = 1; i <= 8; ++i)
            beam += "," + QByteArray::number(50.0 * std::exp(-0.5 * std::pow((i - 4.5) / 1.2, 2)));
        const QByteArray two = "#corvale 1\n#layout strips 16 8\n#pitch 2 mm\n" + beam + "\n";
        const QByteArray one = "#corvale 1\n#layout strips 16 0\n#pitch 2 mm\n" + flat + "\n";
        const auto report = [this](const QByteArray &lines) {
            return QJsonDocument::fromJson(run({"-", "--stats", "--json"}, lines).out).object();
        };
        const QJsonArray planes = report(two)["fits"].toArray();
        QCOMPARE(planes.size(), 2);
        QVERIFY(std::abs(planes[0].toObject()["position"].toDouble() - 9.25) < 1e-3);
        QVERIFY(std::abs(planes[1].toObject()["position"].toDouble() - 4.5) < 1e-3);
        QCOMPARE(report(one)["layout"].toString(), QString("strips"));
        QCOMPARE(report(one)["fits"].toArray().size(), 1);
        QVERIFY(!report(one)["fits"].toArray()[0].toObject()["valid"].toBool());
        const QByteArray table = run({"-", "--stats"}, two).out;
        QVERIFY2(table.contains("regression") && !table.contains("in channels"), table);
    }

    //! A beam on 24 strips of 2 mm, from the side that counts the other way, with a pedestal and two dead strips.
    void estimatesOnADetector()
    {
        const auto estimate = [this](const QStringList &arguments, const QByteArray &lines,
                                     const QString &name) {
            const Outcome outcome = run(arguments, lines);
            const QJsonObject report = QJsonDocument::fromJson(outcome.out).object();
            for (const auto &value : report["estimates"].toArray())
                if (value.toObject()["estimator"].toString() == name)
                    return value.toObject();
            return QJsonObject();
        };
        QByteArray line = "0";
        for (int i = 0; i < 24; ++i) {
            const double place = -2 * (i - 11.5);
            const double charge = 200 * std::exp(-0.5 * std::pow((place + 5) / 6, 2));
            line += "," + QByteArray::number(i == 2 || i == 16 ? 0.0 : 0.4 + 1.02 * charge);
        }
        const QString file = QStringLiteral(CORVALE_QT_SOURCE_DIR "/docs/detectors/strips.json");
        const QStringList stats{"-", "--stats", "--json"};
        const QJsonObject fit =
            estimate(stats + QStringList{"--detector", file}, line + "\n", "least_squares");
        QVERIFY(std::abs(fit["position"].toDouble() + 5) < 1e-3);
        QVERIFY(std::abs(fit["sigma"].toDouble() - 6)
                < 0.03); // the fit averages over 1.8 mm, the line does not
        QCOMPARE(fit["unit"].toString(), QString("mm"));
        QCOMPARE(fit["plane"].toString(), QString("x"));
        QCOMPARE(fit["verdict"].toString(), QString("DATA VALID, FIT POOR"));
        QVERIFY(fit["reasons"].toArray()[0].toString().endsWith("in dead, hot or saturated cells"));

        // Without the description, the channels are unrelated unless somebody says otherwise: positions are in cells, and the dead strips spoil what nobody said.
        QCOMPARE(estimate(stats, line + "\n", "least_squares"), QJsonObject());
        const QJsonObject blind =
            estimate(stats + QStringList{"--fit-channels"}, line + "\n", "least_squares");
        QCOMPARE(blind["unit"].toString(), QString("cells"));
        QCOMPARE(blind["plane"].toString(), QString("all"));
        QVERIFY(blind["reasons"].toArray()[0].toString().startsWith("the residuals are"));

        // A preset: charge in a corner, where it has no pixel, is told, and makes the sum wrong.
        QByteArray corner = "0,100";
        for (int i = 1; i < 144; ++i)
            corner += i == 77 || i == 78 ? ",50" : ",1";
        const QStringList preset{"-", "--stats", "--detector", "preset:pixels144"};
        const Outcome told = run(preset, "#layout pixels\n" + corner + "\n");
        QCOMPARE(told.code, 2);
        QVERIFY2(told.out.contains("24 cells are not wired: 123 left out"), told.out);
        QVERIFY2(told.out.contains("matrix 12 x 12, mm"), told.out);
        // Of all readings, also if the last one has none.
        const QByteArray worse = "1,300" + corner.mid(5) + "\n";
        const QByteArray dark = "2" + QByteArray(",0").repeated(144) + "\n";
        for (const char *task : {"--check", "--stats"}) {
            const Outcome cells = run({"-", task, "--detector", "preset:pixels144"},
                                      "#layout pixels\n" + corner + "\n" + worse + dark);
            QCOMPARE(cells.code, 2);
            QVERIFY2(cells.out.contains(
                         "readings with charge where the detector has no cell: 2; the worst, at "
                         "1 s: 24 cells are not wired: 323 left out\n"),
                     cells.out);
        }

        const Outcome check = run({"-", "--check"}, "#pitch x 2 mm\n" + line + "\n");
        QCOMPARE(check.code, 0);
        QVERIFY2(check.out.startsWith("detector: strips 24 + 0, mm\n"), check.out);
        const Outcome other = run({"-", "--stats", "--detector", file}, "0,1,2\n");
        QCOMPARE(other.code, 2);
        QVERIFY2(other.err.contains("it has 24 readings, the stream 2"), other.err);
        const Outcome broken = run({"-", "--check", "--detector", "nowhere.json"});
        QCOMPARE(broken.code, 1);
        QVERIFY2(broken.err.contains("nowhere.json"), broken.err);
    }

    void convertedIsTheSame()
    {
        const Outcome first = run({"good.csv", "--convert", "once.csv", "--overwrite"});
        const Outcome second = run({"once.csv", "--convert", "twice.csv", "--overwrite"});
        QCOMPARE(first.code, 0);
        QCOMPARE(second.code, 0);
        const Outcome a = run({"good.csv", "--stats", "--json"});
        const Outcome b = run({"twice.csv", "--stats", "--json"});
        QCOMPARE(QJsonDocument::fromJson(a.out).object()["channels"],
                 QJsonDocument::fromJson(b.out).object()["channels"]);
    }

    //! An HDF5 file stands for its recording: every number of the statistics is the same.
    void statisticsOfHdf5AreTheSame_data()
    {
        columns<QString>("source");
        row("channels", "sim:ic4");
        row("strips", "sim:strips");
        row("pixels", "sim:pixels");
        row("spots", "sim:spots");
        row("several units", "good.csv");
    }
    void statisticsOfHdf5AreTheSame()
    {
        QFETCH(QString, source);
        const Outcome made =
            run({source, "--convert", "text.csv", "--overwrite", "--after", "40frames"});
        QCOMPARE(made.code, 0);
        const Outcome converted = run({"text.csv", "--convert", "other.h5", "--overwrite"});
        if (converted.err.contains("built without HDF5"))
            QSKIP("the monitor was built without HDF5");
        QVERIFY2(converted.code == 0, converted.err);
        const auto report = [this](const QString &file) {
            QJsonObject all =
                QJsonDocument::fromJson(run({file, "--stats", "--json"}).out).object();
            all.remove("source");
            return all;
        };
        const QJsonObject ofText = report("text.csv");
        QVERIFY(ofText.contains("channels"));
        QCOMPARE(report("other.h5"), ofText);
    }

    //! A disk that fills up while HDF5 is written ends the program in order, and leaves nothing.
    void aDiskThatFillsUpUnderHdf5()
    {
        QByteArray rows;
        for (int i = 0; i < 30000; ++i)
            rows +=
                QByteArray::number(i) + ',' + QByteArray::number(std::sin(1e3 * i), 'g', 17) + '\n';
        putFile(path("large.csv"), rows);
        FileSizeLimit limit;
        limit.set(100000);
        const Outcome converted = run({"large.csv", "--convert", "large.h5"});
        if (converted.err.contains("built without HDF5"))
            QSKIP("the monitor was built without HDF5");
        QCOMPARE(converted.code, 4);
        QVERIFY2(converted.err.contains("large.h5 cannot be written: File too large"),
                 converted.err);
        QVERIFY(QDir(m_folder.path()).entryList({"large.h5*"}).isEmpty());
    }

    void withoutADisplay()
    {
        QProcess process;
        QProcessEnvironment bare = environment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            bare.remove(QLatin1String(name));
        process.setProcessEnvironment(bare);
        process.start(QStringLiteral(CORVALE_MONITOR), QStringList());
        QVERIFY(process.waitForFinished(longest));
        QCOMPARE(process.exitCode(), 1);
        QVERIFY(process.readAllStandardError().contains("--screenshot"));
    }

    void debugLinesAreOptIn()
    {
        const QByteArray quiet = ProgramInFolder::run({"--stats", "good.csv"}).err;
        QVERIFY2(!quiet.contains("reached the end"), quiet);
        qputenv("QT_LOGGING_RULES", "corvale.monitor.debug=true");
        const QByteArray told = ProgramInFolder::run({"--stats", "good.csv"}).err;
        qunsetenv("QT_LOGGING_RULES");
        QVERIFY2(told.contains("corvale.monitor: ") && told.contains("reached the end"), told);
    }

    void aRunWithoutAWindowTellsOfItsConnection()
    {
        QTcpServer instrument;
        QVERIFY(instrument.listen(QHostAddress::LocalHost));
        QProcess process;
        process.setProcessEnvironment(environment());
        const QString source = QString("tcp://127.0.0.1:%1").arg(instrument.serverPort());
        process.start(QStringLiteral(CORVALE_MONITOR),
                      {"--headless", source, "--record", path("lost.csv")});
        QByteArray all;
        const auto told = [&]() -> const QByteArray & {
            return all += process.readAllStandardError();
        };
        QVERIFY(instrument.waitForNewConnection(longest));
        delete instrument.nextPendingConnection();
        QTRY_VERIFY_WITH_TIMEOUT(told().contains("; trying again in"), longest);
        QVERIFY(instrument.waitForNewConnection(longest));
        QTRY_VERIFY_WITH_TIMEOUT(told().contains("is connected\n"), longest);
        process.terminate();
        QVERIFY(process.waitForFinished(longest));
        QCOMPARE(told().count("trying again"), 1);
    }

    void aRecordingSurvivesKill()
    {
        QProcess process;
        process.setProcessEnvironment(environment());
        const QString record = path("killed.csv");
        process.start(QStringLiteral(CORVALE_MONITOR),
                      {"sim:ic4", "--settings", path("kill.xui"), "--record", record});
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(record).size() > 20000, longest);
        process.kill();
        QVERIFY(process.waitForFinished(longest));
        const Outcome check = run({record, "--check"});
        QVERIFY2(check.code == 0, check.out + check.err);
        const Outcome again = run({record, "--screenshot", "killed.png"});
        QVERIFY2(again.code == 0, again.err);
    }
};

CORVALE_QT_TEST_MAIN(tst_Program)
#include "tst_Program.moc"
