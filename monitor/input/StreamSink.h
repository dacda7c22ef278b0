// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <QByteArray>
#include <QMetaType>

namespace Monitor {

//! Why a line was dropped.
enum class Refusal {
    TooLong,
    TooManyValues,
    WrongCount,
    TimeBackwards,
    Unreadable,
};
constexpr int refusalKinds = 5;

//! A few words for a person, for example "too long".
QString refusalText(Refusal refusal);

struct RefusedLine
{
    Refusal refusal = Refusal::Unreadable;
    qint64 number = 0; //!< of the line within its stream, from 1
    QByteArray excerpt; //!< how it begins, escaped

    //! One line for a log.
    QString text() const;
};

//! Takes what is read from a stream of lines, in the order of the lines.
class StreamSink
{
public:
    virtual ~StreamSink();
    //! A new acquisition begins: what came before is another one, and its time says nothing about this.
    virtual void streamStarted(const StreamHeader &header) = 0;
    //! One value for each channel of the header; NaN where there is no reading.
    virtual void reading(double time, const double *values) = 0;
    virtual void eventNoted(const QString &text) = 0;
    virtual void lineRefused(const RefusedLine &line) = 0;
};

} // namespace Monitor

Q_DECLARE_METATYPE(Monitor::RefusedLine)
