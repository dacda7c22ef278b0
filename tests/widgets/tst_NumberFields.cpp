// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/IPv4Validator.h"
#include "corvale_qt/widgets/IntStepSpinBox.h"
#include "corvale_qt/widgets/IntStepValidator.h"
#include "corvale_qt/widgets/QScienceSpinBox.h"
#include "corvale_qt/widgets/TimeSpan.h"
#include "corvale_qt/widgets/TimeSpanBox.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

using Range = QVector<int>; // minimum, maximum, step

//! Returns a letter for each of \a texts: "A" if it is acceptable, "i" if intermediate, "-" if invalid.
QString judged(const QValidator &validator, const QStringList &texts)
{
    QString letters;
    for (QString text : texts) {
        int pos = text.size();
        letters += QString("-iA").at(validator.validate(text, pos));
    }
    return letters;
}

//! A shown spin box whose text is selected, as it is when the user tabs into it.
class StepBox : public IntStepSpinBox
{
public:
    explicit StepBox(const Range &rangeAndStep)
    {
        setSingleStep(rangeAndStep.at(2));
        setRange(rangeAndStep.at(0), rangeAndStep.at(1));
        setValue(minimum());
        show();
        setFocus();
        selectAll();
    }
    QLineEdit *edit() const { return lineEdit(); }
};

//! Returns the text in the field after each of \a keys, of which "<" is the backspace key.
QString typed(StepBox &box, const QString &keys)
{
    QStringList seen;
    for (const QChar key : keys) {
        if (key == '<')
            QTest::keyClick(box.edit(), Qt::Key_Backspace);
        else
            QTest::keyClick(box.edit(), key.toLatin1());
        seen << box.edit()->text();
    }
    return seen.join(' ');
}

class ScienceBox : public QScienceSpinBox
{
public:
    ScienceBox()
    {
        setSuffix(" C");
        lineEdit()->selectAll();
    }
    void type(const char *text)
    {
        lineEdit()->clear();
        QTest::keyClicks(this, text);
    }
    QString typed() const { return lineEdit()->text(); }
    using QScienceSpinBox::lineEdit;
};

} // namespace

//! The fields that take numbers: addresses, steps, powers of ten and spans of time.
class tst_NumberFields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void judges_data()
    {
        columns<QString, int>("text", "state");
        row("nothing", "", int(QValidator::Intermediate));
        row("address", "192.168.0.1", int(QValidator::Acceptable));
        row("limits", "0.0.255.255", int(QValidator::Acceptable));
        row("empty part", "192.168..1", int(QValidator::Intermediate));
        row("blank part", "192.168. .1", int(QValidator::Intermediate));
        row("above 255", "192.168.0.256", int(QValidator::Invalid));
        row("above 255 after an empty part", "192..0.256", int(QValidator::Invalid));
        row("five parts", "1.2.3.4.5", int(QValidator::Invalid));
        row("five empty parts", "....", int(QValidator::Invalid));
        row("three parts are not checked", "1.b.999", int(QValidator::Intermediate));
        row("letters in four parts", "a.b.c.d", int(QValidator::Invalid));
        row("negative part", "10.0.0.-1", int(QValidator::Acceptable));
        row("number beyond int", "1.2.3.99999999999", int(QValidator::Invalid));
    }
    void judges()
    {
        QFETCH(QString, text);
        int pos = 0;
        QTEST(int(IPv4Validator().validate(text, pos)), "state");
    }

    void validatorAlone()
    {
        IntStepValidator validator(-100, 100, 5);
        QCOMPARE(judged(validator, {"15", "-15", "12", "1", "", "105", "x"}), QString("AA--ii-"));
        validator.setSingleStep(0);
        QCOMPARE(judged(validator, {"7"}), QString("A"));
        validator.setSingleStep(-4);
        QCOMPARE(judged(validator, {"8", "6"}), QString("A-"));
        const IntStepValidator widest(std::numeric_limits<int>::min(), 0, -1);
        QCOMPARE(judged(widest, {"-2147483648"}), QString("A"));
    }

    void typing_data()
    {
        columns<Range, QString, QString, int>("rangeAndStep", "keys", "seen", "value");
        row("a multiple key by key", Range{0, 100, 5}, "15", "1 15", 15);
        row("not a multiple", Range{0, 100, 5}, "12", "1 1", 0);
        row("three digits", Range{0, 1000, 5}, "125", "1 12 125", 125);
        row("back and forth", Range{0, 100, 5}, "15<0", "1 15 1 10", 10);
        row("emptied", Range{0, 100, 5}, "15<<5", "1 15 1  5", 5);
        row("negative", Range{-100, 100, 5}, "-15", "- -1 -15", -15);
        row("negative, not a multiple", Range{-100, 100, 5}, "-12", "- -1 -1", -100);
        row("negative, no multiple in reach", Range{-40, 1000, 25}, "-32", "- - -2", -40);
        row("negative, above the maximum", Range{-800, -200, 100}, "-300", "- -3 -30 -300", -300);
        row("letters", Range{0, 100, 5}, "a1x5e", "0 1 1 15 15", 15);
        row("letters over a value set by code", Range{3, 100, 5}, "x1x5e", "3 1 1 15 15", 15);
        row("letters over a value that cannot grow", Range{7, 60, 25}, "x2", "7 2", 7);
        row("only the maximum fits", Range{0, 100, 50}, "100", "1 10 100", 100);
        row("no multiple in reach", Range{0, 40, 25}, "32", "0 2", 0);
        row("below the minimum", Range{200, 800, 100}, "300", "3 30 300", 300);
        row("above the maximum", Range{0, 100, 5}, "105", "1 10 10", 10);
        row("step 0 takes any number", Range{0, 100, 0}, "17", "1 17", 17);
        constexpr int most = std::numeric_limits<int>::max();
        const QString grown = "1 10 100 1000 10000 100000 1000000 10000000 100000000 1000000007";
        row("widest range", Range{-most - 1, most, 1000000007}, "1000000007", grown, 1000000007);
    }
    void typing()
    {
        QFETCH(int, value);
        StepBox box(cell<Range>("rangeAndStep"));
        QTEST(typed(box, cell("keys")), "seen");
        QTest::keyClick(box.edit(), Qt::Key_Return);
        QCOMPARE(box.value(), value);
        QCOMPARE(box.cleanText(), QString::number(value));
    }

    void halfANumberIsNeverTheValue()
    {
        StepBox box({0, 100, 5});
        QSignalSpy changed(&box, QOverload<int>::of(&QSpinBox::valueChanged));
        typed(box, "15");
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.at(0).at(0).toInt(), 15);
    }

    void prefixSuffixAndGroups()
    {
        StepBox box({0, 100000, 250});
        box.setPrefix("N = ");
        box.setSuffix(" samples");
        box.setGroupSeparatorShown(true);
        box.setValue(1250);
        box.selectAll();
        QTest::keyClicks(box.edit(), "2750");
        QCOMPARE(box.value(), 2750);
        QTest::keyClick(box.edit(), Qt::Key_Backspace);
        QTest::keyClick(box.edit(), '2');
        QCOMPARE(box.value(), 2750);
    }

    void hexadecimalGrowsByHexadecimalDigits()
    {
        StepBox box({0, 255, 16});
        box.setDisplayIntegerBase(16);
        box.selectAll();
        QCOMPARE(typed(box, "f0"), QString("f f0"));
        QCOMPARE(box.value(), 240);
    }

    void specialValueTextStands()
    {
        StepBox box({0, 100, 5});
        box.setSpecialValueText("automatic");
        box.setValue(0);
        QVERIFY(box.hasAcceptableInput());
        QCOMPARE(box.edit()->text(), QString("automatic"));
    }

    void stepsLeadOnFromWhatIsTyped()
    {
        StepBox box({0, 100, 5});
        box.setKeyboardTracking(false);
        typed(box, "25");
        QCOMPARE(box.value(), 0);
        QTest::keyClick(box.edit(), Qt::Key_Up);
        QCOMPARE(box.value(), 30);
    }

    void stepOfTheMomentCounts()
    {
        StepBox box({0, 100, 5});
        QString text = "12";
        int pos = 2;
        QCOMPARE(box.validate(text, pos), QValidator::Invalid);
        box.setSingleStep(4);
        QCOMPARE(box.validate(text, pos), QValidator::Acceptable);
        box.setRange(0, 10);
        QCOMPARE(box.validate(text, pos), QValidator::Invalid);
    }

    void valueSetByCodeStays()
    {
        StepBox box({0, 100, 5});
        box.setValue(12);
        QTest::keyClick(box.edit(), Qt::Key_Return);
        box.clearFocus();
        QCOMPARE(box.value(), 12);
    }

    void stepsOfWholeNumbers_data()
    {
        columns<Range, int, bool, QString, QString>("rangeAndStep", "from", "wraps", "keys",
                                                    "values");
        row("up to the highest multiple", Range{0, 98, 5}, 85, false, "uuu", "90 95 95");
        row("down to the lowest multiple", Range{3, 50, 5}, 15, false, "ddd", "10 5 5");
        row("pages", Range{3, 98, 5}, 25, false, "UUDD", "75 95 45 5");
        row("from a value set by code up", Range{0, 100, 5}, 12, false, "u", "15");
        row("from a value set by code down", Range{0, 100, 5}, 12, false, "d", "10");
        row("from beyond the multiples", Range{3, 98, 5}, 97, false, "uUd", "97 97 95");
        row("below zero", Range{-98, 98, 5}, -12, false, "uddU", "-10 -15 -20 30");
        row("no multiple in the range", Range{11, 14, 5}, 12, false, "ud", "12 12");
        row("wrapping", Range{3, 98, 5}, 90, true, "uuud", "95 5 10 5");
        row("wrapping downwards", Range{3, 98, 5}, 5, true, "d", "95");
        constexpr int most = std::numeric_limits<int>::max();
        const QString ends = "0 2147483647 2147483647 0";
        row("widest range", Range{-most - 1, most, most}, -most, false, "uuud", ends);
    }
    void stepsOfWholeNumbers()
    {
        const QMap<QChar, Qt::Key> names{{'u', Qt::Key_Up},
                                         {'d', Qt::Key_Down},
                                         {'U', Qt::Key_PageUp},
                                         {'D', Qt::Key_PageDown}};
        StepBox box(cell<Range>("rangeAndStep"));
        box.setWrapping(cell<bool>("wraps"));
        box.setValue(cell<int>("from"));
        box.selectAll();
        QStringList values;
        for (const QChar key : cell("keys")) {
            QTest::keyClick(box.edit(), names.value(key));
            values << QString::number(box.value());
        }
        QTEST(values.join(' '), "values");
    }

    void numbersAreShownShort_data()
    {
        columns<double, QString>("value", "text");
        row("small", 1.5e-9, "1.5e-9 C");
        row("very small", 2.25e-300, "2.25e-300 C");
        row("big", -2.5e300, "-2.5e300 C");
        row("nothing", 0.0, "0 C");
        row("one digit before the point", 7.25, "7.25 C");
        row("rounded in the picture only", 1.23456789e-7, "1.2346e-7 C");
        row("tens", 1200.0, "1.2e3 C");
    }
    void numbersAreShownShort()
    {
        QFETCH(double, value);
        QFETCH(QString, text);
        ScienceBox box;
        box.setValue(value);
        QCOMPARE(box.text(), text);
        QCOMPARE(box.value(), value);
        // Return without typing keeps the value.
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.value(), value);
    }

    void numbersAreTyped_data()
    {
        columns<QString, double>("keys", "value");
        row("exponent", "1.5e-9", 1.5e-9);
        row("capital", "-2E+3", -2000.0);
        row("plain", "0.00025", 2.5e-4);
        row("more digits than shown", "1.23456789012e-5", 1.23456789012e-5);
        row("letters do not arrive", "1x.5zz", 1.5);
        row("point first", ".5", 0.5);
    }
    void numbersAreTyped()
    {
        QFETCH(double, value);
        ScienceBox box;
        box.type(qPrintable(cell("keys")));
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.value(), value);
        // A second Return keeps the digits that are not shown.
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.value(), value);
    }

    void unfinishedNumbersStay()
    {
        ScienceBox box;
        box.setValue(3);
        for (const char *unfinished : {"1e", "1e-", "-", ".", "1.5E"}) {
            box.type(unfinished);
            QString text = QString(unfinished) + " C";
            QCOMPARE(box.typed(), text);
            int position = 0;
            QCOMPARE(box.validate(text, position), QValidator::Intermediate);
        }
        box.type("1e");
        QTest::keyClicks(&box, "-6");
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.value(), 1e-6);
        // If the number is left unfinished, the previous one comes back.
        box.setKeyboardTracking(false); // otherwise the "1" would become the value
        box.type("1e");
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.value(), 1e-6);
        QCOMPARE(box.text(), QString("1e-6 C"));
        QString overflow("1e999");
        int position = 0;
        QCOMPARE(box.validate(overflow, position) == QValidator::Acceptable, false);
    }

    void theLocalesDecimalSignWorks()
    {
        ScienceBox box;
        box.setLocale(QLocale(QLocale::German, QLocale::Germany));
        box.setValue(1.5e-9);
        QCOMPARE(box.text(), QString("1,5e-9 C"));
        for (const char *keys : {"2,5e-3", "2.5e-3"}) {
            box.type(keys);
            QTest::keyClick(&box, Qt::Key_Return);
            QCOMPARE(box.value(), 2.5e-3);
        }
    }

    void stepsOfTheLastDigit_data()
    {
        columns<double, double, QString, double>("factor", "from", "keys", "reached");
        row("adding", 0.0, 1e-8, "u", 1.1e-8);
        row("adding ten steps", 0.0, 1e-8, "U", 2e-8);
        row("multiplying", 10.0, 1e-8, "u", 1e-7);
        row("dividing", 10.0, 1e-8, "dd", 1e-10);
        row("from zero", 10.0, 0.0, "u", 1e-9);
        row("upwards below zero", 10.0, -1.0, "u", -0.1);
        row("up to the maximum", 10.0, 1e308, "u", std::numeric_limits<double>::max());
        row("ten steps of a decade", 10.0, 1.0, "U", 10.0);
        row("ten steps of an octave", 2.0, 1.0, "U", 8.0);
        row("ten steps of a tenth of a decade", std::pow(10, 0.1), 1.0, "U", 10.0);
        row("ten fine steps", 1.01, 1.0, "U", std::pow(1.01, 10));
        row("ten steps of two decades", 100.0, 1.0, "U", 100.0);
        row("ten steps of an octave down", 2.0, 1.0, "D", 0.125);
        row("ten steps with Ctrl", 2.0, 1.0, "C", 0.125);
    }
    void stepsOfTheLastDigit()
    {
        QFETCH(double, factor);
        QFETCH(double, reached);
        ScienceBox box;
        box.setSingleStep(1e-9);
        if (factor > 0)
            box.setProperty("steppingMode", QScienceSpinBox::MultiplicativeSteps);
        box.setStepFactor(factor > 0 ? factor : 0.5);
        QCOMPARE(box.stepFactor(), factor > 0 ? factor : 10.0);
        box.setValue(cell<double>("from"));
        const QMap<QChar, Qt::Key> names{{'u', Qt::Key_Up},
                                         {'d', Qt::Key_Down},
                                         {'U', Qt::Key_PageUp},
                                         {'D', Qt::Key_PageDown}};
        for (const QChar key : cell("keys"))
            QTest::keyClick(&box, names.value(key, Qt::Key_Down),
                            key == 'C' ? Qt::ControlModifier : Qt::NoModifier);
        QVERIFY2(std::abs(box.value() / reached - 1) < 1e-12, qPrintable(box.text()));
    }

    void rangeHolds()
    {
        ScienceBox box;
        box.setRange(1e-9, 1e-6);
        box.setSteppingMode(QScienceSpinBox::MultiplicativeSteps);
        box.setValue(5e-7);
        for (const char *outside : {"2e-6", "-1", "1e-10"}) {
            box.type(outside);
            QVERIFY2(!box.hasAcceptableInput(), outside);
            QTest::keyClick(&box, Qt::Key_Return);
            QVERIFY2(box.value() >= 1e-9 && box.value() <= 1e-6, outside);
        }
        for (const auto &[from, key, limit] :
             {std::tuple(5e-7, Qt::Key_Up, 1e-6), {2e-9, Qt::Key_Down, 1e-9}}) {
            box.setValue(from);
            QTest::keyClick(&box, key);
            QCOMPARE(box.value(), limit);
        }
    }

    void mayBeDeletedInAnswer()
    {
        auto box = std::make_unique<ScienceBox>();
        connect(box.get(), &QScienceSpinBox::returnKeyPressed, this, [&box] { box.reset(); });
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, {});
        QCoreApplication::sendEvent(box.get(), &press);
        QVERIFY(!box);
        box = std::make_unique<ScienceBox>();
        connect(box.get(), QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                [&box] { box.reset(); });
        box->stepBy(1);
        QVERIFY(!box);
    }

    void decimalsLimitWhatIsShown()
    {
        ScienceBox box;
        box.setValue(1.23456789e-9);
        box.setDecimals(2);
        QCOMPARE(box.text(), QString("1.23e-9 C"));
        box.setDecimals(6);
        QCOMPARE(box.text(), QString("1.234568e-9 C"));
        box.setSpecialValueText("NaN");
        box.setValue(box.minimum());
        QCOMPARE(box.text(), QString("NaN"));
    }

    void returnIsReportedAfterTheValue()
    {
        ScienceBox box;
        QSignalSpy finished(&box, SIGNAL(editingFinished()));
        QVector<double> values;
        connect(&box, &QScienceSpinBox::returnKeyPressed, &box, [&] { values << box.value(); });
        box.type("4e-3");
        QTest::keyClick(&box, Qt::Key_Enter);
        QCOMPARE(values, QVector<double>{4e-3});
        QCOMPARE(finished.size(), 1);
    }

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

    void typedSpans_data()
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
    void typedSpans()
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

CORVALE_QT_TEST_MAIN(tst_NumberFields)
#include "tst_NumberFields.moc"
