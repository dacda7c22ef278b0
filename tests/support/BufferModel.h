// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QHash>
#include <QVector>

#include <algorithm>

/*! A device model with a small buffer and any number of channels that does all that a host's model may do: grow, roll over
    in any order of announcements, drop, change, move, sort, gain and lose channels. It knows no bulk
    reading, as no host's model does. */
class BufferModel : public Corvale_Qt::RVXAbstractDeviceDataModel
{
public:
    enum RollOver {
        InsertAroundRemove,
        RemoveThenInsert,
        InsertThenRemove
    };

    //! One sample: its time and a value for each channel, in the base unit.
    struct Sample
    {
        double time;
        QVector<double> values;
    };

    explicit BufferModel(int channels, int capacity = 100, QObject *parent = nullptr)
        : RVXAbstractDeviceDataModel(parent)
        , m_channels(channels)
        , m_capacity(capacity)
    {
    }

    //! A sample whose channel c reads \a value + c - 1.
    void append(double time, double value)
    {
        Sample sample{time, {}};
        for (int channel = 0; channel < m_channels; ++channel)
            sample.values.append(value + channel);
        append({sample});
    }

    //! At most as many as there is room for in an empty buffer.
    void append(const QVector<Sample> &samples)
    {
        const int surplus = std::max(m_samples.size() + samples.size() - m_capacity, 0);
        if (surplus > 0 && rollOver == RemoveThenInsert)
            dropOldest(surplus);
        const bool nested = surplus > 0 && rollOver == InsertAroundRemove;
        const int first = m_samples.size() + 1 - (nested ? surplus : 0);
        beginInsertRows(QModelIndex(), first, first + samples.size() - 1);
        if (nested)
            beginRemoveRows(QModelIndex(), 1, surplus);
        m_samples += samples;
        if (nested) {
            m_samples.remove(0, surplus);
            endRemoveRows();
        }
        endInsertRows();
        if (surplus > 0 && rollOver == InsertThenRemove)
            dropOldest(surplus);
    }

    void dropOldest(int count) { remove(1, count); }

    void remove(int first, int last)
    {
        beginRemoveRows(QModelIndex(), first, last);
        m_samples.remove(first - 1, last - first + 1);
        endRemoveRows();
    }

    void insert(int row, const Sample &sample)
    {
        beginInsertRows(QModelIndex(), row, row);
        m_samples.insert(row - 1, sample);
        endInsertRows();
    }

    void change(int row, int column, double value)
    {
        m_samples[row - 1].values[column - 1] = value;
        Q_EMIT dataChanged(index(row, column), index(row, column));
    }

    void moveToEnd(int row)
    {
        beginMoveRows(QModelIndex(), row, row, QModelIndex(), m_samples.size() + 1);
        m_samples.append(m_samples.takeAt(row - 1));
        endMoveRows();
    }

    //! Newest first, with the persistent indexes following their samples.
    void reverse()
    {
        Q_EMIT layoutAboutToBeChanged();
        std::reverse(m_samples.begin(), m_samples.end());
        const auto indexes = persistentIndexList();
        for (const QModelIndex &old : indexes) {
            if (old.row() > 0)
                changePersistentIndex(old, index(m_samples.size() + 1 - old.row(), old.column()));
        }
        Q_EMIT layoutChanged();
    }

    void insertChannelInFront(double value)
    {
        beginInsertColumns(QModelIndex(), 1, 1);
        ++m_channels;
        for (Sample &sample : m_samples)
            sample.values.prepend(value);
        endInsertColumns();
    }

    void appendChannel(double value)
    {
        beginInsertColumns(QModelIndex(), m_channels + 1, m_channels + 1);
        ++m_channels;
        for (Sample &sample : m_samples)
            sample.values.append(value);
        endInsertColumns();
    }

    void removeFirstChannel() { removeChannel(1); }

    void removeChannel(int column)
    {
        beginRemoveColumns(QModelIndex(), column, column);
        --m_channels;
        for (Sample &sample : m_samples)
            sample.values.removeAt(column - 1);
        endRemoveColumns();
    }

    void moveFirstChannelToEnd()
    {
        beginMoveColumns(QModelIndex(), 1, 1, QModelIndex(), m_channels + 1);
        for (Sample &sample : m_samples)
            sample.values.append(sample.values.takeFirst());
        endMoveColumns();
    }

    void Clear() override
    {
        beginResetModel();
        m_samples.clear();
        endResetModel();
    }

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override
    {
        return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
    }
    int rowCount(const QModelIndex &parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : m_samples.size() + 1;
    }
    int NumberOfChannels() const override { return m_channels; }
    int MaxBufferSize() const override { return m_capacity; }
    double doubleData(int row, int column) const override
    {
        if (row == 0)
            return column;
        if (row < 1 || row > m_samples.size() || column < 0 || column > m_channels)
            return 0.0;
        const Sample &sample = m_samples[row - 1];
        if (column == 0)
            return sample.time;
        const double value = sample.values[column - 1];
        const Corvale_Qt::Units::MeasurementUnit *unit = channelUnits.value(column, units());
        return unit ? unit->scale(value) : value;
    }
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override
    {
        if (role == ChannelUnitRole && index.row() == 0 && channelUnits.contains(index.column()))
            return QVariant::fromValue(channelUnits.value(index.column()));
        return RVXAbstractDeviceDataModel::data(index, role);
    }
    QVariant deviceSpecificData(const QModelIndex &index, int role) const override
    {
        if (index.row() == 0 && role == Qt::DisplayRole)
            return QStringLiteral("ch%1").arg(index.column());
        if (role == Qt::DisplayRole || role == NumericValueRole)
            return doubleData(index.row(), index.column());
        return role == Qt::UserRole ? QVariant("of the device") : QVariant();
    }
    bool isOverrange(int, int) const override { return false; }
    bool SaveDataToFile(const QString &fileName) const override { return fileName == "accepted"; }

    RollOver rollOver = InsertAroundRemove;
    //! Units of the channels that are not in units(), by column. To be filled before anyone attaches.
    QHash<int, const Corvale_Qt::Units::MeasurementUnit *> channelUnits;

private:
    int m_channels;
    int m_capacity;
    QVector<Sample> m_samples;
};
