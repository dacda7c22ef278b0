// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/MultichannelFile_p.h"

#include <QIODevice>

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
    const QModelIndex cell = source.items->index(row, column);
    const PlotColumns *const columns = source.reader.columns();
    const bool written = cell.isValid() && columns && columns->appendText(text, row, column);
    if (!written)
        text += cell.data(Qt::DisplayRole).toString().toUtf8();
    text += ',';
}

void appendRow(QByteArray &text, const QVector<Channel> &channels, int row)
{
    for (const Channel &channel : channels) {
        if (row < channel.source->rowCount()) {
            appendCell(text, *channel.source, row, 0);
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
    for (int i = 0; i < channels.size(); ++i)
        text += titlePrefix(i) + "_timestamp(s)," + titlePrefix(i) + ",";
    text += '\n';

    for (int row = 1; row <= rows; ++row) {
        appendRow(text, channels, row);
        if (text.size() >= bytesAtOnce) {
            if (file.write(text) != text.size())
                return false;
            text.clear();
        }
    }
    return file.write(text) == text.size();
}

} // namespace Corvale_Qt
