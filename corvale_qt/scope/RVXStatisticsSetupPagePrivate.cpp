// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXStatisticsSetupPage_p.h"
#include "corvale_qt/settings/RVXApplicationSettings.h"

#include <QDebug>
#include <QSettings>
#include <QSignalBlocker>

namespace Corvale_Qt {

namespace {

//! The regression weights a channel by this power of its height.
const double regressionWeightPower = 2.0;

} // namespace

/*! Not by the form: a box that is off disables its children while they are being made, and a screen reader that hears
    of that takes them for plain widgets from then on. */
void RVXStatisticsSetupPagePrivate::setUpGroups()
{
    Q_Q(RVXStatisticsSetupPage);
    const QVector<QGroupBox *> groups{ui.CoGCBox, ui.regressionCBox, ui.fullStatsCBox};
    for (QGroupBox *group : groups) {
        const QSignalBlocker blocker(group);
        group->setChecked(false);
    }
    for (StatisticsGroupBox *group : {ui.CoGCBox, ui.regressionCBox})
        QObject::connect(group, &StatisticsGroupBox::childrenDisabled, q, [this] {
            enableEditors();
        });
}

//! The threshold and the window of a group that is off count for the full statistics.
void RVXStatisticsSetupPagePrivate::enableEditors()
{
    const bool full = ui.fullStatsCBox->isChecked();
    for (QWidget *editor : {ui.CoGThresholdEdit, ui.CoGWindowEdit})
        editor->setEnabled(full || ui.CoGCBox->isChecked());
    for (QWidget *editor : {ui.RegressionThresholdEdit, ui.RegressionWindowEdit})
        editor->setEnabled(full || ui.regressionCBox->isChecked());
}

//! The spelling of the keys is that of the files in use.
void RVXStatisticsSetupPagePrivate::nameStoredControls()
{
    stored.add("display-full-stats", ui.fullStatsCBox);
    stored.add("center-of-gravity", ui.CoGCBox);
    stored.add("gaussian-fit-regression", ui.regressionCBox);
    stored.add("center-of-gravity-noise-threshold", ui.CoGThresholdRadio);
    stored.add("center-of-gravity-window", ui.CoGWindowRadio);
    stored.add("peaks", ui.peaksEdit);
    stored.add("center-of-threshold", ui.CoGThresholdEdit);
    stored.add("center-of-window", ui.CoGWindowEdit);
    stored.add("gaussian-fit-regression-threhold", ui.RegressionThresholdEdit);
    stored.add("gaussian-fit-regression-window", ui.RegressionWindowEdit);
    stored.add("chi2-window", ui.Chi2WindowEdit);
    defaults = stored.values();
}

QVector<double> RVXStatisticsSetupPagePrivate::cogParameters() const
{
    QVector<double> parameters;
    if (!ui.CoGCBox->isChecked())
        return parameters;
    if (ui.CoGThresholdRadio->isChecked())
        parameters << 0.0;
    else if (ui.CoGWindowRadio->isChecked())
        parameters << 1.0;
    parameters << ui.CoGThresholdEdit->value() / 100.0 << ui.CoGWindowEdit->value();
    return parameters;
}

QVector<double> RVXStatisticsSetupPagePrivate::regressionParameters() const
{
    if (!ui.regressionCBox->isChecked())
        return {};
    return {ui.RegressionThresholdEdit->value() / 100.0,
            double(ui.RegressionWindowEdit->value()),
            ui.peakthreshold->value(),
            ui.sumthreshold->value(),
            regressionWeightPower,
            double(ui.Chi2WindowEdit->value())};
}

void RVXStatisticsSetupPagePrivate::applyCoGTo(RVXScopePlotView *view) const
{
    const bool on = ui.CoGCBox->isChecked();
    view->enableHistogramItem(RVXScopePlotView::CenterOfGravityItem,
                              on ? peaks() : 0,
                              cogParameters(),
                              !on || ui.fullStatsCBox->isChecked());
}

void RVXStatisticsSetupPagePrivate::applyRegressionTo(RVXScopePlotView *view) const
{
    const bool on = ui.regressionCBox->isChecked();
    view->enableHistogramItem(RVXScopePlotView::RegressionItem,
                              on ? peaks() : 0,
                              regressionParameters(),
                              !on || ui.fullStatsCBox->isChecked());
}

void RVXStatisticsSetupPagePrivate::applyCoG()
{
    Q_Q(RVXStatisticsSetupPage);
    const bool on = ui.CoGCBox->isChecked();
    enableEditors();
    for (RVXScopePlotView *view : qAsConst(views))
        applyCoGTo(view);
    Q_EMIT q->CoGOptions(on, cogParameters(), peaks());
}

void RVXStatisticsSetupPagePrivate::applyRegression()
{
    Q_Q(RVXStatisticsSetupPage);
    const bool on = ui.regressionCBox->isChecked();
    enableEditors();
    for (RVXScopePlotView *view : qAsConst(views))
        applyRegressionTo(view);
    Q_EMIT q->RegressionOptions(on, regressionParameters(), peaks());
}

void RVXStatisticsSetupPagePrivate::applyBoth()
{
    applyCoG();
    applyRegression();
}

//! Nobody sees the page half set: views and signals follow when all controls are.
void RVXStatisticsSetupPagePrivate::load(const QVariantList &values)
{
    // Neither of two radio buttons can be switched off; the default one is on where the values name none.
    stored.setValues(defaults);
    stored.setValues(values);
    applyBoth();
}

void RVXStatisticsSetupPagePrivate::sync()
{
    if (!settings->sync())
        qWarning() << "The statistics settings could not be saved to"
                   << settings->getSettings()->fileName();
}

void RVXStatisticsSetupPagePrivate::store(const QVector<QWidget *> &controls)
{
    if (!settings)
        return;
    const QSharedPointer<QSettings> file = settings->getSettings();
    file->sync();
    if (!file->childGroups().contains(userGroup)) {
        // In a group that held these values only, all others would read as false or 0 the next time.
        storeAll();
        return;
    }
    for (const QWidget *control : controls)
        stored.write(*file, userGroup, control);
    sync();
}

void RVXStatisticsSetupPagePrivate::storeAll()
{
    if (!settings)
        return;
    const QSharedPointer<QSettings> file = settings->getSettings();
    stored.writeAll(*file, userGroup);
    sync();
}

//! One of the two is switched off and then the other on; both are kept with the second.
void RVXStatisticsSetupPagePrivate::chooseCoGMode(bool on)
{
    if (!on)
        return;
    applyCoG();
    store({ui.CoGThresholdRadio, ui.CoGWindowRadio});
}

} // namespace Corvale_Qt
