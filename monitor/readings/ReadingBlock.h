// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QMetaType>

#include <vector>

namespace Monitor {

/*! Readings that arrived together. Each row has a time in seconds and one value per channel; a missing value is NaN.
    The values are stored row after row. */
class ReadingBlock
{
public:
    explicit ReadingBlock(int channels = 0)
        : m_channels(channels)
    {
    }

    int channels() const { return m_channels; }
    //! Returns the number of rows.
    int size() const { return int(m_times.size()); }
    bool isEmpty() const { return m_times.empty(); }
    double time(int row) const { return m_times[std::size_t(row)]; }
    //! Returns a pointer to the times of all rows.
    const double *times() const { return m_times.data(); }
    //! Returns a pointer to the channels() values of a row.
    const double *values(int row) const
    {
        return m_values.data() + std::size_t(row) * std::size_t(m_channels);
    }

    //! Makes room for that many rows.
    void reserve(int rows)
    {
        m_times.reserve(std::size_t(rows));
        m_values.reserve(std::size_t(rows) * std::size_t(m_channels));
    }
    //! Appends a row; \a values points to channels() values.
    void append(double time, const double *values)
    {
        m_times.push_back(time);
        m_values.insert(m_values.end(), values, values + m_channels);
    }
    //! Appends all rows of \a other, which must have the same number of channels.
    void append(const ReadingBlock &other)
    {
        m_times.insert(m_times.end(), other.m_times.begin(), other.m_times.end());
        m_values.insert(m_values.end(), other.m_values.begin(), other.m_values.end());
    }
    //! Returns the rows with only the first \a channels values of each; there must be at least that many.
    ReadingBlock first(int channels) const
    {
        ReadingBlock rows(channels);
        for (int row = 0; row < size(); ++row)
            rows.append(time(row), values(row));
        return rows;
    }
    //! Removes the oldest rows.
    void removeFirst(int rows)
    {
        m_times.erase(m_times.begin(), m_times.begin() + rows);
        m_values.erase(m_values.begin(), m_values.begin() + std::ptrdiff_t(rows) * m_channels);
    }
    //! Removes all rows and sets the number of channels; keeps the memory.
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
