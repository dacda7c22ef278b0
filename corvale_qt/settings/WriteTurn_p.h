// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QString>

namespace Corvale_Qt {

/*! The turn of this process to write files in a folder; it ends with the object. Other processes wait for their turn.

    QSettings locks its file, but after each failed try it waits longer, up to five seconds. Of three processes that
    wrote all the time, one got the lock every nine seconds, and its window froze meanwhile. Processes that take turns
    find the lock free.

    A turn does not exclude others: after ten seconds, or on a system without such locks, the process writes anyway. */
class WriteTurn
{
public:
    //! Waits for the turn of this process, at most ten seconds.
    explicit WriteTurn(const QString &folder);
    ~WriteTurn();
    Q_DISABLE_COPY(WriteTurn)

private:
    int m_folder = -1;
};

} // namespace Corvale_Qt
