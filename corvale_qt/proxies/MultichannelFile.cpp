// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/MultichannelFile_p.h"

#include <QIODevice>

#include <cstring>

namespace Corvale_Qt {

namespace {

constexpr int bytesAtOnce = 1 << 16;

//! "hannel_" for the first channel, "annel_" for the second: kept on purpose, for files already written.
QByteArray titlePrefix(int position)
{
    return QByteArray("channel_").mid(position + 1);
}

void appendCell(QByteArray &text, const ChannelSource &source, int row, int column)
{
    const QModelIndex cell = source.index(row, column);
    const PlotColumns *const columns = source.reader.columns();
    const bool written = cell.isValid() && columns && columns->appendText(text, row, column);
    if (!written)
        text += cell.data(Qt::DisplayRole).toString().toUtf8();
    text += ',';
}

//! The time of a row as it was written last. Channels that are read together share it, and its text.
struct WrittenTime
{
    double time = 0.0;
    int begin = 0;
    int length = 0;

    bool isOf(const PlotColumns *columns, int row) const
    {
        // Compared by the bits; models that write their own texts all write the time alike.
        double other = 0.0;
        if (length > 0)
            columns->read(0, row, 1, &other);
        return length > 0 && std::memcmp(&other, &time, sizeof time) == 0;
    }
};

void appendTime(QByteArray &text, const ChannelSource &source, int row, WrittenTime &last)
{
    const PlotColumns *const columns = source.reader.columns();
    const bool plain = columns && source.index(row, 0).isValid();
    const int begin = text.size();
    if (plain && last.isOf(columns, row)) {
        text.resize(begin + last.length);
        std::memcpy(text.data() + begin, text.constData() + last.begin, size_t(last.length));
        return;
    }
    if (!plain || !columns->appendText(text, row, 0)) {
        appendCell(text, source, row, 0);
        return;
    }
    text += ',';
    columns->read(0, row, 1, &last.time);
    last.begin = begin;
    last.length = text.size() - begin;
}

void appendRow(QByteArray &text, const QVector<Channel> &channels, int row)
{
    WrittenTime time;
    for (const Channel &channel : channels) {
        if (row < channel.source->rowCount()) {
            appendTime(text, *channel.source, row, time);
            appendCell(text, *channel.source, row, channel.column);
        } else {
            text += ",,";
        }
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

    for (int row = 1; row <= rows; ++row) {
        appendRow(text, channels, row);
        if (text.size() >= bytesAtOnce) {
            if (file.write(text) != text.size())
                return false;
            text.resize(0);
        }
    }
    return file.write(text) == text.size();
}

} // namespace Corvale_Qt
