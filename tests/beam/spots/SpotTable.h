// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QRandomGenerator>
#include <QStandardItemModel>
#include <QStringList>

/*! Inserts, removes or changes a row at random. \a newRow returns the items of a new row; a change writes a number
    between -20 and 20 into \a column. */
template<typename NewRow>
void editAtRandom(QStandardItemModel &table, QRandomGenerator &random, int column,
                  const NewRow &newRow)
{
    const int rows = table.rowCount();
    const int action = rows < 3 ? 0 : random.bounded(4);
    if (action < 2)
        table.insertRow(random.bounded(rows + 1), newRow());
    else if (action == 2)
        table.removeRows(random.bounded(rows - 1), 1 + random.bounded(2));
    else
        table.item(random.bounded(rows), column)->setData(random.bounded(40.0) - 20, Qt::UserRole);
}

//! A table of spots in the columns that a spot map reads without a mapper: 1 sigma, 2 x, 3 y, 4 dose.
class SpotTable : public QStandardItemModel
{
public:
    static QList<QStandardItem *> row(double x, double y, double dose, double sigma)
    {
        QList<QStandardItem *> items;
        for (const double value : {0.0, sigma, x, y, dose}) {
            items << new QStandardItem(QString::number(value));
            items.last()->setData(value, Qt::UserRole);
        }
        return items;
    }

    SpotTable() = default;
    //! Reads spots from text: "x y dose sigma; x y dose sigma". A number may be nan or inf.
    explicit SpotTable(const QString &spots) { append(spots); }

    void append(const QString &spots)
    {
        for (const QString &spot : spots.split(';', Qt::SkipEmptyParts)) {
            const QStringList fields = spot.simplified().split(' ');
            appendRow(row(fields.at(0).toDouble(), fields.at(1).toDouble(), fields.at(2).toDouble(),
                          fields.at(3).toDouble()));
        }
    }

    void setDose(int row, double dose) { item(row, 4)->setData(dose, Qt::UserRole); }
};
