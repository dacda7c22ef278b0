// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/tape/TapeIndexThread.h"

#include "monitor/core/Text.h"
#include "monitor/core/ThreadStart.h"
#include "monitor/tape/TapeCache.h"

namespace Monitor {

TapeIndexThread::TapeIndexThread(const QString &path,
                                 const ImportOptions &options,
                                 const QString &cacheFolder)
{
    const bool hasThread = startThread(&m_thread, [this, path, options, cacheFolder] {
        run(path, options, cacheFolder);
    });
    if (hasThread)
        return;
    m_error = Text::noThread();
    tellEnd();
}

TapeIndexThread::~TapeIndexThread()
{
    m_indexing.isCancelled = true;
    if (m_thread.joinable())
        m_thread.join();
}

void TapeIndexThread::run(const QString &path,
                          const ImportOptions &options,
                          const QString &cacheFolder)
{
    const TapeCache cache(path, options, cacheFolder);
    m_index = cache.load();
    if (m_index.isEmpty()) {
        m_index = indexTape(path, options, &m_indexing, &m_error);
        if (!m_index.isEmpty())
            cache.save(m_index);
    }
    tellEnd();
}

void TapeIndexThread::tellEnd()
{
    m_indexing.progress = 1.0;
    m_done = true;
}

const TapeIndex &TapeIndexThread::result()
{
    if (m_thread.joinable())
        m_thread.join();
    return m_index;
}

} // namespace Monitor
