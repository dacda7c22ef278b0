// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LoggedText.h"
#include "monitor/readings/LimitTexts.h"
#include "monitor/readings/StreamHeader.h"
#include <corvale_qt/detector/DetectorLines.h>

#include <optional>
#include <string_view>

namespace Monitor {

//! Collects the contents of the "#" lines of a stream.
class Metadata
{
public:
    //! What a line turned out to be.
    enum class Line {
        Comment, //!< a line for people
        Changed, //!< a description of the readings that follow
        Stream, //!< "#corvale 1" or "#corvale 2": a stream begins, and all earlier lines are forgotten
        Event, //!< "#event text"
        Unreadable, //!< a known word with an invalid value
    };

    //! Takes a line that begins with "#".
    Line take(std::string_view line);

    //! Forgets the start time: the times that follow are independent of it.
    void forgetStartTime() { m_startTime = QDateTime(); }

    //! Returns the text of the last Line::Event.
    const QString &event() const { return m_event; }
    //! Returns what was wrong with the last Line::Unreadable.
    const LoggedText &fault() const { return m_fault; }
    /*! Returns the header for a table of these channels, completed by what was declared: names, units, kind, start
        time and range, and the detector. \a kind holds if none was declared. */
    StreamHeader headerFor(const QVector<Channel> &channels, StreamKind kind) const;
    /*! Returns the header for frames from cells that are only counted, completed by what was declared. \a unit holds if none
        was declared. */
    StreamHeader headerForFrames(const Corvale_Qt::DetectorDescription &counted,
                                 const QString &unit) const;
    /*! Returns the cells that \a values values of a line stand for, if strips or a matrix were declared; nothing if so many do
        not fit what was declared. */
    std::optional<Corvale_Qt::DetectorDescription> framesOf(int values) const;
    //! Returns how many values a frame of the declared strips or matrix has; 0 if that was not declared.
    int declaredReadings() const;
    //! Returns whether the stream may have frames of several lines.
    bool allowsFrames() const { return m_version >= versionWithFrames; }
    //! Returns the declared channels with the declared units; empty if no channels were declared.
    QVector<Channel> channels() const;
    //! Returns the declared kind, StreamKind::Channels if none was declared.
    StreamKind kind() const { return m_kind; }

private:
    template<typename Make>
    Line wrong(Make make);
    Line takeChannels(const QString &value);
    Line takeLayout(const QString &value);
    Line takeDetector(const QString &text);
    void describeDetector(StreamHeader *header) const;
    void giveDetector(const Corvale_Qt::DetectorDescription &stream, StreamHeader *header) const;
    void takeAcquisition(StreamHeader *header) const;
    Line takeRange(const QString &value);
    Line takeLimits(const QString &value);
    void describeLimits(StreamHeader *header) const;
    Line takeStartTime(const QString &value);
    Line takeStartUncertainty(const QString &value);
    void applyUnits(QVector<Channel> *channels) const;

    //! The first version of the protocol that has frames of several lines.
    static constexpr int versionWithFrames = 2;

    int m_version = 1;
    QStringList m_names;
    QStringList m_units;
    bool m_kindKnown = false;
    StreamKind m_kind = StreamKind::Channels;
    QDateTime m_startTime;
    double m_startUncertainty = 0.0;
    double m_rangeLow = 0.0;
    double m_rangeHigh = 0.0;
    NamedLimits m_limits;
    Corvale_Qt::DetectorLines m_detector;
    QString m_event;
    LoggedText m_fault;
};

} // namespace Monitor
