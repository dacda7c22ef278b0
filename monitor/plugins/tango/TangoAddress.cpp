// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/tango/TangoAddress.h"

#include "monitor/plugins/tango/TangoText.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace {

//! Returns the interval that a text like "100ms", "2s" or "1min" states; nothing if it is none that can be kept.
std::optional<std::chrono::milliseconds> intervalFrom(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^([0-9]+(?:\\.[0-9]+)?)(ms|s|min)?$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QString unit = match.captured(2);
    const double factor = unit == QLatin1String("ms") ? 1.0
        : unit == QLatin1String("min")                ? 60000.0
                                                      : 1000.0;
    const double milliseconds = std::round(factor * match.captured(1).toDouble());
    const bool isPossible = milliseconds >= double(TangoAddress::shortestInterval.count())
        && milliseconds <= double(TangoAddress::longestInterval.count());
    if (!isPossible)
        return std::nullopt;
    return std::chrono::milliseconds(qint64(milliseconds));
}

//! Returns a name that is given twice; empty if there is none.
QString nameGivenTwice(const QStringList &names)
{
    QSet<QString> given;
    for (const QString &name : names) {
        if (given.contains(name.toLower()))
            return name;
        given.insert(name.toLower());
    }
    return {};
}

QString formText(const QString &text)
{
    return TangoText::tr("\"%1\" should be "
                         "tango://HOST:PORT/DOMAIN/FAMILY/MEMBER/ATTRIBUTE,ATTRIBUTE, with "
                         "#dbase=no at its end where HOST:PORT is a device server, not a database")
        .arg(text.left(200));
}

} // namespace

std::optional<TangoAddress> TangoAddress::fromText(const QString &text, QString *error)
{
    // The host, the device, the attributes, the question, the end.
    static const QRegularExpression form(
        QStringLiteral("^tango:(//[^/?#\\s]+:[0-9]+/)?([^/?#\\s]+/[^/?#\\s]+/[^/?#\\s]+)/"
                       "([^/?#\\s]+)(?:\\?([^#\\s]*))?(#dbase=(?:no|yes))?$"));
    const QRegularExpressionMatch match = form.match(text);
    TangoAddress address;
    address.text = text;
    address.attributes = match.captured(3).split(QLatin1Char(','));
    if (!match.hasMatch() || address.attributes.contains(QString())) {
        *error = formText(text);
        return std::nullopt;
    }
    if (address.attributes.size() > mostAttributes) {
        *error = TangoText::tr("\"%1\" names %2 attributes; a window shows %3 at most")
                     .arg(text.left(60),
                          QString::number(address.attributes.size()),
                          QString::number(mostAttributes));
        return std::nullopt;
    }
    // Devices refuse that, and their names know no capitals.
    const QString twice = nameGivenTwice(address.attributes);
    if (!twice.isEmpty()) {
        *error = TangoText::tr("\"%1\" names the attribute %2 twice").arg(text.left(200), twice);
        return std::nullopt;
    }
    const QString host = match.captured(1);
    address.device = (host.isEmpty() ? QString() : QStringLiteral("tango:") + host)
        + match.captured(2) + match.captured(5);
    const QString question = match.captured(4);
    if (question.isEmpty())
        return address;
    const QString key = QStringLiteral("every=");
    const auto every = intervalFrom(question.mid(key.size()));
    if (!question.startsWith(key) || !every) {
        *error = TangoText::tr("\"%1\": only ?every=100ms may follow the attributes, with a time "
                               "from 1 ms to 60 min")
                     .arg(text.left(200));
        return std::nullopt;
    }
    address.every = *every;
    address.isPolled = true;
    return address;
}
