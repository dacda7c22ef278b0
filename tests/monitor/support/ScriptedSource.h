// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/Source.h"

//! A source that gives what a test tells it to.
class ScriptedSource : public Monitor::Source
{
public:
    explicit ScriptedSource(Monitor::Clock &clock)
        : Source(clock, nullptr)
    {
    }

    void start() override { setState(State::Running, description()); }
    QString description() const override { return QStringLiteral("script"); }
    bool isLive() const override { return live; }
    QString remedy() const override { return QStringLiteral("Ask the author."); }
    Monitor::LineCounts counts() const override { return lineCounts; }
    void holdAfter(double time) override { heldAfter = time; }

    void begin(Monitor::StreamKind kind, int channels, const QString &unit = {})
    {
        m_header = {};
        m_header.kind = kind;
        m_header.channels = Monitor::StreamHeader::defaultChannels(kind, channels);
        for (Monitor::Channel &channel : m_header.channels)
            channel.unit = unit.isEmpty() ? channel.unit : unit;
        Q_EMIT streamStarted(m_header);
    }
    void begin(const Monitor::StreamHeader &header)
    {
        m_header = header;
        Q_EMIT streamStarted(m_header);
    }
    //! \a count readings from \a time on, 0.1 s apart, in one block; channel c of reading n is 1000 c + n.
    void give(int count = 1)
    {
        Monitor::ReadingBlock block(m_header.channels.size());
        std::vector<double> values(std::size_t(m_header.channels.size()));
        for (int i = 0; i < count; ++i, ++m_number) {
            for (std::size_t c = 0; c < values.size(); ++c)
                values[c] = 1000.0 * double(c) + double(m_number);
            block.append(0.1 * m_number, values.data());
        }
        Q_EMIT readingsArrived(block);
    }
    void give(double time, const std::vector<double> &values)
    {
        Monitor::ReadingBlock block(m_header.valuesPerReading());
        block.append(time, values.data());
        Q_EMIT readingsArrived(block);
    }
    void refuse(int count)
    {
        Monitor::RefusedLine line;
        line.excerpt = "HTTP/1.1 400";
        for (int i = 0; i < count; ++i) {
            line.number = ++lineCounts.lines;
            ++lineCounts.refused[std::size_t(line.refusal)];
            Q_EMIT lineRefused(line);
        }
    }
    using Source::setState;
    void jump() { Q_EMIT jumped(); }

    Monitor::LineCounts lineCounts;
    double heldAfter = -1.0;
    bool live = false; //!< as of an instrument

private:
    Monitor::StreamHeader m_header;
    int m_number = 0;
};
