// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScope.h"

#include "corvale_qt/scope/Logging_p.h"
#include "corvale_qt/scope/PlotModes_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXScope_p.h"
#include "corvale_qt/scope/SaveDialog_p.h"
#include "corvale_qt/scope/YRanges_p.h"

#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QSignalBlocker>
#include <QTimer>

#include <cmath>

namespace Corvale_Qt {

namespace {

// Both dialogs are created on the heap, because the host may delete the panel, their parent, while they are open. The
// static functions of their classes create them on the stack, where the panel must not delete them.

//! Returns the name that the operator chooses; empty if the dialog is cancelled.
QString askForFileName(RVXScope *panel, const QString &folder)
{
    const QPointer<QFileDialog> dialog = new QFileDialog(panel,
                                                         RVXScope::tr("Save Data File"),
                                                         folder,
                                                         RVXScope::tr("CSV File (*.csv)"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix("csv");
    QString fileName;
    if (dialog->exec() == QDialog::Accepted)
        fileName = dialog->selectedFiles().value(0);
    delete dialog;
    return fileName;
}

void showSaveError(RVXScope *panel)
{
    auto *box = new QMessageBox(QMessageBox::Warning,
                                RVXScope::tr("Save Data"),
                                RVXScope::tr("Error saving data file."),
                                QMessageBox::Ok,
                                panel);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->exec();
}

} // namespace

RVXScope::RVXScope(QWidget *parent)
    : QWidget(parent)
    , d_ptr(new RVXScopePrivate(this))
{
    Q_D(RVXScope);
    qRegisterMetaType<PlotMode>("Corvale_Qt::RVXScope::PlotMode");
    qRegisterMetaType<PlotTabs>("Corvale_Qt::RVXScope::PlotTabs");
    qRegisterMetaType<YScaleMode>("Corvale_Qt::RVXScope::YScaleMode");
    qRegisterMetaType<TimeAxis>("Corvale_Qt::RVXScope::TimeAxis");
    d->ui.setupUi(this);
    d->bufferSizeRoom = new LabelRoom(d->ui.bufferSizeLabel);
    setFocusProxy(d->ui.plotView);
    d->setUpButtons();
    d->ui.scaleYCombo->addItems(yRangeTexts(PercentRanges));
    for (const int mode : {StripMode, ScopeMode, HistogramMode})
        d->tabs().add(mode);
    d->ui.plotView->SetBufferSizeLabel(d->ui.bufferSizeLabel);
    d->zeroing->setSourceModel(d->averaging);
    d->connectControls();
    d->connectView();
    d->connectNavigation();
    SetYScale(0);
    SetAveragingMode(0);
    ZeroClear();
    d->announced = d->state();
}

RVXScope::~RVXScope()
{
    Q_D(RVXScope);
    // Proxies and view are deleted with the other children, after the private part, and the first emits a reset when
    // deleted.
    d->zeroing->disconnect(this);
    d->ui.plotView->disconnect(this);
}

void RVXScope::setModel(QAbstractItemModel *model)
{
    Q_D(RVXScope);
    if (model && model != d->averaging->sourceModel())
        ZeroClear(); // the zero belongs to the samples of another instrument
    d->baseModel = model;
    d->averaging->setSourceModel(model);
    if (model && !d->hasModel())
        qCWarning(scopeLog) << "RVXScope::setModel:" << model << "is not a plot data model";
    d->ui.plotView->setModel(d->hasModel() ? d->zeroing : nullptr);
    if (d->ui.comboBox_period->currentIndex() > 0)
        d->applyPeriod();
}

void RVXScope::setSelectionModel(QItemSelectionModel *selectionModel)
{
    Q_D(RVXScope);
    d->ui.plotView->setSelectionModel(selectionModel);
}

QAbstractItemModel *RVXScope::baseModel() const
{
    Q_D(const RVXScope);
    return d->baseModel;
}

QAbstractItemModel *RVXScope::topLevelModel() const
{
    Q_D(const RVXScope);
    return d->zeroing;
}

RVXScopePlotView *RVXScope::plotView() const
{
    Q_D(const RVXScope);
    return d->ui.plotView;
}

QVBoxLayout *RVXScope::getPositionLayout() const
{
    Q_D(const RVXScope);
    return d->ui.verticalLayout_position;
}

void RVXScope::SetPlotMode(PlotMode mode)
{
    setPlotMode(mode);
}

void RVXScope::SetPlotMode(int plotMode)
{
    Q_D(RVXScope);
    const int mode = d->tabs().modeAt(plotMode);
    if (isPlotMode(mode))
        setPlotMode(PlotMode(mode));
}

void RVXScope::SetPositiveOnly(bool positiveOnly)
{
    Q_D(RVXScope);
    const PanelChange change(*d);
    if (!d->ui.positiveOnlyButton->isHidden())
        d->ui.positiveOnlyButton->setChecked(positiveOnly);
}

void RVXScope::SetRange(double min, double max)
{
    Q_D(RVXScope);
    const PanelChange change(*d);
    if (!d->ui.plotView->SetRange(min, max))
        return;
    // In the lists of absolute ranges, the index is not a scale mode.
    const bool indexIsMode = d->yScaleMode == PercentRanges || d->yScaleMode == AutomaticRange;
    d->ui.plotView->SetYScaleMode(indexIsMode ? d->ui.scaleYCombo->currentIndex()
                                              : int(d->ui.plotView->yScaleMode()));
}

void RVXScope::SetYScaleMode(int mode)
{
    Q_D(RVXScope);
    if (mode == AutomaticRange || mode == AbsoluteRanges || mode == AbsolutePositiveRanges)
        d->setYScaleList(mode);
}

void RVXScope::SetYScale(int scaleMode)
{
    Q_D(RVXScope);
    const PanelChange change(*d);
    const YRangeChoice choice =
        yRangeChoice(d->yScaleMode, scaleMode, d->ui.scaleYCombo->itemText(scaleMode));
    d->ui.positiveOnlyButton->setEnabled(choice.canBePositiveOnly);
    if (choice.range) {
        if (d->yScaleMode == AbsolutePositiveRanges)
            d->ui.plotView->SetPositiveOnly(true);
        d->ui.plotView->SetRange(choice.range->minimum, choice.range->maximum);
    }
    d->ui.plotView->SetYScaleMode(choice.scaleMode);
    d->announceYScale();
}

void RVXScope::SetAveragingMode(int averagingMode)
{
    Q_D(RVXScope);
    const PanelChange change(*d);
    d->averaging->setAveraging(qRound(std::pow(10.0, averagingMode)));
    d->showState();
}

void RVXScope::ZeroNow()
{
    Q_D(RVXScope);
    if (!d->hasModel() || d->baseModel->rowCount() <= 1)
        return;
    const PanelChange change(*d);
    d->zeroing->zeroNow();
}

void RVXScope::ZeroClear()
{
    Q_D(RVXScope);
    const PanelChange change(*d);
    d->zeroing->zeroClear();
}

void RVXScope::Clear()
{
    Q_D(RVXScope);
    if (d->mayClear(tr("Clear"), tr("All samples are removed from the buffer.")))
        d->clearSamples();
}

void RVXScope::SaveDataToFile()
{
    Q_D(RVXScope);
    if (d->saving || !d->hasModel())
        return;
    d->saving = true;
    const QPointer<RVXScope> panel(this);
    const QString fileName = askForFileName(this, d->lastSaveDirectory);
    if (!panel)
        return;
    if (!fileName.trimmed().isEmpty()) {
        d->lastSaveDirectory = QFileInfo(fileName).path();
        const SaveDialog progress(this);
        // The model may have been deleted while the dialog was open.
        const bool isSaved = d->hasModel() && d->save(fileName);
        if (panel && !isSaved && !progress.wasCanceled())
            showSaveError(this);
    }
    if (!panel)
        return;
    // Further clicks on the button may be queued; they are handled before this.
    QTimer::singleShot(0, this, [d] {
        d->saving = false;
    });
}

void RVXScope::hideConfig(bool hide)
{
    Q_D(RVXScope);
    d->ui.saveButton->setVisible(!hide);
    d->ui.bufferSizeLabel->setVisible(!hide);
    d->bufferSizeRoom->setVisible(!hide);
    d->ui.modeSelect->setVisible(!hide);
}

void RVXScope::set2DEnabled(bool enable)
{
    Q_D(RVXScope);
    d->ui.position_frame->setVisible(enable);
}

void RVXScope::setSpectrogramEnabled(bool enable)
{
    Q_D(RVXScope);
    d->ui.plotView->setPixelated(enable);
    if (d->offerMode(SpectrogramMode, enable) && enable)
        d->ui.modeSelect->setCurrentIndex(d->tabs().indexOf(SpectrogramMode));
}

void RVXScope::setPositionEnabled(bool enable)
{
    Q_D(RVXScope);
    qCDebug(scopeLog) << "setPositionEnabled";
    d->offerMode(PositionMode, enable);
}

void RVXScope::setSplitEnabled(bool enable)
{
    Q_D(RVXScope);
    qCDebug(scopeLog) << "setSplitEnabled";
    d->offerMode(SplitMode, enable);
}

void RVXScope::on_buffered_interval_doubleSpinBox_valueChanged(double arg1)
{
    Q_D(RVXScope);
    if (d->ui.checkBox_bufferedInterval->isChecked())
        Q_EMIT bufferedIntervalChanged(true, arg1);
}

void RVXScope::on_checkBox_bufferedInterval_toggled(bool checked)
{
    Q_D(RVXScope);
    Q_EMIT bufferedIntervalChanged(checked, d->ui.buffered_interval_doubleSpinBox->value());
}

void RVXScope::on_comboBox_period_currentIndexChanged(int index)
{
    Q_D(RVXScope);
    d->choosePeriod(index);
}

void RVXScope::changeEvent(QEvent *event)
{
    Q_D(RVXScope);
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        d->retranslate();
    else if (event->type() == QEvent::FontChange)
        d->reserveBufferSizeWidth();
}

} // namespace Corvale_Qt
