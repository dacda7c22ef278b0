// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/ZstdSegments.h"

#include "monitor/input/ZstdFrames.h"
#include "monitor/recording/RecordingRows.h"

#include <algorithm>
#include <memory>
#include <zstd.h>

namespace Monitor {

namespace {

//! Text in one frame: what is read at least to go to a place, and what one damaged place costs at most.
constexpr int frameSize = 256 * 1024;
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

double progressOf(const QFile &file)
{
    return double(file.pos()) / double(std::max<qint64>(file.size(), 1));
}

bool writeFrames(QFile *from, QFile *to, const SegmentConversion::GoesOn &goesOn)
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
        if (!goesOn(progressOf(*from)))
            return false;
    }
    return from->error() == QFileDevice::NoError && to->flush();
}

//! Returns whether a compressed file holds exactly the bytes of the other.
bool holdsTheSame(QFile *file, QFile *compressed, const SegmentConversion::GoesOn &goesOn)
{
    ZstdFrames frames(*compressed);
    for (;;) {
        const QByteArray text = file->read(recordingPiece);
        if (text != frames.read(text.isEmpty() ? 1 : text.size()))
            return false;
        if (text.isEmpty())
            return !frames.isDamaged();
        if (!goesOn(progressOf(*file)))
            return false;
    }
}

} // namespace

SegmentConversion zstdConversion()
{
    using GoesOn = SegmentConversion::GoesOn;
    SegmentConversion conversion;
    conversion.form = SegmentForm::Zstd;
    conversion.write =
        [](const QString &text, const QString &draft, const GoesOn &goesOn, QString *) {
            QFile from(text), to(draft);
            return from.open(QIODevice::ReadOnly) && to.open(QIODevice::ReadWrite)
                && writeFrames(&from, &to, goesOn);
        };
    conversion.compare =
        [](const QString &text, const QString &draft, const GoesOn &goesOn, QString *) {
            QFile file(text), compressed(draft);
            return file.open(QIODevice::ReadOnly) && compressed.open(QIODevice::ReadOnly)
                && holdsTheSame(&file, &compressed, goesOn);
        };
    return conversion;
}

} // namespace Monitor
