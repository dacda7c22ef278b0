// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXApplicationSettings.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXStatisticsSetupPage_p.h"

#include <QDebug>
#include <QSettings>

namespace Corvale_Qt {

namespace {

//! The regression weights a channel by this power of its height.
const double regressionWeightPower = 2.0;

} // namespace

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
    const bool editable = on || ui.fullStatsCBox->isChecked();
    ui.CoGThresholdEdit->setEnabled(editable);
    ui.CoGWindowEdit->setEnabled(editable);
    for (RVXScopePlotView *view : qAsConst(views))
        applyCoGTo(view);
    Q_EMIT q->CoGOptions(on, cogParameters(), peaks());
}

void RVXStatisticsSetupPagePrivate::applyRegression()
{
    Q_Q(RVXStatisticsSetupPage);
    const bool on = ui.regressionCBox->isChecked();
    const bool editable = on || ui.fullStatsCBox->isChecked();
    ui.RegressionThresholdEdit->setEnabled(editable);
    ui.RegressionWindowEdit->setEnabled(editable);
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

void RVXStatisticsSetupPagePrivate::sync(QSettings &file)
{
    file.sync();
    if (file.status() != QSettings::NoError)
        qWarning() << "The statistics settings could not be saved to" << file.fileName();
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
    sync(*file);
}

void RVXStatisticsSetupPagePrivate::storeAll()
{
    if (!settings)
        return;
    const QSharedPointer<QSettings> file = settings->getSettings();
    stored.writeAll(*file, userGroup);
    sync(*file);
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
