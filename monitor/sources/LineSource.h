// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/LineSplitter.h"
#include "monitor/sources/Backoff.h"
#include "monitor/sources/Source.h"

#include <optional>

namespace Monitor {

/*! A source of lines. It reads them, stamps those without a time with the seconds since start(), and tries again
    where a connection was lost; a subclass makes the connection. */
class LineSource : public Source
{
    Q_OBJECT

public:
    void start() final;
    LineCounts counts() const override;
    //! Where a lost connection is the end instead of something to mend: for runs without a window.
    void setReconnecting(bool on) { m_reconnecting = on; }
    /*! Seconds after which a connection that has brought bytes and brings none any more is taken for lost; 0 for
        never, as for instruments that only talk while there is beam. */
    void setLongestSilence(double seconds) { m_longestSilence = seconds; }
    double longestSilence() const { return m_longestSilence; }

protected:
    LineSource(Clock &clock, QObject *parent);

    //! Begins to connect. connected() or lost() follows, now or later.
    virtual void open() = 0;
    //! Gives the connection up, without a word from connected() or lost().
    virtual void close() = 0;
    //! As often as the clock ticks, while connected.
    virtual void poll();

    void connected();
    void takeBytes(std::string_view bytes);
    /*! The connection is gone, or could not be made: \a text says what was tried and what came back. After a
        connection that was closed in order, a run that does not reconnect is finished, otherwise failed. */
    void lost(const QString &text, bool inOrder = false);
    //! Nothing more will come: the end of the source.
    void ended();

private:
    void tick();
    bool isSilentTooLong() const;
    void endStream();

    SourceSink m_sink;
    LineProtocol m_protocol;
    LineSplitter m_splitter;
    Backoff m_backoff;
    std::optional<double> m_retryAt;
    double m_startedAt = 0.0;
    double m_longestSilence = 0.0;
    //! When the last bytes of this connection came.
    std::optional<double> m_heardAt;
    bool m_reconnecting = true;
};

} // namespace Monitor
