// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXPositionPlot.h"
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/beam/spots/RVXPositionErrorPlot.h"
#include "corvale_qt/beam/spots/SpotMapWidget.h"
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/scope/RVXScope.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXStatisticsSetupPage.h"
#include "corvale_qt/units/Units.h"
#include "corvale_qt/widgets/RVXLogBrowser.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

using MakeWidget = QWidget *(*)();

template<typename Widget>
QWidget *make()
{
    return new Widget;
}

//! Returns the controls of a form that accept the focus.
QVector<QWidget *> controlsOf(const QWidget &form)
{
    QVector<QWidget *> controls;
    for (QWidget *widget : form.findChildren<QWidget *>()) {
        const bool isPartOfAnother = widget->objectName().startsWith("qt_");
        if (widget->isVisibleTo(&form) && widget->focusPolicy() != Qt::NoFocus && !isPartOfAnother)
            controls << widget;
    }
    return controls;
}

/*! Returns the name by which a screen reader announces a control. For a combo box Qt returns the current text, so this
    returns the name of its label. */
QString nameOf(const QAccessibleInterface &accessible)
{
    if (accessible.role() != QAccessible::ComboBox)
        return accessible.text(QAccessible::Name);
    const auto labels = accessible.relations(QAccessible::Label);
    return labels.isEmpty() ? QString() : labels.first().first->text(QAccessible::Name);
}

//! Returns what a screen reader says of a chart: "name | description".
QString speechOf(QWidget *chart)
{
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(chart);
    if (accessible->role() != QAccessible::Chart)
        return "no chart";
    return accessible->text(QAccessible::Name) + " | " + accessible->text(QAccessible::Description);
}

//! Returns the chart in a window; null if there is none.
QWidget *chartIn(const QWidget &window)
{
    for (QWidget *widget : window.findChildren<QWidget *>())
        if (QAccessible::queryAccessibleInterface(widget)->role() == QAccessible::Chart)
            return widget;
    return nullptr;
}

} // namespace

Q_DECLARE_METATYPE(MakeWidget)

//! The library's forms in a dialog and as seen by a screen reader.
class tst_Forms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QAccessible::setActive(true); } // as while a screen reader runs

    void enterInADialog_data() { addForms(); }
    //! Enter in a field must not press a button of the form.
    void enterInADialog()
    {
        QFETCH(MakeWidget, makeForm);
        QDialog dialog;
        auto *layout = new QVBoxLayout(&dialog);
        QWidget *form = makeForm();
        layout->addWidget(form);
        QStringList pressed;
        for (auto *button : form->findChildren<QAbstractButton *>()) {
            button->show(); // including the factory reset
            connect(button, &QAbstractButton::clicked, this, [&pressed, button] {
                pressed << button->objectName();
            });
        }
        dialog.show();
        for (QWidget *control : controlsOf(*form))
            QTest::keyClick(control, Qt::Key_Return);
        QCOMPARE(pressed.join(' '), QString());
    }

    void namesOfControls_data() { addForms(); }
    //! Every control has a name for screen readers, and no two names of one form are the same.
    void namesOfControls()
    {
        QFETCH(MakeWidget, makeForm);
        const std::unique_ptr<QWidget> form(makeForm());
        QStringList heard;
        for (QWidget *control : controlsOf(*form)) {
            if (control->inherits("QFrame")) // text, tables and plots
                continue;
            QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(control);
            QVERIFY2(accessible->role() != QAccessible::Client, qPrintable(control->objectName()));
            const QString name = nameOf(*accessible);
            QVERIFY2(!name.isEmpty(), qPrintable(control->objectName()));
            heard << QString("%1 %2").arg(accessible->role()).arg(name);
        }
        QStringList distinct = heard;
        distinct.removeDuplicates();
        QCOMPARE(heard, distinct);
    }

    void namesOfTheScopesChoices()
    {
        const std::unique_ptr<QWidget> scope(make<RVXScope>());
        QStringList names;
        for (const char *combo : {"scaleYCombo", "averagingCombo", "comboBox_period"})
            names << nameOf(
                *QAccessible::queryAccessibleInterface(scope->findChild<QWidget *>(combo)));
        QCOMPARE(names.join(", "), QString("Y range, Running average, Acquisition period"));

        auto *bar = scope->findChild<QTabBar *>("modeSelect");
        bar->setCurrentIndex(1);
        QAccessibleInterface *tabs = QAccessible::queryAccessibleInterface(bar);
        QCOMPARE(nameOf(*tabs), QString("Plot mode: Scope"));
        QCOMPARE(nameOf(*tabs->child(2)), QString("Plot mode: Histogram"));
    }

    //! A chart says what it shows, whether it stands still, and the newest value of each channel that is shown.
    void aScopeSpeaks()
    {
        const Units::nA unit;
        RVXMultichannelDeviceModel model(3);
        model.setChannels(
            {{"left", &unit, &unit}, {"hidden", &unit, &unit}, {"right", &unit, &unit}});
        RVXScopePlotView view;
        QCOMPARE(speechOf(&view), QString("Scope plot | Strip, live"));
        view.setModel(&model);
        for (int row = 1; row <= 20; ++row) {
            const double values[] = {1.0 * row, 2.0 * row, 3.0 * row};
            model.appendRow(row, values);
        }
        view.setChannelLimits(3, limitsUpTo(50));
        model.setData(model.index(0, 2), Qt::Unchecked, Qt::CheckStateRole);
        const double last[] = {21, 42, 63};
        model.appendRow(21, last);
        const QString values =
            QAccessible::queryAccessibleInterface(&view)->text(QAccessible::Value);
        QVERIFY2(values.startsWith("left (nA), 21"), qPrintable(values));
        QVERIFY2(values.contains("nA; right (nA), 63"), qPrintable(values));
        QVERIFY2(values.endsWith("High alarm"), qPrintable(values));
        QVERIFY2(!values.contains("hidden"), qPrintable(values));

        view.resize(400, 300);
        view.show();
        view.zoomTo(QRectF(QPointF(2, 0), QPointF(10, 60)));
        QVERIFY(view.isHeld());
        QCOMPARE(speechOf(&view), "Scope plot | Strip, held. " + values);
    }

    void beamDisplaysSpeak()
    {
        RVXPositionPlot position;
        QWidget *chart = chartIn(position);
        QVERIFY(chart);
        QCOMPARE(speechOf(chart), QString("Position | no position yet"));
        position.setData(1.5, -0.3);
        QTRY_COMPARE(speechOf(chart),
                     QString("Position | newest position. X Position 1.5; Y Position -0.3"));
        position.showNoBeam();
        QTRY_COMPARE(speechOf(chart), QString("Position | no beam"));

        RVXSpectrogram profile;
        const QString words = speechOf(chartIn(profile));
        QVERIFY2(words.startsWith("Beam profile | No Data"), qPrintable(words));
        SpotMapWidget map;
        QCOMPARE(speechOf(chartIn(map)), QString("Spot map | No spots"));
    }

private:
    static ChannelLimits limitsUpTo(double highAlarm)
    {
        ChannelLimits limits;
        limits.highAlarm = highAlarm;
        return limits;
    }
    static void addForms()
    {
        QTest::addColumn<MakeWidget>("makeForm");
        QTest::newRow("scope") << MakeWidget(make<RVXScope>);
        QTest::newRow("statistics page") << MakeWidget(make<RVXStatisticsSetupPage>);
        QTest::newRow("log browser") << MakeWidget([]() -> QWidget * {
            return new RVXLogBrowser(nullptr, {});
        });
        QTest::newRow("beam profile") << MakeWidget(make<RVXSpectrogram>);
        QTest::newRow("position errors") << MakeWidget(make<RVXPositionErrorPlot>);
        QTest::newRow("spot map") << MakeWidget(make<SpotMapWidget>);
    }
};

CORVALE_QT_TEST_MAIN(tst_Forms)
#include "tst_Forms.moc"
