// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace Monitor {

//! Returns the source that a recording names; empty if it names none or is no text.
QString recordedSource(const QString &path);

/*! Returns the files that are missing of the recording to which this one belongs: "run-3.csv", or "run-3.csv to run-5.csv", where run.csv
    or run-2.csv and a later file of the same source are there, in any form. Files that are named after their time have no numbers,
    so that none of them is missed. */
QStringList missingSegments(const QString &path);

} // namespace Monitor
