// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/ZstdFrames.h"
#include "tests/support/FuzzTarget.h"

#include <QFile>
#include <QTemporaryFile>

#include <algorithm>
#include <zstd.h>

using namespace Monitor;

/*! \file
    An input is the text of a compressed file behind five bytes: how long the text of a frame is, how frames are made, the place of a
    damage (two bytes), and what is changed there; 0 changes nothing. With the highest bit of the second byte the rest is the file
    itself. */

namespace {

constexpr int headSize = 5;
constexpr int mostText = 1 << 22;
constexpr uchar isFile = 0x80, hasChecksum = 1, saysItsSize = 2, followsSkipped = 4;

struct Made
{
    QByteArray file;
    std::vector<int> ends; //!< of frames, in the file
    std::vector<int> textEnds; //!< the same in the text
};

QByteArray compressed(const QByteArray &text, uchar how)
{
    ZSTD_CCtx *context = ZSTD_createCCtx();
    ZSTD_CCtx_setParameter(context, ZSTD_c_checksumFlag, (how & hasChecksum) != 0);
    ZSTD_CCtx_setParameter(context, ZSTD_c_contentSizeFlag, (how & saysItsSize) != 0);
    QByteArray frame(int(ZSTD_compressBound(std::size_t(text.size()))), '\0');
    const std::size_t size = ZSTD_compress2(context, frame.data(), std::size_t(frame.size()),
                                            text.constData(), std::size_t(text.size()));
    ZSTD_freeCCtx(context);
    frame.truncate(int(size));
    return frame;
}

Made made(const QByteArray &text, int frameSize, uchar how)
{
    Made made;
    for (int at = 0; at < text.size(); at += frameSize) {
        if ((how & followsSkipped) != 0)
            made.file += QByteArray("\x50\x2a\x4d\x18\3\0\0\0abc", 11);
        made.file += compressed(text.mid(at, frameSize), how);
        made.ends.push_back(made.file.size());
        made.textEnds.push_back(std::min(at + frameSize, text.size()));
    }
    return made;
}

//! Reads to the end, and goes on behind each damage, which is never in the same place twice.
QByteArray readAll(ZstdFrames *frames, int pieceSize, int fileSize)
{
    QByteArray text;
    for (int passed = 0; passed <= fileSize;) {
        const QByteArray piece = frames->read(pieceSize);
        text += piece;
        if (text.size() > mostText)
            return text; // a small file may hold any amount of it
        if (!piece.isEmpty())
            continue;
        if (!frames->isDamaged())
            return text;
        const ZstdFrames::Damage damage = frames->skipDamage();
        if (damage.isAtEnd)
            return text;
        passed += int(damage.inFile);
    }
    FUZZ_REQUIRE(!"a damage is passed over again and again");
    return {};
}

//! A file that is whole reads as its text, from any place of it.
void tryWhole(QFile &file, const QByteArray &text, uchar how)
{
    ZstdFrames frames(file);
    FUZZ_REQUIRE(readAll(&frames, 100, int(file.size())) == text);
    FUZZ_REQUIRE(frames.textSize()
                 == ((how & saysItsSize) != 0 || text.isEmpty() ? text.size() : -1));
    for (int place = 0; place <= text.size(); place += 1 + text.size() / 5) {
        FUZZ_REQUIRE(frames.seek(place));
        FUZZ_REQUIRE(readAll(&frames, 64, int(file.size())) == text.mid(place));
    }
    FUZZ_REQUIRE(!frames.seek(text.size() + 1));
}

} // namespace

std::vector<std::string> fuzzSeeds()
{
    const std::string text = "#corvale 1\n#channels a\n0,1\n0.5,2\n1,3\n1.5,4\n";
    return {std::string("\x10\3\0\0\0", 5) + text,
            std::string("\x08\7\0\0\0", 5) + text,
            std::string("\x20\1\0\5\1", 5) + text,
            std::string("\x20\3\0\x25\xff", 5) + text,
            std::string("\xff\0\0\0\0", 5) + std::string(3000, 'x'),
            std::string("\0\x80\0\0\0\x28\xb5\x2f\xfd\x20\x08\x41\0\0\x30\x2c\x31\x0a", 18)};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < headSize)
        return 0;
    const QByteArray rest(reinterpret_cast<const char *>(data) + headSize, int(size) - headSize);
    const uchar how = data[1];
    Made made;
    if ((how & isFile) != 0)
        made.file = rest;
    else
        made = ::made(rest, 1 + data[0], how);
    const int place = made.file.isEmpty() ? 0 : (data[2] * 256 + data[3]) % made.file.size();
    const bool isWhole = (how & isFile) == 0 && (data[4] == 0 || made.file.isEmpty());
    if (!isWhole && !made.file.isEmpty())
        made.file[place] = char(uchar(made.file[place]) ^ data[4]);

    static QTemporaryFile file;
    if (!file.isOpen())
        file.open();
    file.resize(0);
    file.seek(0);
    file.write(made.file);
    file.flush();
    if (isWhole) {
        tryWhole(file, rest, how);
        return 0;
    }
    ZstdFrames frames(file);
    const QByteArray text = readAll(&frames, 1 + data[0], made.file.size());
    frames.textSize();
    frames.seek(place);
    frames.read(100);
    // The frames behind the damaged one are read.
    const auto damaged = std::upper_bound(made.ends.begin(), made.ends.end(), place);
    if (damaged != made.ends.end() && (how & hasChecksum) != 0 && (how & followsSkipped) == 0)
        FUZZ_REQUIRE(text.endsWith(rest.mid(made.textEnds[damaged - made.ends.begin()])));
    return 0;
}
