// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/NoSource.h"

namespace Monitor {

NoSource::NoSource(Clock &clock, QObject *parent)
    : Source(clock, parent)
{
}

void NoSource::start() { }

QString NoSource::description() const
{
    return tr("No source is open");
}

QString NoSource::remedy() const
{
    return tr("File > Open... plays a recording, File > Connect... reads an instrument.");
}

} // namespace Monitor
