// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/MultichannelFile_p.h"

#include <QIODevice>

#include <cstring>

namespace Corvale_Qt {

namespace {

constexpr int bytesAtOnce = 1 << 16;

//! Returns "hannel_" for the first channel, "annel_" for the second: readers of existing files expect these titles.
QByteArray titlePrefix(int position)
{
    return QByteArray("channel_").mid(position + 1);
}

void appendCell(QByteArray &text, const MergedInput &input, int row, int column)
{
    const QModelIndex cell = input.index(row, column);
    const LibraryBulkData *const columns = input.texts();
    const bool written = cell.isValid() && columns && columns->appendText(text, row, column);
    if (!written)
        text += cell.data(Qt::DisplayRole).toString().toUtf8();
    text += ',';
}

quint64 bitsOf(double value)
{
    quint64 bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

//! The last time written in a row, and where its text lies. Channels that are read together share it.
struct WrittenTime
{
    double time = 0.0;
    int begin = 0;
    int length = 0;

    //! Returns whether \a row of \a columns has this time, so that its text can be copied.
    bool isOf(const LibraryBulkData *columns, int row) const
    {
        if (length == 0)
            return false;
        double other = 0.0;
        columns->read(0, row, 1, &other);
        // Equal bits give equal texts, since all models of the library write times alike. NaN and -0 count too.
        return bitsOf(other) == bitsOf(time);
    }
};

void appendTime(QByteArray &text, const MergedInput &input, int row, WrittenTime &last)
{
    const LibraryBulkData *const columns = input.texts();
    const bool plain = columns && input.index(row, 0).isValid();
    const int begin = text.size();
    if (plain && last.isOf(columns, row)) {
        text.resize(begin + last.length);
        std::memcpy(text.data() + begin, text.constData() + last.begin, size_t(last.length));
        return;
    }
    if (!plain || !columns->appendText(text, row, 0)) {
        appendCell(text, input, row, 0);
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
        if (row < channel.input->rowCount()) {
            appendTime(text, *channel.input, row, time);
            appendCell(text, *channel.input, row, channel.column);
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
