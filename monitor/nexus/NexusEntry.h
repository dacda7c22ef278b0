// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/nexus/Hdf5.h"
#include "monitor/readings/StreamHeader.h"

#include <memory>

namespace Monitor {

//! One acquisition in a file that is open for reading. Sizes and types are checked before an entry is made.
struct NexusEntry
{
    //! How numbers follow from those that are stored: factor x stored + constant.
    struct Scale
    {
        double factor = 1.0;
        double constant = 0.0;

        bool isIdentity() const { return factor == 1.0 && constant == 0.0; }
        void apply(double *values, qint64 count) const
        {
            for (qint64 i = 0; i < count && !isIdentity(); ++i)
                values[i] = factor * values[i] + constant;
        }
    };
    //! A data set with some of the values of each reading.
    struct Field
    {
        Hdf5Object data;
        int first = 0; //!< index of its first value in a reading
        int width = 0;
        Scale scale;
    };
    //! An event, and how many readings come before it.
    struct Event
    {
        qint64 row = 0;
        QString text;
    };

    StreamHeader header;
    qint64 rows = 0;
    Hdf5Object time;
    Scale timeScale; //!< from the times that are stored to seconds
    std::vector<Field> fields;
    Hdf5Object eventRows;
    Hdf5Object eventTexts;
    qint64 events = 0;
    QString notice; //!< what a person should know about it; empty if nothing

    //! Reads readings: their times in seconds, and their values, reading after reading. Returns false on failure.
    bool read(qint64 first, qint64 count, double *times, double *values) const;
    //! Reads an event. Returns nothing if it cannot be read.
    std::optional<Event> event(qint64 index) const;
    //! Returns the index of the first event that has at least this many readings before it.
    qint64 firstEventFrom(qint64 row) const;

    /*! Returns the entry that the monitor has written into a group; null if it has not, or, with the reason in \a error, if
        the entry is damaged. */
    static std::unique_ptr<NexusEntry> ofMonitor(hid_t group, QString *error);
    /*! Returns an NXdata of another program as an entry; null, with the reason in \a error, if it cannot be read. \a entry is the group
        that it belongs to. */
    static std::unique_ptr<NexusEntry> ofOthers(hid_t data, hid_t entry, QString *error);
};

} // namespace Monitor
