// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ReadPoint.h"

#include <QString>

namespace Monitor {

/*! Reads a file of readings piece by piece and hands what it reads to a sink. Lengths and places are in bytes: of the text of a
    table, or of the numbers of a file that has no text. */
class TableReader
{
public:
    virtual ~TableReader();

    //! Returns false, with errorString(), if the file cannot be read.
    virtual bool open(const QString &path) = 0;
    /*! Reads about that many further bytes. Returns false at the end of the file, when everything has been handed
        over, and after an error. */
    virtual bool read(int bytes) = 0;
    /*! Sets whether a separate thread may read ahead for the calls of read() that follow, which is worth it for pieces of many lines; what
        is handed over stays the same. Some readers do without. */
    virtual void setReadingAhead(bool on);
    //! Goes back to the beginning of the file; the counts go on. Returns false, with errorString(), on failure.
    virtual bool rewind() = 0;
    /*! Goes on from another place of the file, an entry that a reader of this file gave as its readPoint(). The counts become
        those of everything before that place. Returns false, with errorString(), on failure. */
    virtual bool resume(const ReadPoint &point) = 0;

    //! Returns the place up to which the file was read; its context has the lines that describe what follows, if there are any.
    virtual ReadPoint readPoint() const = 0;
    //! Returns the length in bytes; -1 if it is unknown.
    virtual qint64 textSize() const = 0;

    //! Returns whether open(), read() or rewind() failed last; errorString() gives the reason.
    virtual bool hasFailed() const = 0;
    virtual QString errorString() const = 0;
    //! Returns the counts of all rounds through the file.
    virtual LineCounts counts() const = 0;
    //! Returns how much of the file has been read, from 0 to 1.
    virtual double progress() const = 0;
};

} // namespace Monitor
