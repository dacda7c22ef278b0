// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/detector/DetectorLayout.h>

#include <QStringList>

namespace Monitor {

//! Returns the names of the detectors that need no description: "preset:strips64" and so on.
QStringList detectorPresets();
//! Returns what the detector of that name is, as a person would say it; empty if there is none.
QString presetText(const QString &name);
//! Returns whether the name begins as those of presets do, and is therefore not a file.
bool isPresetName(const QString &name);

/*! Returns the detector of a preset, or the one that a file describes. Returns an empty layout, and the reason in \a fault, if
    there is no such preset or if the file does not describe a detector. */
Corvale_Qt::DetectorLayout detectorNamed(const QString &presetOrFile,
                                         Corvale_Qt::DetectorFault *fault);

} // namespace Monitor
