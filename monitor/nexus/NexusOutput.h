// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/nexus/NexusWriter.h"
#include "monitor/recording/DraftFile.h"

namespace Monitor {

//! An HDF5 file that gets its name when it is whole; until then it is written beside its place.
class NexusOutput
{
public:
    explicit NexusOutput(const QString &path);

    /*! Begins the file. \a source is a line for people, \a mode the permissions of a new file. Returns false, with
        errorString(), if it cannot be written, or exists and may not be replaced. */
    bool start(const QString &source, bool overwrite, unsigned mode);
    //! Returns what takes the readings.
    NexusWriter &writer() { return m_writer; }
    //! Finishes the file and gives it its name. Returns false, with errorString(), and leaves nothing, if that fails.
    bool finish();
    //! Leaves nothing.
    void discard();
    QString errorString() const { return m_error; }

private:
    bool fail(const QString &why);

    const QString m_path;
    bool m_overwrites = false;
    DraftFile m_draft;
    NexusWriter m_writer;
    QString m_error;
};

} // namespace Monitor
