// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

namespace Monitor {

//! How the lines of a table of another program are to be read.
struct ImportOptions
{
    //! Whether the first line holds the names of the columns.
    enum class Header {
        Seen, //!< it does if it is not all numbers
        Names,
        None,
    };
    //! What the numbers or texts of the time column mean.
    enum class Clock {
        Seconds, //!< numbers, in seconds or in the unit of the column's name
        Utc, //!< dates with the time of day; without a zone they are UTC
        Local, //!< the same; without a zone they are the local time of this machine
    };
    static constexpr int timeByName = 0, noTime = -1;

    char delimiter =
        0; //!< ',', ';', '|', tab or blank; 0 for commas, or white space where a line has none
    bool decimalComma = false;
    Header header = Header::Seen;
    int timeColumn = timeByName; //!< from 1; timeByName for the one with such a name, or the first
    double interval = 0.0; //!< seconds between rows without a time
    Clock clock = Clock::Seconds;
    QString format; //!< of dates, as QDateTime reads them; empty for ISO 8601
    int skippedLines = 0; //!< before the table
    char comment = 0; //!< lines that begin with it are left out; 0 for none but those with '#'

    //! Returns whether the lines are those of the line protocol.
    bool isUsual() const { return text().isEmpty(); }
    /*! Returns what differs from the usual, as --import takes it: "delimiter=semicolon,decimal=comma,time=2". */
    QString text() const;
    /*! Reads such a text. Returns false, with what is wrong in \a error, if it makes no sense. */
    static bool fromText(const QString &text, ImportOptions *options, QString *error);
};

} // namespace Monitor
