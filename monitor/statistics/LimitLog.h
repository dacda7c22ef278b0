// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"
#include <corvale_qt/numerics/ChannelLimits.h>

#include <deque>
#include <vector>

namespace Monitor {

//! Judges every reading of a stream by the limits of its channel, and keeps when each channel was beyond them.
class LimitLog
{
public:
    //! How many excursions of a channel are kept at most; the oldest go first.
    static constexpr std::size_t mostExcursions = 1000;
    //! How many changes wait at most for takeChanges(); further ones are only counted.
    static constexpr std::size_t mostChanges = 1000;

    //! A reading with which a channel passed to another state.
    struct Change
    {
        int channel = 0; //!< counted from 0
        double time = 0.0; //!< of the reading, in seconds
        double reading = 0.0;
        Corvale_Qt::LimitState before = Corvale_Qt::LimitState::Normal;
        Corvale_Qt::LimitState state = Corvale_Qt::LimitState::Normal;
        Corvale_Qt::LimitExcursion
            excursion; //!< the one that lasts, or that ends with this reading
    };

    //! Begins a new acquisition with the limits of its header, and forgets the one before.
    void startStream(const StreamHeader &header);
    /*! Replaces the limits in the middle of a stream. Where they differ, the excursion that lasts ends at \a time, and the next
        reading is judged anew. */
    void setLimits(const QVector<Corvale_Qt::ChannelLimits> &limits, double time);

    //! Judges a row of readings, one for each channel of the header.
    void add(double time, const double *values)
    {
        for (Watched &each : m_watched) {
            const Corvale_Qt::LimitState before = each.watch.state();
            if (each.watch.add(time, values[each.channel]))
                note(each, before, time, values[each.channel]);
        }
    }

    //! Returns the state of a channel, counted from 0.
    Corvale_Qt::LimitState state(int channel) const;
    //! Returns the excursions of a channel, oldest first; the last one may still last.
    std::deque<Corvale_Qt::LimitExcursion> excursions(int channel) const;
    //! Returns how many excursions a channel has had, also those that are not kept any more.
    qint64 excursionCount(int channel) const;
    //! Returns the changes since the last call.
    std::vector<Change> takeChanges();
    //! Returns, once, how many changes there were beyond those of takeChanges().
    qint64 takeUnlisted();

private:
    struct Watched
    {
        int channel = 0;
        Corvale_Qt::LimitWatch watch;
        std::deque<Corvale_Qt::LimitExcursion> ended;
        qint64 count = 0;
    };

    const Watched *find(int channel) const;
    void note(Watched &each, Corvale_Qt::LimitState before, double time, double reading);
    static void keep(Watched &each, const Corvale_Qt::LimitExcursion &excursion);

    std::vector<Watched> m_watched; //!< the channels that have limits, or had
    std::vector<Change> m_changes;
    qint64 m_unlisted = 0;
};

} // namespace Monitor
