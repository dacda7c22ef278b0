// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QHash>
#include <QVariant>
#include <QVector>

#include <cmath>
#include <limits>

/*! Several channels in a buffer of limited size, as a host's own model would be. Rows are given as time and values;
    the oldest are dropped before new ones come in. */
class ScopeTestModel : public Corvale_Qt::RVXAbstractDeviceDataModel
{
public:
    using Row = QVector<double>; //!< time, then one value a channel

    explicit ScopeTestModel(int channels, int capacity = std::numeric_limits<int>::max())
        : m_channels(channels)
        , m_capacity(capacity)
    {
    }

    int NumberOfChannels() const override { return m_channels; }
    int rowCount(const QModelIndex &parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : m_rows.size() + 1;
    }
    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override
    {
        return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
    }
    double doubleData(int row, int column) const override
    {
        ++cellsRead;
        if (row == 0)
            return column;
        const double value = row > 0 && row <= m_rows.size() ? m_rows[row - 1].value(column) : 0.0;
        return isInBaseUnit && column > 0 ? units()->scale(value) : value;
    }
    QVariant deviceSpecificData(const QModelIndex &index, int role) const override
    {
        if (index.row() == 0)
            return names.value(index.column() - 1, QString::number(index.column()));
        return role == Qt::DisplayRole || role == NumericValueRole
            ? QVariant(doubleData(index.row(), index.column()))
            : QVariant();
    }
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override
    {
        if (role == Qt::BackgroundRole && !hasColours)
            return QVariant();
        if (role == ChannelUnitRole && index.row() == 0 && ownUnits.contains(index.column()))
            return QVariant::fromValue(ownUnits.value(index.column()));
        const bool isFit =
            role == DeviceFitRole && index.column() == 0 && index.row() == m_rows.size();
        return isFit ? QVariant(deviceFits) : RVXAbstractDeviceDataModel::data(index, role);
    }
    QwtSeriesData<QPointF> *seriesData(int column, int startRow, int endRow) const override
    {
        ++seriesTaken;
        return RVXAbstractDeviceDataModel::seriesData(column, startRow, endRow);
    }
    bool isOverrange(int, int) const override { return false; }
    bool SaveDataToFile(const QString &) const override { return false; }
    int PlotWidthHintPoints() const override { return pointsHint; }
    double PlotWidthHint() const override { return widthHint; }

    void Clear() override
    {
        beginResetModel();
        m_rows.clear();
        endResetModel();
    }

    void append(const QVector<Row> &rows)
    {
        const int surplus = qMin(m_rows.size() + rows.size() - m_capacity, m_rows.size());
        if (surplus > 0) {
            beginRemoveRows(QModelIndex(), 1, surplus);
            m_rows.remove(0, surplus);
            endRemoveRows();
        }
        beginInsertRows(QModelIndex(), m_rows.size() + 1, m_rows.size() + rows.size());
        m_rows += rows;
        endInsertRows();
    }

    void remove(int first, int last)
    {
        beginRemoveRows(QModelIndex(), first, last);
        m_rows.remove(first - 1, last - first + 1);
        endRemoveRows();
    }

    void change(int row, int column, double value)
    {
        m_rows[row - 1][column] = value;
        Q_EMIT dataChanged(index(row, column), index(row, column));
    }

    //! Appends rows \a interval apart; \a value gives the reading of a channel at a time.
    template<typename Value>
    void appendRows(int count, double interval, Value value)
    {
        QVector<Row> rows;
        for (int i = 0; i < count; ++i) {
            const double time = (m_total + i) * interval;
            Row row{time};
            for (int channel = 1; channel <= m_channels; ++channel)
                row.append(value(channel, time));
            rows.append(row);
        }
        m_total += count;
        append(rows);
    }

    //! Appends one sample with a value for each channel.
    void show(const QVector<double> &values) { append({Row{m_total++ * 1.0} + values}); }

    void setChannels(int channels)
    {
        beginResetModel();
        m_channels = channels;
        endResetModel();
    }

    QStringList names;
    //! The units of channels that are not in units(), by column. Filled before there is a view.
    QHash<int, const Corvale_Qt::Units::MeasurementUnit *> ownUnits;
    bool hasColours = true;
    bool isInBaseUnit = false; //!< readings are given in the base unit and read in units()
    QVariantList deviceFits;
    mutable int seriesTaken = 0; //!< how often a view took the data of a curve
    mutable int cellsRead = 0; //!< how often a number was asked for
    int pointsHint = 256;
    double widthHint = 0.0;

private:
    int m_channels;
    int m_capacity;
    int m_total = 0;
    QVector<Row> m_rows;
};
