// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/QScienceSpinBox.h"
#include "tests/support/TestMain.h"

#include <QLineEdit>
#include <QSignalSpy>

#include <cmath>
#include <memory>

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
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("small") << 1.5e-9 << "1.5e-9 C";
        QTest::newRow("very small") << 2.25e-300 << "2.25e-300 C";
        QTest::newRow("big") << -2.5e300 << "-2.5e300 C";
        QTest::newRow("nothing") << 0.0 << "0 C";
        QTest::newRow("one digit before the point") << 7.25 << "7.25 C";
        QTest::newRow("rounded in the picture only") << 1.23456789e-7 << "1.2346e-7 C";
        QTest::newRow("tens") << 1200.0 << "1.2e3 C";
    }
    void numbersAreShownShort()
    {
        QFETCH(double, value);
        QFETCH(QString, text);
        Box box;
        box.setValue(value);
        QCOMPARE(box.text(), text);
        QCOMPARE(box.value(), value);
        // Coming by with the keyboard changes nothing.
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.value(), value);
    }

    void numbersAreTyped_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<double>("value");
        QTest::newRow("exponent") << "1.5e-9" << 1.5e-9;
        QTest::newRow("capital") << "-2E+3" << -2000.0;
        QTest::newRow("plain") << "0.00025" << 2.5e-4;
        QTest::newRow("more digits than shown") << "1.23456789012e-5" << 1.23456789012e-5;
        QTest::newRow("letters do not arrive") << "1x.5zz" << 1.5;
        QTest::newRow("point first") << ".5" << 0.5;
    }
    void numbersAreTyped()
    {
        QFETCH(QString, keys);
        QFETCH(double, value);
        Box box;
        box.type(qPrintable(keys));
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.value(), value);
        // And once more: the digits that are not shown were not lost.
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
        // Left unfinished, the number before comes back.
        box.setKeyboardTracking(false); // else the "1" was taken on the way
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

    void stepsAddOrMultiply()
    {
        Box box;
        box.setSingleStep(1e-9);
        box.setValue(1e-8);
        QTest::keyClick(&box, Qt::Key_Up);
        QCOMPARE(box.value(), 1e-8 + 1e-9);
        box.setProperty("steppingMode", QScienceSpinBox::MultiplicativeSteps);
        box.setValue(1e-8);
        QTest::keyClick(&box, Qt::Key_Up);
        QVERIFY(std::abs(box.value() / 1e-7 - 1) < 1e-12);
        QTest::keyClick(&box, Qt::Key_Down);
        QTest::keyClick(&box, Qt::Key_Down);
        QVERIFY(std::abs(box.value() / 1e-9 - 1) < 1e-12);
        box.setValue(0);
        QTest::keyClick(&box, Qt::Key_Up);
        QCOMPARE(box.value(), 1e-9);
        box.setValue(-1);
        QTest::keyClick(&box, Qt::Key_Up); // up is up
        QCOMPARE(box.value(), -0.1);
        box.setValue(1e308);
        QTest::keyClick(&box, Qt::Key_Up);
        QCOMPARE(box.value(), box.maximum());
        box.setStepFactor(0.5);
        QCOMPARE(box.stepFactor(), 10.0);
    }

    void manyStepsStayWithinADecade_data()
    {
        QTest::addColumn<double>("factor");
        QTest::addColumn<double>("reached");
        QTest::newRow("decades") << 10.0 << 10.0;
        QTest::newRow("octaves") << 2.0 << 8.0;
        QTest::newRow("tenths of a decade") << std::pow(10, 0.1) << 10.0;
        QTest::newRow("fine steps") << 1.01 << std::pow(1.01, 10);
        QTest::newRow("steps of two decades") << 100.0 << 100.0;
    }
    void manyStepsStayWithinADecade()
    {
        QFETCH(double, factor);
        QFETCH(double, reached);
        Box box;
        box.setSteppingMode(QScienceSpinBox::MultiplicativeSteps);
        box.setStepFactor(factor);
        box.setValue(1);
        QTest::keyClick(&box, Qt::Key_PageUp);
        QVERIFY2(std::abs(box.value() / reached - 1) < 1e-12, qPrintable(box.text()));
        QTest::keyClick(&box, Qt::Key_Down, Qt::ControlModifier);
        QTest::keyClick(&box, Qt::Key_PageDown);
        QVERIFY2(std::abs(box.value() * reached - 1) < 1e-12, qPrintable(box.text()));
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
        box.setValue(5e-7);
        QTest::keyClick(&box, Qt::Key_Up);
        QCOMPARE(box.value(), 1e-6);
        box.setValue(2e-9);
        QTest::keyClick(&box, Qt::Key_Down);
        QCOMPARE(box.value(), 1e-9);
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

    void decimalsAndReturn()
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

        QSignalSpy returns(&box, SIGNAL(returnKeyPressed()));
        QSignalSpy finished(&box, SIGNAL(editingFinished()));
        box.type("4e-3");
        connect(&box, &QScienceSpinBox::returnKeyPressed, &box, [&box] {
            QCOMPARE(box.value(), 4e-3);
        });
        QTest::keyClick(&box, Qt::Key_Enter);
        QCOMPARE(returns.size(), 1);
        QCOMPARE(finished.size(), 1);
    }
};

CORVALE_QT_TEST_MAIN(tst_QScienceSpinBox)
#include "tst_QScienceSpinBox.moc"
