// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/SaveProgress.h"

#include <algorithm>
#include <utility>

namespace Corvale_Qt {

namespace {

thread_local SaveProgress *innermost = nullptr;

} // namespace

SaveProgress::SaveProgress(Watcher watcher)
    : m_watcher(std::move(watcher))
    , m_before(std::exchange(innermost, this))
{
}

SaveProgress::~SaveProgress()
{
    innermost = m_before;
}

bool SaveProgress::isWatched()
{
    return innermost;
}

bool SaveProgress::goOn(qint64 done, qint64 all)
{
    return !innermost || innermost->m_watcher(double(done) / double(std::max<qint64>(all, 1)));
}

} // namespace Corvale_Qt
