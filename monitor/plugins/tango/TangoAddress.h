// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QStringList>

#include <chrono>
#include <optional>

/*! Attributes of a device, and how often they are read if they are polled:
    tango://HOST:PORT/DOMAIN/FAMILY/MEMBER/ATTRIBUTE,ATTRIBUTE?every=100ms#dbase=no.

    HOST:PORT is the database; with "#dbase=no" at the end it is the device server itself. tango:DOMAIN/... has the database of
    the variable TANGO_HOST. */
struct TangoAddress
{
    static constexpr std::chrono::milliseconds usualInterval{100};
    static constexpr std::chrono::milliseconds shortestInterval{1};
    static constexpr std::chrono::milliseconds longestInterval{3600 * 1000};
    //! This many channels are shown in a window.
    static constexpr int mostAttributes = 256;

    QString text; //!< the address as it was given
    QString device; //!< as the client library takes it
    QStringList attributes; //!< their names
    std::chrono::milliseconds every = usualInterval; //!< from one reading to the next
    bool isPolled =
        false; //!< whether the address states the interval, so that events are not wanted

    //! Returns an address; nothing if it makes no sense, and \a error says what is wrong.
    static std::optional<TangoAddress> fromText(const QString &text, QString *error);
};
