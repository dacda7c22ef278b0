// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/RecordedHeader.h"

#include "monitor/input/LineProtocol.h"
#include "monitor/recording/RecordingRows.h"
#include "monitor/recording/RecordingWriter.h"

#include <limits>
#include <vector>

namespace Monitor {

namespace {

//! Keeps the header of the stream that a reader finds.
class HeaderSink : public StreamSink
{
public:
    void streamStarted(const StreamHeader &found) override { header = found; }
    void reading(double, const double *) override { }
    void eventNoted(const QString &) override { }
    void lineRefused(const RefusedLine &) override { }

    StreamHeader header;
};

void takeLines(LineProtocol *protocol, const QByteArray &text)
{
    for (const QByteArray &line : text.split('\n'))
        protocol->takeLine({line.constData(), std::size_t(line.size())}, false);
}

//! Returns whether readings with a header of these lines have times: its line of columns, if there is one, names the time.
bool haveTimes(const QByteArray &lines)
{
    const QByteArray last = lines.trimmed().split('\n').last();
    return last.startsWith('#') || last.startsWith("time_s,");
}

} // namespace

RecordedHeader RecordedHeader::of(const StreamHeader &header, const QString &source)
{
    return {recordingHeader(header, source),
            header.valuesPerReading(),
            header.frameRows,
            header.hasTimes || header.frameRows == 0};
}

StreamHeader RecordedHeader::parsed() const
{
    constexpr int most = Corvale_Qt::DetectorLayout::maxReadings;
    const bool isForm = values > 0 && values <= most && frameRows >= 0
        && (frameRows == 0 || values % frameRows == 0);
    if (!isForm)
        return {};
    HeaderSink sink;
    LineProtocol protocol(sink);
    protocol.setArrivalCounted(true);
    takeLines(&protocol, lines);
    // A header is told with the first reading, so the protocol gets one.
    StreamHeader form;
    form.hasTimes = frameRows > 0 ? hasFrameTimes : haveTimes(lines);
    form.frameRows = frameRows;
    if (frameRows > 0)
        form.frameSize = values;
    else
        form.channels.resize(values);
    const std::vector<double> missing(std::size_t(values),
                                      std::numeric_limits<double>::quiet_NaN());
    QByteArray reading;
    appendRecordingReading(&reading, readingShape(form), 0.0, missing.data());
    takeLines(&protocol, reading);
    protocol.finish();
    return sink.header.valuesPerReading() == values ? sink.header : StreamHeader();
}

} // namespace Monitor
