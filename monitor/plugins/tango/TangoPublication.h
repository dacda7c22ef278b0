// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/plugins/tango/TangoServer.h"

//! The results of a source as a device of the server, until it is deleted.
class TangoPublication : public CorvaleMonitor::Publication
{
public:
    //! Serves devices of one server under the names. Returns none if that fails, and \a error says why.
    static std::vector<std::unique_ptr<CorvaleMonitor::Publication>>
    open(const QVector<TangoName> &names, QString *error);

    ~TangoPublication() override;
    void begin(const CorvaleMonitor::ResultStream &stream) override { m_stream = stream; }
    void publish(const CorvaleMonitor::Results &results) override;

private:
    TangoPublication(std::shared_ptr<TangoBoard> board, std::shared_ptr<TangoServer> server);

    const std::shared_ptr<TangoBoard> m_board;
    const std::shared_ptr<TangoServer> m_server;
    CorvaleMonitor::ResultStream m_stream;
};
