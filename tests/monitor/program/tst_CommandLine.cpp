// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/CommandLine.h"
#include "monitor/program/OptionTexts.h"
#include "tests/support/TestMain.h"

using namespace Monitor;

//! What arguments mean, and the messages about arguments that mean nothing.
class tst_CommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsUnderstood()
    {
        CommandLine none;
        QCOMPARE(parsed({}, &none), QString());
        QCOMPARE(none.source, QString("sim:strips"));
        QVERIFY(none.task == CommandLine::Task::Window && none.needsDisplay());
        QCOMPARE(none.file.speed, 1.0);

        CommandLine play;
        QCOMPARE(parsed("a.csv --speed 4 --loop --from 10 --to 20.5 --record r --rotate 100M "
                        "--range -1e-6,1e-6 --span 1.5min",
                        &play),
                 QString());
        QCOMPARE(play.source, QString("a.csv"));
        QCOMPARE(play.file.speed, 4.0);
        QVERIFY(play.file.loop);
        QCOMPARE(play.file.from, 10.0);
        QCOMPARE(play.file.to, 20.5);
        QCOMPARE(play.record.path, QString("r"));
        QCOMPARE(play.record.rotateBytes, qint64(100000000));
        QCOMPARE(play.rangeLow, -1e-6);
        QCOMPARE(play.span, 90.0);

        CommandLine spots;
        QCOMPARE(parsed("--planned a.csv --measured b.csv --tolerance 1.5,2 --view errors", &spots),
                 QString());
        QCOMPARE(spots.planned + ' ' + spots.source, QString("a.csv b.csv"));
        QCOMPARE(spots.toleranceX, 1.5);
        QCOMPARE(spots.toleranceY, 2.0);

        CommandLine picture;
        QCOMPARE(
            parsed("--screenshot p.png --size 800x600 --view spots --after 200frames sim:spots",
                   &picture),
            QString());
        QVERIFY(picture.task == CommandLine::Task::Screenshot && !picture.needsDisplay());
        QCOMPARE(picture.size, QSize(800, 600));
        QCOMPARE(picture.afterReadings, qint64(200));
        QCOMPARE(picture.file.speed, 0.0); // nobody watches

        CommandLine hour;
        QCOMPARE(parsed("--record d --rotate 1h,2G --compress --mode 644 --after 500ms -", &hour),
                 QString());
        QCOMPARE(hour.record.mode, 0644U);
        QCOMPARE(play.record.mode, 0640U);
        QCOMPARE(hour.record.rotateSeconds, 3600.0);
        QCOMPARE(hour.record.rotateBytes, qint64(2000000000));
        QCOMPARE(int(hour.record.segments), int(SegmentForm::Zstd));
        QCOMPARE(hour.afterSeconds, 0.5);
        QCOMPARE(hour.source, QString("-"));
    }

    void importsAndRepairs()
    {
        CommandLine table;
        const QString how = "delimiter=semicolon,decimal=comma,time=2,clock=local,skip=3,comment=%";
        QCOMPARE(parsed("--import " + how + " a.csv", &table), QString());
        QCOMPARE(table.file.import.text(), how);
        CommandLine repair;
        QCOMPARE(parsed("--repair a.csv", &repair), QString());
        QVERIFY(repair.task == CommandLine::Task::Repair && !repair.needsDisplay());
        QCOMPARE(repair.output, QString("a.csv"));
    }

    void sourcesHaveNames_data()
    {
        columns<QString, QString>("arguments", "names");
        row("by their kinds",
            "sim:ic4?seed=3 - runs/a.csv.zst tcp://10.0.0.7:5000?ask=READ serial:/dev/ttyS0 "
            "ca:B:X,B:Y",
            "ic4 stdin a 10.0.0.7-5000 dev-ttyS0 B-X");
        row("the same", "a/x.csv b/X.csv c/x.csv", "x X-2 x-3");
        row("given ones go before", "ic4 --source ic4=sim:ic4 --source ic4-2=x.csv",
            "ic4-3 ic4 ic4-2");
        row("an address with a sign", "--source halo=tcp://h:1?ask=A=B", "halo");
    }
    void sourcesHaveNames()
    {
        CommandLine line;
        QCOMPARE(parsed("--stats " + cell("arguments"), &line), QString());
        QStringList found;
        for (const NamedAddress &source : line.sources)
            found += source.name;
        QCOMPARE(found.join(' '), cell("names"));
        QCOMPARE(line.source, line.sources.first().address);
    }

    void whatIsRefused_data()
    {
        tableFrom(R"(
            | arguments | named
            unknown option                 | --frobnicate | frobnicate
            no number                      | --speed fast a.csv | --speed fast
            negative speed                 | --speed -1 a.csv | --speed -1: it should be a number, at least 0
            range the wrong way            | --range 2,1 | --range 2,1
            a detector that is not there   | --detector none.json | --detector none.json: No such file
            a detector that is not known   | --detector preset:x | --detector preset:x: there are preset:strips64
            a file without an end          | --stats a.csv --loop | add --after
            one limit                      | --range 2 | --range 2
            size                           | --size big | --size big
            view                           | --view sideways | strip, scope, histogram
            amount                         | --after soon | 200frames
            tolerance                      | --tolerance wide | --tolerance wide: it should be millimetres
            negative tolerance             | --tolerance 1,-1 | --tolerance 1,-1
            two lists of spots             | a.csv --measured b.csv | --measured b.csv
            span                           | --span soon | --span soon: it should be a time, like 90s
            no frames                      | --after 0frames | 200frames
            rotation                       | --rotate often | 100M
            one of two rotations           | --rotate 1h,often | 1h,100M
            permissions                    | --record d --mode u=rw | --mode u=rw: it should be permissions
            permissions of more than files | --record d --mode 4755 | like 0640
            form of files                  | --record d --segments xml | one of text, zstd, hdf5
            two forms                      | --record d --compress --segments hdf5 | choose one of them
            HDF5 while it is recorded      | --record r.h5 | add --segments hdf5
            compressed twice               | a.csv --convert o.nxs --compress | is compressed already
            import                         | --import colour=red a.csv | --import: "colour=red" makes no sense
            two files to repair            | --repair a.csv b.csv | --repair takes one file
            from after to                  | a.csv --from 10 --to 5 | --from must be the earlier time
            rotation without a recording   | sim:ic4 --rotate 1h | add --record
            a form without a recording     | sim:ic4 --compress | --compress says what becomes
            nothing to replace             | --stats a.csv --overwrite | --overwrite lets a file
            the look of no window          | --check a.csv --span 2h | --span says how a window
            two tasks                      | --stats --check a.csv | --stats and --check
            a picture of two sources       | --screenshot p.png a.csv b.csv | a.csv, b.csv
            two sources to convert         | --convert o.csv a.csv b.csv | the readings of one source
            standard input twice           | --stats - - | leave one - out
            a source without a name        | --source a.csv | NAME=ADDRESS
            a name that is a path          | --source ../a=a.csv | NAME=ADDRESS
            nothing to do without a window | --headless sim:ic4 | add --publish ADDRESS
            a window and none              | --headless --stats sim:ic4 | --headless and --stats
            results of no task             | --convert o.csv --publish tango:a/b/c sim:ic4 | needs a window
            more addresses than sources    | --headless --publish tango:a/b/c --publish tango:a/b/d sim:ic4
                | tango:a/b/d: more addresses than sources
            results of an unknown source   | --headless --publish x=tango:a/b/c sim:ic4 | no source of that name
            results under two addresses    | --headless --publish ic4=tango:a/b/c --publish ic4=tango:a/b/d sim:ic4
                | is published already
            results under no address       | --stats --publish= sim:ic4 | --publish needs an address
            json alone                     | --json a.csv | --stats
            picture without a name         | --screenshot | screenshot
        )");
        // part of the message
    }

    void whatIsRefused()
    {
        CommandLine line;
        const QString error = parsed(cell("arguments"), &line);
        QVERIFY2(error.contains(cell("named")), qPrintable(error));
    }

    void helpAndManualTellTheSame()
    {
        const QString help = CommandLine::helpText();
        QString page = QString::fromUtf8(CommandLine::manPage());
        page.remove(QLatin1Char('\\'));
        QVERIFY(page.startsWith(".TH CORVALE-MONITOR 1"));
        for (const OptionText &option : optionTexts())
            for (const QString &text : {help, page}) {
                QVERIFY2(text.contains(QString("--") + option.name), qPrintable(option.name));
                QVERIFY2(text.contains(option.text), qPrintable(option.name));
            }
        for (const TopicText &topic : topicTexts())
            for (const auto &[name, meaning] : topic.items) {
                QVERIFY(help.contains(name) && help.contains(meaning));
                QVERIFY2(page.contains(name) && page.contains(meaning), qPrintable(name));
            }
    }

private:
    static QString parsed(const QString &arguments, CommandLine *line)
    {
        QString error;
        const bool ok = line->parse(
            QStringList{"corvale-monitor"} + arguments.split(' ', Qt::SkipEmptyParts), &error);
        return ok ? QString() : error;
    }
};

CORVALE_QT_TEST_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
