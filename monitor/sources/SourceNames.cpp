// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/SourceNames.h"

#include "monitor/sources/SourceFactory.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

namespace Monitor {

namespace {

//! Returns the text with everything replaced that a name cannot have.
QString asName(const QString &text)
{
    constexpr int longest = 40;
    static const QRegularExpression foreign(QStringLiteral("[^\\p{L}\\p{N}_.-]+"));
    static const QRegularExpression edges(QStringLiteral("^[-.]+|[-.]+$"));
    QString name = text;
    name.replace(foreign, QStringLiteral("-")).truncate(longest);
    name.remove(edges);
    return name.isEmpty() ? QStringLiteral("source") : name;
}

} // namespace

std::optional<NamedAddress> namedAddressFromText(const QString &text)
{
    const int sign = text.indexOf(QLatin1Char('='));
    const NamedAddress source{text.left(sign), text.mid(sign + 1)};
    if (sign < 1 || source.address.isEmpty() || asName(source.name) != source.name)
        return std::nullopt;
    return source;
}

QString usualSourceName(const QString &address)
{
    if (address == QLatin1String("-"))
        return QStringLiteral("stdin");
    const QString path = SourceFactory::filePath(address);
    if (!path.isEmpty()) // a.csv.zst is a.csv, compressed
        return asName(QFileInfo(path).baseName());
    static const QRegularExpression form(QStringLiteral("^[^:]*:(?://)?([^?#,]*)"));
    return asName(form.match(address).captured(1));
}

void nameSources(QVector<NamedAddress> *sources)
{
    QSet<QString> taken;
    for (const NamedAddress &source : qAsConst(*sources))
        taken.insert(source.name.toLower());
    QSet<QString> seen;
    for (NamedAddress &source : *sources) {
        const bool isGiven = !source.name.isEmpty();
        const QString wanted = isGiven ? source.name : usualSourceName(source.address);
        source.name = wanted;
        // A name that somebody gave goes before a usual one.
        const auto isFree = [&](const QString &name) {
            const QString key = name.toLower();
            return !seen.contains(key) && (!taken.contains(key) || (isGiven && name == wanted));
        };
        for (int number = 2; !isFree(source.name); ++number)
            source.name = QStringLiteral("%1-%2").arg(wanted, QString::number(number));
        seen.insert(source.name.toLower());
    }
}

} // namespace Monitor
