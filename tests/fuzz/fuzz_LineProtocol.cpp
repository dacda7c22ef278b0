// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/LineProtocol.h"
#include "monitor/input/LineSplitter.h"
#include "monitor/recording/RecordingWriter.h"
#include "tests/support/FuzzTarget.h"

#include <cmath>

using namespace Monitor;

namespace {

//! Returns a line with a time and this many values.
std::string wideRow(int values)
{
    std::string row = "0";
    for (int i = 0; i < values; ++i)
        row += "," + std::to_string(i % 10);
    return row + "\n";
}

} // namespace

std::vector<std::string> fuzzSeeds()
{
    return {("#corvale 1\n#channels a,b\n#unit nA\n#layout channels\n#t0 "
             "2026-03-01T12:00:00Z\n0,1,2\n0.1,3,4\n"),
            "#layout matrix 1 2\n#pitch 2 mm\n#gain 1,2\n0,1,2\n0.1,3,4\n",
            "#positions x -3,4 mm\n#dead 2\n#density\n0,1,2\n0.1,3,4\n",
            "0 1 2\n1 3 4\n2 5 6\n",
            "1,2\n,3\n4,\n\n",
            "time_s,left_A,right_A\n0,1e-9,2e-9\n0.1,nan,inf\n",
            "#layout strips\n#range -1,1\n0,1,2,3,4\n#event a\n1,1,2,3,4\n",
            "frame,time_ms,x01,y01\n0,1,2,3\n1,2,3,4\n",
            "x_mm,y_mm,mu\n1,2,3\n4,5,6\n",
            "#corvale 2\n#unit nC\n#frame 0 2 2\n1,2\n3,4\n#frame 1 2 2\n5,6\n#event a\n7,8\n",
            "#corvale 2\n#pitch 1 mm\n#frame 0 1 2\n1,nan\n#frame 1 256 256\n1,2\n#frame 2 2\n",
            ("#corvale 1\n#channels a,b\n#limits a -2,-1,1,2\n#limits c -2,-1,1,2\n#limits "
             "b\n#limits b "
             "3,2,1,0\n#t0-uncertainty 0.5 s\n#t0-uncertainty -1 s\n0,1,2\n"),
            "#layout strips\n" + wideRow(300),
            "#layout matrix 20 20\n" + wideRow(400),
            "#layout channels\n" + wideRow(300),
            "#channels " + wideRow(300) + wideRow(300),
            "0,1\n1,1\n2,1\n3,1\n0.1,1\n0.2,1\n0.3,1\n0.4,1\n0.5,1\n0.6,1\n0.7,1\n0.8,1\n",
            "hannel__timestamp(s),hannel_,annel__timestamp(s),annel_,\n1,2,1,3,\n2,4,,,\n"};
}

namespace {

//! Checks for every stream what the rest of the program relies on.
class PromiseSink : public StreamSink
{
public:
    void streamStarted(const StreamHeader &header) override
    {
        FUZZ_REQUIRE(!header.channels.isEmpty());
        FUZZ_REQUIRE(header.channels.size() <= StreamHeader::maxChannels);
        for (const Channel &channel : header.channels)
            FUZZ_REQUIRE(!channel.name.contains('\n') && channel.name.size() <= 64);
        constexpr int mostLines = 20; // and one for the limits of each channel
        FUZZ_REQUIRE(recordingHeader(header, {}).count('\n') < mostLines + header.channels.size());
        m_channels = header.valuesPerReading();
        FUZZ_REQUIRE(m_channels <= Corvale_Qt::DetectorLayout::maxReadings);
        FUZZ_REQUIRE(!header.hasFrames() || !header.detector.isEmpty());
        m_started = true;
        m_any = false;
    }
    void reading(double time, const double *values) override
    {
        FUZZ_REQUIRE(m_started && std::isfinite(time));
        FUZZ_REQUIRE(!m_any || time >= m_last);
        double sum = 0.0;
        for (int i = 0; i < m_channels; ++i)
            sum += values[i]; // reads every value
        m_sum = sum;
        m_any = true;
        m_last = time;
        ++readings;
    }
    void eventNoted(const QString &text) override { FUZZ_REQUIRE(!text.contains('\n')); }
    void lineRefused(const RefusedLine &line) override
    {
        FUZZ_REQUIRE(line.number >= 1 && line.excerpt.size() < 300);
        ++refused;
    }

    qint64 readings = 0;
    qint64 refused = 0;

private:
    int m_channels = 0;
    bool m_started = false;
    bool m_any = false;
    double m_last = 0.0;
    double m_sum = 0.0;
};

} // namespace

//! The first byte determines the size of the pieces in which the rest arrives, and whether the connection breaks.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const std::size_t pieceSize = 1 + data[0] % 64;
    const bool cut = data[0] & 0x80;
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    PromiseSink sink;
    LineProtocol protocol(sink);
    LineSplitter splitter;
    const auto take = [&](std::string_view line, bool tooLong) {
        protocol.takeLine(line, tooLong);
    };
    for (std::size_t i = 0; i < size; i += pieceSize) {
        splitter.feed(bytes.substr(i, pieceSize), take);
        if (cut && i > size / 2)
            protocol.beginStream();
    }
    splitter.finish(take);
    protocol.finish();
    FUZZ_REQUIRE(protocol.counts().readings == sink.readings);
    FUZZ_REQUIRE(protocol.counts().bad() == sink.refused);
    return 0;
}
