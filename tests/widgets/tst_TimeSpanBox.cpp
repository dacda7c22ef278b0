// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/TimeSpan.h"
#include "corvale_qt/widgets/TimeSpanBox.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

//! Time spans as text, and the box in which an operator types them.
class tst_TimeSpanBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void texts_data()
    {
        tableFrom(R"(| typed | double seconds | written
        seconds | 90 s | 90 | 90 s
        no blank | 90s | 90 | 90 s
        a number alone | 15 | 15 | 15 s
        a fraction | 1.5 min | 90 | 90 s
        no digit before the point | .25 s | 0.25 | 250 ms
        milliseconds | 250 ms | 0.25 | 250 ms
        microseconds | 500 us | 0.0005 | 500 us
        more than a second | 1.5 s | 1.5 | 1.5 s
        hours | 2 h | 7200 | 2 h
        hours and minutes | 1h 30min | 5400 | 90 min
        words, capitals | 3 Days | 259200 | 3 d
        a week | 168 h | 604800 | 7 d
        a thousand | 1000 s | 1000 | 1000 s
        the longest | 10000 d | 864000000 | 10000 d
        no round number in any unit | 800000000 | 800000000 | 800000000 s
        the buffer | ALL | inf | all)");
    }
    void texts()
    {
        const std::optional<double> read = TimeSpan::fromText(cell("typed"));
        QVERIFY(read);
        QCOMPARE(*read, cell<double>("seconds"));
        QTEST(TimeSpan::text(*read), "written");
    }

    void writtenTextsAreReadAgain()
    {
        const int steps = int(std::log(TimeSpan::longest / TimeSpan::shortest) / std::log(1.0837));
        for (int step = 0; step <= steps; ++step) {
            const double seconds = TimeSpan::shortest * std::pow(1.0837, step);
            const QString text = TimeSpan::text(seconds);
            const double read = TimeSpan::fromText(text).value_or(0.0);
            QVERIFY2(qAbs(read / seconds - 1.0) < 1e-11, qPrintable(text));
            QVERIFY2(text.size() <= 18, qPrintable(text));
        }
        for (const double none : {0.0, -1.0, 1e-7, 1e9, qQNaN(), -qInf()})
            QCOMPARE(TimeSpan::text(none), QString());
    }

    void typing_data()
    {
        const QString form = "is not a time span. Examples: 90 s, 2 h, 1.5 min, 250 ms, all.";
        const QString range = ": a time span is at least 1 us and at most 10000 d.";
        columns<QString, double, QString>("typed", "span", "refusal");
        QTest::newRow("a span") << "2 h" << 7200.0 << "";
        QTest::newRow("the span that applies") << "1 min" << 60.0 << "";
        QTest::newRow("everything") << "all" << qInf() << "";
        QTest::newRow("nothing") << "" << 60.0 << "\"\" " + form;
        QTest::newRow("nonsense") << "soon" << 60.0 << "\"soon\" " + form;
        QTest::newRow("a unit of something else") << "5 m" << 60.0 << "\"5 m\" " + form;
        QTest::newRow("a comma, which may be either") << "1,5 min" << 60.0 << "\"1,5 min\" " + form;
        QTest::newRow("parts without units") << "1 30 min" << 60.0 << "\"1 30 min\" " + form;
        QTest::newRow("negative") << "-5 s" << 60.0 << "\"-5 s\" " + form;
        QTest::newRow("two points") << "1.2.3 s" << 60.0 << "\"1.2.3 s\" " + form;
        QTest::newRow("zero") << "0 s" << 60.0 << "\"0 s\"" + range;
        QTest::newRow("too long") << "9999999 d" << 60.0 << "\"9999999 d\"" + range;
        QTest::newRow("no double holds it")
            << QString(400, '9') << 60.0 << "\"" + QString(40, '9') + "...\"" + range;
        QTest::newRow("markup") << "<b>5" << 60.0 << "\"<b>5\" " + form;
    }
    void typing()
    {
        QFETCH(QString, typed);
        TimeSpanBox box;
        QSignalSpy changed(&box, &TimeSpanBox::spanChanged);
        QSignalSpy refused(&box, &TimeSpanBox::refused);
        QSignalSpy finished(&box, &TimeSpanBox::entryFinished);
        box.show();
        box.lineEdit()->selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, typed);
        QTest::keyClick(&box, Qt::Key_Return);
        QTEST(box.span(), "span");
        QCOMPARE(box.currentText(), TimeSpan::text(box.span()));
        QCOMPARE(changed.size(), box.span() == 60.0 ? 0 : 1);
        QFETCH(QString, refusal);
        QCOMPARE(refused.value(0).value(0).toString(), refusal);
        QCOMPARE(refused.size(), refusal.isEmpty() ? 0 : 1);
        QCOMPARE(finished.size(), refusal.isEmpty() ? 1 : 0);
        if (!refusal.isEmpty()) // markup is shown as it was typed
            QVERIFY(QToolTip::text() == refusal || QToolTip::text() == refusal.toHtmlEscaped());
        QToolTip::hideText();
    }

    //! A host may build its window anew for another span.
    void deletedInItsOwnReturn()
    {
        for (const bool inTheEdit : {false, true}) {
            QPointer<TimeSpanBox> box = new TimeSpanBox;
            box->show();
            connect(box, &TimeSpanBox::spanChanged, this, [&box] { delete box; });
            box->lineEdit()->setText("90 s");
            QTest::keyClick(inTheEdit ? static_cast<QWidget *>(box->lineEdit()) : box.data(),
                            Qt::Key_Return);
            QVERIFY(!box);
        }
    }

    void choosing()
    {
        TimeSpanBox box;
        QStringList items;
        for (int i = 0; i < box.count(); ++i)
            items << box.itemText(i);
        QCOMPARE(items.join(", "),
                 QString("1 s, 5 s, 10 s, 30 s, 1 min, 5 min, 15 min, 1 h, 8 h, 1 d, 7 d, all"));
        box.show();
        QSignalSpy changed(&box, &TimeSpanBox::spanChanged);
        QSignalSpy finished(&box, &TimeSpanBox::entryFinished);
        QTest::keyClick(&box, Qt::Key_Down);
        QCOMPARE(box.span(), 300.0);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(finished.size(), 0); // further keys go on from here
        box.showPopup();
        QTest::keyClick(box.view(), Qt::Key_Up);
        QTest::keyClick(box.view(), Qt::Key_Return);
        QTRY_COMPARE(finished.size(), 1);
        QCOMPARE(box.span(), 60.0);
        box.setSpan(90.0); // not in the list
        QCOMPARE(box.currentText(), QString("90 s"));
        for (const double none : {0.0, -1.0, qQNaN(), 1e12})
            box.setSpan(none);
        QCOMPARE(box.span(), 90.0);
        QCOMPARE(changed.size(), 3);
    }

    void escapeGivesUp()
    {
        TimeSpanBox box;
        box.show();
        QSignalSpy refused(&box, &TimeSpanBox::refused);
        QTest::keyClicks(&box, "zz");
        QTest::keyClick(&box, Qt::Key_Escape);
        QCOMPARE(box.currentText(), QString("1 min"));
        QCOMPARE(refused.size(), 0);
    }
};

CORVALE_QT_TEST_MAIN(tst_TimeSpanBox)
#include "tst_TimeSpanBox.moc"
