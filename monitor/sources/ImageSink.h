// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/PgmReader.h"
#include "monitor/sources/Source.h"

namespace Monitor {

/*! Reports grey images by the signals of a source, as frames. Another acquisition begins with another size, and where times follow
    images that were only counted or the other way round. */
class ImageSink
{
public:
    //! \a source must outlive the sink.
    explicit ImageSink(Source &source);

    //! Counts an image that was read.
    void count() { ++m_counts.lines; }
    //! Hands an image on as the frame of that time, in seconds; if it has no time, that is its number.
    void show(double time, bool hasTime, const PgmImage &image);
    //! Counts and reports an image that cannot be used; \a name says which one it is, \a fault why if the refusal does not.
    void refuse(Refusal refusal, const LoggedText &fault, const QByteArray &name);

    //! Returns how many images were read and refused.
    const LineCounts &counts() const { return m_counts; }

private:
    Source &m_source;
    LineCounts m_counts;
    int m_rows = 0; //!< of the frames of this stream
    int m_columns = 0;
    bool m_hasTimes = true;
};

} // namespace Monitor
