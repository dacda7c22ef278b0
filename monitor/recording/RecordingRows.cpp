// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/RecordingRows.h"

#include "monitor/input/CleanText.h"
#include "monitor/recording/ShortestNumber.h"

#include <cmath>
#include <iterator>

namespace Monitor {

namespace {

//! Gathers numbers and the characters between them, and appends them to a text piece by piece.
class NumberText
{
public:
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): the piece is filled before it is read
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

//! Appends the cells of a matrix as a frame. An empty line would not be a row, so that NaN is written out.
void appendFrame(QByteArray *text, const ReadingShape &shape, double time, const double *values)
{
    const int rows = shape.frameRows, columns = shape.values / rows;
    *text += "#frame ";
    if (shape.hasTimes) {
        appendRecordingNumber(text, time);
        *text += ' ';
    }
    *text += QByteArray::number(rows) + ' ' + QByteArray::number(columns) + '\n';
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

//! Appends the line of a reading without a time. A single value is written even if it is NaN, since an empty line is not a row.
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

} // namespace

void appendRecordingNumber(QByteArray *text, double value)
{
    NumberText(text).add(value);
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

void appendRecordingReading(QByteArray *text,
                            const ReadingShape &shape,
                            double time,
                            const double *values)
{
    if (shape.frameRows > 0)
        appendFrame(text, shape, time, values);
    else if (shape.hasTimes)
        appendRecordingRow(text, time, values, shape.values);
    else
        appendUntimedRow(text, values, shape.values);
}

void appendRecordingEvent(QByteArray *text, const QString &event)
{
    *text += "#event " + cleanText(event, maxTextLength).toUtf8() + "\n";
}

} // namespace Monitor
