// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/TriggerDialog.h"

#include "monitor/readings/LimitTexts.h"
#include <corvale_qt/scope/RVXScopePlotView.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>
#include <cmath>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

//! Returns the number in a field, 0 for an empty one; sets \a good to false for any other text.
double numberIn(const QLineEdit *field, bool *good)
{
    const std::optional<double> number = limitFromText(field->text());
    *good = *good && number.has_value();
    return number && !std::isnan(*number) ? *number : 0.0;
}

} // namespace

TriggerDialog::TriggerDialog(RVXScopePlotView &view, QWidget *parent)
    : QDialog(parent)
    , m_view(view)
    , m_mode(new QComboBox(this))
    , m_channel(new QComboBox(this))
    , m_level(addNumber("level", tr("Readings that pass this level begin a sweep")))
    , m_edge(new QComboBox(this))
    , m_hysteresis(addNumber("hysteresis",
                             tr("How far a reading must have been on the other side of the level; "
                                "more than the noise")))
    , m_before(new QSpinBox(this))
    , m_holdOff(addNumber("holdOff", tr("Shortest time between two triggers")))
    , m_state(new QLabel(this))
    , m_arm(new QPushButton(tr("&Arm"), this))
{
    setWindowTitle(tr("Trigger"));
    m_mode->setObjectName(QStringLiteral("mode"));
    m_mode->addItems({tr("Off"), tr("Automatic"), tr("Normal"), tr("Single")});
    m_mode->setToolTip(tr("Automatic shows sweeps also where no trigger comes; Single shows one"));
    m_channel->setObjectName(QStringLiteral("channel"));
    m_edge->setObjectName(QStringLiteral("edge"));
    m_edge->addItems({tr("Rising"), tr("Falling"), tr("Either")});
    m_before->setObjectName(QStringLiteral("before"));
    m_before->setRange(0, 100);
    m_before->setSuffix(tr(" %"));
    m_before->setToolTip(tr("Share of the sweep that lies before the trigger"));
    m_arm->setToolTip(tr("Wait for the next trigger"));
    m_arm->setAutoDefault(false);
    m_state->setObjectName(QStringLiteral("state"));
    addFields();
    showTrigger(view.trigger());

    for (QComboBox *box : {m_mode, m_channel, m_edge})
        connect(box,
                QOverload<int>::of(&QComboBox::currentIndexChanged),
                this,
                &TriggerDialog::apply);
    for (QLineEdit *field : {m_level, m_hysteresis, m_holdOff})
        connect(field, &QLineEdit::textChanged, this, &TriggerDialog::apply);
    connect(m_before, QOverload<int>::of(&QSpinBox::valueChanged), this, &TriggerDialog::apply);
    connect(m_arm, &QPushButton::clicked, &view, &RVXScopePlotView::armTrigger);
    connect(&view, &RVXScopePlotView::triggerStateChanged, this, &TriggerDialog::showState);
    connect(&view, &RVXScopePlotView::triggerChanged, this, &TriggerDialog::showState);
    showState();
}

QLineEdit *TriggerDialog::addNumber(const char *name, const QString &toolTip)
{
    auto *field = new QLineEdit(this);
    field->setObjectName(QLatin1String(name));
    field->setToolTip(toolTip);
    return field;
}

void TriggerDialog::addFields()
{
    auto *form = new QFormLayout(this);
    form->addRow(tr("&Mode:"), m_mode);
    form->addRow(tr("&Channel:"), m_channel);
    form->addRow(tr("&Level:"), m_level);
    form->addRow(tr("&Edge:"), m_edge);
    form->addRow(tr("&Hysteresis:"), m_hysteresis);
    form->addRow(tr("&Before the trigger:"), m_before);
    form->addRow(tr("Hold-&off in s:"), m_holdOff);
    form->addRow(tr("State:"), m_state);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->addButton(m_arm, QDialogButtonBox::ActionRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    form->addRow(buttons);
}

void TriggerDialog::setHeader(const StreamHeader &header)
{
    m_isShowing = true;
    m_channel->clear();
    for (const Channel &channel : header.channels)
        m_channel->addItem(channel.unit.isEmpty() ? channel.name
                                                  : tr("%1 in %2").arg(channel.name, channel.unit));
    showTrigger(m_view.trigger());
}

void TriggerDialog::showTrigger(const SweepTrigger &trigger)
{
    m_isShowing = true;
    m_mode->setCurrentIndex(int(trigger.mode));
    m_channel->setCurrentIndex(trigger.channel - 1);
    m_level->setText(limitText(trigger.level));
    m_edge->setCurrentIndex(int(trigger.edge));
    m_hysteresis->setText(limitText(trigger.hysteresis));
    m_before->setValue(int(std::lround(trigger.shareBefore * 100.0)));
    m_holdOff->setText(limitText(trigger.holdOff));
    m_isShowing = false;
}

void TriggerDialog::apply()
{
    if (m_isShowing)
        return;
    bool good = true;
    SweepTrigger trigger;
    trigger.mode = SweepTrigger::Mode(m_mode->currentIndex());
    trigger.channel = std::max(m_channel->currentIndex(), 0) + 1;
    trigger.level = numberIn(m_level, &good);
    trigger.edge = SweepTrigger::Edge(m_edge->currentIndex());
    trigger.hysteresis = numberIn(m_hysteresis, &good);
    trigger.shareBefore = m_before->value() / 100.0;
    trigger.holdOff = numberIn(m_holdOff, &good);
    if (!good || !trigger.isValid()) {
        m_state->setText(
            tr("Numbers need a decimal point; hysteresis and hold-off are 0 or more."));
        return;
    }
    m_view.setTrigger(trigger);
    showState();
}

void TriggerDialog::showState()
{
    const bool isOn = m_view.trigger().isOn();
    m_arm->setEnabled(isOn);
    switch (m_view.triggerState()) {
    case TriggerState::Off:
        m_state->setText(tr("Off"));
        break;
    case TriggerState::Armed:
        m_state->setText(tr("Armed"));
        break;
    case TriggerState::Triggered:
        m_state->setText(tr("Triggered"));
        break;
    case TriggerState::Automatic:
        m_state->setText(tr("Auto"));
        break;
    }
}

} // namespace Monitor
