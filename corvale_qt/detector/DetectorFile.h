// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/detector/DetectorLayout.h"

#include <QByteArray>

namespace Corvale_Qt {

/*! \file
    The description of a detector as JSON text. docs/detector-file.md describes it, with an example for each kind;
    docs/detector.schema.json is its schema. */

//! The longest text, in bytes, that is read as a description.
constexpr int kLongestDetectorFile = 4 * 1024 * 1024;

/*! Returns the layout that a JSON text describes. Returns an empty layout if something is wrong with it, and says in
    \a fault, if it is given, what it is, at which key and in which line. Keys that nobody knows are wrong. */
CORVALE_QT_EXPORT DetectorLayout detectorFromJson(const QByteArray &json,
                                                  DetectorFault *fault = nullptr);
//! Returns the JSON text of a layout, on one line if \a compact; empty for an empty layout.
CORVALE_QT_EXPORT QByteArray detectorToJson(const DetectorLayout &layout, bool compact = false);
//! Reads the layout from a file. The fault also says why the file cannot be read.
CORVALE_QT_EXPORT DetectorLayout detectorFromFile(const QString &path,
                                                  DetectorFault *fault = nullptr);

} // namespace Corvale_Qt
