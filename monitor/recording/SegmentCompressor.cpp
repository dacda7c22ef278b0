// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/SegmentCompressor.h"

#include "monitor/core/Text.h"
#include "monitor/input/ZstdFrames.h"
#include "monitor/recording/RecordingWriter.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zstd.h>

namespace Monitor {

namespace {

//! Text in one frame: what is read at least to go to a place, and what one damaged place costs at most.
constexpr int frameSize = 2 * 1024 * 1024;
constexpr int level = 6;

//! Returns about \a frameSize bytes that end with a line, so that a frame is readable without its neighbours.
QByteArray nextLines(QFile *file)
{
    QByteArray text = file->read(frameSize);
    const int end = text.lastIndexOf('\n') + 1;
    if (file->atEnd() || end == 0)
        return text;
    file->seek(file->pos() - (text.size() - end));
    text.truncate(end);
    return text;
}

//! How much of the work writing is; the rest is reading back.
constexpr double writingShare = 0.8;

bool writeFrames(QFile *from, QFile *to, const std::function<bool(double)> &goesOn)
{
    struct Free
    {
        void operator()(ZSTD_CCtx *context) const { ZSTD_freeCCtx(context); }
    };
    const std::unique_ptr<ZSTD_CCtx, Free> context(ZSTD_createCCtx());
    ZSTD_CCtx_setParameter(context.get(), ZSTD_c_compressionLevel, level);
    ZSTD_CCtx_setParameter(context.get(), ZSTD_c_checksumFlag, 1);
    QByteArray frame;
    while (!from->atEnd()) {
        const QByteArray text = nextLines(from);
        frame.resize(int(ZSTD_compressBound(std::size_t(text.size()))));
        const std::size_t size = ZSTD_compress2(context.get(),
                                                frame.data(),
                                                std::size_t(frame.size()),
                                                text.constData(),
                                                std::size_t(text.size()));
        if (text.isEmpty() || ZSTD_isError(size)
            || to->write(frame.constData(), qint64(size)) != qint64(size))
            return false;
        if (!goesOn(writingShare * double(from->pos()) / double(std::max<qint64>(from->size(), 1))))
            return false;
    }
    return from->error() == QFileDevice::NoError && to->flush() && ::fsync(to->handle()) == 0;
}

//! Has the names in the folder of a file written to the disk. Some file systems cannot, and need not.
void syncFolder(const QString &path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

//! Returns whether a compressed file holds exactly the bytes of the other.
bool holdsTheSame(QFile *file, const QString &compressed, const std::function<bool(double)> &goesOn)
{
    QFile other(compressed);
    if (!other.open(QIODevice::ReadOnly) || !file->seek(0))
        return false;
    ZstdFrames frames(other);
    for (;;) {
        const QByteArray text = file->read(recordingPiece);
        if (text != frames.read(text.isEmpty() ? 1 : text.size()))
            return false;
        if (text.isEmpty())
            return !frames.isDamaged();
        const double read = double(file->pos()) / double(std::max<qint64>(file->size(), 1));
        if (!goesOn(writingShare + (1.0 - writingShare) * read))
            return false;
    }
}

} // namespace

QString compressedPath(const QString &path)
{
    return path + QLatin1String(".zst");
}

namespace {

//! Returns whether an open file is the one of that name.
bool isNamed(const QFile &file, const QString &path)
{
    struct stat open = {}, named = {};
    return ::fstat(file.handle(), &open) == 0
        && ::stat(QFile::encodeName(path).constData(), &named) == 0 && open.st_dev == named.st_dev
        && open.st_ino == named.st_ino;
}

//! Gives the draft its name, without replacing a file that came meanwhile. Returns why that is not possible.
QString nameDraft(const QString &draft, const QString &target)
{
    // A hard link does not replace a file, as renaming would; not every file system has links.
    const QByteArray from = QFile::encodeName(draft), to = QFile::encodeName(target);
    const bool named = ::link(from.constData(), to.constData()) == 0
        || (errno != EEXIST && ::rename(from.constData(), to.constData()) == 0);
    return named ? QString() : QString::fromLocal8Bit(std::strerror(errno));
}

} // namespace

bool compressFile(const QString &path, QString *error, const std::function<bool(double)> &goesOn)
{
    const QString target = compressedPath(path), draft = target + QLatin1String(".part");
    const auto fail = [&](const QString &why) {
        *error = Text::tr("%1 is complete, but stays uncompressed: %2").arg(path, why);
        return false;
    };
    bool isCancelled = false;
    const auto mayGoOn = [&](double progress) {
        isCancelled = goesOn && !goesOn(progress);
        return !isCancelled;
    };
    if (QFileInfo::exists(target))
        return fail(Text::tr("%1 exists already").arg(target));
    // A pipe would never end. A link of the system, such as /dev/stdout, must not be removed.
    const QFileInfo info(path);
    if (info.exists() && (!info.isFile() || info.isSymLink()))
        return fail(Text::tr("only regular files are compressed"));
    QFile file(path), compressed(draft);
    if (!file.open(QIODevice::ReadOnly))
        return fail(file.errorString());
    // No recorder may write to the file until it is removed.
    if (::flock(file.handle(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return fail(Text::tr("a recorder is writing to it"));
    // A draft may be left from a kill. A new file is written, never what a link of that name points to.
    QFile::remove(draft);
    if (!compressed.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return fail(compressed.errorString());
    compressed.setPermissions(file.permissions());
    const bool written = writeFrames(&file, &compressed, mayGoOn);
    compressed.close();
    if (!written || !holdsTheSame(&file, draft, mayGoOn)) {
        compressed.remove();
        return fail(isCancelled
                        ? Text::tr("the program ended")
                        : Text::tr("%1 could not be written; make room on the disk").arg(target));
    }
    const QString fault = nameDraft(draft, target);
    QFile::remove(draft);
    if (!fault.isEmpty())
        return fail(fault);
    syncFolder(path);
    return !isNamed(file, path) || file.remove() || fail(file.errorString());
}

SegmentCompressor::~SegmentCompressor()
{
    finish();
}

void SegmentCompressor::add(const QString &path)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_pending.append(path);
    if (!m_thread.joinable())
        m_thread = std::thread([this] {
            run();
        });
    m_wakeUp.notify_one();
}

QStringList SegmentCompressor::pending() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_pending;
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
        QString path;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_wakeUp.wait(lock, [this] {
                return !m_pending.isEmpty() || m_isEnding;
            });
            if (m_pending.isEmpty())
                return;
            path = m_pending.first();
        }
        QString error;
        m_progress = 0.0;
        const bool compressed = compressFile(path, &error, [this](double progress) {
            m_progress = progress;
            return !m_isCancelled;
        });
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_pending.removeFirst();
        if (!compressed)
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
