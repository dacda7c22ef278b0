// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/SessionResults.h"

#include "monitor/publishing/ResultFeed.h"
#include "monitor/session/Session.h"

namespace Monitor {

ResultFeed *publishResults(Session &session,
                           std::unique_ptr<CorvaleMonitor::Publication> publication)
{
    ResultInput input;
    input.source = [&session]() -> const Source & {
        return session.source();
    };
    input.statistics = [&session]() -> const StreamStatistics & {
        return session.statistics();
    };
    input.rate = [&session] {
        return session.rate();
    };
    input.isStale = [&session] {
        return session.isStale();
    };
    return new ResultFeed(session.clock(), std::move(publication), input, &session);
}

} // namespace Monitor
