// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QMetaType>

#include <vector>

namespace Monitor {

/*! Readings that arrived together: a time and one value for each channel in every row. A missing value is NaN.
    The values stand row after row. */
class ReadingBlock
{
public:
    explicit ReadingBlock(int channels = 0)
        : m_channels(channels)
    {
    }

    int channels() const { return m_channels; }
    int size() const { return int(m_times.size()); }
    bool isEmpty() const { return m_times.empty(); }
    double time(int row) const { return m_times[std::size_t(row)]; }
    //! The channels() values of a row.
    const double *values(int row) const
    {
        return m_values.data() + std::size_t(row) * std::size_t(m_channels);
    }

    void append(double time, const double *values)
    {
        m_times.push_back(time);
        m_values.insert(m_values.end(), values, values + m_channels);
    }
    //! All of \a other, which has as many channels.
    void append(const ReadingBlock &other)
    {
        m_times.insert(m_times.end(), other.m_times.begin(), other.m_times.end());
        m_values.insert(m_values.end(), other.m_values.begin(), other.m_values.end());
    }
    //! Empty again, for readings of that many channels; keeps its memory.
    void clear(int channels)
    {
        m_channels = channels;
        m_times.clear();
        m_values.clear();
    }

private:
    int m_channels;
    std::vector<double> m_times;
    std::vector<double> m_values;
};

} // namespace Monitor

Q_DECLARE_METATYPE(Monitor::ReadingBlock)
