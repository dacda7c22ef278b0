// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <string_view>

namespace Monitor {

//! Of a name or a unit, and of an event or another text for people, in characters; the rest is cut off.
constexpr int maxNameLength = 64;
constexpr int maxTextLength = 500;

//! What the "#" lines of a stream have said so far.
class Metadata
{
public:
    enum class Line {
        Comment, //!< nothing for a program
        Changed, //!< something about the readings that follow
        Stream, //!< "#corvale 1": a stream begins, what was said before is forgotten
        Event, //!< "#event text"
        Unreadable, //!< a known word with something that it cannot have
    };

    //! Takes a line that begins with "#". For Line::Event the text is event().
    Line take(std::string_view line);

    const QString &event() const { return m_event; }
    //! The header for a table of these channels, with what was said of them.
    StreamHeader headerFor(const QVector<Channel> &channels, StreamKind kind) const;
    //! The declared channels with the declared units; empty where none were declared.
    QVector<Channel> channels() const;
    //! The declared layout, else channels.
    StreamKind kind() const { return m_kind; }

private:
    Line takeChannels(const QString &value);
    Line takeLayout(const QString &value);
    Line takeRange(const QString &value);
    Line takeStartTime(const QString &value);
    void applyUnits(QVector<Channel> *channels) const;

    QStringList m_names;
    QStringList m_units;
    bool m_kindKnown = false;
    StreamKind m_kind = StreamKind::Channels;
    QDateTime m_startTime;
    double m_rangeLow = 0.0;
    double m_rangeHigh = 0.0;
    QString m_event;
};

//! A text from outside as one line without control characters or blanks at its ends, at most \a length characters.
QString cleanText(const QString &text, int length);

} // namespace Monitor
