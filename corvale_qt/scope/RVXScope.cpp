// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScope.h"

#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/scope/PlotModeTabs_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/YRanges_p.h"

#include "ui_RVXScope.h"

#include <QDebug>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPointer>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTimer>

#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

const QLatin1String activeStyle("background-color:#88ff8a;");

QIcon themeIcon(const QString &name)
{
    return QIcon::fromTheme(name, QIcon(":/resources/icons/" + name + ".svg"));
}

//! The colour behind a state is the same in every palette, so the text on it must be too.
void setTextBlack(QWidget *widget)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::ButtonText, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::black);
    widget->setPalette(palette);
}

int roundedToInt(double value)
{
    if (std::isnan(value))
        return 0;
    const double limited =
        qBound<double>(std::numeric_limits<int>::min(), value, std::numeric_limits<int>::max());
    return int(std::lround(limited));
}

int periodInMilliseconds(int index)
{
    static const int periods[] = {0, 100, 1000, 10000};
    return index >= 0 && index < 4 ? periods[index] : 0;
}

class BusyCursor
{
public:
    BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY(BusyCursor)
};

} // namespace

class RVXScopePrivate
{
public:
    explicit RVXScopePrivate(RVXScope *scope)
        : q_ptr(scope)
        , averaging(new RVXAveragingProxyModel(scope))
        , zeroing(new RVXZeroingProxyModel(scope))
    {
    }

    PlotModeTabs tabs() const { return PlotModeTabs(ui.modeSelect); }
    //! Whether the proxies stand on the host's model, rather than on none or on one from before.
    bool hasModel() const { return baseModel && averaging->sourceModel() == baseModel; }

    void setUpButtons();
    void connectControls();
    void setUpShortcut(QAbstractButton *button, const QKeySequence &keys);

    void showMode(int mode);
    bool offerMode(int mode, bool offer);
    void announceYScale();
    void applyPeriod();
    void showZeroed(bool zeroed);
    void dropLostZero();
    void showState();
    void reserveBufferSizeWidth();
    bool save(const QString &fileName);
    void retranslate();

    RVXScope *const q_ptr;
    Q_DECLARE_PUBLIC(RVXScope)
    Ui::RVXScope ui;
    QPointer<QAbstractItemModel> baseModel;
    RVXAveragingProxyModel *const averaging;
    RVXZeroingProxyModel *const zeroing;
    int yScaleMode = PercentRanges;
    int plotMode = RVXScope::StripMode;
    //! How many channels the zero was taken of; 0 while none is subtracted.
    int zeroedChannels = 0;
    bool saving = false;
    QString lastSaveDirectory;
};

void RVXScopePrivate::setUpButtons()
{
    ui.saveButton->setIcon(themeIcon("document-save"));
    ui.clearButton->setIcon(themeIcon("edit-clear"));
    ui.confButton->setIcon(themeIcon("configure"));
    ui.zeroButton->setIcon(themeIcon("align-vertical-bottom-out"));
    ui.clearZeroButton->setIcon(themeIcon("edit-clear-locationbar-rtl"));
    ui.stateLabel->setStyleSheet(activeStyle);
    ui.stateLabel->setMargin(3);
    setTextBlack(ui.stateLabel);
    setTextBlack(ui.clearZeroButton);
    ui.derivativeButton->hide();
    ui.position_frame->hide();
    reserveBufferSizeWidth();
}

void RVXScopePrivate::connectControls()
{
    Q_Q(RVXScope);
    q->connect(ui.scaleYCombo, SIGNAL(currentIndexChanged(int)), SLOT(SetYScale(int)));
    q->connect(ui.averagingCombo, SIGNAL(currentIndexChanged(int)), SLOT(SetAveragingMode(int)));
    q->connect(ui.zeroButton, SIGNAL(clicked()), SLOT(ZeroNow()));
    q->connect(ui.clearZeroButton, SIGNAL(clicked()), SLOT(ZeroClear()));
    q->connect(ui.modeSelect, SIGNAL(currentChanged(int)), SLOT(SetPlotMode(int)));
    q->connect(ui.clearButton, SIGNAL(clicked()), SLOT(Clear()));
    q->connect(ui.saveButton, SIGNAL(clicked()), SLOT(SaveDataToFile()));
    QObject::connect(ui.positiveOnlyButton,
                     SIGNAL(toggled(bool)),
                     ui.plotView,
                     SLOT(SetPositiveOnly(bool)));
    QObject::connect(ui.positiveOnlyButton, &QAbstractButton::toggled, q, [this] {
        announceYScale();
    });
    // A mode without a tab may be shown: the current tab is then the way back to its own.
    QObject::connect(ui.modeSelect, &QTabBar::tabBarClicked, q, [this](int index) {
        if (index >= 0 && index == ui.modeSelect->currentIndex())
            showMode(tabs().modeAt(index));
    });
    QObject::connect(ui.confButton, &QAbstractButton::toggled, q, [this](bool shown) {
        ui.configFrame->setVisible(shown);
        showState();
    });
    QObject::connect(zeroing, &QAbstractItemModel::modelReset, q, [this] {
        dropLostZero();
    });
    setUpShortcut(ui.saveButton, QKeySequence(Qt::CTRL + Qt::Key_S));
    setUpShortcut(ui.clearButton, QKeySequence(Qt::CTRL + Qt::Key_L));
    setUpShortcut(ui.zeroButton, QKeySequence(Qt::CTRL + Qt::Key_0));
}

void RVXScopePrivate::setUpShortcut(QAbstractButton *button, const QKeySequence &keys)
{
    Q_Q(RVXScope);
    // Not the button's own shortcut: that would count in the whole window, where another panel may be.
    auto *shortcut = new QShortcut(keys, q, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, button, [button] {
        if (!button->isHidden())
            button->click();
    });
}

void RVXScopePrivate::showMode(int mode)
{
    plotMode = mode;
    ui.plotView->SetPlotMode(mode);
}

//! Adds or removes the tab of a mode; whether anything changed.
bool RVXScopePrivate::offerMode(int mode, bool offer)
{
    if (offer == (tabs().indexOf(mode) >= 0))
        return false;
    if (offer)
        tabs().add(mode);
    else
        tabs().remove(mode);
    return true;
}

void RVXScopePrivate::announceYScale()
{
    Q_Q(RVXScope);
    const int mode = ui.plotView->yScaleMode();
    const bool fixed = mode >= RVXScopePlotView::FullRange && mode <= RVXScopePlotView::Percent0_01;
    const auto range = ui.plotView->range();
    Q_EMIT q->yScaleChanged(fixed, roundedToInt(range.first), roundedToInt(range.second));
}

void RVXScopePrivate::applyPeriod()
{
    if (auto *device = dynamic_cast<RVXAbstractDeviceDataModel *>(baseModel.data()))
        device->setPeriod(periodInMilliseconds(ui.comboBox_period->currentIndex()));
}

void RVXScopePrivate::showZeroed(bool zeroed)
{
    zeroedChannels = zeroed ? zeroing->columnCount() - 1 : 0;
    if (!zeroed && ui.clearZeroButton->hasFocus())
        ui.zeroButton->setFocus(); // a disabled button would hand it on to just anything
    ui.clearZeroButton->setEnabled(zeroed);
    ui.clearZeroButton->setStyleSheet(zeroed ? activeStyle : QString());
    showState();
}

//! The proxy drops its zero with a reset that changes the number of channels.
void RVXScopePrivate::dropLostZero()
{
    if (zeroedChannels > 0 && zeroing->columnCount() - 1 != zeroedChannels)
        showZeroed(false);
}

//! What is done to the data stays readable while the controls that tell it are hidden.
void RVXScopePrivate::showState()
{
    QStringList states;
    if (zeroedChannels > 0)
        states << RVXScope::tr("Zeroed");
    if (ui.averagingCombo->currentIndex() > 0)
        states << ui.averagingCombo->currentText();
    ui.stateLabel->setText(states.join(", "));
    ui.stateLabel->setVisible(!states.isEmpty() && ui.configFrame->isHidden());
}

//! Keeps the row still while the number grows.
void RVXScopePrivate::reserveBufferSizeWidth()
{
    const QString widest =
        RVXScope::tr("%1 Samples").arg(RVXAbstractDeviceDataModel::maxBufferSize);
    ui.bufferSizeLabel->setMinimumWidth(
        ui.bufferSizeLabel->fontMetrics().horizontalAdvance(widest));
}

bool RVXScopePrivate::save(const QString &fileName)
{
    const BusyCursor cursor;
    return averaging->SaveDataToFile(fileName);
}

void RVXScopePrivate::retranslate()
{
    Q_Q(RVXScope);
    // The form would set both back to what they were at the start.
    const QString title = q->windowTitle();
    const QString bufferSize = ui.bufferSizeLabel->text();
    ui.retranslateUi(q);
    q->setWindowTitle(title);
    ui.bufferSizeLabel->setText(bufferSize);
    tabs().retranslate();
    const QStringList texts = yRangeTexts(yScaleMode);
    for (int i = 0; i < texts.size(); ++i)
        ui.scaleYCombo->setItemText(i, texts.at(i));
    reserveBufferSizeWidth();
    showState();
}

RVXScope::RVXScope(QWidget *parent)
    : QWidget(parent)
    , d_ptr(new RVXScopePrivate(this))
{
    Q_D(RVXScope);
    d->ui.setupUi(this);
    setFocusProxy(d->ui.plotView);
    d->setUpButtons();
    d->ui.scaleYCombo->addItems(yRangeTexts(PercentRanges));
    for (const int mode : {StripMode, ScopeMode, HistogramMode})
        d->tabs().add(mode);
    d->ui.plotView->SetBufferSizeLabel(d->ui.bufferSizeLabel);
    d->zeroing->setSourceModel(d->averaging);
    d->connectControls();
    SetYScale(0);
    SetAveragingMode(0);
    ZeroClear();
}

RVXScope::~RVXScope()
{
    Q_D(RVXScope);
    // The proxies go with the other children, after the private part, and the first takes its leave by a reset.
    d->zeroing->disconnect(this);
}

void RVXScope::setModel(QAbstractItemModel *model)
{
    Q_D(RVXScope);
    d->baseModel = model;
    d->averaging->setSourceModel(model);
    if (model && !d->hasModel())
        qWarning() << "RVXScope::setModel:" << model << "is no plot data model";
    d->ui.plotView->setModel(d->hasModel() ? d->zeroing : nullptr);
    // The view takes a mode only while it has a model.
    d->ui.plotView->SetPlotMode(d->plotMode);
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
    Q_D(RVXScope);
    const int tab = d->tabs().indexOf(mode);
    if (tab >= 0)
        d->ui.modeSelect->setCurrentIndex(tab);
    d->showMode(mode);
}

void RVXScope::SetPlotMode(int plotMode)
{
    Q_D(RVXScope);
    d->showMode(d->tabs().modeAt(plotMode));
}

void RVXScope::SetPositiveOnly(bool positiveOnly)
{
    Q_D(RVXScope);
    if (!d->ui.positiveOnlyButton->isHidden())
        d->ui.positiveOnlyButton->setChecked(positiveOnly);
}

void RVXScope::SetRange(double min, double max)
{
    Q_D(RVXScope);
    if (!d->ui.plotView->SetRange(min, max))
        return;
    // The index of an absolute range is no scale mode.
    const bool indexIsMode = d->yScaleMode == PercentRanges || d->yScaleMode == AutomaticRange;
    d->ui.plotView->SetYScaleMode(indexIsMode ? d->ui.scaleYCombo->currentIndex()
                                              : int(d->ui.plotView->yScaleMode()));
}

void RVXScope::SetYScaleMode(int mode)
{
    Q_D(RVXScope);
    if (mode != AutomaticRange && mode != AbsoluteRanges && mode != AbsolutePositiveRanges)
        return;
    d->yScaleMode = mode;
    {
        const QSignalBlocker blocker(d->ui.scaleYCombo);
        d->ui.scaleYCombo->clear();
        d->ui.scaleYCombo->addItems(yRangeTexts(mode));
    }
    d->ui.positiveOnlyButton->setVisible(mode == AbsoluteRanges);
    if (mode == AbsoluteRanges)
        d->ui.plotView->SetPositiveOnly(d->ui.positiveOnlyButton->isChecked());
    else if (mode == AbsolutePositiveRanges)
        d->ui.plotView->SetPositiveOnly(true);
    SetYScale(0);
}

void RVXScope::SetYScale(int scaleMode)
{
    Q_D(RVXScope);
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
    d->averaging->setAveraging(qRound(std::pow(10.0, averagingMode)));
    d->showState();
}

void RVXScope::ZeroNow()
{
    Q_D(RVXScope);
    if (!d->hasModel() || d->baseModel->rowCount() <= 1)
        return;
    d->zeroing->zeroNow();
    d->showZeroed(true);
}

void RVXScope::ZeroClear()
{
    Q_D(RVXScope);
    d->zeroing->zeroClear();
    d->showZeroed(false);
}

void RVXScope::Clear()
{
    Q_D(RVXScope);
    // The proxy keeps a model that the host has taken back; its samples are no longer this panel's to drop.
    if (d->hasModel())
        d->averaging->Clear();
}

void RVXScope::SaveDataToFile()
{
    Q_D(RVXScope);
    if (d->saving || !d->hasModel())
        return;
    d->saving = true;
    const QString fileName = QFileDialog::getSaveFileName(this,
                                                          tr("Save Data File"),
                                                          d->lastSaveDirectory,
                                                          tr("CSV File (*.csv)"));
    bool saved = true;
    if (!fileName.trimmed().isEmpty() && d->hasModel()) {
        d->lastSaveDirectory = QFileInfo(fileName).path();
        saved = d->save(fileName);
    }
    if (!saved)
        QMessageBox::warning(this, tr("Save Data"), tr("Error saving data file."), QMessageBox::Ok);
    // Clicks of an impatient hand are still queued here; they come before this.
    QTimer::singleShot(0, this, [d] {
        d->saving = false;
    });
}

void RVXScope::hideConfig(bool hide)
{
    Q_D(RVXScope);
    d->ui.saveButton->setVisible(!hide);
    d->ui.bufferSizeLabel->setVisible(!hide);
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
    qDebug() << "setPositionEnabled";
    d->offerMode(PositionMode, enable);
}

void RVXScope::setSplitEnabled(bool enable)
{
    Q_D(RVXScope);
    qDebug() << "setSplitEnabled";
    d->offerMode(SplitMode, enable);
}

bool RVXScope::isDerivativeVisible() const
{
    Q_D(const RVXScope);
    return !d->ui.derivativeButton->isHidden();
}

void RVXScope::setDerivativeVisible(bool visible)
{
    Q_D(RVXScope);
    d->ui.derivativeButton->setVisible(visible);
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

void RVXScope::on_comboBox_period_currentIndexChanged(int)
{
    Q_D(RVXScope);
    Clear();
    d->applyPeriod();
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
