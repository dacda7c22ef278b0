// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/ImageSink.h"

#include "monitor/readings/StreamDetector.h"

namespace Monitor {

ImageSink::ImageSink(Source &source)
    : m_source(source)
{
}

void ImageSink::show(double time, bool hasTime, const PgmImage &image)
{
    if (image.rows != m_rows || image.columns != m_columns || hasTime != m_hasTimes) {
        m_hasTimes = hasTime;
        m_rows = image.rows;
        m_columns = image.columns;
        StreamHeader header;
        header.setFrames(
            Corvale_Qt::DetectorLayout::fromDescription(countedMatrix(m_rows, m_columns)),
            {});
        header.hasTimes = m_hasTimes;
        Q_EMIT m_source.streamStarted(header);
    }
    ReadingBlock block(int(image.values.size()));
    block.append(time, image.values.data());
    ++m_counts.readings;
    Q_EMIT m_source.readingsArrived(block);
}

void ImageSink::refuse(Refusal refusal, const LoggedText &fault, const QByteArray &name)
{
    RefusedLine line;
    line.what = RefusedLine::What::Image;
    line.refusal = refusal;
    line.number = ++m_counts.lines;
    line.reason = fault;
    line.excerpt = name;
    ++m_counts.refused[std::size_t(refusal)];
    Q_EMIT m_source.lineRefused(line);
}

} // namespace Monitor
