// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/SaveProgress.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

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

bool SaveProgress::writeWhole(const QString &fileName,
                              QIODevice::OpenMode mode,
                              const std::function<bool(QIODevice &file)> &write)
{
    const QFileInfo former(fileName);
    if (former.exists() && !former.isFile()) {
        QFile file(fileName);
        return file.open(mode) && write(file) && file.flush();
    }
    QSaveFile file(fileName);
    file.setDirectWriteFallback(true); // in a folder where no other file may be made
    return file.open(mode) && write(file) && file.commit();
}

} // namespace Corvale_Qt
