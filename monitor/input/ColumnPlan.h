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
    QVector<Channel> channels; //!< empty if the lines are frames
    //! The cells of a frame, where there are more of them than channels may be; no readings otherwise.
    Corvale_Qt::DetectorDescription frames;
    QString frameUnit; //!< unit of the values of a frame
    StreamKind kind = StreamKind::Channels;
    int leftOut = 0; //!< channels beyond the 256 that are read
    bool lacksTime = false; //!< no column can be the time, and it is not a list of spots

    //! Returns the plan of a header line; nothing if the fields are not names of columns.
    static std::optional<ColumnPlan> fromHeader(const QStringList &fields);

private:
    bool takeFrames();
    void leaveOut();
};

//! Returns the index of the column whose name says that it holds the time; -1 if there is none.
int timeColumnByName(const QStringList &names);
//! Returns the unit of time in the name of a column, "s" if there is none.
QString timeSymbol(const QString &name);

} // namespace Monitor
