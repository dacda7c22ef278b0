// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"

#include <QAbstractItemModel>
#include <QStringList>

/*! Returns the sample rows of a plot model from its doubleData(): "0: 1 2; 0.5: 3 4" is two samples of two channels, at
    the times 0 and 0.5. */
template<typename Model>
QString rowsText(const Model &model)
{
    QStringList rows;
    for (int row = 1; row < model.rowCount(); ++row) {
        QStringList cells;
        for (int column = 1; column < model.columnCount(); ++column)
            cells << QString::number(model.doubleData(row, column));
        rows << QString::number(model.doubleData(row, 0)) + ": " + cells.join(' ');
    }
    return rows.join("; ");
}

/*! Returns how a reading reads in a table: its texts for display, for editing and as a tool tip, then the number;
    "6.0 / 6.0 / 6.0 nA / 6". A cell that answers nothing is "/ / /". */
inline QString readingText(const QModelIndex &cell)
{
    QStringList texts;
    for (const int role : {int(Qt::DisplayRole), int(Qt::EditRole), int(Qt::ToolTipRole),
                           int(Corvale_Qt::RVXAbstractPlotDataModel::NumericValueRole)})
        texts << cell.data(role).toString();
    return texts.join(" / ").trimmed();
}
