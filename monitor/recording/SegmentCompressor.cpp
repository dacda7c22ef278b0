// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/SegmentCompressor.h"

#include "monitor/core/EnglishTexts.h"
#include "monitor/core/LoggedText.h"
#include "monitor/core/Text.h"
#include "monitor/recording/DraftFile.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <sys/file.h>
#include <utility>

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
        return LoggedText::ofSystem(file->errorString()).now();
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
    const EnglishTexts english; // of what the log says
    const QString target = completedPath(path, conversion.form);
    QFile file(path);
    QString fault = faultOfSegment(&file, target, conversion.replaces);
    if (fault.isEmpty() && conversion.suits && !conversion.suits(path))
        return true;
    if (fault.isEmpty())
        fault = writeChecked(file, target, conversion, goesOn);
    if (fault.isEmpty() && isNamed(file, path) && !file.remove())
        fault = LoggedText::ofSystem(file.errorString()).now();
    if (!fault.isEmpty())
        *error = staysText(path, conversion.form, fault);
    return fault.isEmpty();
}

SegmentCompressor::SegmentCompressor()
    : m_thread(
        [this](Job &job) {
            work(job);
        },
        [this](const Job &job) {
            if (!job.error.isEmpty())
                m_errors.append(job.error);
        })
{
}

SegmentCompressor::~SegmentCompressor()
{
    finish();
}

void SegmentCompressor::add(const QString &path, const SegmentConversion &conversion)
{
    if (m_thread.start()) {
        m_thread.add({path, conversion, {}});
        return;
    }
    const EnglishTexts english;
    m_errors.append(staysText(path, conversion.form, Text::noThread()));
}

QStringList SegmentCompressor::pending() const
{
    return m_thread.locked([](const auto &jobs) {
        QStringList paths;
        for (const Job &job : jobs)
            paths.append(job.path);
        return paths;
    });
}

void SegmentCompressor::finish()
{
    m_thread.finish();
}

void SegmentCompressor::cancel()
{
    m_isCancelled = true;
    m_thread.finish();
    m_isCancelled = false;
}

void SegmentCompressor::work(Job &job)
{
    m_progress = 0.0;
    convertSegment(job.path, job.conversion, &job.error, [this](double progress) {
        m_progress = progress;
        return !m_isCancelled;
    });
}

QStringList SegmentCompressor::takeErrors()
{
    return m_thread.locked([this](const auto &) {
        return std::exchange(m_errors, {});
    });
}

} // namespace Monitor
