// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/LineIntake.h"

namespace Monitor {

LineIntake::Piece LineIntake::begin()
{
    m_splitter.clear();
    m_protocol.beginStream();
    Piece piece;
    finish(&piece);
    return piece;
}

LineIntake::Piece LineIntake::read(std::string_view bytes, double arrivalTime)
{
    feed(bytes, arrivalTime);
    Piece piece;
    finish(&piece);
    return piece;
}

LineIntake::Piece LineIntake::end(Rest rest)
{
    if (rest == Rest::Dropped)
        m_splitter.clear();
    m_splitter.finish([this](std::string_view line, bool tooLong) {
        m_protocol.takeLine(line, tooLong);
    });
    m_protocol.finish();
    Piece piece;
    finish(&piece);
    return piece;
}

void LineIntake::feed(std::string_view bytes, double arrivalTime)
{
    m_protocol.setArrivalTime(arrivalTime);
    m_splitter.feed(bytes, [this](std::string_view line, bool tooLong) {
        m_protocol.takeLine(line, tooLong);
    });
}

//! Puts what was told into a piece.
void LineIntake::finish(Piece *piece)
{
    piece->told = m_sink.take();
    piece->counts = m_protocol.counts();
    piece->statesTimes = m_protocol.statesTimes();
}

} // namespace Monitor
