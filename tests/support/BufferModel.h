// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QHash>
#include <QVector>

#include <algorithm>

/*! A device model with a small buffer and any number of channels. It does all that a host's model may do: grow, roll over
    with announcements in any order, drop, change, move and sort samples, gain and lose channels. It offers no bulk
    reading, as the models of hosts do not. */
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
        double time = 0.0;
        QVector<double> values;
    };

    explicit BufferModel(int channels, int capacity = 100, QObject *parent = nullptr)
        : RVXAbstractDeviceDataModel(parent)
        , m_channels(channels)
        , m_capacity(capacity)
    {
    }

    //! Appends a sample whose channel c reads \a value + c - 1.
    void append(double time, double value) { append(samples(time, value, 1)); }

    //! Appends \a samples, at most as many as fit into an empty buffer.
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

    //! Reverses the order of samples; persistent indexes follow their samples.
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

    /*! Does what \a script says, step by step: "append 9 9; drop 1" calls append(9, 9) and dropOldest(1). Numbers are the
        arguments of the functions above. "append 1 5 3" appends the samples 1 5, 2 6 and 3 7 together; "insert" takes
        a row, a time and a value; "signal" and "header" emit dataChanged() and headerDataChanged(). */
    void act(const QString &script)
    {
        for (const QString &step : script.split("; ")) {
            const QStringList words = step.split(' ');
            const QString what = words.first();
            const auto number = [&words](int i) { return words.value(i).toDouble(); };
            const int one = int(number(1));
            const int two = int(number(2));
            if (what == "append")
                append(samples(number(1), number(2), std::max(int(number(3)), 1)));
            else if (what == "drop")
                dropOldest(one);
            else if (what == "remove")
                remove(one, two);
            else if (what == "insert")
                insert(one, samples(number(2), number(3), 1).first());
            else if (what == "change")
                change(one, two, number(3));
            else if (what == "move")
                moveToEnd(one);
            else if (what == "reverse")
                reverse();
            else if (what == "prepend-channel")
                insertChannelInFront(number(1));
            else if (what == "append-channel")
                appendChannel(number(1));
            else if (what == "remove-channel")
                removeChannel(one);
            else if (what == "move-channel")
                moveFirstChannelToEnd();
            else if (what == "roll-over")
                rollOver = RollOver(one);
            else if (what == "clear")
                Clear();
            else if (what == "check")
                setData(index(0, one), two, Qt::CheckStateRole);
            else if (what == "layout-changed")
                Q_EMIT layoutChanged();
            else if (what == "signal")
                Q_EMIT dataChanged(index(one, two), index(int(number(3)), int(number(4))));
            else if (what == "header")
                Q_EMIT headerDataChanged(Qt::Horizontal, one, two);
            else
                qFatal("BufferModel cannot %s", qPrintable(step));
        }
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
    //! The units of channels that are not in units(), by column. Filled before proxies are attached.
    QHash<int, const Corvale_Qt::Units::MeasurementUnit *> channelUnits;

private:
    QVector<Sample> samples(double time, double value, int count) const
    {
        QVector<Sample> samples(count);
        for (int i = 0; i < count; ++i) {
            samples[i].time = time + i;
            for (int channel = 0; channel < m_channels; ++channel)
                samples[i].values.append(value + i + channel);
        }
        return samples;
    }

    int m_channels;
    int m_capacity;
    QVector<Sample> m_samples;
};
