// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXStatisticsSetupPage.h"

#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXStatisticsSetupPage_p.h"
#include "corvale_qt/settings/RVXApplicationSettings.h"

#include <QEvent>
#include <QFileInfo>
#include <QSettings>
#include <QSignalBlocker>

namespace Corvale_Qt {

namespace {

QString settingsFolder(const QFileInfo &file)
{
    // In ".beam" the dot begins a hidden name, not a suffix.
    const bool hasSuffix = !file.suffix().isEmpty() && !file.completeBaseName().isEmpty();
    return file.isDir() || !hasSuffix ? file.absoluteFilePath() : file.absolutePath();
}

} // namespace

RVXStatisticsSetupPage::RVXStatisticsSetupPage(QWidget *parent)
    : QWidget(parent)
    , d_ptr(new RVXStatisticsSetupPagePrivate(this))
{
    Q_D(RVXStatisticsSetupPage);
    d->ui.setupUi(this);
    d->formTitle = windowTitle();
    d->ui.factoryResetPushButton->hide();
    d->setUpGroups();
    d->nameStoredControls();
    d->applyBoth();
}

RVXStatisticsSetupPage::~RVXStatisticsSetupPage()
{
    Q_D(RVXStatisticsSetupPage);
    // A view inside of the page goes with the other children, after the private part.
    for (RVXScopePlotView *view : qAsConst(d->views))
        view->disconnect(this);
}

void RVXStatisticsSetupPage::addPlotView(RVXScopePlotView *view)
{
    Q_D(RVXStatisticsSetupPage);
    if (!view || d->views.contains(view))
        return;
    d->views.append(view);
    connect(view, &QObject::destroyed, this, [d, view] {
        d->views.removeAll(view);
    });
    // What the host has enabled there stays while the page has nothing to say.
    if (d->ui.CoGCBox->isChecked())
        d->applyCoGTo(view);
    if (d->ui.regressionCBox->isChecked())
        d->applyRegressionTo(view);
}

void RVXStatisticsSetupPage::setApplicationSettings(const QFileInfo &file,
                                                    bool useApplicationIdentity,
                                                    bool useXmlFormat)
{
    Q_D(RVXStatisticsSetupPage);
    const QString path = useApplicationIdentity ? settingsFolder(file) : file.absoluteFilePath();
    d->settings.reset(
        new RVXApplicationSettings(nullptr, path, useApplicationIdentity, useXmlFormat));
    const QSharedPointer<QSettings> settings = d->settings->getSettings();
    const QStringList groups = settings->childGroups();
    d->ui.factoryResetPushButton->setVisible(groups.contains(factoryGroup));
    d->load(groups.contains(userGroup) ? d->stored.read(*settings, userGroup) : d->defaults);
}

void RVXStatisticsSetupPage::set_peaks(int n)
{
    Q_D(RVXStatisticsSetupPage);
    const int index = d->ui.peaksEdit->findText(QString::number(n), Qt::MatchExactly);
    {
        const QSignalBlocker blocker(d->ui.peaksEdit);
        d->ui.peaksEdit->setCurrentIndex(qMax(index, 0));
    }
    on_peaksEdit_currentIndexChanged(qMax(index, 0));
}

void RVXStatisticsSetupPage::enable_regression()
{
    Q_D(RVXStatisticsSetupPage);
    d->ui.regressionCBox->setChecked(true);
}

QFormLayout *RVXStatisticsSetupPage::gaussianLayout() const
{
    Q_D(const RVXStatisticsSetupPage);
    return d->ui.gaussianLayout;
}

QVBoxLayout *RVXStatisticsSetupPage::layout() const
{
    Q_D(const RVXStatisticsSetupPage);
    return d->ui.verticalLayout;
}

void RVXStatisticsSetupPage::on_CoGCBox_toggled(bool)
{
    Q_D(RVXStatisticsSetupPage);
    d->applyCoG();
    d->store({d->ui.CoGCBox});
}

void RVXStatisticsSetupPage::on_CoGThresholdEdit_valueChanged(int)
{
    Q_D(RVXStatisticsSetupPage);
    d->applyCoG();
    d->store({d->ui.CoGThresholdEdit});
}

void RVXStatisticsSetupPage::on_CoGWindowEdit_valueChanged(int)
{
    Q_D(RVXStatisticsSetupPage);
    d->applyCoG();
    d->store({d->ui.CoGWindowEdit});
}

void RVXStatisticsSetupPage::on_CoGThresholdRadio_toggled(bool on)
{
    Q_D(RVXStatisticsSetupPage);
    d->chooseCoGMode(on);
}

void RVXStatisticsSetupPage::on_CoGWindowRadio_toggled(bool on)
{
    Q_D(RVXStatisticsSetupPage);
    d->chooseCoGMode(on);
}

void RVXStatisticsSetupPage::on_regressionCBox_toggled(bool)
{
    Q_D(RVXStatisticsSetupPage);
    d->applyRegression();
    d->store({d->ui.regressionCBox});
}

void RVXStatisticsSetupPage::on_RegressionThresholdEdit_valueChanged(int)
{
    Q_D(RVXStatisticsSetupPage);
    d->applyRegression();
    d->store({d->ui.RegressionThresholdEdit});
}

void RVXStatisticsSetupPage::on_RegressionWindowEdit_valueChanged(int)
{
    Q_D(RVXStatisticsSetupPage);
    d->applyRegression();
    d->store({d->ui.RegressionWindowEdit});
}

void RVXStatisticsSetupPage::on_Chi2WindowEdit_valueChanged(int)
{
    Q_D(RVXStatisticsSetupPage);
    d->applyBoth();
    d->store({d->ui.Chi2WindowEdit});
}

void RVXStatisticsSetupPage::on_peaksEdit_currentIndexChanged(int)
{
    Q_D(RVXStatisticsSetupPage);
    d->applyBoth();
    d->store({d->ui.peaksEdit});
}

// The two thresholds below have no place in the file.

void RVXStatisticsSetupPage::on_peakthreshold_valueChanged(double)
{
    Q_D(RVXStatisticsSetupPage);
    d->applyRegression();
}

void RVXStatisticsSetupPage::on_sumthreshold_valueChanged(double)
{
    Q_D(RVXStatisticsSetupPage);
    d->applyRegression();
}

void RVXStatisticsSetupPage::on_fullStatsCBox_toggled(bool)
{
    Q_D(RVXStatisticsSetupPage);
    d->applyBoth();
    d->store({d->ui.fullStatsCBox});
}

void RVXStatisticsSetupPage::on_factoryResetPushButton_clicked()
{
    Q_D(RVXStatisticsSetupPage);
    if (!d->settings)
        return;
    const QSharedPointer<QSettings> settings = d->settings->getSettings();
    if (!settings->childGroups().contains(factoryGroup))
        return;
    d->load(d->stored.read(*settings, factoryGroup));
    d->storeAll();
}

void RVXStatisticsSetupPage::changeEvent(QEvent *event)
{
    Q_D(RVXStatisticsSetupPage);
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        const QString title = windowTitle();
        const bool isHostsTitle = title != d->formTitle;
        d->ui.retranslateUi(this);
        d->formTitle = windowTitle();
        if (isHostsTitle)
            setWindowTitle(title);
    }
}

} // namespace Corvale_Qt
