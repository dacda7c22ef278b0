// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/SourceNames.h"

#include <memory>

namespace Monitor {

class Companions;
class Session;
class Source;
class WindowSettings;

/*! Makes a source that is to be read beside others. Returns null, with \a error, if the address makes no sense or is that of a
    recording or of images, whose readings do not arrive as they are taken. */
std::unique_ptr<Source> sourceBeside(const Session &lead, const QString &address, QString *error);
/*! Adds a source to those that are read together and starts it, with the detector that was remembered for it. Call it only
    for a source from sourceBeside(). */
void addBeside(Companions &companions,
               const NamedAddress &address,
               std::unique_ptr<Source> source,
               const WindowSettings &settings);

} // namespace Monitor
