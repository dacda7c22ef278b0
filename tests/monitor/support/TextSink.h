// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/StreamSink.h"

#include <QStringList>
#include <QVector>

#include <cmath>

/*! Writes down what is read, a short text for each item: "start channels a:nA b", "1.5: 2 -" ("-" for a missing value),
    "event text", "refused 3 unreadable", and "refused 3-5 count" for lines that were refused for the same reason.

    A fault that scripts/run-bad-days plants begins with the second reading: CORVALE_QT_PLANT=lost leaves the readings out,
    and CORVALE_QT_PLANT=wrong shows a first value that is too large by one. */
class TextSink : public Monitor::StreamSink
{
public:
    void streamStarted(const Monitor::StreamHeader &header) override
    {
        m_channels = header.valuesPerReading();
        m_header = header;
        QString text = QStringLiteral("start ") + Monitor::kindName(header.kind);
        if (header.hasFrames())
            text += QStringLiteral(" frames, %1,").arg(header.detector.summary());
        if (!header.hasTimes)
            text += QStringLiteral(" counted");
        for (const Monitor::Channel &channel : header.channels)
            text += QLatin1Char(' ') + channel.name
                + (channel.unit.isEmpty() ? QString() : QLatin1Char(':') + channel.unit);
        lines.append(text);
    }
    void reading(double time, const double *values) override
    {
        QVector<double> shown(values, values + m_channels);
        const QByteArray plant = m_readings++ > 0 ? qgetenv("CORVALE_QT_PLANT") : QByteArray();
        if (plant == "wrong")
            shown[0] += 1.0;
        if (plant != "lost")
            lines.append(readingText(time, shown.constData(), m_channels));
    }
    void eventNoted(const QString &text) override { lines.append(QStringLiteral("event ") + text); }
    void lineRefused(const Monitor::RefusedLine &line) override
    {
        const char *const reasons[] = {"long", "many", "count", "back", "unreadable"};
        const QLatin1String why(reasons[int(line.refusal)]);
        const bool goesOn =
            !lines.isEmpty() && lines.last() == refusedText(m_firstRefused, line.number - 1, why);
        if (goesOn)
            lines.removeLast();
        else
            m_firstRefused = line.number;
        lines.append(refusedText(m_firstRefused, line.number, why));
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
    static QString refusedText(qint64 first, qint64 last, QLatin1String why)
    {
        const QString numbers =
            first == last ? QString::number(first) : QStringLiteral("%1-%2").arg(first).arg(last);
        return QStringLiteral("refused %1 %2").arg(numbers, why);
    }

    int m_channels = 0;
    qint64 m_readings = 0;
    qint64 m_firstRefused = 0;
    Monitor::StreamHeader m_header;
};
