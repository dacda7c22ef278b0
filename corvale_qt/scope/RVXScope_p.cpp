// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScope_p.h"

#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"
#include "corvale_qt/numerics/ClampedInt_p.h"
#include "corvale_qt/scope/PanelShortcuts_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"

#include <QEvent>
#include <QGuiApplication>

#include <cmath>

namespace Corvale_Qt {

namespace {

const QLatin1String activeStyle("background-color:#88ff8a;");

QIcon themeIcon(const QString &name)
{
    // If the theme lacks a name, fromTheme() takes an icon whose name begins alike: the button that undoes the zero
    // would look like the one that clears the data. hasThemeIcon() checks the full name.
    if (QIcon::hasThemeIcon(name))
        return QIcon::fromTheme(name);
    return QIcon(":/resources/icons/" + name + ".svg");
}

//! Ignores the wheel over the period, because a change of the period drops all samples.
class WheelFilter : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::Wheel)
            return false;
        event->ignore();
        return true;
    }
};

int roundedToInt(double value)
{
    return clampedToInt(std::round(value));
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

void RVXScopePrivate::setUpButtons()
{
    ui.saveButton->setIcon(themeIcon("document-save"));
    ui.clearButton->setIcon(themeIcon("edit-clear"));
    ui.confButton->setIcon(themeIcon("configure"));
    ui.zeroButton->setIcon(themeIcon("align-vertical-bottom-out"));
    ui.clearZeroButton->setIcon(themeIcon("edit-clear-locationbar-rtl"));
    // The background is the same in every palette, so the text must be too.
    ui.stateLabel->setStyleSheet(QString(activeStyle) + "color:black;");
    ui.stateLabel->setMargin(3);
    QPalette palette = ui.clearZeroButton->palette();
    palette.setColor(QPalette::ButtonText, Qt::black);
    ui.clearZeroButton->setPalette(palette);
    ui.comboBox_period->installEventFilter(new WheelFilter(ui.comboBox_period));
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
    // While a mode without a tab is shown, a click on the current tab returns to the mode of that tab.
    QObject::connect(ui.modeSelect, &QTabBar::tabBarClicked, q, [this](int index) {
        if (index >= 0 && index == ui.modeSelect->currentIndex())
            showMode(tabs().modeAt(index));
    });
    QObject::connect(ui.confButton, &QAbstractButton::toggled, q, [this](bool shown) {
        ui.configFrame->setVisible(shown);
        showState();
    });
    QObject::connect(zeroing, &QAbstractItemModel::modelReset, q, [this] {
        showZeroed();
    });
    auto *shortcuts = new PanelShortcuts(q);
    shortcuts->add(Qt::Key_S, ui.saveButton);
    shortcuts->add(Qt::Key_L, ui.clearButton);
    shortcuts->add(Qt::Key_0, ui.zeroButton);
}

void RVXScopePrivate::showMode(int mode)
{
    plotMode = mode;
    ui.plotView->SetPlotMode(mode);
}

//! Adds or removes the tab of a mode. Returns whether this changed the tabs.
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

//! Shows whether the proxy subtracts a zero; the host may have changed that too.
void RVXScopePrivate::showZeroed()
{
    Q_Q(RVXScope);
    const bool zeroed = zeroing->isZeroed();
    if (zeroed == ui.clearZeroButton->isEnabledTo(q))
        return;
    if (!zeroed && ui.clearZeroButton->hasFocus())
        ui.zeroButton->setFocus(); // disabling a button moves its focus to an arbitrary control
    ui.clearZeroButton->setEnabled(zeroed);
    ui.clearZeroButton->setStyleSheet(zeroed ? activeStyle : QString());
    showState();
}

//! Shows how the data is processed while the controls that show it are hidden.
void RVXScopePrivate::showState()
{
    QStringList states;
    if (zeroing->isZeroed())
        states << RVXScope::tr("Zeroed");
    if (ui.averagingCombo->currentIndex() > 0)
        states << ui.averagingCombo->currentText();
    ui.stateLabel->setText(states.join(", "));
    ui.stateLabel->setVisible(!states.isEmpty() && ui.configFrame->isHidden());
}

//! Makes the label wide enough for the largest number, so that the row does not move while the number grows.
void RVXScopePrivate::reserveBufferSizeWidth()
{
    const QString widest =
        RVXScopePlotView::tr("%1 Samples").arg(RVXAbstractDeviceDataModel::maxBufferSize);
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
    // retranslateUi() resets the title and the number of samples to those of the form.
    const QString title = q->windowTitle();
    ui.retranslateUi(q);
    q->setWindowTitle(title);
    ui.plotView->SetBufferSizeLabel(ui.bufferSizeLabel);
    tabs().retranslate();
    const QStringList texts = yRangeTexts(yScaleMode);
    for (int i = 0; i < texts.size(); ++i)
        ui.scaleYCombo->setItemText(i, texts.at(i));
    reserveBufferSizeWidth();
    showState();
}

} // namespace Corvale_Qt
