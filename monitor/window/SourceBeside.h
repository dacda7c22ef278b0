// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ImportOptions.h"
#include "monitor/sources/SourceNames.h"

#include <memory>

namespace Monitor {

class Companions;
class Session;
class Source;
class WindowSettings;

/*! Makes a source that is to be shown beside others, a table read with those options. Returns null, with \a error, if the address makes
    no sense, or if one of the two is a recording and the other an instrument, or images without times. */
std::unique_ptr<Source> sourceBeside(const Session &lead,
                                     const QString &address,
                                     const ImportOptions &import,
                                     QString *error);
/*! Adds a source to those that are read together and starts it, with the detector that was remembered for it. Call it only
    for a source from sourceBeside(). */
void addBeside(Companions &companions,
               const NamedAddress &address,
               std::unique_ptr<Source> source,
               const WindowSettings &settings);

} // namespace Monitor
