// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/plugins/tango/TangoPublication.h"

#include "monitor/plugins/tango/TangoText.h"

#include <QSet>

using namespace CorvaleMonitor;

std::vector<std::unique_ptr<Publication>> TangoPublication::open(const QVector<TangoName> &names,
                                                                 QString *error)
{
    QSet<QString> given;
    QVector<TangoServer::Device> devices;
    std::vector<std::shared_ptr<TangoBoard>> boards;
    for (const TangoName &name : names) {
        if (given.contains(name.device.toLower()))
            *error = TangoText::tr("%1 is given twice").arg(name.device);
        else if (!name.isOfSameServer(names.first()))
            *error = TangoText::tr("all devices of a run belong to one server, with the same host "
                                   "and port");
        if (!error->isEmpty())
            return {};
        given.insert(name.device.toLower());
        boards.push_back(std::make_shared<TangoBoard>());
        devices.append({name, boards.back()});
    }
    const std::shared_ptr<TangoServer> server = TangoServer::start(devices, error);
    std::vector<std::unique_ptr<Publication>> publications;
    for (std::size_t i = 0; server && i < boards.size(); ++i)
        publications.push_back(
            std::unique_ptr<Publication>(new TangoPublication(boards[i], server)));
    return publications;
}

TangoPublication::TangoPublication(std::shared_ptr<TangoBoard> board,
                                   std::shared_ptr<TangoServer> server)
    : m_board(std::move(board))
    , m_server(std::move(server))
{
}

TangoPublication::~TangoPublication()
{
    auto last = std::make_shared<TangoSnapshot>(*m_board->newest());
    last->isClosed = true;
    m_board->put(std::move(last));
    m_server->wake();
}

void TangoPublication::publish(const Results &results)
{
    auto snapshot = std::make_shared<TangoSnapshot>();
    snapshot->results = results;
    snapshot->stream = m_stream;
    m_board->put(std::move(snapshot));
    m_server->wake();
}
