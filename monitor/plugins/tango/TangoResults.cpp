// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/tango/TangoResults.h"

#include <algorithm>
#include <cmath>

using namespace CorvaleMonitor;

bool TangoSnapshot::isCurrent() const
{
    const SourceState state = results.state;
    return !isClosed && !results.isOverdue && results.readings > 0
        && (state == SourceState::Live || state == SourceState::Finished);
}

namespace {

using Form = TangoResult::Form;

//! Returns a number that describes the newest reading, with the quality that it has where the number exists.
TangoValue
numberOf(const TangoSnapshot &snapshot, double number, TangoQuality quality = TangoQuality::Valid)
{
    const bool exists = snapshot.isCurrent() && std::isfinite(number);
    return {{number}, {}, exists ? quality : TangoQuality::Invalid};
}

TangoQuality qualityOf(ResultValidity validity)
{
    return validity == ResultValidity::Valid ? TangoQuality::Valid
        : validity == ResultValidity::Poor   ? TangoQuality::Warning
                                             : TangoQuality::Invalid;
}

//! Returns a number of a plane, which is worth what the verdict says.
template<PlaneResult Results::*plane, double PlaneResult::*number>
TangoValue ofPlane(const TangoSnapshot &snapshot)
{
    const PlaneResult &result = snapshot.results.*plane;
    return numberOf(snapshot, result.*number, qualityOf(result.validity));
}

//! Returns the verdict on a plane. That the numbers are not valid is an alarm, and itself a valid statement.
template<PlaneResult Results::*plane>
TangoValue validityOf(const TangoSnapshot &snapshot)
{
    const PlaneResult &result = snapshot.results.*plane;
    const bool hasPlane = !result.verdict.isEmpty();
    const TangoQuality quality = !hasPlane || !snapshot.isCurrent() ? TangoQuality::Invalid
        : result.validity == ResultValidity::Invalid                ? TangoQuality::Alarm
                                                                    : qualityOf(result.validity);
    return {{double(result.validity)}, {result.verdict}, quality};
}

//! Returns the worst quality that a channel's state has.
TangoQuality worstOf(const QVector<ChannelState> &states)
{
    const auto worst = std::max_element(states.begin(), states.end());
    if (worst == states.end() || *worst == ChannelState::Normal)
        return TangoQuality::Valid;
    return *worst == ChannelState::Warning ? TangoQuality::Warning : TangoQuality::Alarm;
}

TangoValue valuesOf(const TangoSnapshot &snapshot)
{
    const bool exist = snapshot.isCurrent() && !snapshot.results.values.isEmpty();
    return {snapshot.results.values,
            {},
            exist ? worstOf(snapshot.results.states) : TangoQuality::Invalid};
}

TangoValue statesOf(const TangoSnapshot &snapshot)
{
    TangoValue value = valuesOf(snapshot);
    value.numbers.clear();
    for (const ChannelState state : snapshot.results.states)
        value.numbers.append(double(state));
    return value;
}

template<QString SourceChannel::*text>
TangoValue textsOf(const TangoSnapshot &snapshot)
{
    TangoValue value;
    for (const SourceChannel &channel : snapshot.stream.channels)
        value.texts.append(channel.*text);
    value.quality = value.texts.isEmpty() ? TangoQuality::Invalid : TangoQuality::Valid;
    return value;
}

QString unitX(const ResultStream &stream)
{
    return stream.unitX;
}

QString unitY(const ResultStream &stream)
{
    return stream.unitY;
}

QString integralUnit(const ResultStream &stream)
{
    return stream.integralUnit;
}

QString rateUnit(const ResultStream &)
{
    return QStringLiteral("Hz");
}

//! Returns the unit that all channels have; empty if they differ.
QString commonUnit(const ResultStream &stream)
{
    const QVector<SourceChannel> &channels = stream.channels;
    const bool isCommon =
        std::all_of(channels.begin(), channels.end(), [&](const SourceChannel &channel) {
            return channel.unit == channels.first().unit;
        });
    return isCommon && !channels.isEmpty() ? channels.first().unit : QString();
}

TangoValue rateOf(const TangoSnapshot &snapshot)
{
    return {{snapshot.results.rate},
            {},
            snapshot.isClosed ? TangoQuality::Invalid : TangoQuality::Valid};
}

TangoValue countOf(const TangoSnapshot &snapshot)
{
    return {{double(snapshot.results.readings)}, {}, TangoQuality::Valid};
}

TangoValue sourceOf(const TangoSnapshot &snapshot)
{
    return {{}, {snapshot.stream.source}, TangoQuality::Valid};
}

} // namespace

const std::vector<TangoResult> &tangoResults()
{
    constexpr auto x = &Results::x;
    constexpr auto y = &Results::y;
    constexpr auto position = &PlaneResult::position;
    constexpr auto sigma = &PlaneResult::sigma;
    constexpr auto integral = &PlaneResult::integral;
    constexpr auto chiSquare = &PlaneResult::reducedChiSquare;
    static const std::vector<TangoResult> all = {
        {"x_position",
         "Centre of the fitted Gaussian",
         Form::Number,
         &unitX,
         &ofPlane<x, position>},
        {"x_sigma", "Standard deviation of the Gaussian", Form::Number, &unitX, &ofPlane<x, sigma>},
        {"x_integral", "Integral of it", Form::Number, &integralUnit, &ofPlane<x, integral>},
        {"x_chi_square", "Reduced chi-square of it", Form::Number, nullptr, &ofPlane<x, chiSquare>},
        {"x_validity", "Verdict on the fit", Form::Validity, nullptr, &validityOf<x>},
        {"x_verdict", "Verdict on the fit, with reasons", Form::Text, nullptr, &validityOf<x>},
        {"y_position",
         "Centre of the fitted Gaussian",
         Form::Number,
         &unitY,
         &ofPlane<y, position>},
        {"y_sigma", "Standard deviation of the Gaussian", Form::Number, &unitY, &ofPlane<y, sigma>},
        {"y_integral", "Integral of it", Form::Number, &integralUnit, &ofPlane<y, integral>},
        {"y_chi_square", "Reduced chi-square of it", Form::Number, nullptr, &ofPlane<y, chiSquare>},
        {"y_validity", "Verdict on the fit", Form::Validity, nullptr, &validityOf<y>},
        {"y_verdict", "Verdict on the fit, with reasons", Form::Text, nullptr, &validityOf<y>},
        {"rate", "Readings that arrive in a second", Form::Number, &rateUnit, &rateOf},
        {"readings", "Readings of the stream, so far", Form::Count, nullptr, &countOf},
        {"values", "Newest value of each channel", Form::Numbers, &commonUnit, &valuesOf},
        {"value_states",
         "Of each value: 0 normal, 1 warning, 2 alarm, 3 over range",
         Form::States,
         nullptr,
         &statesOf},
        {"names", "Name of each channel", Form::Texts, nullptr, &textsOf<&SourceChannel::name>},
        {"units", "Unit of each channel", Form::Texts, nullptr, &textsOf<&SourceChannel::unit>},
        {"source", "What is read", Form::Text, nullptr, &sourceOf},
    };
    return all;
}
