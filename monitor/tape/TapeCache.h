// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ImportOptions.h"
#include "monitor/tape/TapeIndex.h"

namespace Monitor {

/*! Keeps the index of a recording in the user's folder of caches. An index counts only while the recording has the size,
    the dates of change, the beginning and the end that it had when it was indexed, and is read in the same way. */
class TapeCache
{
public:
    //! Looks at the recording; indexes of it are kept in \a folder, the user's folder of caches if it is empty.
    TapeCache(const QString &path, const ImportOptions &options, const QString &folder = {});

    //! Returns the index that was kept; an empty one if there is none, or if it counts no longer.
    TapeIndex load() const;
    //! Keeps an index, unless the recording has changed since the construction; the oldest others may go.
    void save(const TapeIndex &index) const;

private:
    //! How many indexes are kept.
    static constexpr int mostFiles = 100;
    QByteArray fingerprint() const;

    const QString m_path;
    const QString m_options;
    QString m_folder;
    QString m_file;
    QByteArray m_fingerprint;
};

} // namespace Monitor
