// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ValueAxisDialog.h"
#include "tests/monitor/support/WindowInTest.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/scope/RVXScopePlotView.h>

#include <qwt_scale_div.h>

using namespace Monitor;
using Corvale_Qt::RVXScopePlotView;

namespace {

//! A window with readings in A whose dialog of the value axis is open.
struct AxisDialog
{
    explicit AxisDialog(const QString &settings)
        : w(settings)
    {
    }
    //! Opens the dialog by its key, and returns whether it is there.
    bool open()
    {
        w.source->begin(StreamKind::Channels, 2, QStringLiteral("A"));
        w.run(4);
        view = w.window.displays().scope()->plotView();
        const bool isActive = QTest::qWaitForWindowActive(&w.window);
        QTest::keyClick(&w.window, Qt::Key_Y, Qt::ControlModifier);
        dialog = w.window.findChild<ValueAxisDialog *>();
        return isActive && dialog && QTest::qWaitForWindowActive(dialog);
    }
    void showTwoUnits()
    {
        StreamHeader mixed;
        mixed.channels = {{"beam", "nA"}, {"bias", "V"}};
        w.source->begin(mixed);
        for (int i = 0; i < 4; ++i)
            w.source->give(0.1 * i, {20.0 + i, 0.25 * i});
        w.settle();
    }
    //! Types a range and returns what is said against it.
    QString type(const QString &maximum, const QString &minimum)
    {
        return typeInto("maximum", maximum, "minimum", minimum);
    }
    QString typeRight(const QString &maximum, const QString &minimum)
    {
        return typeInto("rightMaximum", maximum, "rightMinimum", minimum);
    }
    void followReadings()
    {
        if (QTest::qWaitForWindowActive(dialog))
            QTest::keyClick(dialog->windowHandle(), Qt::Key_A, Qt::AltModifier);
    }

    WindowInTest w;
    RVXScopePlotView *view = nullptr;
    ValueAxisDialog *dialog = nullptr;

private:
    QString typeInto(const char *upper, const QString &maximum, const char *lower,
                     const QString &minimum)
    {
        for (const auto &[name, text] : {std::pair(upper, maximum), std::pair(lower, minimum)}) {
            auto *field = dialog->findChild<QLineEdit *>(name);
            field->setFocus();
            field->selectAll();
            QTest::keyClicks(field, text);
        }
        QTest::keyClick(dialog, Qt::Key_Return);
        w.settle();
        return dialog->findChild<QLabel *>("refusal")->text();
    }
};

QString refusalOf(const char *typed, const char *unit)
{
    return QString("\"%1\" is not a value in %2. Write one like -20, or with its unit like 250 pA.")
        .arg(typed, unit);
}

} // namespace

//! The dialog in which the range and the unit of each value axis are typed.
class tst_ValueAxisDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(m_folder.isValid()); }

    //! Rows that come between the keys change neither what is being typed nor the scale that it sets.
    void aRangeIsTypedWhileRowsStream()
    {
        AxisDialog axis(settings("streaming.xui"));
        QVERIFY(axis.open());
        const auto shown = [&axis] {
            const QwtScaleDiv &scale = axis.w.plot()->axisScaleDiv(QwtPlot::yLeft);
            return QString("%1 to %2").arg(scale.lowerBound()).arg(scale.upperBound());
        };
        double reading = 10.0, time = 1.0;
        const auto stream = [&] {
            reading *= -1.5; // the automatic scale grows with each row
            axis.w.source->give(time += 0.1, {reading, -reading});
            axis.w.clock.advance(0.1);
            QCoreApplication::processEvents();
        };
        const auto type = [&](const char *name, const QString &text) {
            auto *field = axis.dialog->findChild<QLineEdit *>(name);
            field->setFocus();
            field->selectAll();
            for (const QChar key : text) {
                QTest::keyClick(field, key.toLatin1());
                stream();
            }
            QCOMPARE(field->text(), text);
        };
        const QString automatic = shown();
        type("maximum", "20 A");
        QVERIFY(shown() != automatic); // it follows the rows until Enter
        type("minimum", "-5 A");
        QTest::keyClick(axis.dialog, Qt::Key_Return);
        stream();
        const QString typed = shown();
        QCOMPARE(axis.view->yMinimum(), -5.0);
        QCOMPARE(axis.view->yMaximum(), 20.0);
        for (int i = 0; i < 20; ++i)
            stream();
        QCOMPARE(shown(), typed);
        QCOMPARE(axis.view->shownUnit(), QString("A"));
        QCOMPARE(axis.dialog->findChild<QLineEdit *>("maximum")->text(), QString("20"));
    }

    //! The range of the y axis is typed in the unit that the axis shows; what cannot be shown is refused with a word.
    void theRangeOfValuesIsTyped()
    {
        AxisDialog axis(settings("values.xui"));
        QVERIFY(axis.open());
        RVXScopePlotView *view = axis.view;
        QCOMPARE(axis.type("20 mA", "-5 mA"), QString());
        QCOMPARE(view->yMinimum(), -0.005);
        QTRY_COMPARE(view->shownUnit(), QString("mA"));
        QCOMPARE(axis.type("30", "-10"), QString());
        QCOMPARE(view->yMaximum(), 0.03);
        QCOMPARE(axis.type("1", "2"), QString("The minimum must be below the maximum."));
        QCOMPARE(axis.type("1 V", "0"), refusalOf("1 V", "mA"));
        QCOMPARE(view->yMaximum(), 0.03);
        axis.followReadings();
        QTRY_COMPARE(int(view->yScaleMode()), 0); // a button that a key presses goes down first
        QCOMPARE(axis.type("40 mA", "-5 mA"), QString());
        axis.w.source->begin(StreamKind::Channels, 2, QStringLiteral("nA"));
        QCOMPARE(view->yMaximum(), 1.0); // a range means nothing in another unit
        axis.w.source->begin(StreamKind::Channels, 2, QStringLiteral("A"));
        QCOMPARE(view->yMaximum(), 0.04);
        QVERIFY(!axis.dialog->findChild<QWidget *>("rightMaximum")->isVisible());
    }

    //! Channels of a second unit have an axis of their own, with a range and a unit of their own.
    void theRangeOfTheRightAxisIsTyped()
    {
        AxisDialog axis(settings("right-values.xui"));
        QVERIFY(axis.open());
        axis.showTwoUnits();
        RVXScopePlotView *view = axis.view;
        QTRY_VERIFY(axis.dialog->findChild<QWidget *>("rightMaximum")->isVisible());
        const std::pair<double, double> left = view->range();
        QCOMPARE(axis.typeRight("1.5 V", "-500 mV"), QString());
        QVERIFY((view->rightRange() == Corvale_Qt::ValueRange{-0.5, 1.5, QStringLiteral("V")}));
        QTRY_COMPARE(axis.w.plot()->axisInterval(QwtPlot::yRight), QwtInterval(-0.5, 1.5));
        QCOMPARE(view->range(), left);
        QVERIFY(axis.typeRight("1 nA", "0").contains("\"1 nA\" is not a value in V"));
        QTest::keyClick(axis.dialog->findChild<QComboBox *>("rightUnit"), 'm');
        QCOMPARE(view->valueUnit(), QString("mV"));
        QTRY_COMPARE(view->rightUnit(), QString("mV"));
        QTest::keyClick(axis.dialog->findChild<QComboBox *>("unit"), 'p');
        QCOMPARE(view->valueUnit(), QString("mV pA"));
        QTRY_COMPARE(view->shownUnit(), QString("pA"));
        QCOMPARE(view->rightUnit(), QString("mV"));
        QCOMPARE(axis.w.value(0), QString("23000 pA"));
        QCOMPARE(axis.w.value(1), QString("750.0 mV"));
    }

    //! Range and unit of the right axis come back at the next start, for the same source and unit, until it follows its readings.
    void theRightAxisIsKept()
    {
        const QString file = settings("kept-right-values.xui");
        const auto rightAxis = [](AxisDialog &axis) {
            axis.w.settle();
            return QStringLiteral("%1 %2")
                .arg(axis.w.plot()->axisInterval(QwtPlot::yRight).maxValue())
                .arg(axis.view->rightUnit());
        };
        {
            AxisDialog axis(file);
            QVERIFY(axis.open());
            axis.showTwoUnits();
            QTRY_COMPARE(axis.view->rightUnit(), QString("mV"));
            QCOMPARE(axis.typeRight("1.5 V", "-500 mV"), QString());
            QTest::keyClick(axis.dialog->findChild<QComboBox *>("rightUnit"), 'k');
        }
        {
            AxisDialog axis(file);
            QVERIFY(
                axis.open()); // another stream of the source, without a second unit, forgets nothing
            axis.showTwoUnits();
            QTRY_COMPARE(rightAxis(axis), QString("1.5 kV"));
            axis.followReadings();
            QTRY_COMPARE(rightAxis(axis), QString("0.8 kV"));
        }
        AxisDialog axis(file);
        QVERIFY(axis.open());
        axis.showTwoUnits();
        QTRY_COMPARE(rightAxis(axis), QString("0.8 kV"));
    }

    //! A range belongs to its unit: it is neither offered nor brought back in another one.
    void aTypedRangeBelongsToItsUnit()
    {
        AxisDialog axis(settings("unit-values.xui"));
        QVERIFY(axis.open());
        axis.showTwoUnits();
        RVXScopePlotView *view = axis.view;
        QTRY_COMPARE(view->shownUnit(), QString("nA"));
        QCOMPARE(axis.typeRight("1.5 V", "-500 mV"), QString());
        QCOMPARE(axis.type("40 nA", "-5 nA"), QString());
        QAbstractItemModel &model = axis.w.session.model();
        const QModelIndex beam = model.index(0, 1);
        model.setData(beam, Qt::Unchecked, Qt::CheckStateRole);
        QTRY_VERIFY(view->shownUnit().endsWith("V"));
        axis.w.settle();
        const auto *maximum = axis.dialog->findChild<QLineEdit *>("maximum");
        const auto leftEnd = [&] { return axis.w.plot()->axisInterval(QwtPlot::yLeft).maxValue(); };
        QTRY_COMPARE(maximum->text(), view->toShownValue(leftEnd()));
        QVERIFY(leftEnd() < 30.0);
        QCOMPARE(axis.type("40 V", "-5 V"), QString());
        QTRY_COMPARE(axis.w.plot()->axisInterval(QwtPlot::yLeft), QwtInterval(-5.0, 40.0));
        model.setData(beam, Qt::Checked, Qt::CheckStateRole);
        axis.showTwoUnits();
        QCOMPARE(view->yMaximum(), 1.0);
    }

    //! An axis that follows its readings leaves no typed number behind.
    void anAxisThatFollowsItsReadingsShowsTheirRange()
    {
        AxisDialog axis(settings("followed-values.xui"));
        QVERIFY(axis.open());
        axis.showTwoUnits();
        QTRY_COMPARE(axis.view->shownUnit(), QString("nA"));
        QCOMPARE(axis.type("4 nA", "oops"), refusalOf("oops", "nA"));
        axis.followReadings();
        const auto *maximum = axis.dialog->findChild<QLineEdit *>("maximum");
        QTRY_VERIFY(maximum->text() != "4 nA");
        QCOMPARE(axis.dialog->findChild<QLabel *>("refusal")->text(), QString());
        axis.w.source->begin(StreamKind::Channels, 2);
        axis.w.settle();
        QCOMPARE(axis.type("oops", "0"),
                 QString("\"oops\" is not a number. Write one like -20 or 2.5e-7."));
    }

private:
    QString settings(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

CORVALE_QT_TEST_MAIN(tst_ValueAxisDialog)
#include "tst_ValueAxisDialog.moc"
