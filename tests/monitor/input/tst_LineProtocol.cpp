// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/FieldNumbers.h"
#include "monitor/input/LineNumbers.h"
#include "monitor/input/LineProtocol.h"
#include "monitor/input/LineSplitter.h"
#include "monitor/input/LineText.h"
#include "monitor/recording/RecordingWriter.h"
#include "tests/monitor/support/TextSink.h"
#include "tests/support/TestMain.h"

#include <array>
#include <charconv>
#include <cstring>
#include <optional>
#include <vector>

using namespace Monitor;

static QString readAll(const QByteArray &lines)
{
    TextSink sink;
    LineProtocol protocol(sink);
    protocol.setArrivalTime(9.0);
    for (const QByteArray &line : lines.split('/'))
        protocol.takeLine({line.constData(), std::size_t(line.size())}, false);
    protocol.finish();
    return sink.text();
}

namespace {

//! Returns a number as an instrument might write it, from few digits to ones that lie halfway between two doubles.
std::string writtenNumber(std::mt19937_64 &random)
{
    constexpr std::uint64_t bit53 = std::uint64_t(1) << 53;
    const bool isHalfway = random() % 4 == 0;
    std::string text =
        std::to_string(isHalfway ? (random() >> 10) | bit53 | 1 : random() >> random() % 64);
    if (random() % 2 == 0)
        text.insert(random() % (text.size() + 1), 1, '.');
    if (random() % 3 == 0)
        text += 'e' + std::to_string(int(random() % 80) - 60);
    return (random() % 2 == 0 ? "-" : "") + text;
}

//! Returns a number that is read ahead as the second one of its line, among lines that are not plain; none if it is not read.
std::optional<double> numberReadAhead(const std::string &number)
{
    const std::string before = std::string(40, ',') + '\n', line = "1234567890123.5," + number;
    const std::string text = before + line + "\n1,2,3\n#" + std::string(10, ' ');
    LineNumbers numbers;
    numbers.read(text, 2);
    const std::size_t size = std::min(line.find('\r'), line.size());
    const double *const both = numbers.of(std::string_view(text).substr(before.size(), size), 2);
    return both && both[0] == 1234567890123.5 ? std::optional(both[1]) : std::nullopt;
}

//! Returns whether two numbers have the same bits.
bool isSame(double one, double other)
{
    return std::memcmp(&one, &other, sizeof one) == 0;
}

//! Returns what all lines become.
TextSink read(const QByteArrayList &all)
{
    TextSink sink;
    LineProtocol protocol(sink);
    for (const QByteArray &line : all)
        protocol.takeLine({line.constData(), std::size_t(line.size())}, false);
    protocol.finish();
    return sink;
}

} // namespace

class tst_LineProtocol : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesBecomeReadings_data()
    {
        // In the expected text, ">" begins a stream of channels, and a line that cannot be read is refused with "?".
        tableFrom(R"(
            || lines || expected
            commas || 0,1,2/1,3,4 || > ch1 ch2 | 0: 1 2 | 1: 3 4
            plus, exponent and blanks at the commas || 0 , +1e-3/1, -2.5E2 || > ch1 | 0: 0.001 | 1: -250
            no reading || 0,1,/1,,4/2,, || > ch1 ch2 | 0: 1 - | 1: - 4 | 2: - -
            nan is no reading, inf is one || 0,nan/1,inf || > ch1 | 0: - | 1: inf
            one line alone || 5,1 || > ch1 | 5: 1
            declared || #corvale 1/#channels left, right/#unit nA/0,1,2 || > left:nA right:nA | 0: 1 2
            a unit each || #channels a,b,c/#unit nA,,mm/0,1,2,3 || > a:nA b c:mm | 0: 1 2 3
            without a time || #channels a,b/1,2/3,4 || > a b | 9: 1 2 | 9: 3 4
            an empty time || 0,1/,2 || > ch1 | 0: 1 | 9: 2
            one number a line || 1/2 || > ch1 | 9: 1 | 9: 2
            strips || #layout strips/0,1,2,3,4 || start strips x01 x02 y01 y02 | 0: 1 2 3 4
            pixels || #layout pixels/0,1,2,3,4 || start pixels r01c01 r01c02 r02c01 r02c02 | 0: 1 2 3 4
            spots || #layout spots/0,1,2,3 || start spots x:mm y:mm mu | 0: 1 2 3
            an event || #event door open/0,1 || event door open | > ch1 | 0: 1
            comments and empty lines || # hello//#whatever/0,1 || > ch1 | 0: 1
            a comment about frames || #frame rate 100 Hz/0,1 || > ch1 | 0: 1
            a number with a tail || 0,1/1,2x/2,3 || refused 2 ? | > ch1 | 0: 1 | 2: 3
            time goes backwards || 5,1/6,2/5.5,3/7,4 || > ch1 | 5: 1 | 6: 2 | refused 3 back | 7: 4
            one time far ahead costs no reading that follows || 0,1/1,1/1e6,1/2,2/3,3/4,4/5,5/6,6/7,7/8,8/9,9/x/10,10/11,11
                || > ch1 | 0: 1 | 1: 1 | 1e+06: 1 | refused 12 count | event the time went back from 1000000 s to 2 s and goes on from there: a new part begins | > ch1 | 2: 2 | 3: 3 | 4: 4 | 5: 5 | 6: 6 | 7: 7 | 8: 8 | 9: 9 | 10: 10 | 11: 11
            some times behind, and then the stream goes on || 8,1/9,1/2,2/3,3/10,1/4,4
                || > ch1 | 8: 1 | 9: 1 | refused 3-4 back | 10: 1 | refused 6 back
            times behind that do not agree || 50,1/51,1/9,1/8,1/7,1/6,1/5,1/4,1/3,1/2,1/1,1/0,1/-1,1/52,1
                || > ch1 | 50: 1 | 51: 1 | refused 3-13 back | 52: 1
            times behind, and then the instrument is set up anew || 50,1/51,1/3,1/4,1/52/53/54/55/56/57/58/59/60/61/62
                || > ch1 | 50: 1 | 51: 1 | refused 5-13 count | refused 3-4 count | > ch1 | 9: 61 | 9: 62
            numbers too small are 0, those too large are none || 0,1e-400/1,-0.00000000000000000000000000000000001e-300/2,1e400/3,-12e99999999999999999999/4,1e-99999999999999999999/5,0.1e310/6,1
                || > ch1 | 0: 0 | 1: 0 | refused 3-4 ? | 4: 0 | refused 6 ? | 6: 1
            a time too large for its unit || time_min,a/1e308,1/-1e308,1/1e305,2/2e305,3
                || refused 2-3 ? | > a | 6e+306: 2 | 1.2e+307: 3
            the same time again is no step back || 5,1/5,2 || > ch1 | 5: 1 | 5: 2
            a time that is none || nan,1/1,2/inf,3/2,4 || refused 1 ? | refused 3 ? | > ch1 | 1: 2 | 2: 4
            one value too few || 0,1,2/1,3,4/2,5/3,6,7 || > ch1 ch2 | 0: 1 2 | 1: 3 4 | refused 3 count | 3: 6 7
            joined in the middle of a line || 7,8/1,3,4/2,5,6 || refused 1 count | > ch1 ch2 | 1: 3 4 | 2: 5 6
            declared, joined in the middle of a line || #channels a,b/7,8/1,3,4/2,5,6
                || refused 2 count | > a b | 1: 3 4 | 2: 5 6
            declared otherwise || #channels a,b/0,1,2,3/0,1,2 || refused 2 count | > a b | 0: 1 2
            a greeting || Welcome to electrometer/0,1/1,2/2,3 || refused 2 count | refused 1 ? | > ch1 | 1: 2 | 2: 3
            one word is no header of declared channels || #channels a,b/busy_V/0,1,2/1,3,4
                || refused 2 count | > a b | 0: 1 2 | 1: 3 4
            nor of a declared one || #channels a/busy_V/0,1/1,2 || refused 2 ? | > a | 0: 1 | 1: 2
            one word before readings costs none of them || busy_V/0,1,2/1,3,4 || refused 1 ? | > ch1 ch2 | 0: 1 2 | 1: 3 4
            a table of one column || current_nA/1/2 || > current:nA | 9: 1 | 9: 2
            new metadata is a new stream || 0,1/1,2/#unit nA/2,3 || > ch1 | 0: 1 | 1: 2 | > ch1:nA | 2: 3
            the stream starts over || 5,1/6,2/#corvale 1/0,3/1,4 || > ch1 | 5: 1 | 6: 2 | > ch1 | 0: 3 | 1: 4
            a stream that starts over and is slow || 5,1/6,2/#corvale 1/0,3/7,4 || > ch1 | 5: 1 | 6: 2 | > ch1 | 0: 3 | 7: 4
            ranges and start times that cannot be written down again || #range 1e-400,1/#range ,1/#t0 0001-01-01T00:00:00+05:00/0,1
                || refused 2-3 ? | > ch1 | 0: 1
            a start in a leap second, and one in a second that there is not || #t0 2016-12-31T23:59:60.5Z/#t0 2016-12-31T22:59:60Z/0,1
                || refused 2 ? | > ch1 | 0: 1
            an unknown layout || #layout rings/0,1 || refused 1 ? | > ch1 | 0: 1
            a range that is none || #range 5,1/#range a/0,1 || refused 1-2 ? | > ch1 | 0: 1
            the header of a table || time_s,left_nA,frame,x_mm/0,1,7,2/1,3,8,4 || > left:nA x:mm | 0: 1 2 | 1: 3 4
            the time is not the first column || frame,time_ms,a/1,500,2/2,1500,3 || > a | 0.5: 2 | 1.5: 3
            the instrument is set up anew || 0,1/1,1/2,1,1/3,1,1/4,1,1/5,1,1/6,1,1/7,1,1/8,1,1/9,1,1/10,1,1/11,1,1/12,1,1
                || > ch1 | 0: 1 | 1: 1 | refused 3-11 count | > ch1 ch2 | 11: 1 1 | 12: 1 1
        )");
        row("white space", "0 1\t2/1  3 4 ", "> ch1 ch2 | 0: 1 2 | 1: 3 4");
        row("names of no table", QString("a,").repeated(70000) + "/0,1",
            "refused 1 many | > ch1 | 0: 1");
        row("garbage between", "0,1/\x01\xff\x02,x/1,2", "refused 2 ? | > ch1 | 0: 1 | 1: 2");
        const QString zeros(400, '0'), ones(400, '1');
        QTest::newRow("the same, written out") << "0,0." + zeros + "1e+9/1," + ones + "e-9/2,1"
                                               << QString("refused 2 ? | > ch1 | 0: 0 | 2: 1");
    }

    void linesBecomeReadings()
    {
        QString text = readAll(cell("lines").toUtf8());
        QTEST(text.replace("start channels ", "> ").replace(" unreadable", " ?"), "expected");
    }

    //! A clock that started over has another start, which nobody has told yet.
    void aStartTimeHoldsUntilTimesGoBack()
    {
        TextSink sink;
        LineProtocol protocol(sink);
        for (const char *line : {"#t0 2026-03-01T12:00:00Z", "0,1", "5,1"})
            protocol.takeLine(line, false);
        QVERIFY(sink.header().startTime.isValid());
        protocol.beginStream();
        for (const char *line : {"0,2", "1,2"})
            protocol.takeLine(line, false);
        QCOMPARE(sink.lines.filter("start").size(), 2);
        QVERIFY(!sink.header().startTime.isValid());
    }

    void linesBecomeFrames_data()
    {
        // ">" begins a stream of frames with two rows and columns, ">>" the names of what is computed from each frame.
        tableFrom(R"(
            || lines || expected
            one frame || #corvale 2/#frame 0 2 2/1,2/3,4/ || > | 0: 1 2 3 4
            white space, and a second frame || #corvale 2/#frame 0 2 2/1 2/3 4/#frame 1 2 2/5 6/7 8
                || > | 0: 1 2 3 4 | 1: 5 6 7 8
            no time: that of arrival || #corvale 2/#frame 2 2/1,2/3,4 || > | 9: 1 2 3 4
            missing and infinite values || #corvale 2/#frame 0 2 2/1,nan/,inf || > | 0: 1 - - inf
            events and comments between rows || #corvale 2/#frame 0 2 2/1,2/#event shutter/# x//3,4
                || event shutter | > | 0: 1 2 3 4
            another size is another stream || #corvale 2/#frame 0 2 2/1,2/3,4/#frame 0 1 2/5,6
                || > | 0: 1 2 3 4 | start pixels frames, matrix 1 x 2, positions in cells, >> | 0: 5 6
            a pitch and a unit || #corvale 2/#unit nC/#pitch 2 mm/#frame 0 2 2/1,2/3,4/
                || start pixels frames, matrix 2 x 2, mm, sum:nC max:nC x:mm sigma_x:mm y:mm sigma_y:mm | 0: 1 2 3 4
            a detector of another size is told || #corvale 2/#layout matrix 3 3/#frame 0 2 2/1,2/3,4/
                || event the detector is not used: readings: the detector has 9 readings, the stream 4 | > | 0: 1 2 3 4
            a detector of another shape is told || #corvale 2/#layout matrix 2 2/#frame 0 1 4/1,2,3,4
                || event the detector is not used: it has 2 x 2 cells, the frames 1 x 4 | start pixels frames, matrix 1 x 4, positions in cells, >> | 0: 1 2 3 4
            a program of version 1 would take the rows for readings || #frame 0 2 2/1,2/3,4/#corvale 2/#frame 5 1 2/1,2
                || refused 1 ? | refused 2-3 count | start pixels frames, matrix 1 x 2, positions in cells, >> | 5: 1 2
            too few rows || #corvale 2/#frame 0 2 2/1,2/#frame 0 2 2/1,2/3,4/#frame 1 2 2/1,2
                || refused 2 count | refused 7 count | > | 0: 1 2 3 4
            too many rows || #corvale 2/#frame 0 2 2/1,2/3,4/5,6 || refused 5 count | > | 0: 1 2 3 4
            too few values, which cost one frame || #corvale 2/#frame 0 2 2/1/3,4/#frame 0 2 2/1,2/3,4/
                || refused 3 count | > | 0: 1 2 3 4
            too many values || #corvale 2/#frame 0 2 2/1,2,3/3,4/#frame 0 2 2/1,2/3,4/ || refused 3 count | > | 0: 1 2 3 4
            numbers that are none || #corvale 2/#frame 0 2 2/1,1e400/3,4/#frame 0 2 2/1,x/3,4/#frame 0 2 2/1,2/3,4/
                || refused 3 ? | refused 6 ? | > | 0: 1 2 3 4
            a description in the middle || #corvale 2/#frame 0 2 2/1,2/#unit nC/3,4 || refused 2 count | refused 5 count
            times go back || #corvale 2/#frame 5 1 1/1/#frame 6 1 1/2/#frame 3 1 1/3/#frame 7 1 1/4
                || start pixels frames, matrix 1 x 1, positions in cells, >> | 5: 1 | 6: 2 | refused 7 back | 7: 4
        )");
        row("a matrix in one line each",
            "#layout matrix 16 17/0," + QString("1,").repeated(271) + "2",
            "start pixels frames, matrix 16 x 17, positions in cells, >> | 0:"
                + QString(" 1").repeated(271) + " 2");
        row("strips in one line each",
            "#layout strips 200 100/0," + QString("1,").repeated(299) + "2",
            "start strips frames, strips 200 + 100, positions in cells, >> | 0:"
                + QString(" 1").repeated(299) + " 2");
        const QString sizes =
            "0 2|-2 2|257 1|1 257|99999999999 2|1e2 2|2.5 2|x y|2||1 2 3|nan 2 2|1e400 2 2";
        for (const QString &size : sizes.split('|'))
            row(qPrintable("size " + size),
                "#corvale 2/" + (size == "1 2 3" ? "#frame 1 2 3 4" : "#frame " + size)
                    + "/1,2/#frame 0 2 2/1,2/3,4/",
                "refused 2 ? | refused 3 count | > | 0: 1 2 3 4");
    }
    void linesBecomeFrames()
    {
        QFETCH(QString, expected);
        const QString names = "sum max x:cells sigma_x:cells y:cells sigma_y:cells";
        expected.replace(">>", names);
        const QString start = "start pixels frames, matrix 2 x 2, positions in cells, " + names;
        QString text = readAll(cell("lines").toUtf8());
        text.replace(" unreadable", " ?");
        QCOMPARE(text.replace(start, ">"), expected);
    }

    void theConnectionIsCutInAFrame()
    {
        TextSink sink;
        LineProtocol protocol(sink);
        for (const char *line : {"#corvale 2", "#frame 0 2 1", "1", "2", "#frame 1 2 1", "3"})
            protocol.takeLine(line, false);
        protocol.beginStream();
        for (const char *line : {"9", "#frame 2 2 1", "5", "6", "#frame 3 2 1", "7", "8"})
            protocol.takeLine(line, false);
        protocol.finish();
        QCOMPARE(sink.text().section(" | ", 1),
                 QString("0: 1 2 | refused 7 count | 2: 5 6 | 3: 7 8"));
    }

    void tooMuchIsDropped()
    {
        const QByteArray most = "0" + QByteArray(",1").repeated(256);
        QCOMPARE(readAll(most).count(QString(" 1")), 256);
        QCOMPARE(readAll(most + ",1/0,1"), QString("refused 1 many | start channels ch1 | 0: 1"));
        QCOMPARE(readAll("0,1/1,2/" + most + ",1/2,3"),
                 QString("start channels ch1 | 0: 1 | 1: 2 | refused 3 many | 2: 3"));
        const QByteArray commas(LineSplitter::maxLength, ',');
        QCOMPARE(readAll(commas), QString("refused 1 many"));
    }

    void aCutAndMadeConnection_data()
    {
        columns<QByteArray, QString>("after", "expected");
        row("time goes on", QByteArray("11,3/12,4"), "11: 3 | 12: 4");
        row("time starts over", QByteArray("0,3/1,4"), "start channels a | 0: 3 | 1: 4");
        row("the end of a line, then time goes on", QByteArray("1,3/12,4/13,5"),
            "refused 4 back | 12: 4 | 13: 5");
        row("the header again", QByteArray("time_s,a/11,3/12,4"), "11: 3 | 12: 4");
    }

    void aCutAndMadeConnection()
    {
        TextSink sink;
        LineProtocol protocol(sink);
        const auto take = [&](const QByteArray &lines) {
            for (const QByteArray &line : lines.split('/'))
                protocol.takeLine({line.constData(), std::size_t(line.size())}, false);
        };
        take("#channels a/9,1/10,2");
        sink.lines.clear();
        protocol.beginStream();
        take(cell<QByteArray>("after"));
        protocol.finish();
        QCOMPARE(sink.text(), cell("expected"));
    }

    void arrivalTimeStandsIn()
    {
        TextSink sink;
        LineProtocol protocol(sink);
        for (int i = 0; i < 3; ++i) {
            protocol.setArrivalTime(0.5 * i);
            protocol.takeLine(",7", false);
        }
        QCOMPARE(sink.text(), QString("start channels ch1 | 0: 7 | 0.5: 7 | 1: 7"));
    }

    void metadataReachesTheHeader()
    {
        TextSink sink;
        LineProtocol protocol(sink);
        for (const char *line :
             {"#corvale 1", "#t0 2026-03-01T12:00:00.250Z", "#range -2,5e3", "0,1", "#corvale 1"})
            protocol.takeLine(line, false);
        QCOMPARE(sink.header().startTime,
                 QDateTime(QDate(2026, 3, 1), QTime(12, 0, 0, 250), Qt::UTC));
        QCOMPARE(sink.header().rangeLow, -2.0);
        QCOMPARE(sink.header().rangeHigh, 5000.0);
    }

    void theDetectorReachesTheHeader_data()
    {
        tableFrom(R"(
            || QByteArray lines || detector || told
            nothing said                         || #layout strips/0,1,2,3,4/1,1,2,3,4 || no detector
                || start strips x01 x02 y01 y02
            a pitch                              || #layout strips/#pitch 2 mm/0,1,2,3,4/1,1,2,3,4 || strips 2 + 2, mm
                || start strips x01 x02 y01 y02
            a pitch alone                        || #pitch x 2 mm/0,1,2/1,1,2 || strips 2 + 0, mm || start channels ch1 ch2
            unequal planes are not shared evenly || #layout strips 3 1/0,1,2,3,4/1,1,2,3,4 || strips 3 + 1, positions in cells
                || start channels x01 x02 x03 y01
            a single plane                       || #layout strips 0 3/#pitch 2 mm/0,1,2,3/1,1,2,3 || strips 0 + 3, mm
                || start channels y01 y02 y03
            rows and columns                     || #layout matrix 2 3/#unit nA/#pitch 5 mm/0,1,2,3,4,5,6/1,1,2,3,4,5,6
                || matrix 2 x 3, mm || start pixels r01c01:nA r01c02:nA r01c03:nA r02c01:nA r02c02:nA r02c03:nA
            matrix means pixels                  || #layout matrix/0,1,2,3,4/1,1,2,3,4 || no detector
                || start pixels r01c01 r01c02 r02c01 r02c02
            a wrong line is told                 || #pitch 2/0,1,2/1,1,2 || no detector
                || refused 1 unreadable | start channels ch1 ch2
            a wrong number of cells is told      || #layout strips 3 3/0,1,2/1,1,2 || no detector
                || event the detector is not used: readings: the detector has 6 readings, the stream 2 | start strips x01 y01
            a new stream forgets it              || #pitch 2 mm/#corvale 1/0,1,2/1,1,2 || no detector || start channels ch1 ch2
            one line of JSON                     || #detector {"detector":1,"kind":"strips","x":{"cells":2}}/0,1,2/1,1,2
                || strips 2 + 0, positions in cells || start channels ch1 ch2
        )");
    }

    //! A recording of the stream describes the same detector.
    void theDetectorReachesTheHeader()
    {
        const TextSink sink = read(cell<QByteArray>("lines").split('/'));
        QTEST(sink.header().detector.summary(), "detector");
        QTEST(sink.text().section(" | 0: ", 0, 0), "told");
        QByteArrayList recording = recordingHeader(sink.header(), {}).split('\n');
        const int channels = sink.header().channels.size();
        recording += "0" + QByteArray(",1").repeated(channels);
        QVERIFY(read(recording).header().detector == sink.header().detector);
    }

    void piecesMakeLines_data()
    {
        columns<int>("pieceSize");
        for (const int size : {1, 2, 3, 7, 100})
            QTest::addRow("pieces of %d", size) << size;
    }

    void piecesMakeLines()
    {
        QFETCH(int, pieceSize);
        const QByteArray bytes = "one\ntwo\r\nthree\rfour\r\n\nrest";
        LineSplitter splitter;
        QByteArrayList lines;
        const auto take = [&](std::string_view line, bool) {
            lines.append(QByteArray(line.data(), int(line.size())));
        };
        for (int i = 0; i < bytes.size(); i += pieceSize) {
            const QByteArray piece = bytes.mid(i, pieceSize);
            splitter.feed({piece.constData(), std::size_t(piece.size())}, take);
        }
        QCOMPARE(lines.join('|'), QByteArray("one|two|three|four|"));
        QVERIFY(splitter.hasRest());
        splitter.finish(take);
        QCOMPARE(lines.last(), QByteArray("rest"));

        // A line without end keeps no more than its limit, and the next one is whole again.
        lines.clear();
        bool cut = false;
        const QByteArray endless(3 * LineSplitter::maxLength, 'x');
        const auto note = [&](std::string_view line, bool tooLong) {
            lines.append(QByteArray::number(int(line.size())));
            cut = cut || tooLong;
        };
        constexpr int piece = 100000;
        for (int i = 0; i < endless.size(); i += piece)
            splitter.feed({endless.constData() + i, std::size_t(qMin(piece, endless.size() - i))},
                          note);
        splitter.feed("\nabc\n", note);
        QVERIFY(cut);
        QCOMPARE(lines.join('|'), QByteArray::number(LineSplitter::maxLength) + "|3");
    }

    //! Values that wait for other channels outlive the bytes of their lines, and are told by their times.
    void whatWaitedIsRefused()
    {
        class LastRefused : public TextSink
        {
        public:
            void lineRefused(const RefusedLine &line) override { text = line.text(); }
            QString text;
        } sink;
        LineProtocol protocol(sink);
        for (const char *line : {"hannel__timestamp(s),hannel_,annel__timestamp(s),annel_,",
                                 "5,1,5,1", "6,2,7,1", "6.5,3,4,1"})
            protocol.takeLine(std::string(line), false);
        protocol.takeLine("#unit nA", false);
        QCOMPARE(sink.text, QString("line 5 dropped, its time goes backwards: \"4\""));
        // The limit of channels says nothing of a detector that has more cells.
        const std::string wide = "0" + QByteArray(",1").repeated(280).toStdString();
        for (const auto &[layout, why] :
             {std::pair("#layout matrix 16 17", "280 values, but the detector has 272"),
              std::pair("#pitch 2 mm", "more than 256 values")}) {
            LineProtocol other(sink);
            other.takeLine(layout, false);
            other.takeLine(wide, false);
            QVERIFY2(sink.text.startsWith(QString("line 2 dropped, %1: ").arg(why)),
                     qPrintable(sink.text));
        }
    }

    void countsAddUp()
    {
        TextSink sink;
        LineProtocol protocol(sink);
        for (const char *line : {"0,1", "1,1", "x", "0,1", "2,1,1", "2,1"})
            protocol.takeLine(line, false);
        protocol.takeLine("3,1", true);
        const LineCounts &counts = protocol.counts();
        QCOMPARE(counts.lines, qint64(7));
        QCOMPARE(counts.readings, qint64(3));
        QCOMPARE(counts.bad(), qint64(4));
        QCOMPARE(counts.lines, counts.readings + counts.bad());
    }

    void limitsReachTheHeader_data()
    {
        // Of each channel the four limits; then what else is told.
        columns<QByteArray, QString, QString>("lines", "limits", "told");
        row("all four", QByteArray("#limits a -2,-1,1.5,2e3"), "-2,-1,1.5,2000 ,,,", "");
        row("some", QByteArray("#limits b c ,,500,"), ",,, ,,500,", "");
        row("by name and unit", QByteArray("#limits a_nA 1,,,9"), "1,,,9 ,,,", "");
        row("blanks after the commas", QByteArray("#limits a 1, 2, 3, 4"), "1,2,3,4 ,,,", "");
        row("none again", QByteArray("#limits a ,,,9/#limits a ,,,"), ",,, ,,,", "");
        row("no such channel", QByteArray("#limits d ,,,9"), ",,, ,,,",
            "event limits are not used: the stream has no channel \"d\" | ");
        row("they fall", QByteArray("#limits a 4,3,2,1"), ",,, ,,,", "refused 1 unreadable | ");
        row("three numbers", QByteArray("#limits a 1,2,3"), ",,, ,,,", "refused 1 unreadable | ");
        row("not numbers", QByteArray("#limits a 1,x,3,nan"), ",,, ,,,", "refused 1 unreadable | ");
        row("no name", QByteArray("#limits 1,2,3,4"), ",,, ,,,", "refused 1 unreadable | ");
    }
    //! A recording of the stream has the same limits.
    void limitsReachTheHeader()
    {
        const auto limitsOf = [](const StreamHeader &header) {
            return limitsText(header.limitsOf(0)) + ' ' + limitsText(header.limitsOf(1));
        };
        const TextSink sink = read(cell<QByteArray>("lines").split('/') << "#channels a,b c"
                                                                        << "#unit nA"
                                                                        << "0,1,2"
                                                                        << "1,1,2");
        QTEST(limitsOf(sink.header()), "limits");
        QTEST(sink.text().section("start", 0, 0), "told");
        const TextSink again = read(recordingHeader(sink.header(), "test").split('\n') << "0,1,2"
                                                                                       << "1,1,2");
        QCOMPARE(limitsOf(again.header()), limitsOf(sink.header()));
    }

    //! A number is the double that the standard library finds, alone and in a line of others.
    void numbersAreTheNearest()
    {
        std::mt19937_64 random(5);
        FieldEnds ends;
        constexpr int numbers = 60000;
        for (int i = 0; i < numbers; ++i) {
            const std::string text = writtenNumber(random);
            double wanted = 0.0, alone = 0.0;
            std::from_chars(text.data(), text.data() + text.size(), wanted);
            std::array<double, 2> inLine{};
            QVERIFY2(parseNumber(text, &alone), text.c_str());
            QVERIFY2(
                readLineNumbers((text + ", ").append(text).append(" "), 2, &ends, inLine.data()),
                text.c_str());
            const std::optional<double> ahead = numberReadAhead(text);
            QVERIFY2(ahead && isSame(*ahead, wanted), text.c_str());
            QVERIFY2(isSame(alone, wanted) && isSame(inLine[0], wanted)
                         && isSame(inLine[1], wanted),
                     text.c_str());
        }
        std::array<double, 2> unused{};
        for (const char *other : {"1", "1,2,3", "1,2,", "1,2x", "1,2 3", "1 2", "1,1e", "1,."})
            QVERIFY2(!readLineNumbers(other, 2, &ends, unused.data()), other);
        // What lies behind a line is not looked at, as a sanitizer would tell.
        const std::string_view openEnd = "12345678901234.5,";
        const std::vector<char> alone(openEnd.begin(), openEnd.end());
        QVERIFY(readLineNumbers({alone.data(), alone.size()}, 2, &ends, unused.data()));
        // The neighbours of '0' and '9' are no digits, wherever they are among eight characters that are read at once.
        for (const char neighbour : {'/', ':'})
            for (std::size_t place = 0; place < 8; ++place) {
                std::string text = "12345678,2";
                text[place] = neighbour;
                QVERIFY2(!readLineNumbers(text, 2, &ends, unused.data()), text.c_str());
                QVERIFY2(!numberReadAhead(text.substr(0, 8)), text.c_str());
            }
        for (const char *other :
             {".", "-", "-.", "1.2.3", "1..2", "--1", "12\xb1", "1\n2", "1 2", "1,2",
              "1.23456789012345678.9", "1.2.345678901234567", "1:23456789012345.67"})
            QVERIFY2(!numberReadAhead(other), other);
        QVERIFY(numberReadAhead("18446744073709551617") == 18446744073709551617.0);
        QVERIFY(numberReadAhead(" 5. ") == 5.0 && numberReadAhead(".5\r") == 0.5);
    }
};

CORVALE_QT_TEST_MAIN(tst_LineProtocol)
#include "tst_LineProtocol.moc"
