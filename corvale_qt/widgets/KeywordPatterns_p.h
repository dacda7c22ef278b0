// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QRegularExpression>
#include <QStringList>
#include <QVector>

#include <ctime>

namespace Corvale_Qt {

/*! The pattern of one keyword: the keyword as a whole word. A keyword without pattern syntax is plain; its search
    takes time in proportion to the line. Any other may be as slow as its author made it, so its search is
    bounded, see KeywordSearch. */
struct KeywordPattern
{
    QRegularExpression expression;
    bool isPlain = true;
};

/*! Goes over the matches of a keyword in a line, from left to right, in at most some milliseconds.

    A bounded search gives up the rest of the line where one position takes too many steps. A line of more than
    1000 characters is searched in stretches of that length, each overlapping half of the next, until the time of
    a search is used up; a match longer than half a stretch may be missed there. */
class KeywordSearch
{
public:
    //! \a line has to be valid UTF-16, and to outlive the search.
    KeywordSearch(const KeywordPattern &pattern, const QString &line);

    //! The next match; without a match at the end, or where the search gives up.
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

//! A list of keywords, of which those that make no valid pattern are left out.
class KeywordPatterns
{
public:
    void set(const QStringList &keywords);
    const QVector<KeywordPattern> &patterns() const { return m_patterns; }
    //! Whether one of the keywords is in \a line, which has to be valid UTF-16.
    bool areIn(const QString &line) const;

private:
    QStringList m_keywords;
    QVector<KeywordPattern> m_patterns;
    //! All plain keywords at once; without a pattern where there is none, or where they are too many for one.
    QRegularExpression m_anyPlain;
};

} // namespace Corvale_Qt
