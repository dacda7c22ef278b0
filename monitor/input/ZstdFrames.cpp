// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/ZstdFrames.h"

#include <QFile>

#include <algorithm>
#include <limits>
#include <string_view>
#include <zstd.h>

namespace Monitor {

namespace {

constexpr int inputSize = 128 * 1024;
//! Frames that ask for more memory than this to be read are not ours and count as damage.
constexpr int largestWindow = 27; // power of two
//! A frame that claims to hold more text than any disk is not believed.
constexpr unsigned long long largestText = 1ULL << 50;
const char magic[] = "\x28\xb5\x2f\xfd";
constexpr int magicSize = 4;

//! A file in memory, for looking at the sizes of its frames.
class MappedFile
{
public:
    explicit MappedFile(QFile &file)
        : m_file(file)
        , m_size(file.size())
        , m_bytes(m_size > 0 ? file.map(0, m_size) : nullptr)
    {
    }
    ~MappedFile()
    {
        if (m_bytes)
            m_file.unmap(m_bytes);
    }
    MappedFile(const MappedFile &) = delete;
    MappedFile &operator=(const MappedFile &) = delete;

    qint64 size() const { return m_bytes ? m_size : 0; }
    const uchar *at(qint64 offset) const { return m_bytes + offset; }

private:
    QFile &m_file;
    const qint64 m_size;
    uchar *const m_bytes;
};

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
    ZSTD_outBuffer out{text.data(), std::size_t(size), 0};
    while (!m_damaged && out.pos < out.size) {
        if (!refill()) {
            m_damaged = m_insideFrame; // cut off
            break;
        }
        ZSTD_inBuffer in{m_input.constData(), std::size_t(m_input.size()), m_taken};
        const std::size_t before = out.pos;
        const std::size_t result = ZSTD_decompressStream(m_decoder->context, &out, &in);
        m_damaged = ZSTD_isError(result) != 0;
        m_insideFrame = result != 0;
        // The decoder may still hold text when it has taken all of the input.
        const bool stuck = in.pos == m_taken && out.pos == before;
        m_damaged = m_damaged || stuck;
        m_taken = in.pos;
        if (!m_insideFrame)
            m_frameBegin = m_inputBegin + qint64(m_taken);
    }
    text.truncate(int(out.pos));
    return text;
}

//! Finds the frame that holds that byte of the text. Returns false if none can be named.
bool ZstdFrames::findFrame(qint64 offset, Place *place) const
{
    const MappedFile file(m_file);
    while (place->inFile < file.size()) {
        const uchar *frame = file.at(place->inFile);
        const auto rest = std::size_t(file.size() - place->inFile);
        const unsigned long long text = ZSTD_getFrameContentSize(frame, rest);
        const std::size_t length = ZSTD_findFrameCompressedSize(frame, rest);
        const bool known = text != ZSTD_CONTENTSIZE_UNKNOWN && text != ZSTD_CONTENTSIZE_ERROR
            && !ZSTD_isError(length) && text <= largestText;
        if (!known)
            return false;
        if (place->inText + qint64(text) > offset)
            return true;
        place->inFile += qint64(length);
        place->inText += qint64(text);
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

qint64 ZstdFrames::skipDamage()
{
    const MappedFile file(m_file);
    if (file.size() == 0)
        return 0;
    const std::string_view bytes(reinterpret_cast<const char *>(file.at(0)),
                                 std::size_t(file.size()));
    // A damaged frame may claim any length: the next one is looked for behind its first byte.
    std::size_t next = bytes.find({magic, magicSize}, std::size_t(m_frameBegin) + 1);
    while (next != std::string_view::npos
           && ZSTD_isError(ZSTD_findFrameCompressedSize(bytes.data() + next, bytes.size() - next)))
        next = bytes.find({magic, magicSize}, next + 1);
    if (next == std::string_view::npos)
        return 0;
    const qint64 passed = qint64(next) - m_frameBegin;
    beginAt(qint64(next));
    return passed;
}

qint64 ZstdFrames::textSize() const
{
    Place place;
    findFrame(std::numeric_limits<qint64>::max(), &place);
    return place.inFile == m_file.size() ? place.inText : -1;
}

} // namespace Monitor
