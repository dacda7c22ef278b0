// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/numerics/ChannelLimits.h>

#include <QMap>
#include <QString>

#include <optional>

namespace Monitor {

//! Limits by the name of their channel.
using NamedLimits = QMap<QString, Corvale_Qt::ChannelLimits>;

//! Returns "low_alarm,low_warn,high_warn,high_alarm", with nothing where there is no limit.
QString limitsText(const Corvale_Qt::ChannelLimits &limits);
/*! Reads what limitsText() returns, with decimal points. Returns nothing, and says why in \a fault, for a text that is not four
    numbers or empty fields, and for limits that do not rise. */
std::optional<Corvale_Qt::ChannelLimits> limitsFromText(const QString &text, QString *fault);
/*! Reads one limit: a finite number with a decimal point, or NaN for an empty text. Returns nothing for any other text. */
std::optional<double> limitFromText(const QString &text);
/*! Returns that a channel is beyond a limit, like "ALARM: left_nA above 500 nA", in the language in which texts are made at
    present; \a limit has its unit. A normal state has only the name of the channel. */
QString passedLimitText(Corvale_Qt::LimitState state, const QString &channel, const QString &limit);
//! Returns a limit as it is typed: the shortest number that is exact; empty for NaN.
QString limitText(double limit);

} // namespace Monitor
