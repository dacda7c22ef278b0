// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/IntStepSpinBox.h"
#include "corvale_qt/widgets/IntStepValidator.h"
#include "tests/support/Rows.h"
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
class Box : public IntStepSpinBox
{
public:
    explicit Box(const Range &rangeAndStep)
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
QString typed(Box &box, const QString &keys)
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

} // namespace

class tst_IntStepSpinBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
        QFETCH(Range, rangeAndStep);
        QFETCH(QString, keys);
        QFETCH(int, value);
        Box box(rangeAndStep);
        QTEST(typed(box, keys), "seen");
        QTest::keyClick(box.edit(), Qt::Key_Return);
        QCOMPARE(box.value(), value);
        QCOMPARE(box.cleanText(), QString::number(value));
    }

    void halfANumberIsNeverTheValue()
    {
        Box box({0, 100, 5});
        QSignalSpy changed(&box, QOverload<int>::of(&QSpinBox::valueChanged));
        typed(box, "15");
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.at(0).at(0).toInt(), 15);
    }

    void prefixSuffixAndGroups()
    {
        Box box({0, 100000, 250});
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
        Box box({0, 255, 16});
        box.setDisplayIntegerBase(16);
        box.selectAll();
        QCOMPARE(typed(box, "f0"), QString("f f0"));
        QCOMPARE(box.value(), 240);
    }

    void specialValueTextStands()
    {
        Box box({0, 100, 5});
        box.setSpecialValueText("automatic");
        box.setValue(0);
        QVERIFY(box.hasAcceptableInput());
        QCOMPARE(box.edit()->text(), QString("automatic"));
    }

    void stepsLeadOnFromWhatIsTyped()
    {
        Box box({0, 100, 5});
        box.setKeyboardTracking(false);
        typed(box, "25");
        QCOMPARE(box.value(), 0);
        QTest::keyClick(box.edit(), Qt::Key_Up);
        QCOMPARE(box.value(), 30);
    }

    void stepOfTheMomentCounts()
    {
        Box box({0, 100, 5});
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
        Box box({0, 100, 5});
        box.setValue(12);
        QTest::keyClick(box.edit(), Qt::Key_Return);
        box.clearFocus();
        QCOMPARE(box.value(), 12);
    }

    void steps_data()
    {
        columns<Range, int, bool, QString, QString>("rangeAndStep",
                                                    "from",
                                                    "wraps",
                                                    "keys",
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
    void steps()
    {
        QFETCH(Range, rangeAndStep);
        QFETCH(int, from);
        QFETCH(bool, wraps);
        QFETCH(QString, keys);
        const QMap<QChar, Qt::Key> names{{'u', Qt::Key_Up},
                                         {'d', Qt::Key_Down},
                                         {'U', Qt::Key_PageUp},
                                         {'D', Qt::Key_PageDown}};
        Box box(rangeAndStep);
        box.setWrapping(wraps);
        box.setValue(from);
        box.selectAll();
        QStringList values;
        for (const QChar key : keys) {
            QTest::keyClick(box.edit(), names.value(key));
            values << QString::number(box.value());
        }
        QTEST(values.join(' '), "values");
    }
};

CORVALE_QT_TEST_MAIN(tst_IntStepSpinBox)
#include "tst_IntStepSpinBox.moc"
