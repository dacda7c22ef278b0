// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/ViewChoices_p.h"

#include <QDataStream>
#include <QPointer>

#include <cmath>

namespace Corvale_Qt {

namespace {

// Not in the namespace of the library, where a host could find them.
QDataStream &operator<<(QDataStream &stream, const SweepTrigger &trigger)
{
    return stream << qint32(trigger.mode) << qint32(trigger.channel) << trigger.level
                  << qint32(trigger.edge) << trigger.hysteresis << trigger.shareBefore
                  << trigger.holdOff;
}

QDataStream &operator>>(QDataStream &stream, SweepTrigger &trigger)
{
    qint32 mode = 0;
    qint32 channel = 0;
    qint32 edge = 0;
    stream >> mode >> channel >> trigger.level >> edge >> trigger.hysteresis >> trigger.shareBefore
        >> trigger.holdOff;
    const bool isKnown = mode >= 0 && mode <= int(SweepTrigger::Mode::Single) && edge >= 0
        && edge <= int(SweepTrigger::Edge::Either);
    if (!isKnown)
        stream.setStatus(QDataStream::ReadCorruptData);
    trigger.mode = SweepTrigger::Mode(mode);
    trigger.channel = channel;
    trigger.edge = SweepTrigger::Edge(edge);
    return stream;
}

QDataStream &operator<<(QDataStream &stream, const std::optional<ValueRange> &range)
{
    stream << range.has_value();
    return range ? stream << range->minimum << range->maximum << range->unit : stream;
}

QDataStream &operator>>(QDataStream &stream, std::optional<ValueRange> &range)
{
    bool isSet = false;
    stream >> isSet;
    if (!isSet)
        return stream;
    range.emplace();
    stream >> range->minimum >> range->maximum >> range->unit;
    if (!std::isfinite(range->minimum) || !std::isfinite(range->maximum))
        stream.setStatus(QDataStream::ReadCorruptData);
    return stream;
}

//! Calls \a visit with the name and the value of each choice. The names are kept in files.
template<typename Choices, typename Visit>
void visitChoices(Choices &choices, Visit visit)
{
    visit("beginAtFirst", choices.beginAtFirst);
    visit("siPrefix", choices.siPrefix);
    visit("valueUnit", choices.valueUnit);
    visit("secondAxis", choices.secondAxis);
    visit("rangeUnit", choices.rangeUnit);
    visit("rightRange", choices.rightRange);
    visit("hysteresis", choices.hysteresis);
    visit("fullScaleFromData", choices.fullScaleFromData);
    visit("logarithmic", choices.logarithmic);
    visit("legendVisible", choices.legendVisible);
    visit("barNames", choices.barNames);
    visit("gapIntervals", choices.gapIntervals);
    visit("timeAxis", choices.timeAxis);
    visit("trigger", choices.trigger);
}

template<typename Value>
void read(const QByteArray &bytes, std::optional<Value> &choice)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_12);
    Value value{};
    stream >> value;
    if (stream.status() == QDataStream::Ok && stream.atEnd())
        choice = value;
}

template<typename Value>
QByteArray written(const Value &value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_12);
    stream << value;
    return bytes;
}

} // namespace

ViewChoices ViewChoices::of(const RVXScopePlotView &view)
{
    ViewChoices choices;
    choices.beginAtFirst = view.beginsAtFirst();
    choices.siPrefix = view.hasSiPrefix();
    choices.valueUnit = view.valueUnit();
    choices.secondAxis = view.hasSecondAxis();
    choices.rangeUnit = view.rangeUnit();
    choices.rightRange = view.givenRightRange();
    choices.hysteresis = view.hasHysteresis();
    choices.fullScaleFromData = view.isFullScaleFromData();
    choices.logarithmic = view.isLogarithmic();
    choices.legendVisible = view.isLegendVisible();
    choices.barNames = view.hasBarNames();
    choices.gapIntervals = view.gapIntervals();
    choices.timeAxis = view.timeAxis();
    choices.trigger = view.trigger();
    return choices;
}

ViewChoices ViewChoices::fromNamed(const Named &named)
{
    ViewChoices choices;
    visitChoices(choices, [&named](const char *name, auto &choice) {
        if (named.contains(name))
            read(named.value(name), choice);
    });
    return choices;
}

ViewChoices::Named ViewChoices::toNamed() const
{
    Named named;
    visitChoices(*this, [&named](const char *name, const auto &choice) {
        if (choice)
            named.insert(name, written(*choice));
    });
    return named;
}

void ViewChoices::applyTo(RVXScopePlotView &view) const
{
    const QPointer<RVXScopePlotView> alive(&view); // a slot may delete it
    const auto set = [&alive](auto setter, const auto &choice) {
        if (alive && choice)
            (alive->*setter)(*choice);
    };
    using View = RVXScopePlotView;
    set(&View::setBeginAtFirst, beginAtFirst);
    set(&View::setSiPrefix, siPrefix);
    set(&View::setValueUnit, valueUnit);
    set(&View::setSecondAxis, secondAxis);
    set(&View::setRangeUnit, rangeUnit);
    set(&View::setHysteresis, hysteresis);
    set(&View::setFullScaleFromData, fullScaleFromData);
    set(&View::setLogarithmic, logarithmic);
    set(&View::setLegendVisible, legendVisible);
    set(&View::setBarNames, barNames);
    set(&View::setGapIntervals, gapIntervals);
    set(&View::setTrigger, trigger);
    if (alive && rightRange) {
        if (*rightRange)
            view.setRightRange(**rightRange);
        else
            view.resetRightRange();
    }
    if (alive && timeAxis)
        view.setTimeAxis(View::TimeAxis(*timeAxis));
}

} // namespace Corvale_Qt
