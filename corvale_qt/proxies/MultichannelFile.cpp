// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/MultichannelFile_p.h"

#include <QIODevice>

#include <algorithm>
#include <cstring>
#include <vector>

namespace Corvale_Qt {

namespace {

constexpr int bytesAtOnce = 1 << 16;
constexpr int rowsAtOnce = 128;

//! Returns "hannel_" for the first channel, "annel_" for the second: readers of existing files expect these titles.
QByteArray titlePrefix(int position)
{
    return QByteArray("channel_").mid(position + 1);
}

quint64 bitsOf(double value)
{
    quint64 bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

//! A channel whose cells are written. What holds for the whole file is found once, and times are read many rows at a time.
class WrittenChannel
{
public:
    explicit WrittenChannel(const Channel &channel);

    //! Reads the times of the rows from \a first on.
    void readTimes(int first, int count);
    bool has(int row) const { return row < m_rows; }
    //! Returns the bits of the time of \a row, and whether its text depends on nothing else.
    bool timeBits(int row, quint64 &bits) const;
    void appendTime(QByteArray &text, int row) const { append(text, row, 0, m_hasTimeTexts); }
    void appendValue(QByteArray &text, int row) const
    {
        append(text, row, m_column, m_hasValueTexts);
    }

private:
    //! Returns whether the cells of a column are written without the item model.
    bool hasTexts(int column) const;
    void append(QByteArray &text, int row, int column, bool hasTexts) const;

    const MergedInput *m_input;
    const LibraryBulkData *m_texts;
    int m_column;
    int m_rows;
    bool m_hasTimeTexts;
    bool m_hasValueTexts;
    int m_firstTime = 0;
    int m_timeCount = 0;
    double m_times[rowsAtOnce] = {};
};

WrittenChannel::WrittenChannel(const Channel &channel)
    : m_input(channel.input)
    , m_texts(channel.input->texts())
    , m_column(channel.column)
    , m_rows(channel.input->rowCount())
    , m_hasTimeTexts(hasTexts(0))
    , m_hasValueTexts(hasTexts(m_column))
{
}

bool WrittenChannel::hasTexts(int column) const
{
    QByteArray text;
    return m_texts && m_input->index(m_rows - 1, column).isValid()
        && m_texts->appendText(text, m_rows - 1, column);
}

void WrittenChannel::readTimes(int first, int count)
{
    m_firstTime = first;
    m_timeCount = m_hasTimeTexts ? std::clamp(m_rows - first, 0, count) : 0;
    if (m_timeCount > 0)
        m_texts->read(0, first, m_timeCount, m_times);
}

bool WrittenChannel::timeBits(int row, quint64 &bits) const
{
    if (row - m_firstTime >= m_timeCount)
        return false;
    bits = bitsOf(m_times[row - m_firstTime]);
    return true;
}

void WrittenChannel::append(QByteArray &text, int row, int column, bool hasTexts) const
{
    if (!hasTexts || !m_texts->appendText(text, row, column))
        text += m_input->index(row, column).data(Qt::DisplayRole).toString().toUtf8();
    text += ',';
}

void appendRow(QByteArray &text, const std::vector<WrittenChannel> &channels, int row)
{
    // The last time of the row and where its text lies: channels that were read together share it. Equal bits give equal texts,
    // since all models of the library write times alike. NaN and -0 count too.
    quint64 lastBits = 0;
    int begin = 0;
    int length = 0;
    for (const WrittenChannel &channel : channels) {
        if (!channel.has(row)) {
            text += ",,";
            continue;
        }
        quint64 bits = 0;
        const bool isKnown = channel.timeBits(row, bits);
        const int end = text.size();
        if (isKnown && length > 0 && bits == lastBits) {
            text.resize(end + length);
            std::memcpy(text.data() + end, text.constData() + begin, size_t(length));
        } else {
            channel.appendTime(text, row);
            if (isKnown) {
                lastBits = bits;
                begin = end;
                length = text.size() - end;
            }
        }
        channel.appendValue(text, row);
    }
    text += '\n';
}

} // namespace

bool writeChannels(QIODevice &file, const QVector<Channel> &channels, int rows)
{
    QByteArray text;
    text.reserve(2 * bytesAtOnce);
    for (int i = 0; i < channels.size(); ++i)
        text += titlePrefix(i) + "_timestamp(s)," + titlePrefix(i) + ",";
    text += '\n';

    std::vector<WrittenChannel> written(channels.begin(), channels.end());
    for (int row = 1; row <= rows; ++row) {
        if ((row - 1) % rowsAtOnce == 0) {
            for (WrittenChannel &channel : written)
                channel.readTimes(row, rowsAtOnce);
        }
        appendRow(text, written, row);
        if (text.size() >= bytesAtOnce) {
            if (file.write(text) != text.size())
                return false;
            text.resize(0);
        }
    }
    return file.write(text) == text.size();
}

} // namespace Corvale_Qt
