// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

#include <optional>

/*! The name of a device that this program serves: tango:DOMAIN/FAMILY/MEMBER is defined in the database of the variable TANGO_HOST,
    tango://HOST:PORT/DOMAIN/FAMILY/MEMBER in the one that is there. With "#dbase=no" at its end there is no database, and HOST:PORT is
    where the server listens; without a HOST it listens at every address of the computer. */
struct TangoName
{
    QString host; //!< of the database or of the server; empty if none is given
    int port = 0; //!< 0 if none is given
    QString device; //!< DOMAIN/FAMILY/MEMBER
    bool hasDatabase = true;

    //! Returns a name; nothing if it makes no sense, and \a error says what is wrong.
    static std::optional<TangoName> fromText(const QString &text, QString *error);
    //! Returns whether one server can have both devices.
    bool isOfSameServer(const TangoName &other) const
    {
        return host == other.host && port == other.port && hasDatabase == other.hasDatabase;
    }
};
