// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXStatisticsSetupPage.h"

#include "corvale_qt/scope/Logging_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/settings/RVXApplicationSettings.h"
#include "corvale_qt/settings/StoredControls_p.h"

#include "ui_RVXStatisticsSetupPage.h"

#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSettings>
#include <QSharedPointer>
#include <QSignalBlocker>

namespace Corvale_Qt {

namespace {

// Groups of the settings file.
const QLatin1String userGroup("StatisticsSetupPage");
const QLatin1String factoryGroup("FactoryReset");

//! The regression weights a channel by this power of its height.
constexpr double kRegressionWeightPower = 2.0;

QString settingsFolder(const QFileInfo &file)
{
    // The dot of ".beam" marks a hidden file and does not begin a suffix.
    const bool hasSuffix = !file.suffix().isEmpty() && !file.completeBaseName().isEmpty();
    return file.isDir() || !hasSuffix ? file.absoluteFilePath() : file.absolutePath();
}

} // namespace

class RVXStatisticsSetupPagePrivate
{
public:
    explicit RVXStatisticsSetupPagePrivate(RVXStatisticsSetupPage *page)
        : q_ptr(page)
    {
    }

    void setUpGroups();
    void enableEditors();
    void nameStoredControls();
    int peaks() const { return ui.peaksEdit->currentText().toInt(); }
    QVector<double> cogParameters() const;
    QVector<double> regressionParameters() const;
    //! Sets the items of one view to those chosen on the page; items that are off are removed.
    void applyCoGTo(RVXScopePlotView *view) const;
    void applyRegressionTo(RVXScopePlotView *view) const;
    void applyCoG();
    void applyRegression();
    void applyBoth();
    void load(const QVariantList &values);
    //! Writes the values of \a controls to the settings file in one write.
    void store(const QVector<QWidget *> &controls);
    void storeAll();
    void chooseCoGMode(bool on);
    void adoptPalette();

    RVXStatisticsSetupPage *const q_ptr;
    Q_DECLARE_PUBLIC(RVXStatisticsSetupPage)
    Ui::RVXStatisticsSetupPage ui{};
    StoredControls stored;
    QVariantList defaults;
    //! The title set by the form, in the current language; any other title was set by the host.
    QString formTitle;
    QVector<RVXScopePlotView *> views;
    QSharedPointer<RVXApplicationSettings> settings;

private:
    void sync();
};

/*! Follows a new palette of the application. Qt does not pass it on to a widget that has a style sheet, so that the sheet
    must be taken off and put on again. */
void RVXStatisticsSetupPagePrivate::adoptPalette()
{
    const QString sheet = q_ptr->styleSheet();
    q_ptr->setStyleSheet(QString());
    q_ptr->setStyleSheet(sheet);
}

/*! Switches the groups off, which the form must not do: a box that is off disables its children while they are being
    created, and a screen reader then takes them for plain widgets. */
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

//! Enables the editors that have an effect: the full statistics use the threshold and the window of either group.
void RVXStatisticsSetupPagePrivate::enableEditors()
{
    const bool full = ui.fullStatsCBox->isChecked();
    for (QWidget *editor : {ui.CoGThresholdEdit, ui.CoGWindowEdit})
        editor->setEnabled(full || ui.CoGCBox->isChecked());
    for (QWidget *editor : {ui.RegressionThresholdEdit, ui.RegressionWindowEdit})
        editor->setEnabled(full || ui.regressionCBox->isChecked());
}

//! Registers the stored controls. The misspelled keys stay as they are, because existing files contain them.
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
            kRegressionWeightPower,
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

//! Sets all controls before views and listeners are told, so that nobody sees intermediate states.
void RVXStatisticsSetupPagePrivate::load(const QVariantList &values)
{
    // The radio buttons exclude each other, so neither can be switched off; the default one stays on if values name
    // none.
    stored.setValues(defaults);
    stored.setValues(values);
    applyBoth();
}

void RVXStatisticsSetupPagePrivate::sync()
{
    if (!settings->sync())
        qCWarning(scopeLog) << "The statistics settings could not be saved to"
                            << settings->getSettings()->fileName();
}

void RVXStatisticsSetupPagePrivate::store(const QVector<QWidget *> &controls)
{
    if (!settings)
        return;
    const QSharedPointer<QSettings> file = settings->getSettings();
    file->sync();
    if (!file->childGroups().contains(userGroup)) {
        // If the group held only these values, all others would be read as false or 0 the next time.
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

//! Applies and stores the mode. Of the two signals for one choice (off, then on) only the second counts.
void RVXStatisticsSetupPagePrivate::chooseCoGMode(bool on)
{
    if (!on)
        return;
    applyCoG();
    store({ui.CoGThresholdRadio, ui.CoGWindowRadio});
}

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
    // Queued, so that the parents have the new palette.
    connect(
        qGuiApp,
        &QGuiApplication::paletteChanged,
        this,
        [d] {
            d->adoptPalette();
        },
        Qt::QueuedConnection);
}

RVXStatisticsSetupPage::~RVXStatisticsSetupPage()
{
    Q_D(RVXStatisticsSetupPage);
    // A view that is a child of the page is deleted after the private part.
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
    // Items that the host has enabled stay as long as the page does not use their type.
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

// The two thresholds below are not stored.

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
