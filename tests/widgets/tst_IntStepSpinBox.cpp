// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/IntStepSpinBox.h"
#include "corvale_qt/widgets/IntStepValidator.h"
#include "tests/support/TestMain.h"

#include <QLineEdit>

using namespace Corvale_Qt;

namespace {

QString stateOf(const QValidator &validator, QString text)
{
    int pos = text.size();
    return QStringList({"Invalid", "Intermediate", "Acceptable"}).at(validator.validate(text, pos));
}

//! A spin box whose field is seen without arrows, prefix and suffix in the way of typing.
class Box : public IntStepSpinBox
{
public:
    Box(int minimum, int maximum, int step)
    {
        setRange(minimum, maximum);
        setSingleStep(step);
        setValue(minimum);
        show();
        setFocus();
        selectAll();
    }
    QLineEdit *edit() const { return lineEdit(); }
};

//! What stands in the field after each key.
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
        QCOMPARE(stateOf(validator, "15"), QString("Acceptable"));
        QCOMPARE(stateOf(validator, "-15"), QString("Acceptable"));
        QCOMPARE(stateOf(validator, "12"), QString("Invalid"));
        QCOMPARE(stateOf(validator, "1"), QString("Invalid"));
        QCOMPARE(stateOf(validator, ""), QString("Intermediate"));
        QCOMPARE(stateOf(validator, "105"), QString("Intermediate"));
        QCOMPARE(stateOf(validator, "x"), QString("Invalid"));
        validator.setSingleStep(0);
        QCOMPARE(stateOf(validator, "7"), QString("Acceptable"));
        validator.setSingleStep(-4);
        QCOMPARE(stateOf(validator, "8"), QString("Acceptable"));
    }

    void lowestNumberByMinusOne()
    {
        const IntStepValidator validator(std::numeric_limits<int>::min(), 0, -1);
        QCOMPARE(stateOf(validator, "-2147483648"), QString("Acceptable"));
    }

    void typing_data()
    {
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("step");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("seen");
        QTest::addColumn<int>("value");
        QTest::newRow("a multiple key by key") << 0 << 100 << 5 << "15"
                                               << "1 15" << 15;
        QTest::newRow("no multiple") << 0 << 100 << 5 << "12"
                                     << "1 1" << 0;
        QTest::newRow("three digits") << 0 << 1000 << 5 << "125"
                                      << "1 12 125" << 125;
        QTest::newRow("back and forth") << 0 << 100 << 5 << "15<0"
                                        << "1 15 1 10" << 10;
        QTest::newRow("emptied") << 0 << 100 << 5 << "15<<5"
                                 << "1 15 1  5" << 5;
        QTest::newRow("negative") << -100 << 100 << 5 << "-15"
                                  << "- -1 -15" << -15;
        QTest::newRow("negative, no multiple") << -100 << 100 << 5 << "-12"
                                               << "- -1 -1" << -100;
        QTest::newRow("negative, no multiple in reach") << -40 << 1000 << 25 << "-32"
                                                        << "- - -2" << -40;
        QTest::newRow("negative, above the maximum at first") << -800 << -200 << 100 << "-300"
                                                              << "- -3 -30 -300" << -300;
        QTest::newRow("letters") << 0 << 100 << 5 << "a1x5e"
                                 << "0 1 1 15 15" << 15;
        QTest::newRow("letters over a value set by code") << 3 << 100 << 5 << "x1x5e"
                                                          << "3 1 1 15 15" << 15;
        QTest::newRow("only the maximum fits") << 0 << 100 << 50 << "100"
                                               << "1 10 100" << 100;
        QTest::newRow("no multiple in reach") << 0 << 40 << 25 << "32"
                                              << "0 2" << 0;
        QTest::newRow("below the minimum") << 200 << 800 << 100 << "300"
                                           << "3 30 300" << 300;
        QTest::newRow("above the maximum") << 0 << 100 << 5 << "105"
                                           << "1 10 10" << 10;
        QTest::newRow("step 0 takes any number") << 0 << 100 << 0 << "17"
                                                 << "1 17" << 17;
        QTest::newRow("widest range")
            << std::numeric_limits<int>::min() << std::numeric_limits<int>::max() << 1000000007
            << "1000000007"
            << "1 10 100 1000 10000 100000 1000000 10000000 100000000 1000000007" << 1000000007;
    }
    void typing()
    {
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(int, step);
        QFETCH(QString, keys);
        QFETCH(int, value);
        Box box(minimum, maximum, step);
        QTEST(typed(box, keys), "seen");
        QTest::keyClick(box.edit(), Qt::Key_Return);
        QCOMPARE(box.value(), value);
        QCOMPARE(box.cleanText(), QString::number(value));
    }

    void halfANumberIsNeverTheValue()
    {
        Box box(0, 100, 5);
        QSignalSpy changed(&box, QOverload<int>::of(&QSpinBox::valueChanged));
        typed(box, "15");
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.at(0).at(0).toInt(), 15);
    }

    void prefixSuffixAndGroups()
    {
        Box box(0, 100000, 250);
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
        Box box(0, 255, 16);
        box.setDisplayIntegerBase(16);
        box.selectAll();
        QCOMPARE(typed(box, "f0"), QString("f f0"));
        QCOMPARE(box.value(), 240);
    }

    void specialValueTextStands()
    {
        Box box(0, 100, 5);
        box.setSpecialValueText("automatic");
        box.setValue(0);
        QVERIFY(box.hasAcceptableInput());
        QCOMPARE(box.edit()->text(), QString("automatic"));
    }

    void stepsLeadOnFromWhatIsTyped()
    {
        Box box(0, 100, 5);
        box.setKeyboardTracking(false);
        typed(box, "25");
        QCOMPARE(box.value(), 0);
        QTest::keyClick(box.edit(), Qt::Key_Up);
        QCOMPARE(box.value(), 30);
    }

    void stepOfTheMomentCounts()
    {
        Box box(0, 100, 5);
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
        Box box(0, 100, 5);
        box.setValue(12);
        QTest::keyClick(box.edit(), Qt::Key_Return);
        box.clearFocus();
        QCOMPARE(box.value(), 12);
    }

    void steps_data()
    {
        QTest::addColumn<QVector<int>>("rangeAndStep");
        QTest::addColumn<int>("from");
        QTest::addColumn<bool>("wraps");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("values");
        using Range = QVector<int>;
        QTest::newRow("up to the highest multiple") << Range{0, 98, 5} << 85 << false << "uuu"
                                                    << "90 95 95";
        QTest::newRow("down to the lowest multiple") << Range{3, 50, 5} << 15 << false << "ddd"
                                                     << "10 5 5";
        QTest::newRow("pages") << Range{3, 98, 5} << 25 << false << "UUDD"
                               << "75 95 45 5";
        QTest::newRow("from a value set by code up") << Range{0, 100, 5} << 12 << false << "u"
                                                     << "15";
        QTest::newRow("from a value set by code down") << Range{0, 100, 5} << 12 << false << "d"
                                                       << "10";
        QTest::newRow("from beyond the multiples") << Range{3, 98, 5} << 97 << false << "uUd"
                                                   << "97 97 95";
        QTest::newRow("below zero") << Range{-98, 98, 5} << -12 << false << "uddU"
                                    << "-10 -15 -20 30";
        QTest::newRow("no multiple in the range") << Range{11, 14, 5} << 12 << false << "ud"
                                                  << "12 12";
        QTest::newRow("around") << Range{3, 98, 5} << 90 << true << "uuud"
                                << "95 5 10 5";
        QTest::newRow("around downwards") << Range{3, 98, 5} << 5 << true << "d"
                                          << "95";
        constexpr int most = std::numeric_limits<int>::max();
        QTest::newRow("widest range") << Range{-most - 1, most, most} << -most << false << "uuud"
                                      << "0 2147483647 2147483647 0";
    }
    void steps()
    {
        QFETCH(QVector<int>, rangeAndStep);
        QFETCH(int, from);
        QFETCH(bool, wraps);
        QFETCH(QString, keys);
        const QMap<QChar, Qt::Key> names{{'u', Qt::Key_Up},
                                         {'d', Qt::Key_Down},
                                         {'U', Qt::Key_PageUp},
                                         {'D', Qt::Key_PageDown}};
        Box box(rangeAndStep.at(0), rangeAndStep.at(1), rangeAndStep.at(2));
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

    void installedValidatorIsItsOwn()
    {
        Box box(0, 100, 5);
        QVERIFY(box.edit()->validator());
        QCOMPARE(box.edit()->validator(), box.findChild<IntStepValidator *>());
    }
};

CORVALE_QT_TEST_MAIN(tst_IntStepSpinBox)
#include "tst_IntStepSpinBox.moc"
