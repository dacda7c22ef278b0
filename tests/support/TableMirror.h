// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QAbstractItemModel>
#include <QVector>

#include <algorithm>
#include <cstring>

/*! Keeps the samples of a plot model as a view shows them that reads announced cells only. A difference from the model
    means that a change was not announced. */
template<typename Model>
class TableMirror : public QObject
{
public:
    explicit TableMirror(const Model *model)
        : m_model(model)
    {
        using M = QAbstractItemModel;
        const auto readAll = [this] {
            m_rows.clear();
            insert(1, m_model->rowCount() - 1);
        };
        connect(model, &M::rowsInserted, this,
                [this](const QModelIndex &, int first, int last) { insert(first, last); });
        connect(model, &M::rowsRemoved, this, [this](const QModelIndex &, int first, int last) {
            m_rows.remove(first - 1, last - first + 1);
        });
        connect(model, &M::rowsMoved, this,
                [this](const QModelIndex &, int first, int last, const QModelIndex &, int before) {
                    move(m_rows.begin() - 1, first, last, before);
                });
        connect(model, &M::dataChanged, this,
                [this](const QModelIndex &from, const QModelIndex &to) {
                    for (int row = qMax(from.row(), 1); row <= to.row(); ++row) {
                        for (int column = from.column(); column <= to.column(); ++column)
                            m_rows[row - 1][column] = m_model->doubleData(row, column);
                    }
                });
        connect(model, &M::columnsInserted, this, [this](const QModelIndex &, int first, int last) {
            for (int row = 1; row <= m_rows.size(); ++row) {
                for (int column = first; column <= last; ++column)
                    m_rows[row - 1].insert(column, m_model->doubleData(row, column));
            }
        });
        connect(model, &M::columnsRemoved, this, [this](const QModelIndex &, int first, int last) {
            for (QVector<double> &row : m_rows)
                row.remove(first, last - first + 1);
        });
        connect(model, &M::columnsMoved, this,
                [this](const QModelIndex &, int first, int last, const QModelIndex &, int before) {
                    for (QVector<double> &row : m_rows)
                        move(row.begin(), first, last, before);
                });
        connect(model, &M::modelReset, this, readAll);
        connect(model, &M::layoutChanged, this, readAll);
        readAll();
    }

    //! Returns the first row that differs from the model, or an empty text.
    QString error() const
    {
        for (int row = 1; row < m_model->rowCount(); ++row) {
            const QVector<double> now = read(row);
            const QVector<double> shown = m_rows.value(row - 1);
            if (now.size() != shown.size())
                return QStringLiteral("row %1 has %2 cells, and %3 were announced")
                    .arg(row)
                    .arg(now.size())
                    .arg(shown.size());
            for (int column = 0; column < now.size(); ++column)
                if (std::memcmp(&now[column], &shown[column], sizeof(double)) != 0)
                    return QStringLiteral("row %1, column %2 is stale: it is %3, and was %4")
                        .arg(row)
                        .arg(column)
                        .arg(now[column])
                        .arg(shown[column]);
        }
        return QString();
    }

private:
    //! Moves the elements \a first to \a last in front of the one that is at \a before.
    template<typename Iterator>
    static void move(Iterator begin, int first, int last, int before)
    {
        if (before > last)
            std::rotate(begin + first, begin + last + 1, begin + before);
        else
            std::rotate(begin + before, begin + first, begin + last + 1);
    }

    QVector<double> read(int row) const
    {
        QVector<double> cells;
        for (int column = 0; column < m_model->columnCount(); ++column)
            cells << m_model->doubleData(row, column);
        return cells;
    }

    void insert(int first, int last)
    {
        for (int row = first; row <= last; ++row)
            m_rows.insert(row - 1, read(row));
    }

    const Model *m_model;
    QVector<QVector<double>> m_rows;
};
