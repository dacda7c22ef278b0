// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/RowReader.h"

#include <QStringList>

#include <deque>
#include <memory>

namespace Monitor {

/*! The table that the library's multichannel proxy saves: a time and a value for each channel, each channel with
    its own times, shorter channels with empty fields at their end. Readings of the same time become one; a
    channel that has none at a time is NaN there. */
class MultichannelRowReader : public RowReader
{
public:
    //! Null where the header is not that table's.
    static std::unique_ptr<MultichannelRowReader> fromHeader(const QStringList &fields);

    Outcome read(const Fields &fields, double arrivalTime, const RowHandler &handler) override;
    void finish(const RowHandler &handler) override;

private:
    struct Sample
    {
        double time;
        double value;
    };
    struct Column
    {
        std::deque<Sample> waiting;
        bool ended = false;
    };

    explicit MultichannelRowReader(int channels);
    bool isComplete() const;
    void mergeOldest(const RowHandler &handler);

    std::vector<Column> m_columns;
    std::vector<Sample> m_line;
    std::vector<double> m_values;
};

} // namespace Monitor
