// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/ZstdFrames.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <optional>
#include <unistd.h>
#include <zstd.h>

namespace Monitor {

namespace {

constexpr int inputSize = 128 * 1024;
//! Frames that ask for more memory than this to be read are not ours and count as damage.
constexpr int largestWindow = 27; // power of two
//! A frame that claims to hold more text than any disk is not believed.
constexpr unsigned long long largestText = 1ULL << 50;
//! Frames of no more text than this are decoded as a whole.
constexpr unsigned long long largestWhole = 32ULL << 20;
const char magic[] = "\x28\xb5\x2f\xfd";
constexpr int magicSize = 4;

//! How long a frame is in the file, and in the text if it says so.
struct FrameSize
{
    qint64 inFile = 0;
    unsigned long long inText = ZSTD_CONTENTSIZE_UNKNOWN;
};

/*! Returns bytes of a file without moving its position; fewer at its end. A file that others cut meanwhile gives fewer bytes,
    where a mapped one would end the program. */
QByteArray bytesAt(const QFile &file, qint64 place, int size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    int taken = 0;
    while (taken < size) {
        const ssize_t count = ::pread(file.handle(),
                                      bytes.data() + taken,
                                      std::size_t(size - taken),
                                      off_t(place + taken));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        taken += int(count);
    }
    bytes.truncate(taken);
    return bytes;
}

quint32 littleEndian(const QByteArray &bytes, int begin, int count)
{
    quint32 number = 0;
    for (int i = 0; i < count; ++i)
        number |= quint32(uchar(bytes.at(begin + i))) << (8 * i);
    return number;
}

//! Returns how long the header of a frame is, magic number and all (RFC 8878, 3.1.1.1).
int headerLength(uchar descriptor)
{
    constexpr int dictionaryIds[] = {0, 1, 2, 4}, contentSizes[] = {0, 2, 4, 8};
    const bool singleSegment = (descriptor & 0x20) != 0;
    const int contentSize = contentSizes[descriptor >> 6];
    return magicSize + 1 + (singleSegment ? 0 : 1) + dictionaryIds[descriptor & 3]
        + (contentSize == 0 && singleSegment ? 1 : contentSize);
}

//! Returns the size of the frame that begins there, from the headers of its blocks; nothing if no whole frame does.
std::optional<FrameSize> frameAt(const QFile &file, qint64 place)
{
    constexpr int longestHeader = 18, blockHeader = 3, checksumSize = 4;
    constexpr quint32 largestBlock = 128 * 1024;
    constexpr int mostEmptyBlocks = 64;
    constexpr quint32 skippable = 0x184D2A50, anySkippable = 0xFFFFFFF0;
    const QByteArray head = bytesAt(file, place, longestHeader);
    if (head.size() < 2 * magicSize)
        return std::nullopt;
    const qint64 size = file.size();
    if ((littleEndian(head, 0, magicSize) & anySkippable) == skippable) {
        const qint64 length =
            qint64(2) * magicSize + qint64(littleEndian(head, magicSize, magicSize));
        return place + length <= size ? std::optional<FrameSize>({length, 0}) : std::nullopt;
    }
    if (!ZstdFrames::begins(head))
        return std::nullopt;
    const auto descriptor = uchar(head.at(magicSize));
    qint64 next = place + headerLength(descriptor);
    int emptyBlocks = 0; // zeros after a power cut look like any number of them
    for (bool isLast = false; !isLast;) {
        const QByteArray bytes = bytesAt(file, next, blockHeader);
        if (bytes.size() < blockHeader)
            return std::nullopt;
        const quint32 block = littleEndian(bytes, 0, blockHeader);
        enum {
            Raw,
            SameByte,
            Compressed,
            Reserved
        };
        const int type = int(block >> 1) & 3;
        emptyBlocks = block >> 3 == 0 ? emptyBlocks + 1 : 0;
        if (type == Reserved || block >> 3 > largestBlock || emptyBlocks > mostEmptyBlocks)
            return std::nullopt;
        isLast = (block & 1) != 0;
        next += blockHeader + (type == SameByte ? 1 : qint64(block >> 3));
    }
    next += (descriptor & 4) != 0 ? checksumSize : 0;
    if (next > size)
        return std::nullopt;
    return FrameSize{next - place,
                     ZSTD_getFrameContentSize(head.constData(), std::size_t(head.size()))};
}

//! Returns where the next whole frame begins, from there on; -1 if none does.
qint64 nextFrame(const QFile &file, qint64 from)
{
    constexpr int windowSize = 1024 * 1024;
    const QByteArray sign = QByteArray::fromRawData(magic, magicSize);
    for (;;) {
        const QByteArray window = bytesAt(file, from, windowSize);
        for (int at = window.indexOf(sign); at >= 0; at = window.indexOf(sign, at + 1))
            if (frameAt(file, from + at))
                return from + at;
        if (window.size() < windowSize)
            return -1;
        from += windowSize - (magicSize - 1);
    }
}

} // namespace

struct ZstdFrames::Decoder
{
    Decoder() { ZSTD_DCtx_setParameter(context, ZSTD_d_windowLogMax, largestWindow); }
    ~Decoder() { ZSTD_freeDCtx(context); }
    Decoder(const Decoder &) = delete;
    Decoder &operator=(const Decoder &) = delete;

    ZSTD_DCtx *const context = ZSTD_createDCtx();
};

ZstdFrames::ZstdFrames(QFile &file)
    : m_file(file)
    , m_decoder(std::make_unique<Decoder>())
{
    beginAt(0);
}

ZstdFrames::~ZstdFrames() = default;

bool ZstdFrames::begins(const QByteArray &beginning)
{
    return beginning.startsWith(QByteArray::fromRawData(magic, magicSize));
}

void ZstdFrames::beginAt(qint64 placeInFile)
{
    ZSTD_DCtx_reset(m_decoder->context, ZSTD_reset_session_only);
    m_input.clear();
    m_taken = 0;
    m_decoded.clear();
    m_decodedTaken = 0;
    m_inputBegin = placeInFile;
    m_frameBegin = placeInFile;
    m_insideFrame = false;
    m_damaged = !m_file.seek(placeInFile);
}

//! Makes sure that there is input. Returns false at the end of the file.
bool ZstdFrames::refill()
{
    if (m_taken < std::size_t(m_input.size()))
        return true;
    m_inputBegin += m_input.size();
    m_input = m_file.read(inputSize);
    m_taken = 0;
    return !m_input.isEmpty();
}

QByteArray ZstdFrames::read(int size)
{
    QByteArray text(size, Qt::Uninitialized);
    int taken = 0;
    while (!m_damaged && taken < size) {
        if (m_decodedTaken < m_decoded.size()) {
            taken += takeDecoded(text.data() + taken, size - taken);
        } else if (m_insideFrame || !decodeFrame()) {
            if (!m_damaged && !refill()) {
                m_damaged = m_insideFrame; // cut off
                break;
            }
            decodePiece(&text, &taken);
        }
    }
    text.truncate(taken);
    return text;
}

int ZstdFrames::takeDecoded(char *to, int size)
{
    const int count = std::min(size, m_decoded.size() - m_decodedTaken);
    std::copy_n(m_decoded.constData() + m_decodedTaken, count, to);
    m_decodedTaken += count;
    return count;
}

//! Decodes the frame that begins here as a whole. Returns false if that is not possible, or if it is damaged.
bool ZstdFrames::decodeFrame()
{
    const qint64 place = m_inputBegin + qint64(m_taken);
    const std::optional<FrameSize> frame = frameAt(m_file, place);
    if (!frame || frame->inText > largestWhole
        || frame->inFile > qint64(ZSTD_compressBound(std::size_t(largestWhole))))
        return false;
    const QByteArray bytes = bytesAt(m_file, place, int(frame->inFile));
    QByteArray text(int(frame->inText), Qt::Uninitialized);
    const std::size_t size = ZSTD_decompressDCtx(m_decoder->context,
                                                 text.data(),
                                                 std::size_t(text.size()),
                                                 bytes.constData(),
                                                 std::size_t(bytes.size()));
    beginAt(place);
    if (size != std::size_t(text.size())) {
        m_damaged = true;
        return false;
    }
    beginAt(place + frame->inFile);
    m_decoded = text;
    return !m_damaged;
}

//! Decodes what is read of a frame that does not say its size, or that is huge or cut off.
void ZstdFrames::decodePiece(QByteArray *text, int *taken)
{
    if (m_damaged)
        return;
    ZSTD_outBuffer out{text->data(), std::size_t(text->size()), std::size_t(*taken)};
    ZSTD_inBuffer in{m_input.constData(), std::size_t(m_input.size()), m_taken};
    const std::size_t before = out.pos;
    const std::size_t result = ZSTD_decompressStream(m_decoder->context, &out, &in);
    m_damaged = ZSTD_isError(result) != 0;
    m_insideFrame = result != 0;
    // The decoder may still hold text when it has taken all of the input.
    const bool stuck = in.pos == m_taken && out.pos == before;
    m_damaged = m_damaged || stuck;
    m_taken = in.pos;
    *taken = int(out.pos);
    if (!m_insideFrame)
        m_frameBegin = m_inputBegin + qint64(m_taken);
}

//! Finds the frame that holds that byte of the text. Returns false if none can be named.
bool ZstdFrames::findFrame(qint64 offset, Place *place) const
{
    while (const std::optional<FrameSize> frame = frameAt(m_file, place->inFile)) {
        // Sizes that are not known, or that no frame has, are above every size that is believed.
        if (frame->inText > largestText)
            return false;
        if (place->inText + qint64(frame->inText) > offset)
            return true;
        place->inFile += frame->inFile;
        place->inText += qint64(frame->inText);
    }
    return false;
}

bool ZstdFrames::seek(qint64 offset)
{
    Place place;
    findFrame(offset, &place); // where sizes are not known, the rest is read from there
    beginAt(place.inFile);
    for (qint64 left = offset - place.inText; left > 0;) {
        const int passed = read(int(std::min<qint64>(left, inputSize))).size();
        if (passed == 0)
            return false;
        left -= passed;
    }
    return !m_damaged;
}

ZstdFrames::Damage ZstdFrames::skipDamage()
{
    Damage damage;
    const std::optional<FrameSize> frame = frameAt(m_file, m_frameBegin);
    // A damaged frame may claim any length: the next one is looked for behind its first byte.
    const qint64 next = nextFrame(m_file, m_frameBegin + 1);
    damage.isAtEnd = next < 0;
    const qint64 end = damage.isAtEnd ? m_file.size() : next;
    damage.inFile = end - m_frameBegin;
    // Text that was already read of a huge frame is not lost; how much that was is not known.
    if (frame && frame->inFile == damage.inFile && frame->inText <= largestWhole)
        damage.inText = qint64(frame->inText);
    if (!damage.isAtEnd)
        beginAt(next);
    return damage;
}

qint64 ZstdFrames::textSize() const
{
    Place place;
    findFrame(std::numeric_limits<qint64>::max(), &place);
    return place.inFile == m_file.size() ? place.inText : -1;
}

} // namespace Monitor
