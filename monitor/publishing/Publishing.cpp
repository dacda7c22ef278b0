// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/publishing/Publishing.h"

#include "monitor/core/Text.h"
#include "monitor/sources/PluginCall.h"
#include "monitor/sources/SourcePlugins.h"

#include <QMap>

namespace Monitor {

using CorvaleMonitor::Publication;
using CorvaleMonitor::ResultPublisher;

namespace {

//! Returns what publishes under an address; null with an error if nothing does, or if the address is not in order.
ResultPublisher *publisherOf(const QString &address, QString *error)
{
    const QString scheme = SourcePlugins::schemeOf(address);
    if (scheme.isEmpty()) {
        *error = Text::tr(
            "it should begin with the name of the control system, like tango:beam/monitor/1");
        return nullptr;
    }
    ResultPublisher *publisher = SourcePlugins().loadPublisher(scheme, error);
    if (publisher)
        callPlugin(error, [&] {
            *error = publisher->checkPublished(address);
        });
    return error->isEmpty() ? publisher : nullptr;
}

} // namespace

std::vector<std::unique_ptr<Publication>> openPublications(const QStringList &addresses,
                                                           QString *error)
{
    QMap<ResultPublisher *, QVector<int>> indexes; // each publisher is asked once
    for (int i = 0; i < addresses.size(); ++i) {
        if (addresses[i].isEmpty())
            continue;
        QString fault;
        ResultPublisher *publisher = publisherOf(addresses[i], &fault);
        if (!publisher) {
            *error = QStringLiteral("--publish %1: %2").arg(addresses[i], fault);
            return {};
        }
        indexes[publisher].append(i);
    }
    std::vector<std::unique_ptr<Publication>> publications(std::size_t(addresses.size()));
    for (auto each = indexes.begin(); each != indexes.end(); ++each) {
        QStringList asked;
        for (const int index : each.value())
            asked.append(addresses[index]);
        std::vector<std::unique_ptr<Publication>> opened;
        callPlugin(error, [&] {
            opened = each.key()->publish(asked, error);
        });
        if (opened.size() != std::size_t(asked.size())) {
            *error =
                QStringLiteral("--publish %1: %2").arg(asked.join(QStringLiteral(", ")), *error);
            return {};
        }
        for (std::size_t i = 0; i < opened.size(); ++i)
            publications[std::size_t(each.value().at(int(i)))] = std::move(opened[i]);
    }
    return publications;
}

} // namespace Monitor
