// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/KeywordPatterns_p.h"
#include "corvale_qt/widgets/Logging_p.h"

#include <algorithm>

namespace Corvale_Qt {

namespace {

constexpr int kStretch = 1000;
/*! A line may be searched twice, once to announce it and once to colour it; together this takes less than 10 ms.
    The limit is processor time, so that no keyword is missed because the machine is busy. */
constexpr std::clock_t kMostTime = CLOCKS_PER_SEC * 4 / 1000;
//! PCRE's limit of steps for each position at which a match may begin. Reasonable patterns take tens of steps.
const QString kMostSteps = QStringLiteral("(*LIMIT_MATCH=10000)");

//! Without this option "\b" would match inside a word with an umlaut.
constexpr auto kOptions = QRegularExpression::UseUnicodePropertiesOption;

bool isPlain(const QString &keyword)
{
    static const QString syntax = QStringLiteral("\\^$.[]|()?*+{}");
    return std::none_of(keyword.begin(), keyword.end(), [](QChar character) {
        return syntax.contains(character);
    });
}

QString asWholeWord(const QString &keyword)
{
    return "\\b" + keyword + "\\b";
}

} // namespace

KeywordSearch::KeywordSearch(const KeywordPattern &pattern, const QString &line)
    : m_pattern(pattern)
    , m_line(line)
    , m_isInStretches(!pattern.isPlain && line.size() > kStretch)
    , m_begin(m_isInStretches ? std::clock() : 0)
{
}

QRegularExpressionMatch KeywordSearch::next()
{
    while (m_at <= m_line.size() && !isTimeUp()) {
        const int end = endOfStretch();
        const bool isLast = end == m_line.size();
        const QRegularExpressionMatch match = matchUpTo(end);
        if (!match.isValid() || (isLast && !match.hasMatch()))
            break;
        // A match in the second half is searched again, with more of the line after it.
        if (isLast || (match.hasMatch() && match.capturedStart() < m_at + kStretch / 2)) {
            goBehind(match);
            return match;
        }
        skipHalfAStretch();
    }
    m_at = m_line.size() + 1;
    return {};
}

int KeywordSearch::endOfStretch() const
{
    const int size = m_line.size();
    if (!m_isInStretches || size - m_at <= kStretch)
        return size;
    const int end = m_at + kStretch;
    return m_line.at(end).isLowSurrogate() ? end + 1 : end;
}

QRegularExpressionMatch KeywordSearch::matchUpTo(int end) const
{
    const QString part =
        end == m_line.size() ? m_line : QString::fromRawData(m_line.constData(), end);
    // The line is known to be valid UTF-16; checking it for each match would take quadratic time.
    return m_pattern.expression.match(part,
                                      m_at,
                                      QRegularExpression::NormalMatch,
                                      QRegularExpression::DontCheckSubjectStringMatchOption);
}

//! Continues after \a match, or one character further if the match is empty.
void KeywordSearch::goBehind(const QRegularExpressionMatch &match)
{
    m_at = match.capturedEnd();
    if (match.capturedLength() > 0)
        return;
    const bool isWide = m_at < m_line.size() && m_line.at(m_at).isHighSurrogate();
    m_at += isWide ? 2 : 1;
}

void KeywordSearch::skipHalfAStretch()
{
    m_at += kStretch / 2;
    if (m_line.at(m_at).isLowSurrogate())
        ++m_at;
}

bool KeywordSearch::isTimeUp() const
{
    return m_isInStretches && std::clock() - m_begin > kMostTime;
}

void KeywordPatterns::set(const QStringList &keywords)
{
    if (m_keywords.isSharedWith(keywords))
        return;
    m_keywords = keywords;
    m_patterns.clear();
    QStringList plain;
    for (const QString &keyword : keywords) {
        const QString limit = isPlain(keyword) ? QString() : kMostSteps;
        const QRegularExpression expression(limit + asWholeWord(keyword), kOptions);
        if (!expression.isValid()) {
            qCDebug(widgetsLog) << "log browser: not a valid pattern:" << keyword.left(80)
                                << expression.errorString();
            continue;
        }
        m_patterns.append({expression, isPlain(keyword)});
        if (isPlain(keyword))
            plain << keyword;
    }
    m_anyPlain = QRegularExpression(asWholeWord("(?:" + plain.join('|') + ")"), kOptions);
    if (plain.isEmpty() || !m_anyPlain.isValid())
        m_anyPlain = QRegularExpression();
}

bool KeywordPatterns::areIn(const QString &line) const
{
    const bool haveAnyPlain = !m_anyPlain.pattern().isEmpty();
    if (haveAnyPlain && KeywordSearch({m_anyPlain, true}, line).next().hasMatch())
        return true;
    return std::any_of(m_patterns.begin(), m_patterns.end(), [&](const KeywordPattern &pattern) {
        return !(pattern.isPlain && haveAnyPlain) && KeywordSearch(pattern, line).next().hasMatch();
    });
}

} // namespace Corvale_Qt
