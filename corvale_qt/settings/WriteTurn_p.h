// SPDX-License-Identifier: LGPL-2.1-or-later
/* +------------------------------------------------------------------+
   | Not part of the interface: this header may change in any version. |
   +------------------------------------------------------------------+ */
#pragma once

#include <QString>

namespace Corvale_Qt {

/*! The turn of a process to write files of a folder, for as long as this lives; other processes wait for theirs.

    QSettings locks its file, but waits longer after each try, up to five seconds: of three processes that keep writing
    one came to its turn every nine seconds, its window standing still. Those that take turns find that lock free.

    It is a courtesy and no lock: after ten seconds, or where the system has no such thing, one writes all the same. */
class WriteTurn
{
public:
    explicit WriteTurn(const QString &folder);
    ~WriteTurn();
    Q_DISABLE_COPY(WriteTurn)

private:
    int m_folder = -1;
};

} // namespace Corvale_Qt
