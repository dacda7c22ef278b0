// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QStandardItemModel>
#include <QStringList>

/*! A table of spots, its columns those that a spot map reads without a mapper: 1 sigma, 2 x, 3 y, 4 dose. */
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
    //! From text: "x y dose sigma; x y dose sigma", "nan" and "inf" included.
    explicit SpotTable(const QString &spots) { append(spots); }

    void append(const QString &spots)
    {
        for (const QString &spot : spots.split(';', Qt::SkipEmptyParts)) {
            const QStringList fields = spot.simplified().split(' ');
            appendRow(row(fields.at(0).toDouble(),
                          fields.at(1).toDouble(),
                          fields.at(2).toDouble(),
                          fields.at(3).toDouble()));
        }
    }

    void setDose(int row, double dose) { item(row, 4)->setData(dose, Qt::UserRole); }
};
