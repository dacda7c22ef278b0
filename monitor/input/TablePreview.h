// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ImportGuess.h"

#include <QStringList>
#include <QVector>

namespace Monitor {

//! What the first rows of a table become if they are read in one way.
struct TablePreview
{
    static constexpr int mostRows = 20;

    QStringList names; //!< of the columns, with units; the time comes first
    QVector<QStringList> rows; //!< their values as text; a missing one is empty
    QString startTime; //!< the date of t = 0 if the table has it
    qint64 refused = 0; //!< lines of the sample that cannot be read
    QString firstRefused; //!< the first of them, with the reason
    QString error; //!< why the file cannot be read in this way at all; empty otherwise

    //! Reads the beginning of a file.
    static TablePreview of(const QString &path, const ImportOptions &options);
};

//! Returns the first bytes of a file, also of a compressed one; none if it cannot be read.
QByteArray sampleOf(const QString &path);

} // namespace Monitor
