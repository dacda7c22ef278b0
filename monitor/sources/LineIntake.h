// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/OrderedWorker.h"
#include "monitor/input/LineProtocol.h"
#include "monitor/input/LineSplitter.h"
#include "monitor/input/ToldSink.h"

#include <vector>

namespace Monitor {

/*! Reads the lines of a source in pieces: at once, or ahead in a separate thread, so that what was read before is used meanwhile.
    Only add() and next() may be called while a piece is pending. */
class LineIntake
{
public:
    //! Bytes as they came, and what they were read as.
    struct Piece
    {
        std::vector<char> bytes;
        std::size_t size = 0; //!< how many of them hold something
        double arrivalTime = 0.0; //!< of lines without a time, in seconds
        std::vector<Told> told;
        LineCounts counts; //!< of all lines up to its end
        bool statesTimes =
            false; //!< whether its arrival time is not needed; false also if that is not sure
    };
    //! What becomes of a last line without an end.
    enum class Rest {
        Read,
        Dropped //!< a number in it may have lost digits
    };

    //! Begins a connection, and drops an unfinished line of the former one.
    Piece begin();
    //! Reads bytes at once.
    Piece read(std::string_view bytes, double arrivalTime);
    //! Ends the stream or the connection.
    Piece end(Rest rest);

    //! Has the bytes of a piece read in the thread.
    void add(Piece piece) { m_worker.add(std::move(piece)); }
    //! Returns how many pieces were added and not taken by next().
    int pending() const { return m_worker.pending(); }
    //! Waits for the oldest pending piece, and returns it.
    Piece next() { return m_worker.take(); }

private:
    void feed(std::string_view bytes, double arrivalTime);
    void finish(Piece *piece);

    ToldSink m_sink;
    LineProtocol m_protocol{m_sink};
    LineSplitter m_splitter;
    OrderedWorker<Piece> m_worker{[this](Piece &piece) {
        feed({piece.bytes.data(), piece.size}, piece.arrivalTime);
        finish(&piece);
    }}; //!< the last member, since it uses the others
};

} // namespace Monitor
