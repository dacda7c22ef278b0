// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/DetectorReader_p.h"

#include <QCoreApplication>
#include <QJsonArray>

#include <cmath>

namespace Corvale_Qt {

namespace {

//! No list of a description has more items.
constexpr int kMostItems = 65536;

} // namespace

JsonMembers::JsonMembers(const QJsonObject &object, const QString &place, DetectorFault &fault)
    : m_object(object)
    , m_place(place)
    , m_fault(fault)
{
}

QString JsonMembers::placeOf(const QString &key) const
{
    return m_place.isEmpty() ? key : m_place + QLatin1Char('.') + key;
}

void JsonMembers::report(const QString &key, const QString &text)
{
    if (m_fault.isEmpty())
        m_fault = {placeOf(key), text};
}

bool JsonMembers::has(const char *key) const
{
    return m_object.contains(QLatin1String(key));
}

QJsonValue JsonMembers::value(const char *key)
{
    m_taken.append(QLatin1String(key));
    return m_object.value(QLatin1String(key));
}

void JsonMembers::take(const char *key, double &number)
{
    const QJsonValue found = value(key);
    if (found.isUndefined())
        return;
    if (!found.isDouble() || !std::isfinite(found.toDouble()))
        report(QLatin1String(key), tr("is not a number"));
    else
        number = found.toDouble();
}

void JsonMembers::take(const char *key, int &number)
{
    const QJsonValue found = value(key);
    if (found.isUndefined())
        return;
    const double read = found.toDouble(-1);
    if (!found.isDouble() || !(read >= 0 && read <= kMostItems) || read != std::floor(read))
        report(QLatin1String(key), tr("is not a whole number from 0 to %1").arg(kMostItems));
    else
        number = int(read);
}

void JsonMembers::take(const char *key, bool &flag)
{
    const QJsonValue found = value(key);
    if (found.isUndefined())
        return;
    if (!found.isBool())
        report(QLatin1String(key), tr("is neither true nor false"));
    else
        flag = found.toBool();
}

void JsonMembers::take(const char *key, QString &text)
{
    const QJsonValue found = value(key);
    if (found.isUndefined())
        return;
    if (!found.isString())
        report(QLatin1String(key), tr("is not a text"));
    else
        text = found.toString().simplified();
}

bool JsonMembers::takeNumbers(const QString &place,
                              const QJsonArray &list,
                              QVector<double> &numbers,
                              int depth)
{
    for (int i = 0; i < list.size(); ++i) {
        const QJsonValue item = list[i];
        const QString itemPlace = QStringLiteral("%1[%2]").arg(place).arg(i);
        if (item.isArray() && depth > 0) {
            if (!takeNumbers(itemPlace, item.toArray(), numbers, depth - 1))
                return false;
            continue;
        }
        if (!item.isDouble() || !std::isfinite(item.toDouble()) || numbers.size() >= kMostItems) {
            report(itemPlace,
                   numbers.size() >= kMostItems ? tr("there are too many items")
                                                : tr("is not a number"));
            return false;
        }
        numbers.append(item.toDouble());
    }
    return true;
}

void JsonMembers::take(const char *key, QVector<double> &numbers, bool alsoSingle)
{
    const QJsonValue found = value(key);
    if (found.isUndefined())
        return;
    QVector<double> read;
    if (found.isDouble() && alsoSingle && std::isfinite(found.toDouble()))
        numbers = {found.toDouble()};
    else if (!found.isArray() || found.toArray().isEmpty())
        report(QLatin1String(key), tr("is not a list of numbers"));
    else if (takeNumbers(QLatin1String(key), found.toArray(), read, alsoSingle ? 0 : 1))
        numbers = read;
}

void JsonMembers::take(const char *key, QStringList &texts)
{
    const QJsonValue found = value(key);
    if (found.isUndefined())
        return;
    const QJsonArray list = found.toArray();
    if (!found.isArray() || list.size() > kMostItems)
        report(QLatin1String(key), tr("is not a list of texts"));
    for (int i = 0; i < list.size() && m_fault.isEmpty(); ++i) {
        if (!list[i].isString())
            report(QStringLiteral("%1[%2]").arg(QLatin1String(key)).arg(i), tr("is not a text"));
        texts.append(list[i].toString().simplified());
    }
}

int JsonMembers::takeWord(const char *key, const QStringList &words)
{
    const QJsonValue found = value(key);
    if (found.isUndefined())
        return -1;
    const int index = found.isString() ? words.indexOf(found.toString()) : -1;
    if (index < 0)
        report(QLatin1String(key), tr("is none of: %1").arg(words.join(QLatin1String(", "))));
    return index;
}

JsonMembers JsonMembers::object(const char *key)
{
    const QJsonValue found = value(key);
    if (!found.isUndefined() && !found.isObject())
        report(QLatin1String(key), tr("is not an object in braces"));
    return {found.toObject(), placeOf(QLatin1String(key)), m_fault};
}

void JsonMembers::refuseOthers()
{
    const QStringList keys = m_object.keys();
    for (const QString &key : keys)
        if (!m_taken.contains(key))
            report(key, tr("is not a known key"));
}

} // namespace Corvale_Qt
