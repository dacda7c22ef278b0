// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ImportOptions.h"

#include <QDateTime>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Monitor {

//! A moment: whole seconds since 1970, UTC, and a fraction from 0 to 1.
struct Moment
{
    qint64 second = 0;
    double fraction = 0.0;
    bool isLeapSecond = false; //!< then \a second is the one that follows
};

/*! Turns the lines of a table of another program into lines of the line protocol: the time comes first and is in seconds,
    commas separate the fields, and numbers have a decimal point. A field that cannot be read stays unreadable, so that
    the protocol drops and counts its line. */
class TableImport
{
public:
    explicit TableImport(const ImportOptions &options);

    /*! Returns the lines that a line of the file becomes: one, and before it what has to be told of its date. Times count the leap
        seconds that rows have: they are the seconds that have passed, and rows stay in order. */
    const std::vector<std::string> &translate(std::string_view line);
    //! Begins with the first line of the file again.
    void startOver();

private:
    void takeHeader();
    void takeRow();
    bool isHeader() const;
    int timeIndex() const;
    std::string timeText(const std::string &field);
    qint64 leapSecondsBefore(const Moment &moment);
    std::string valueText(const std::string &field) const;

    const ImportOptions m_options;
    int m_linesToSkip;
    bool m_begun = false;
    int m_timeIndex = -1; //!< from 0; -1 without a time column
    std::optional<qint64> m_firstSecond; //!< of the first row, since 1970
    std::vector<qint64>
        m_leapSeconds; //!< that rows had: the seconds that followed them, since 1970
    std::vector<std::string> m_fields;
    std::vector<std::string> m_lines;
};

/*! Splits a line at a delimiter (0: at commas, or white space where it has none) and trims the fields. A delimiter in a
    field in quotes belongs to it; the quotes are removed, and a doubled one becomes a single one. */
void splitQuoted(std::string_view line, char delimiter, std::vector<std::string> *fields);

/*! Reads a date with the time of day as \a options say; returns nothing if it is not such a date. Fractions of a second
    may have any number of digits in ISO 8601. */
std::optional<Moment> momentOf(const std::string &text, const ImportOptions &options);

} // namespace Monitor
