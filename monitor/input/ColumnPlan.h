// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <optional>

namespace Monitor {

/*! The meaning of a table's columns, found from its header line: which column is the time, which ones are channels,
    their names and units, and whether the table holds frames or spots. */
struct ColumnPlan
{
    int fieldCount = 0; //!< fields of a data line; one more is accepted if it is empty
    int timeColumn = -1; //!< -1 if the table has no times and the caller supplies them
    //! Converts the time column to seconds.
    double timeFactor = 1.0;
    QVector<int> valueColumns;
    QVector<Channel> channels;
    StreamKind kind = StreamKind::Channels;
    int leftOut = 0; //!< channels beyond the 256 that are read

    //! Returns the plan of a header line; nothing if the fields are not names of columns.
    static std::optional<ColumnPlan> fromHeader(const QStringList &fields);
};

} // namespace Monitor
