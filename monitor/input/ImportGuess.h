// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ImportOptions.h"

#include <QByteArray>
#include <QString>

namespace Monitor {

//! What the first lines of a file tell about how it must be read.
struct ImportGuess
{
    //! How many bytes of a file are looked at.
    static constexpr int sampleSize = 64 * 1024;

    bool isNeeded = false; //!< the line protocol cannot read the file, or would misread it
    ImportOptions options; //!< how the file can be read; \a given where that was stated
    bool lacksInterval =
        false; //!< no column holds the time, and the time between two rows is not known
    QString reason; //!< what is unusual about the file, for a person
    QString
        fault; //!< why no option reads the file as it is, for a person; empty if there is nothing of that kind
    QString
        header; //!< the line of names, by which files of the same program are known; empty if there is none

    //! Looks at the beginning of a file. What was \a given is not doubted, but for a time that is missing.
    static ImportGuess of(const QByteArray &sample, const ImportOptions &given = {});
    //! Returns why the file is not read, and which option of the program helps; empty if it can be read.
    QString refusal() const;
};

} // namespace Monitor
