// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/RecordingWriter.h"

#include "monitor/input/LineSplitter.h"
#include "monitor/input/Metadata.h"
#include "monitor/readings/LimitTexts.h"
#include "monitor/recording/ShortestNumber.h"
#include <corvale_qt/detector/DetectorFile.h>

#include <cmath>
#include <iterator>

namespace Monitor {

namespace {

//! Gathers numbers and the characters between them, and appends them to a text piece by piece.
class NumberText
{
public:
    explicit NumberText(QByteArray *text)
        : m_text(text)
    {
    }
    ~NumberText() { flush(); }
    NumberText(const NumberText &) = delete;
    NumberText &operator=(const NumberText &) = delete;

    void add(double value)
    {
        makeRoom();
        m_to = writeShortest(m_to, value);
    }
    void add(char character)
    {
        makeRoom();
        *m_to++ = character;
    }

private:
    void makeRoom()
    {
        if (std::end(m_piece) - m_to < longestNumber)
            flush();
    }
    void flush()
    {
        m_text->append(m_piece, int(m_to - m_piece));
        m_to = m_piece;
    }

    QByteArray *m_text;
    char m_piece[1024];
    char *m_to = m_piece;
};

void appendNumber(QByteArray *text, double value)
{
    NumberText(text).add(value);
}

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
        appendNumber(text, header.rangeLow);
        *text += ",";
        appendNumber(text, header.rangeHigh);
        *text += "\n";
    }
    if (header.startTime.isValid())
        *text += "#t0 " + header.startTime.toUTC().toString(Qt::ISODateWithMs).toLatin1() + "\n";
    if (header.startTime.isValid() && header.startUncertainty > 0.0) {
        *text += "#t0-uncertainty ";
        appendNumber(text, header.startUncertainty);
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

//! Appends the cells of a matrix as a frame. An empty line would not be a row, so that NaN is written out.
void appendFrame(QByteArray *text, int rows, int columns, double time, const double *values)
{
    *text += "#frame ";
    appendNumber(text, time);
    *text += ' ' + QByteArray::number(rows) + ' ' + QByteArray::number(columns) + '\n';
    NumberText cells(text);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            if (column > 0)
                cells.add(',');
            cells.add(*values++);
        }
        cells.add('\n');
    }
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

void appendRecordingRow(QByteArray *text, double time, const double *values, int channels)
{
    NumberText row(text);
    row.add(time);
    for (int i = 0; i < channels; ++i) {
        row.add(',');
        if (!std::isnan(values[i]))
            row.add(values[i]);
    }
    row.add('\n');
}

//! Appends the line of a reading without a time. The first of a single value is written out, since an empty line would be none.
void appendUntimedRow(QByteArray *text, const double *values, int channels)
{
    NumberText row(text);
    for (int i = 0; i < channels; ++i) {
        if (i > 0)
            row.add(',');
        if (!std::isnan(values[i]) || channels == 1)
            row.add(values[i]);
    }
    row.add('\n');
}

void appendRecordingReading(QByteArray *text,
                            const StreamHeader &header,
                            double time,
                            const double *values)
{
    if (header.frameRows > 0)
        appendFrame(text, header.frameRows, header.frameSize / header.frameRows, time, values);
    else if (header.hasTimes)
        appendRecordingRow(text, time, values, header.valuesPerReading());
    else
        appendUntimedRow(text, values, header.valuesPerReading());
}

void appendRecordingEvent(QByteArray *text, const QString &event)
{
    *text += "#event " + cleanText(event, maxTextLength).toUtf8() + "\n";
}

} // namespace Monitor
