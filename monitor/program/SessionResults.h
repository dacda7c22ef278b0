// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_monitor/ResultPublisher.h>
#include <memory>

namespace Monitor {

class ResultFeed;
class Session;

//! Publishes the results of a session, whatever source it has, also while it is paused. The feed belongs to the session and ends with it.
ResultFeed *publishResults(Session &session,
                           std::unique_ptr<CorvaleMonitor::Publication> publication);

} // namespace Monitor
