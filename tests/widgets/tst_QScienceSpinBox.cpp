// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/QScienceSpinBox.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

class Box : public QScienceSpinBox
{
public:
    Box()
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

class tst_QScienceSpinBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
        Box box;
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
        QFETCH(QString, keys);
        QFETCH(double, value);
        Box box;
        box.type(qPrintable(keys));
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.value(), value);
        // A second Return keeps the digits that are not shown.
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.value(), value);
    }

    void unfinishedNumbersStay()
    {
        Box box;
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
        Box box;
        box.setLocale(QLocale(QLocale::German, QLocale::Germany));
        box.setValue(1.5e-9);
        QCOMPARE(box.text(), QString("1,5e-9 C"));
        for (const char *keys : {"2,5e-3", "2.5e-3"}) {
            box.type(keys);
            QTest::keyClick(&box, Qt::Key_Return);
            QCOMPARE(box.value(), 2.5e-3);
        }
    }

    void steps_data()
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
    void steps()
    {
        QFETCH(double, factor);
        QFETCH(double, from);
        QFETCH(QString, keys);
        QFETCH(double, reached);
        Box box;
        box.setSingleStep(1e-9);
        if (factor > 0)
            box.setProperty("steppingMode", QScienceSpinBox::MultiplicativeSteps);
        box.setStepFactor(factor > 0 ? factor : 0.5);
        QCOMPARE(box.stepFactor(), factor > 0 ? factor : 10.0);
        box.setValue(from);
        const QMap<QChar, Qt::Key> names{{'u', Qt::Key_Up},
                                         {'d', Qt::Key_Down},
                                         {'U', Qt::Key_PageUp},
                                         {'D', Qt::Key_PageDown}};
        for (const QChar key : keys)
            QTest::keyClick(&box,
                            names.value(key, Qt::Key_Down),
                            key == 'C' ? Qt::ControlModifier : Qt::NoModifier);
        QVERIFY2(std::abs(box.value() / reached - 1) < 1e-12, qPrintable(box.text()));
    }

    void rangeHolds()
    {
        Box box;
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
        auto box = std::make_unique<Box>();
        connect(box.get(), &QScienceSpinBox::returnKeyPressed, this, [&box] {
            box.reset();
        });
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, {});
        QCoreApplication::sendEvent(box.get(), &press);
        QVERIFY(!box);
        box = std::make_unique<Box>();
        connect(box.get(), QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [&box] {
            box.reset();
        });
        box->stepBy(1);
        QVERIFY(!box);
    }

    void decimalsLimitWhatIsShown()
    {
        Box box;
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
        Box box;
        QSignalSpy finished(&box, SIGNAL(editingFinished()));
        QVector<double> values;
        connect(&box, &QScienceSpinBox::returnKeyPressed, &box, [&] {
            values << box.value();
        });
        box.type("4e-3");
        QTest::keyClick(&box, Qt::Key_Enter);
        QCOMPARE(values, QVector<double>{4e-3});
        QCOMPARE(finished.size(), 1);
    }
};

CORVALE_QT_TEST_MAIN(tst_QScienceSpinBox)
#include "tst_QScienceSpinBox.moc"
