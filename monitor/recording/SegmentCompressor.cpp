// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/SegmentCompressor.h"

#include "monitor/core/Text.h"
#include "monitor/core/ThreadStart.h"
#include "monitor/recording/DraftFile.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <sys/file.h>

namespace Monitor {

namespace {

//! How much of the work writing is; the rest is reading back.
constexpr double writingShare = 0.8;
//! The permissions of a draft until it has those of the file.
constexpr unsigned ownerOnly = 0600;

/*! Returns what keeps a file from being brought into another form; empty if nothing does. From then on no recorder writes to it
    until \a file is closed. */
QString faultOfSegment(QFile *file, const QString &target, bool replaces)
{
    if (!replaces && QFileInfo::exists(target))
        return Text::tr("%1 exists already").arg(target);
    // A pipe would never end. A link of the system, such as /dev/stdout, must not be removed.
    const QFileInfo info(file->fileName());
    if (info.exists() && (!info.isFile() || info.isSymLink()))
        return Text::tr("only regular files are compressed");
    if (!file->open(QIODevice::ReadOnly))
        return file->errorString();
    if (::flock(file->handle(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return Text::tr("a recorder is writing to it");
    return {};
}

QString staysText(const QString &path, SegmentForm form, const QString &why)
{
    return form == SegmentForm::Hdf5
        ? Text::tr("%1 is complete, but stays text: %2").arg(path, why)
        : Text::tr("%1 is complete, but stays uncompressed: %2").arg(path, why);
}

//! Writes the other form of a file and checks it. Returns why that is not possible; empty if it is.
QString writeChecked(const QFile &file,
                     const QString &target,
                     const SegmentConversion &conversion,
                     const SegmentConversion::GoesOn &goesOn)
{
    DraftFile draft(target);
    if (!draft.create(ownerOnly))
        return draft.errorString();
    draft.file().setPermissions(file.permissions());
    bool isCancelled = false;
    QString why;
    const auto step = [&](const SegmentConversion::Step &work, double from, double to) {
        const auto mayGoOn = [&](double progress) {
            isCancelled = goesOn && !goesOn(from + (to - from) * progress);
            return !isCancelled;
        };
        return work(file.fileName(), draft.path(), mayGoOn, &why);
    };
    if (step(conversion.write, 0.0, writingShare) && step(conversion.compare, writingShare, 1.0))
        return draft.commit(conversion.replaces) ? QString() : draft.errorString();
    if (isCancelled)
        return Text::tr("the program ended");
    return why.isEmpty() ? Text::tr("%1 could not be written; make room on the disk").arg(target)
                         : why;
}

} // namespace

bool convertSegment(const QString &path,
                    const SegmentConversion &conversion,
                    QString *error,
                    const SegmentConversion::GoesOn &goesOn)
{
    const QString target = completedPath(path, conversion.form);
    QFile file(path);
    QString fault = faultOfSegment(&file, target, conversion.replaces);
    if (fault.isEmpty() && conversion.suits && !conversion.suits(path))
        return true;
    if (fault.isEmpty())
        fault = writeChecked(file, target, conversion, goesOn);
    if (fault.isEmpty() && isNamed(file, path) && !file.remove())
        fault = file.errorString();
    if (!fault.isEmpty())
        *error = staysText(path, conversion.form, fault);
    return fault.isEmpty();
}

SegmentCompressor::~SegmentCompressor()
{
    finish();
}

void SegmentCompressor::add(const QString &path, const SegmentConversion &conversion)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const bool hasThread = m_thread.joinable() || startThread(&m_thread, [this] {
                               run();
                           });
    if (!hasThread) {
        m_errors.append(staysText(path, conversion.form, Text::noThread()));
        return;
    }
    m_pending.push_back({path, conversion});
    m_wakeUp.notify_one();
}

QStringList SegmentCompressor::pending() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    QStringList paths;
    for (const Job &job : m_pending)
        paths.append(job.path);
    return paths;
}

void SegmentCompressor::finish()
{
    end();
}

void SegmentCompressor::cancel()
{
    m_isCancelled = true;
    end();
    m_isCancelled = false;
}

//! Lets the thread end once nothing is pending, and waits for that.
void SegmentCompressor::end()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isEnding = true;
        m_wakeUp.notify_one();
    }
    if (m_thread.joinable())
        m_thread.join();
    m_isEnding = false;
}

void SegmentCompressor::run()
{
    for (;;) {
        Job job;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_wakeUp.wait(lock, [this] {
                return !m_pending.empty() || m_isEnding;
            });
            if (m_pending.empty())
                return;
            job = m_pending.front();
        }
        QString error;
        m_progress = 0.0;
        const bool converted =
            convertSegment(job.path, job.conversion, &error, [this](double progress) {
                m_progress = progress;
                return !m_isCancelled;
            });
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_pending.pop_front();
        if (!converted)
            m_errors.append(error);
    }
}

QStringList SegmentCompressor::takeErrors()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    QStringList errors;
    errors.swap(m_errors);
    return errors;
}

} // namespace Monitor
