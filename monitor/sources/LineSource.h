// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/Backoff.h"
#include "monitor/sources/LineIntake.h"
#include "monitor/sources/PieceByPiece.h"
#include "monitor/sources/Source.h"

#include <QTimer>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace Monitor {

/*! A source of lines. It reads the lines, gives those without a time the seconds since start(), and connects again
    after a lost connection; a subclass makes the connection.

    In the background, what comes is gathered from tick to tick, since a hundred lines at once cost less than ten by ten. Lines without a
    time are read as they come, because their arrival dates them. */
class LineSource : public Source
{
    Q_OBJECT

public:
    void start() final;
    LineCounts counts() const override { return m_counts; }
    bool isLive() const override { return true; }
    void setReconnecting(bool on) override { m_reconnecting = on; }
    /*! Sets after how many seconds of silence a connection that has brought bytes counts as lost; 0 for never, which
        suits instruments that only talk while there is beam. */
    void setLongestSilence(double seconds) { m_longestSilence = seconds; }
    double longestSilence() const { return m_longestSilence; }

protected:
    /*! How many bytes are taken at a time. A line that makes no sense takes ten times as long as a reading; with this many bytes of them
        a turn of the event loop stays short. */
    static constexpr int livePieceSize = 64 * 1024;

    LineSource(Clock &clock, QObject *parent);

    //! Begins to connect; calls connected() or lost(), now or later.
    virtual void open() = 0;
    //! Closes the connection without calling lost().
    virtual void close() = 0;
    //! Called at every tick of the clock while connected.
    virtual void poll();

    //! To be called when the connection is made.
    void connected();
    //! Returns the seconds since start(): the time of readings that come without one.
    double arrivalTime() const;
    //! To be called with the bytes that arrive, which are read now or, in the background, at the next tick.
    void takeBytes(std::string_view bytes);
    /*! To be called with the first \a size bytes of a flood instead, whose lines are read in a separate thread while those of the piece
        before are used. The caller calls takeRest() before it returns to the event loop. */
    void takeAhead(std::vector<char> bytes, std::size_t size);
    //! To be called after takeAhead().
    void takeRest();
    //! Returns whether nobody misses what comes before the next tick.
    bool mayWait() const;
    //! Reads the bytes that have waited for a tick.
    void readGathered();
    /*! To be called with the bytes that are left when the connection is gone: they are taken a piece in each turn of the event loop, the
        first one at once. Calls \a then after the last of them, for lost() or peerLeft(). */
    void takeLast(const QByteArray &bytes, std::function<void()> then);
    //! Returns whether bytes of takeLast() wait for the next turn.
    bool isTakingLast() const { return m_last.has_value(); }
    //! Returns memory for bytes, which may have been used before; it may be empty.
    std::vector<char> takeSpare() { return std::exchange(m_spare, {}); }
    /*! To be called when the connection is gone or could not be made; \a text says what was tried and what came back.
        \a inOrder means that the peer closed it properly: a source that does not reconnect has then finished, and has
        failed otherwise. */
    void lost(const LoggedText &text, bool inOrder = false);
    //! The same for the source as a person would name it, and what came back.
    void lostBecause(const LoggedText &came, bool inOrder = false);
    /*! To be called when the peer is gone and the next one is awaited; \a text says how it went. A source that does not
        reconnect has then finished if the peer closed the connection properly, and has failed otherwise. */
    void peerLeft(const LoggedText &text, bool inOrder);
    //! To be called when nothing more will come.
    void ended();

private:
    //! The last bytes of a connection, of which some have been taken.
    struct Last
    {
        QByteArray bytes;
        int taken = 0;
        std::function<void()> then;
    };

    void tick();
    bool isSilentTooLong() const;
    void noteBytes(std::string_view bytes);
    void takeAllRest();
    bool takePieceOfLast();
    void tell(LineIntake::Piece piece);
    bool end(LineIntake::Rest rest);

    LineIntake m_intake;
    LineCounts m_counts; //!< up to what was told
    std::vector<char> m_spare;
    std::vector<char> m_gathered; //!< bytes that came in the background and are not read yet
    bool m_statesTimes = false; //!< whether the lines that were read last do
    std::optional<Last> m_last;
    PieceByPiece m_lastPieces{this, [this] {
                                  return takePieceOfLast();
                              }};
    Backoff m_backoff;
    std::optional<double> m_retryAt;
    //! Fires when the next attempt is due, since the ticks of a resting clock are too far apart.
    QTimer m_retryWake{this};
    double m_startedAt = 0.0;
    double m_longestSilence = 0.0;
    //! The time at which the last bytes of this connection came.
    std::optional<double> m_heardAt;
    bool m_reconnecting = true;
};

} // namespace Monitor
