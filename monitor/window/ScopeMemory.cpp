// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ScopeMemory.h"

#include "monitor/readings/LimitTexts.h"
#include "monitor/session/Session.h"
#include "monitor/window/WindowSettings.h"
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>

#include <QMetaProperty>
#include <QScopedValueRollback>

#include <cmath>
#include <optional>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

const QString triggerKey = QStringLiteral("trigger");
const QString rightRangeKey = QStringLiteral("right-value-range");

//! The texts that the range of the right axis is kept as, in this order.
enum RightRangeText {
    RightRangeSource,
    RightRangeUnit,
    RightRangeMinimum,
    RightRangeMaximum,
    RightRangeTexts,
};

//! The texts that a trigger is kept as, in this order.
enum TriggerText {
    TriggerModeText,
    TriggerEdgeText,
    TriggerLevelText,
    TriggerHysteresisText,
    TriggerShareText,
    TriggerHoldOffText,
    TriggerChannelText,
    TriggerUnitText,
    TriggerTexts,
};

QString choiceKey(const char *property)
{
    return QStringLiteral("scope-") + QLatin1String(property);
}

QMetaProperty propertyOf(const QObject &object, const char *name)
{
    return object.metaObject()->property(object.metaObject()->indexOfProperty(name));
}

QString choiceText(const QObject &object, const char *name)
{
    const QMetaProperty property = propertyOf(object, name);
    const QVariant value = property.read(&object);
    return property.isEnumType() ? QString::number(value.toInt()) : value.toString();
}

//! Returns the trigger that texts hold, for \a channel; one that is not valid if they hold none.
SweepTrigger triggerFrom(const QStringList &texts, int channel)
{
    const auto number = [&texts](TriggerText which) {
        return limitFromText(texts.at(which)).value_or(std::nan(""));
    };
    SweepTrigger trigger;
    trigger.mode = SweepTrigger::Mode(
        qBound(0, texts.at(TriggerModeText).toInt(), int(SweepTrigger::Mode::Single)));
    trigger.edge = SweepTrigger::Edge(
        qBound(0, texts.at(TriggerEdgeText).toInt(), int(SweepTrigger::Edge::Either)));
    trigger.level = number(TriggerLevelText);
    trigger.hysteresis = number(TriggerHysteresisText);
    trigger.shareBefore = number(TriggerShareText);
    trigger.holdOff = number(TriggerHoldOffText);
    trigger.channel = channel;
    return trigger;
}

} // namespace

ScopeMemory::ScopeMemory(Session &session,
                         RVXScope &scope,
                         WindowSettings &settings,
                         QObject *parent)
    : QObject(parent)
    , m_session(session)
    , m_view(*scope.plotView())
    , m_settings(settings)
{
    // The entry is one of the list that the mode chooses.
    for (const char *property : {"yScaleMode",
                                 "yScaleIndex",
                                 "positiveOnly",
                                 "averaging",
                                 "period",
                                 "markersEnabled",
                                 "controlsVisible"})
        addChoice(&scope, property);
    addChoice(&m_view, "logarithmic");
    connect(&session, &Session::streamStarted, this, &ScopeMemory::restoreRightRange);
    connect(&m_view, &RVXScopePlotView::rightRangeChanged, this, &ScopeMemory::keepRightRange);
    connect(&session, &Session::streamStarted, this, &ScopeMemory::restoreTrigger);
    connect(&m_view, &RVXScopePlotView::triggerChanged, this, &ScopeMemory::keepTrigger);
}

//! Sets a property to what was kept of it, and keeps what it becomes.
void ScopeMemory::addChoice(QObject *object, const char *property)
{
    const QMetaProperty meta = propertyOf(*object, property);
    const QString kept = m_settings.text(choiceKey(property));
    if (!kept.isEmpty())
        meta.write(object, meta.isEnumType() ? QVariant(kept.toInt()) : QVariant(kept));
    m_choices.append({object, property, choiceText(*object, property)});
    static const QMetaMethod keep =
        staticMetaObject.method(staticMetaObject.indexOfSlot("keepChoices()"));
    connect(object, meta.notifySignal(), this, keep);
}

void ScopeMemory::keepChoices()
{
    for (Choice &choice : m_choices) {
        const QString text = choiceText(*choice.object, choice.property);
        if (text == choice.text)
            continue;
        choice.text = text;
        m_settings.setText(choiceKey(choice.property), text);
    }
}

//! Sets the range that was kept for the source. The range of another source means nothing here.
void ScopeMemory::restoreRightRange()
{
    const QScopedValueRollback<bool> guard(m_restoresRange, true);
    const QStringList texts = m_settings.list(rightRangeKey);
    const bool isOfSource = texts.size() == RightRangeTexts
        && texts.at(RightRangeSource) == m_session.source().description();
    const auto minimum = isOfSource ? limitFromText(texts.at(RightRangeMinimum)) : std::nullopt;
    const auto maximum = isOfSource ? limitFromText(texts.at(RightRangeMaximum)) : std::nullopt;
    if (minimum && maximum && *minimum < *maximum)
        m_view.setRightRange({*minimum, *maximum, texts.at(RightRangeUnit)});
    else
        m_view.resetRightRange();
}

void ScopeMemory::keepRightRange()
{
    if (m_restoresRange)
        return;
    const std::optional<ValueRange> range = m_view.givenRightRange();
    m_settings.setList(rightRangeKey,
                       range ? QStringList{m_session.source().description(),
                                           range->unit,
                                           limitText(range->minimum),
                                           limitText(range->maximum)}
                             : QStringList());
}

void ScopeMemory::restoreTrigger(const StreamHeader &header)
{
    const QStringList texts = m_settings.list(triggerKey);
    if (!m_awaitsChannel || texts.size() != TriggerTexts)
        return;
    const int index =
        header.channels.indexOf({texts.at(TriggerChannelText), texts.at(TriggerUnitText)});
    if (index < 0)
        return;
    m_awaitsChannel = false;
    m_view.setTrigger(triggerFrom(texts, index + 1));
}

void ScopeMemory::keepTrigger()
{
    const SweepTrigger trigger = m_view.trigger();
    const QVector<Channel> &channels = m_session.model().header().channels;
    if (trigger.channel < 1 || trigger.channel > channels.size())
        return;
    m_awaitsChannel = false; // the operator has chosen another one
    const Channel &channel = channels.at(trigger.channel - 1);
    m_settings.setList(triggerKey,
                       {QString::number(int(trigger.mode)),
                        QString::number(int(trigger.edge)),
                        limitText(trigger.level),
                        limitText(trigger.hysteresis),
                        limitText(trigger.shareBefore),
                        limitText(trigger.holdOff),
                        channel.name,
                        channel.unit});
}

} // namespace Monitor
