// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/StreamSink.h"

#include <QStringList>

#include <cmath>

/*! Writes down what is read, one short text for each thing: "start channels a:nA b", "1.5: 2 -" ("-" for no
    reading), "event text", "refused 3 not readable". */
class TextSink : public Monitor::StreamSink
{
public:
    void streamStarted(const Monitor::StreamHeader &header) override
    {
        m_channels = header.channels.size();
        m_header = header;
        QString text = QStringLiteral("start ") + Monitor::kindName(header.kind);
        for (const Monitor::Channel &channel : header.channels)
            text += QLatin1Char(' ') + channel.name
                + (channel.unit.isEmpty() ? QString() : QLatin1Char(':') + channel.unit);
        lines.append(text);
    }
    void reading(double time, const double *values) override
    {
        lines.append(readingText(time, values, m_channels));
    }
    void eventNoted(const QString &text) override { lines.append(QStringLiteral("event ") + text); }
    void lineRefused(const Monitor::RefusedLine &line) override
    {
        lines.append(QStringLiteral("refused %1 %2")
                         .arg(line.number)
                         .arg(Monitor::refusalText(line.refusal)));
    }

    static QString readingText(double time, const double *values, int channels)
    {
        QString text = QString::number(time) + QLatin1Char(':');
        for (int i = 0; i < channels; ++i)
            text +=
                std::isnan(values[i]) ? QStringLiteral(" -") : QStringLiteral(" %1").arg(values[i]);
        return text;
    }
    QString text() const { return lines.join(QStringLiteral(" | ")); }
    const Monitor::StreamHeader &header() const { return m_header; }

    QStringList lines;

private:
    int m_channels = 0;
    Monitor::StreamHeader m_header;
};
