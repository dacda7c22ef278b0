// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QRegularExpression>
#include <QStringList>
#include <QVector>

#include <ctime>

namespace Corvale_Qt {

/*! The pattern that finds one keyword as a whole word. A keyword without pattern syntax is plain; searching a line
    for it takes time proportional to the length of the line. Any other pattern may be arbitrarily slow, so
    KeywordSearch limits its time. */
struct KeywordPattern
{
    QRegularExpression expression;
    bool isPlain = true;
};

/*! Finds the matches of a keyword in a line, from left to right, within a few milliseconds.

    The search for a pattern that is not plain stops where the match at one position takes too many steps. It searches a
    line of more than 1000 characters in stretches of that length, which overlap by half, until its time is used up; it
    may miss a match that is longer than half a stretch. */
class KeywordSearch
{
public:
    //! \a line must be valid UTF-16. \a pattern and \a line must outlive the search.
    KeywordSearch(const KeywordPattern &pattern, const QString &line);

    //! Returns the next match, or one without a match at the end or when the search stops early.
    QRegularExpressionMatch next();

private:
    int endOfStretch() const;
    QRegularExpressionMatch matchUpTo(int end) const;
    void goBehind(const QRegularExpressionMatch &match);
    void skipHalfAStretch();
    bool isTimeUp() const;

    const KeywordPattern &m_pattern;
    const QString &m_line;
    const bool m_isInStretches;
    const std::clock_t m_begin;
    int m_at = 0;
};

//! The patterns of a list of keywords.
class KeywordPatterns
{
public:
    //! Replaces all keywords. Ignores those that are not valid patterns, with one line each on the debug stream.
    void set(const QStringList &keywords);
    const QVector<KeywordPattern> &patterns() const { return m_patterns; }
    //! Returns whether \a line, which must be valid UTF-16, contains one of the keywords.
    bool areIn(const QString &line) const;

private:
    QStringList m_keywords;
    QVector<KeywordPattern> m_patterns;
    //! Finds any of the plain keywords. Its pattern is empty if there are none, or too many for one pattern.
    QRegularExpression m_anyPlain;
};

} // namespace Corvale_Qt
