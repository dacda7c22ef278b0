// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <optional>

namespace Monitor {

/*! What the columns of a table mean, found from its header line: where the time stands, which columns are
    channels, their names and units, and whether they are frames or spots. */
struct ColumnPlan
{
    int fieldCount = 0; //!< of a data line; one more, if empty, is let pass
    int timeColumn = -1; //!< -1 where there is none: lines get a time from elsewhere
    //! Multiplies the time column into seconds.
    double timeFactor = 1.0;
    QVector<int> valueColumns;
    QVector<Channel> channels;
    StreamKind kind = StreamKind::Channels;
    int leftOut = 0; //!< channels beyond the 256 that are read

    //! Nothing where the fields are no names of columns.
    static std::optional<ColumnPlan> fromHeader(const QStringList &fields);
};

} // namespace Monitor
