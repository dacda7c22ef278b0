// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/RowReader.h"

#include <QStringList>

#include <deque>
#include <memory>

namespace Monitor {

/*! Reads the table that the library's multichannel proxy saves. It has a column of times and a column of values for
    each channel; shorter channels have empty fields at their end. Values with the same time become one reading, in
    which a channel without a value is NaN. */
class MultichannelRowReader : public RowReader
{
public:
    //! Returns a reader for a table with this header line; null if it is not such a table.
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
