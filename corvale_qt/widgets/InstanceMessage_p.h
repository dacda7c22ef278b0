// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QString>

class QIODevice;

namespace Corvale_Qt {

/*! The form in which a process hands a message to the first one with its id: a 32-bit big-endian length, followed by that many
    bytes of UTF-8. */
class InstanceMessage
{
public:
    static constexpr int kMaximumSize = 1024 * 1024;
    static constexpr int kHeadSize = 4;

    enum class State {
        Incomplete, //!< more bytes have to come
        Complete,
        TooLong, //!< no other bytes make it a message
    };

    //! Returns the bytes of a message; none if it is too long.
    static QByteArray toBytes(const QString &message);
    /*! Takes a message from a device if it is complete, and nothing otherwise. */
    static State take(QIODevice &device, QString *message);
};

} // namespace Corvale_Qt
