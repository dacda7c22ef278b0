// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/RecordingWriter.h"

#include "monitor/input/Metadata.h"

#include <charconv>
#include <cmath>

namespace Monitor {

namespace {

void appendNumber(QByteArray *text, double value)
{
    constexpr int digits = 17;
    char number[40];
    const auto [end, error] =
        std::to_chars(number, number + sizeof(number), value, std::chars_format::general, digits);
    Q_UNUSED(error) // 17 digits always fit
    text->append(number, int(end - number));
}

//! Fields are cut at commas: a name cannot hold one.
QByteArray field(QString name)
{
    return name.replace(QLatin1Char(','), QLatin1Char(';')).toUtf8();
}

QByteArray headerField(const Channel &channel)
{
    return channel.unit.isEmpty() ? field(channel.name)
                                  : field(channel.name) + '_' + field(channel.unit);
}

} // namespace

QByteArray recordingHeader(const StreamHeader &header, const QString &source)
{
    QByteArray names, units, columns;
    for (const Channel &channel : header.channels) {
        names += (names.isEmpty() ? "" : ",") + field(channel.name);
        units += (columns.isEmpty() ? "" : ",") + field(channel.unit);
        columns += "," + headerField(channel);
    }
    QByteArray text = "#corvale 1\n# source: " + cleanText(source, 500).toUtf8() + "\n";
    text += "#layout " + layoutName(header.layout).toLatin1() + "\n";
    text += "#channels " + names + "\n";
    text += "#unit " + units + "\n";
    if (header.hasRange()) {
        text += "#range ";
        appendNumber(&text, header.rangeLow);
        text += ",";
        appendNumber(&text, header.rangeHigh);
        text += "\n";
    }
    if (header.startTime.isValid())
        text += "#t0 " + header.startTime.toUTC().toString(Qt::ISODateWithMs).toLatin1() + "\n";
    return text + "time_s" + columns + "\n";
}

void appendRecordingRow(QByteArray *text, double time, const double *values, int channels)
{
    appendNumber(text, time);
    for (int i = 0; i < channels; ++i) {
        text->append(',');
        if (!std::isnan(values[i]))
            appendNumber(text, values[i]);
    }
    text->append('\n');
}

void appendRecordingEvent(QByteArray *text, const QString &event)
{
    *text += "#event " + cleanText(event, 500).toUtf8() + "\n";
}

} // namespace Monitor
