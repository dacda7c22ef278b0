// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/detector/DetectorDescription.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QJsonValue>

namespace Corvale_Qt {

/*! Reads the members of a JSON object one after the other, and keeps the first thing that is wrong. After a fault, reading
    goes on and changes nothing that is used. */
class JsonMembers
{
public:
    //! \a place is that of the object, empty for the document.
    JsonMembers(const QJsonObject &object, const QString &place, DetectorFault &fault);

    //! Returns whether the object has the member.
    bool has(const char *key) const;
    void take(const char *key, double &number);
    void take(const char *key, int &number);
    void take(const char *key, bool &value);
    void take(const char *key, QString &text);
    //! Takes a list of numbers, also from lists in the list; a single number is a list of one if it is \a alsoSingle.
    void take(const char *key, QVector<double> &numbers, bool alsoSingle);
    void take(const char *key, QStringList &texts);
    //! Takes one of the words and returns its index; -1 if the member is missing or none of them.
    int takeWord(const char *key, const QStringList &words);
    //! Returns the members of an object in this one, which has none if it is missing.
    JsonMembers object(const char *key);
    //! Reports the first member that has not been taken.
    void refuseOthers();
    //! Reports a fault at a member, unless there was one before.
    void report(const QString &key, const QString &text);

private:
    QJsonValue value(const char *key);
    bool
    takeNumbers(const QString &place, const QJsonArray &list, QVector<double> &numbers, int depth);
    QString placeOf(const QString &key) const;

    QJsonObject m_object;
    QString m_place;
    QStringList m_taken;
    DetectorFault &m_fault;

    Q_DECLARE_TR_FUNCTIONS(Corvale_Qt::JsonMembers)
};

} // namespace Corvale_Qt
