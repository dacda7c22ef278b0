// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"

#include <QTimer>

#include <functional>
#include <vector>

//! A device of any number of channels, for tests of what is done to it.
class PanelDevice : public Corvale_Qt::RVXAbstractDeviceDataModel
{
    Q_OBJECT

public:
    struct Sample
    {
        double time;
        std::vector<double> values;
    };

    explicit PanelDevice(int channels = 1)
        : m_channels(channels)
    {
    }

    void fill(const std::vector<Sample> &samples)
    {
        const int first = rowCount();
        beginInsertRows({}, first, first + int(samples.size()) - 1);
        m_samples.insert(m_samples.end(), samples.begin(), samples.end());
        endInsertRows();
    }
    void setChannels(int channels)
    {
        beginResetModel();
        m_samples.clear();
        m_channels = channels;
        endResetModel();
    }
    //! In milliseconds, or "none" while every reading counts.
    QString period() const
    {
        const auto *timer = findChild<QTimer *>();
        return timer->isActive() ? QString::number(timer->interval()) : QString("none");
    }

    //! What happens when the samples are saved.
    std::function<bool(const QString &)> onSave = [](const QString &) {
        return true;
    };

    bool SaveDataToFile(const QString &fileName) const override
    {
        const bool success = onSave(fileName);
        Q_EMIT const_cast<PanelDevice *>(this)->saved();
        return success;
    }
    void Clear() override { setChannels(m_channels); }
    int NumberOfChannels() const override { return m_channels; }
    double doubleData(int row, int column) const override
    {
        if (row < 1 || row >= rowCount())
            return row == 0 ? column : 0.0;
        const Sample &sample = m_samples[size_t(row) - 1];
        return column == 0 ? sample.time : sample.values[size_t(column) - 1];
    }
    int rowCount(const QModelIndex &parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : int(m_samples.size()) + 1;
    }
    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override
    {
        return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
    }
    bool isOverrange(int, int) const override { return false; }
    QVariant deviceSpecificData(const QModelIndex &index, int) const override
    {
        return doubleData(index.row(), index.column());
    }

Q_SIGNALS:
    void saved();

private:
    int m_channels;
    std::vector<Sample> m_samples;
};
