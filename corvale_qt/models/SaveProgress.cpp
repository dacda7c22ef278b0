// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/SaveProgress.h"

#include <algorithm>
#include <utility>

namespace Corvale_Qt {

namespace {

thread_local SaveProgress *newest = nullptr;

} // namespace

SaveProgress::SaveProgress(Watcher watcher)
    : m_watcher(std::move(watcher))
    , m_before(std::exchange(newest, this))
{
}

SaveProgress::~SaveProgress()
{
    newest = m_before;
}

bool SaveProgress::isWatched()
{
    return newest;
}

bool SaveProgress::goOn(qint64 done, qint64 all)
{
    return !newest || newest->m_watcher(double(done) / double(std::max<qint64>(all, 1)));
}

} // namespace Corvale_Qt
