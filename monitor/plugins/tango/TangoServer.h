// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/plugins/tango/TangoBoard.h"
#include "monitor/plugins/tango/TangoName.h"

#include <QVector>

#include <condition_variable>
#include <mutex>
#include <vector>

/*! The device server of this process, of which the client library allows one. It serves in a thread of its own, and tells changes in
    another, so that neither a client nor the library can hold up the reading. Its source and that of the devices are the only
    ones that see the server's side of the library. */
class TangoServer
{
public:
    //! One of the devices, and where its newest results hang.
    struct Device
    {
        TangoName name;
        std::shared_ptr<const TangoBoard> board;
    };

    /*! Starts to serve devices, which are all of the same server. Returns null if that fails, and \a error says why. This waits until the
        devices can be reached: for moments without a database, for some seconds with one that does not answer. */
    static std::shared_ptr<TangoServer> start(const QVector<Device> &devices, QString *error);
    ~TangoServer();
    TangoServer(const TangoServer &) = delete;
    TangoServer &operator=(const TangoServer &) = delete;

    //! Says that there are other results on a board. Returns at once.
    void wake();

private:
    struct Private;

    TangoServer();

    const std::shared_ptr<Private> d; //!< shared with the threads, which may outlive this object
};
