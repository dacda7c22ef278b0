// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"
#include "monitor/sources/Source.h"
#include <corvale_qt/detector/VerdictLimits.h>

#include <QObject>

#include <corvale_monitor/ResultPublisher.h>
#include <functional>
#include <memory>

namespace Monitor {

class Clock;
class StreamStatistics;

//! Where the results of one source come from. The functions are called as long as the feed that has them exists.
struct ResultInput
{
    std::function<const Source &()> source; //!< it may be another one from call to call
    std::function<const StreamStatistics &()> statistics;
    std::function<double()> rate; //!< readings that arrive in a second
    std::function<bool()> isStale; //!< whether readings are overdue
};

/*! Gives the results of one source to a publication: those of the newest reading, 25 times a second at most, and only if there is
    something new. Each reading is counted and judged by the statistics; what this adds does not depend on how many come. */
class ResultFeed : public QObject
{
    Q_OBJECT

public:
    //! Seconds from one set of results to the next; well below the 0.1 s of many instruments, so that each of their readings has results.
    static constexpr double interval = 0.04;

    //! The clock must outlive the feed.
    ResultFeed(Clock &clock,
               std::unique_ptr<CorvaleMonitor::Publication> publication,
               ResultInput input,
               QObject *parent = nullptr);
    ~ResultFeed() override;

    //! Sets by what fits are judged on a detector that states no limits of its own.
    void setVerdictLimits(const Corvale_Qt::VerdictLimits &limits);
    //! Sets whether the channels of a stream that nothing places are one profile in their order, which is published as x.
    void setChannelsAreProfile(bool on) { m_channelsAreProfile = on; }
    //! Publishes what there is now, whatever the interval.
    void flush();

private:
    void tick();
    void noteLoss();
    bool isOverdue() const;
    bool isOfToldReading() const;
    bool isNews() const;
    void tellStream(const CorvaleMonitor::ResultStream &stream);
    void addPlanes(CorvaleMonitor::Results *results, CorvaleMonitor::ResultStream *stream) const;
    void addValues(CorvaleMonitor::Results *results) const;
    double timeOfNewest() const;

    Clock &m_clock;
    const std::unique_ptr<CorvaleMonitor::Publication> m_publication;
    const ResultInput m_input;
    Corvale_Qt::VerdictLimits m_verdictLimits;
    bool m_channelsAreProfile = false;
    bool m_hasBegun = false; //!< whether the publication was given a header
    StreamHeader m_header; //!< the header that the publication was given
    CorvaleMonitor::ResultStream m_stream; //!< the same in its words
    CorvaleMonitor::Results m_told; //!< the results that were given last
    qint64 m_toldAcquisition = 0; //!< the acquisition that m_told belongs to
    bool m_mustTell = true; //!< whether they are to be given again, although no reading has come
    double m_toldAt;
    qint64 m_readingsAtLoss =
        -1; //!< how many had come when the source was lost; -1 if others came since
};

} // namespace Monitor
