// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/RecordingWriter.h"

#include "monitor/input/CleanText.h"
#include "monitor/input/LineSplitter.h"
#include "monitor/readings/LimitTexts.h"
#include <corvale_qt/detector/DetectorFile.h>

namespace Monitor {

namespace {

//! Returns the name without commas, which separate fields; an empty name is replaced.
QByteArray nameField(const Channel &channel, int index)
{
    const QString name = cleanText(channel.name, maxNameLength);
    return name.isEmpty() ? "column" + QByteArray::number(index + 2)
                          : QString(name).replace(QLatin1Char(','), QLatin1Char(';')).toUtf8();
}

QByteArray unitField(const Channel &channel)
{
    return cleanText(channel.unit, maxNameLength)
        .replace(QLatin1Char(','), QLatin1Char(';'))
        .toUtf8();
}

//! Returns the line that describes the detector; an empty one if there is none.
QByteArray detectorLine(const StreamHeader &header)
{
    return header.detector.isEmpty()
        ? QByteArray()
        : "#detector " + Corvale_Qt::detectorToJson(header.detector, true) + "\n";
}

//! Appends what holds for readings of any kind.
void appendAcquisition(QByteArray *text, const StreamHeader &header)
{
    if (header.hasRange()) {
        *text += "#range ";
        appendRecordingNumber(text, header.rangeLow);
        *text += ",";
        appendRecordingNumber(text, header.rangeHigh);
        *text += "\n";
    }
    if (header.startTime.isValid())
        *text += "#t0 " + header.startTime.toUTC().toString(Qt::ISODateWithMs).toLatin1() + "\n";
    if (header.startTime.isValid() && header.startUncertainty > 0.0) {
        *text += "#t0-uncertainty ";
        appendRecordingNumber(text, header.startUncertainty);
        *text += " s\n# t0 was taken from the arrival of the first readings\n";
    }
    const QByteArray detector = detectorLine(header);
    if (detector.size() <= LineSplitter::maxLength)
        *text += detector;
    else
        *text += "# the description of the detector is longer than a line may be and is missing\n";
}

//! Returns the lines for people: where the readings come from, and what wrote them.
QByteArray originOf(const QString &source)
{
    return "# source: " + cleanText(source, maxTextLength).toUtf8()
        + "\n# program: corvale-monitor " CORVALE_MONITOR_VERSION "\n";
}

QByteArray frameHeader(const StreamHeader &header, const QString &source)
{
    QByteArray text = "#corvale 2\n" + originOf(source);
    text += "#layout " + kindName(header.kind).toLatin1() + "\n";
    if (!header.frameUnit.isEmpty())
        text += "#unit " + unitField({{}, header.frameUnit}) + "\n";
    appendAcquisition(&text, header);
    return text;
}

} // namespace

bool isDetectorRecorded(const StreamHeader &header)
{
    return detectorLine(header).size() <= LineSplitter::maxLength;
}

QByteArray recordingHeader(const StreamHeader &header, const QString &source)
{
    if (header.hasFrames())
        return frameHeader(header, source);
    QByteArrayList names, units, columns;
    if (header.hasTimes)
        columns += "time_s";
    for (int i = 0; i < header.channels.size(); ++i) {
        names += nameField(header.channels[i], i);
        units += unitField(header.channels[i]);
        columns += units.last().isEmpty() ? names.last() : names.last() + '_' + units.last();
    }
    QByteArray text = "#corvale 1\n" + originOf(source);
    text += "#layout " + kindName(header.kind).toLatin1() + "\n";
    text += "#channels " + names.join(',') + "\n";
    text += "#unit " + units.join(',') + "\n";
    appendAcquisition(&text, header);
    for (int i = 0; i < header.channels.size(); ++i) {
        if (!header.limitsOf(i).isEmpty())
            text += "#limits " + names[i] + " " + limitsText(header.limitsOf(i)).toLatin1() + "\n";
    }
    // The longest names and units do not fit into one line; the units are in the "#unit" line in any case.
    const QByteArray line = columns.join(',');
    const bool fits = line.size() <= LineSplitter::maxLength;
    const QByteArray shortLine = (header.hasTimes ? "time_s," : "") + names.join(',');
    return text + (fits ? line : shortLine) + "\n";
}

} // namespace Monitor
