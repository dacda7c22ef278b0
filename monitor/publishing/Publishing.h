// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QStringList>

#include <corvale_monitor/ResultPublisher.h>
#include <memory>
#include <vector>

namespace Monitor {

/*! Opens addresses to publish results under, some of which may be empty. Returns as many publications, null for an empty address; or
    none if one of them cannot be opened, and \a error says why. May take some seconds. Call it before a source is opened, since a
    control system may want to serve before it is asked. */
std::vector<std::unique_ptr<CorvaleMonitor::Publication>>
openPublications(const QStringList &addresses, QString *error);

} // namespace Monitor
