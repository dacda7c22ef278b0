// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/TimeTicks_p.h"
#include "tests/support/BracketTranslator.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

constexpr double kCharacter = 7.0; // pixels

double textWidth(const QString &text)
{
    return kCharacter * text.size();
}

QDateTime utc(const QString &text)
{
    QDateTime time = QDateTime::fromString(text, Qt::ISODateWithMs);
    time.setTimeSpec(Qt::UTC);
    return time;
}

//! Returns the widest line of a label.
double labelWidth(const QString &label)
{
    double widest = 0.0;
    for (const QString &line : label.split('\n'))
        widest = qMax(widest, textWidth(line));
    return widest;
}

//! Returns the labels with '/' between their lines: "09:15:00/2026-11-22 09:15:10 -". A '-' stands for an empty one.
QString shown(const TimeTicks &ticks)
{
    QStringList labels;
    for (QString label : ticks.labels)
        labels << (label.isEmpty() ? "-" : label.replace('\n', '/'));
    return labels.join(' ');
}

TimeTicks clock(double left, double right, const QByteArray &zone, double pixels = 800.0)
{
    ClockOffsets offsets{QTimeZone(zone)};
    return clockTicks({left, right, pixels}, TimeScale(), offsets, textWidth);
}

} // namespace

class tst_TimeTicks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ticksOfAClock_data()
    {
        tableFrom(R"(| begin | double span | zone | labels | unit
            a second | 2026-11-22T09:15:02 | 1 | UTC
                | 09:15:02.000/2026-11-22 09:15:02.200 09:15:02.400 09:15:02.600 09:15:02.800 09:15:03.000 | UTC
            a minute | 2026-11-22T09:15:02 | 60 | Europe/Berlin
                | 10:15:10/2026-11-22 10:15:20 10:15:30 10:15:40 10:15:50 10:16:00 | UTC+1
            a day | 2026-11-22T00:00:00 | 86400 | Asia/Kathmandu
                | 06:00/2026-11-22 09:00 12:00 15:00 18:00 21:00 00:00/2026-11-23 03:00 | UTC+5:45
            a week | 2026-11-22T09:00:00 | 604800 | UTC
                | 2026-11-23 2026-11-24 2026-11-25 2026-11-26 2026-11-27 2026-11-28 2026-11-29 | UTC
            clocks go forward | 2026-03-28T23:30:00 | 14400 | Europe/Berlin
                | 00:30/2026-03-29 01:00 01:30/UTC+1 03:00/UTC+2 03:30 04:00 04:30 05:00 05:30 | UTC+1, then UTC+2
            clocks go back | 2026-10-24T23:30:00 | 14400 | Europe/Berlin
                | 01:30/2026-10-25 02:00 02:30/UTC+2 02:00/UTC+1 02:30 03:00 03:30 04:00 04:30 | UTC+2, then UTC+1
            clocks go back by half an hour | 2026-04-04T13:10:00 | 7200 | Australia/Lord_Howe
                | 00:15/2026-04-05 00:30 00:45 01:00 01:15 01:30 01:45/UTC+11 01:30/UTC+10:30 | UTC+11, then UTC+10:30
            a day without midnight | 2018-10-31T12:00:00 | 691200 | America/Sao_Paulo
                | 2018-11-01 2018-11-02 2018-11-03 2018-11-04 2018-11-05 2018-11-06 2018-11-07 2018-11-08 | UTC-3, then UTC-2
            a year beyond 32 bits | 2096-10-02T07:06:30 | 20 | UTC
                | 07:06:30/2096-10-02 07:06:32 07:06:34 07:06:36 07:06:38 07:06:40 07:06:42 07:06:44 07:06:46 07:06:48 07:06:50 | UTC
        )");
    }
    void ticksOfAClock()
    {
        QFETCH(double, span);
        QFETCH(QString, unit);
        const double left = utc(cell("begin")).toMSecsSinceEpoch() / 1000.0;
        const double pixels = span == 20.0 ? 1200.0 : 800.0;
        const TimeTicks ticks = clock(left, left + span, cell("zone").toLatin1(), pixels);
        QCOMPARE(shown(ticks), cell("labels"));
        QCOMPARE(ticks.unit, unit);
    }

    // Every span from 5 ms to 20 years, in zones with and without changes, beside the calendar of Qt.
    void agreeWithTheCalendar()
    {
        const double start = utc("2026-03-20T13:27:41.377").toMSecsSinceEpoch() / 1000.0;
        for (const char *zone : {"UTC", "Europe/Berlin", "America/St_Johns", "Asia/Kolkata"}) {
            const QTimeZone calendar(zone);
            for (int step = 0; step < 82; ++step) { // to twenty years
                const double span = 0.005 * std::pow(1.37, step);
                for (const double pixels : {150.0, 900.0, 3000.0}) {
                    const TimeTicks ticks = clock(start, start + span, zone, pixels);
                    QVERIFY(ticks.major.size() == ticks.labels.size());
                    QVERIFY2(ticks.major.size() <= pixels / 12.0, qPrintable(shown(ticks)));
                    double taken = -1e9;
                    for (int i = 0; i < ticks.major.size(); ++i) {
                        const QString label = ticks.labels[i].section('\n', 0, 0);
                        if (label.isEmpty())
                            continue;
                        const auto moment = qRound64(ticks.major[i] * 1e6);
                        const auto time = QDateTime::fromMSecsSinceEpoch(moment / 1000, calendar);
                        const bool isDate = label.contains('-');
                        const QString expected =
                            isDate ? time.toString("yyyy-MM-dd") : time.toString("HH:mm:ss.zzz");
                        QVERIFY2(expected.startsWith(label.left(12)),
                                 qPrintable(label + " at " + expected));
                        if (isDate)
                            QCOMPARE(time.time(), QTime(0, 0));
                        const double centre = (ticks.major[i] - start) / span * pixels;
                        const double half = 0.5 * labelWidth(ticks.labels[i]);
                        QVERIFY2(centre - half >= taken, qPrintable(shown(ticks)));
                        taken = centre + half;
                    }
                }
            }
        }
    }

    void aPartOfAYearHasTheOffsetsOfThatPart()
    {
        ClockOffsets offsets{QTimeZone("Europe/Berlin")};
        const double winter = utc("2026-01-10T00:00:00").toMSecsSinceEpoch() / 1000.0;
        QStringList units;
        for (const double days : {1.0, 180.0, 1.0, 360.0, 600.0})
            units << clockTicks({winter, winter + days * 86400, 800}, {}, offsets, textWidth).unit;
        QCOMPARE(
            units.join("; "),
            QString(
                "UTC+1; UTC+1, then UTC+2; UTC+1; UTC+1, then UTC+2, then UTC+1; UTC+1 or UTC+2"));
        const BracketTranslator translator;
        QCOMPARE(clockTicks({winter, winter + 180 * 86400.0, 800}, {}, offsets, textWidth).unit,
                 QString("<UTC+1, then UTC+2>"));
    }

    // The step that the calendar allows is found for each width: the axis of a monitor is never bare.
    void leaveNoAxisBare()
    {
        for (int step = 0; step < 218; ++step) { // to four months
            const double span = 0.01 * std::pow(1.1, step);
            const TimeTicks ticks = clock(1.7e9 + 0.1, 1.7e9 + 0.1 + span, "UTC", 1000.0);
            const int labels = ticks.labels.size() - ticks.labels.count(QString());
            QVERIFY2(labels >= 2, qPrintable(QString("%1 s: %2").arg(span).arg(shown(ticks))));
            for (int i = 1; i < ticks.minor.size(); ++i)
                QVERIFY((ticks.minor[i] - ticks.minor[i - 1]) / span * 1000.0 > 5.9);
        }
    }

    void countTimesFromAnOrigin()
    {
        ClockOffsets offsets;
        TimeScale scale;
        scale.origin = utc("2026-03-01T12:00:00").toMSecsSinceEpoch() * 1000;
        scale.secondsPerX = 1e-3; // x in milliseconds
        const TimeTicks ticks = clockTicks({90000, 150000, 400}, scale, offsets, textWidth);
        QCOMPARE(shown(ticks), QString("12:01:30/2026-03-01 12:01:45 12:02:00 12:02:15 12:02:30"));
        QCOMPARE(ticks.major, (QList<double>{90000, 105000, 120000, 135000, 150000}));
        QCOMPARE(ticks.labelOf(97000), QString("12:01:30\n2026-03-01")); // of the nearest tick
        QCOMPARE(ticks.labelOf(98000), QString("12:01:45"));
        scale.secondsPerX = 1e-6;
        QCOMPARE(shown(clockTicks({0, 100, 400}, scale, offsets, textWidth)),
                 QString("12:00:00.000000/2026-03-01 12:00:00.000050 12:00:00.000100"));
    }

    void durationsBeforeNow_data()
    {
        tableFrom(R"(| double left | double right | labels | unit
            a second | -1 | 0 | -1.000 -0.900 -0.800 -0.700 -0.600 -0.500 -0.400 -0.300 -0.200 -0.100 0.000 | s
            a minute | -60 | 0 | -60 -55 -50 -45 -40 -35 -30 -25 -20 -15 -10 -5 0 | s
            five minutes, half of it scrolled | -450 | -150 | -7:30 -7:00 -6:30 -6:00 -5:30 -5:00 -4:30 -4:00 -3:30 -3:00 -2:30 | min:s
            a day | -86400 | 0 | -24:00 -22:00 -20:00 -18:00 -16:00 -14:00 -12:00 -10:00 -8:00 -6:00 -4:00 -2:00 0:00 | h:min
            a week | -604800 | 0 | -7d 00:00 -6d 00:00 -5d 00:00 -4d 00:00 -3d 00:00 -2d 00:00 -1d 00:00 0:00 | days h:min
        )");
    }
    void durationsBeforeNow()
    {
        QFETCH(double, left);
        QFETCH(double, right);
        QFETCH(QString, unit);
        TimeScale scale;
        scale.origin = -scale.toMoment(4e9); // now
        const TimeTicks ticks = durationTicks({4e9 + left, 4e9 + right, 800.0}, scale, textWidth);
        QCOMPARE(shown(ticks), cell("labels"));
        QCOMPARE(ticks.unit, unit);
    }

    void textsOfMoments()
    {
        ClockOffsets berlin{QTimeZone("Europe/Berlin")};
        const TimeScale epoch;
        QStringList wrong;
        for (int ms = 0; ms < 1000; ++ms) {
            const double x = 4e9 + ms / 1000.0;
            const auto time =
                QDateTime::fromMSecsSinceEpoch(4000000000000 + ms, QTimeZone("Europe/Berlin"));
            const QString text = clockText(epoch.toMoment(x), 0.001, berlin);
            if (text != time.toString("yyyy-MM-dd HH:mm:ss.zzz"))
                wrong << text;
        }
        QCOMPARE(wrong.join(' '), QString());
        QCOMPARE(clockText(kSecond - 1, 1.0, berlin), QString("1970-01-01 01:00:01"));
        QCOMPARE(clockText(-1, 1e-6, berlin), QString("1970-01-01 00:59:59.999999"));
        QCOMPARE(clockText(1785600000 * kSecond, 1.0, berlin), QString("2026-08-01 18:00:00"));
        QVERIFY(clockText(400000000000 * kSecond, 1.0, berlin).startsWith("14645-06-30 "));
        QCOMPARE(epoch.toMoment(6e-7), qint64(1));
        QCOMPARE(durationText(120 * kSecond, 1.0), QString("2:00 min:s"));
        QCOMPARE(durationText(-90 * kSecond - 500 * kMillisecond, 0.1), QString("-90.5 s"));
        QCOMPARE(durationText(-150 * kSecond - 500 * kMillisecond, 0.1), QString("-2:30.5 min:s"));
        QCOMPARE(durationText(-90 * kMinute, 1.0), QString("-90:00 min:s"));
        QCOMPARE(durationText(-3 * kDay - kHour, 60.0), QString("-3d 01:00:00 days h:min:s"));
    }

    void whatCannotBeDividedHasNoTicks_data()
    {
        tableFrom(R"(| double left | double right
            no width | 5 | 5
            a reversed range | 6 | 5
            not a number | nan | 5
            infinite | 0 | inf
            beyond any calendar | 0 | 1e300
        )");
    }
    void whatCannotBeDividedHasNoTicks()
    {
        QFETCH(double, left);
        QFETCH(double, right);
        QVERIFY(clock(left, right, "Europe/Berlin").major.isEmpty());
        QVERIFY(durationTicks({left, right, 800}, TimeScale(), textWidth).major.isEmpty());
        QVERIFY(clock(0, 10, "UTC", 0.0).major.isEmpty());
        QCOMPARE(clock(0, 10, "No/Where").unit, QString("UTC"));
    }
};

CORVALE_QT_TEST_MAIN(tst_TimeTicks)
#include "tst_TimeTicks.moc"
