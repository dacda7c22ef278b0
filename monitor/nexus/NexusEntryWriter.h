// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/nexus/Hdf5.h"
#include "monitor/nexus/NexusFields.h"
#include "monitor/nexus/RecordedHeader.h"

namespace Monitor {

/*! Writes one acquisition as an NXentry. Readings are collected until they fill a chunk; no more of them are in memory than
    that. */
class NexusEntryWriter
{
public:
    /*! Makes the entry in an open file. \a recorded is the description of the stream, \a header what a reader of it will know.
        \a output must outlive the entry. */
    NexusEntryWriter(Hdf5Output &output,
                     hid_t file,
                     const QString &name,
                     const RecordedHeader &recorded,
                     const StreamHeader &header,
                     const QString &source);

    void addReading(double time, const double *values);
    //! Adds an event at the time of the last reading.
    void addEvent(const QString &text);
    //! Writes what is left.
    void finish();

private:
    void describe(const RecordedHeader &recorded, const QString &source);
    void makeGroup(const NexusGroup &group, bool isFirst);
    void makeTime(hid_t group, bool isFirst);
    Hdf5Object timeData(hid_t group);
    void makeEvents();
    void flush();
    void flushEvents();

    struct Field
    {
        Hdf5Object data;
        int first = 0;
        int width = 0;
    };

    Hdf5Output &m_output;
    const StreamHeader m_header;
    const std::vector<NexusGroup> m_groups;
    const std::size_t m_values; //!< in a reading
    Hdf5Object m_entry;
    Hdf5Object m_time;
    std::vector<Field> m_fields;
    std::size_t m_bufferRows = 0;
    std::vector<double> m_timesWaiting;
    std::vector<double> m_valuesWaiting; //!< reading after reading
    std::vector<double> m_part;
    hsize_t m_rows = 0; //!< written, without those that wait
    double m_lastTime = 0.0;

    // Events; the data sets are made with the first one.
    Hdf5Object m_eventTime;
    Hdf5Object m_eventRow;
    Hdf5Object m_eventText;
    std::vector<double> m_eventTimesWaiting;
    std::vector<qint64> m_eventRowsWaiting;
    std::vector<QByteArray> m_eventTextsWaiting;
    hsize_t m_events = 0; //!< written
};

} // namespace Monitor
