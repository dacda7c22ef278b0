// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/JsonPlaces_p.h"

#include <QSet>
#include <QVector>

#include <algorithm>

namespace Corvale_Qt {

namespace {

//! Walks through a document and keeps the place of the value that it has reached, as long as the document is valid.
class Walk
{
public:
    Walk(const QByteArray &json, const QString &wanted)
        : m_json(json)
        , m_wanted(wanted)
    {
    }

    //! Returns the line of the deepest value whose place begins the wanted one.
    int line()
    {
        for (m_at = 0; m_at < m_json.size(); ++m_at)
            step(m_json[m_at]);
        return m_best;
    }
    //! Returns the first key that its object has already.
    RepeatedKey repeatedKey()
    {
        // QJsonDocument reads no deeper.
        constexpr int deepest = 1024;
        for (m_at = 0; m_at < m_json.size() && m_levels.size() <= deepest; ++m_at) {
            step(m_json[m_at]);
            if (m_repeated.line > 0)
                break;
        }
        return m_repeated;
    }

private:
    struct Level
    {
        bool list = false;
        int index = 0;
        QString key;
        bool expectsKey = true;
        QSet<QString> keys;
    };

    void step(char c)
    {
        if (c == '\n') {
            ++m_line;
        } else if (c == '{' || c == '[') {
            beginValue();
            m_levels.append({c == '[', 0, {}, true, {}});
        } else if (c == '}' || c == ']') {
            if (!m_levels.isEmpty())
                m_levels.removeLast();
        } else if (c == ',') {
            nextMember();
        } else if (c == '"') {
            takeString();
        } else if (c == '-' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z')) {
            beginValue();
            while (m_at + 1 < m_json.size() && !strchr(",]} \t\r\n", m_json[m_at + 1]))
                ++m_at;
        }
    }

    void nextMember()
    {
        if (m_levels.isEmpty())
            return;
        ++m_levels.last().index;
        m_levels.last().expectsKey = true;
    }

    void takeString()
    {
        const int begin = ++m_at;
        while (m_at < m_json.size() && m_json[m_at] != '"')
            m_at += m_json[m_at] == '\\' ? 2 : 1;
        const bool isKey =
            !m_levels.isEmpty() && !m_levels.last().list && m_levels.last().expectsKey;
        if (!isKey) {
            beginValue();
            return;
        }
        Level &level = m_levels.last();
        level.key = QString::fromUtf8(m_json.mid(begin, m_at - begin));
        level.expectsKey = false;
        // The same key may be spelt with escapes, which no key of a detector needs.
        if (m_repeated.line == 0
            && (level.keys.contains(level.key) || level.key.contains(QLatin1Char('\\'))))
            m_repeated = {m_line, level.key};
        level.keys.insert(level.key);
    }

    void beginValue()
    {
        if (m_wanted.isEmpty())
            return;
        QString place;
        for (const Level &level : qAsConst(m_levels)) {
            if (level.list)
                place += QStringLiteral("[%1]").arg(level.index);
            else
                place += (place.isEmpty() ? QString() : QStringLiteral(".")) + level.key;
        }
        const bool ends = place.size() == m_wanted.size() || place.isEmpty()
            || (place.size() < m_wanted.size()
                && QStringLiteral(".[").contains(m_wanted[place.size()]));
        if (ends && m_wanted.startsWith(place) && place.size() >= m_bestSize) {
            m_best = m_line;
            m_bestSize = place.size();
        }
    }

    const QByteArray &m_json;
    const QString m_wanted;
    QVector<Level> m_levels;
    int m_at = 0;
    int m_line = 1;
    int m_best = 1;
    int m_bestSize = 0;
    RepeatedKey m_repeated;
};

} // namespace

int lineOfOffset(const QByteArray &text, int offset)
{
    const auto end = text.begin() + std::clamp(offset, 0, text.size());
    return 1 + int(std::count(text.begin(), end, '\n'));
}

int lineOfPlace(const QByteArray &json, const QString &place)
{
    return Walk(json, place).line();
}

RepeatedKey repeatedKey(const QByteArray &json)
{
    return Walk(json, QString()).repeatedKey();
}

} // namespace Corvale_Qt
