// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/nexus/NexusEntry.h"

namespace Monitor {

//! Where an acquisition lies in a file.
struct NexusPlace
{
    QString entry; //!< path of its NXentry
    QString
        data; //!< path of its NXdata, for a file of another program; empty for one of the monitor
    qint64 rows = 0;
    int values = 0; //!< in a reading
    qint64 begin = 0; //!< bytes of the numbers before it

    //! Returns the bytes of a reading: its time and its values.
    qint64 rowBytes() const { return qint64(sizeof(double)) * (qint64(values) + 1); }
    //! Returns the bytes behind it. An entry counts as one more reading, so that an empty one has a place too.
    qint64 end() const { return begin + (rows + 1) * rowBytes(); }
};

//! The acquisitions of a file, in their order.
struct NexusTree
{
    std::vector<NexusPlace> places;
    QString notice; //!< what is left out, and why; empty if nothing is

    //! Finds the acquisitions of an open file. Returns false, with the reason in \a error, if it has none that can be read.
    bool find(hid_t file, QString *error);
    //! Opens an acquisition. Returns null, with the reason in \a error, if it cannot be read.
    static std::unique_ptr<NexusEntry> open(hid_t file, const NexusPlace &place, QString *error);
};

} // namespace Monitor
