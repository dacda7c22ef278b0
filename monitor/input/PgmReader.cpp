// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/PgmReader.h"

#include "monitor/core/Text.h"
#include "monitor/input/LineText.h"
#include <corvale_qt/detector/DetectorLayout.h>

#include <cmath>
#include <utility>

namespace Monitor {

namespace {

using Corvale_Qt::DetectorLayout;
constexpr int largestOfAll = 65535;
constexpr int largestOfAByte = 255;
constexpr int tooLarge = 1000000; //!< where digits are no longer added up
constexpr std::size_t longestComment = 80;
//! How many bytes are looked at to tell an image by its beginning.
constexpr std::size_t longestBeginning = 64;

bool isSpace(unsigned char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

bool isDigit(unsigned char byte)
{
    return byte >= '0' && byte <= '9';
}

//! Returns the time that the comment "t 0.25" states.
std::optional<double> timeOf(std::string_view comment)
{
    std::vector<std::string_view> words;
    splitFields(comment, &words);
    double time = 0.0;
    const bool isTime =
        words.size() == 2 && words[0] == "t" && parseNumber(words[1], &time) && std::isfinite(time);
    return isTime ? std::optional<double>(time) : std::nullopt;
}

} // namespace

PgmReader::PgmReader(ImageHandler image, FaultHandler fault)
    : m_imageHandler(std::move(image))
    , m_faultHandler(std::move(fault))
{
}

std::optional<bool> PgmReader::suits(std::string_view begin)
{
    constexpr std::size_t magicLength = 2;
    const std::string_view magic = begin.substr(0, magicLength);
    for (const std::string_view known : {"P2", "P5"}) {
        if (known.substr(0, magic.size()) != magic)
            continue;
        std::size_t next = magic.size();
        while (next < begin.size() && isSpace(static_cast<unsigned char>(begin[next])))
            ++next;
        if (next >= longestBeginning)
            return false;
        if (next == begin.size())
            return std::nullopt;
        const bool isHeader =
            isDigit(static_cast<unsigned char>(begin[next])) || begin[next] == '#';
        return next > magicLength && isHeader;
    }
    return false;
}

void PgmReader::restart()
{
    m_state = State::Magic;
    m_magic.clear();
    m_inComment = false;
    m_number.reset();
    m_highByte.reset();
    m_taken = 0;
    m_fault = {};
    m_image = PgmImage();
}

void PgmReader::feed(std::string_view bytes)
{
    while (!bytes.empty() && !isLost()) {
        std::size_t taken = 1;
        if (m_state == State::Binary)
            taken = takeBinary(bytes);
        else
            takeByte(static_cast<unsigned char>(bytes.front()));
        bytes.remove_prefix(taken);
    }
}

void PgmReader::finish()
{
    if (m_state == State::Text && m_number)
        takeTextByte('\n'); // the last number needs no line end
    const bool between = m_state == State::Magic && m_magic.empty();
    if (m_state == State::Text || m_state == State::Binary)
        lose(LoggedText::of([this] {
            return Text::counted("the image ends after %1 of %n value(s)",
                                 nullptr,
                                 qint64(m_image.values.size()))
                .arg(m_taken);
        }));
    else if (!between && !isLost())
        lose(LoggedText::of([] {
            return Text::tr("the image ends in its header");
        }));
    restart();
}

void PgmReader::takeByte(unsigned char byte)
{
    if (m_inComment)
        takeComment(byte);
    else if (byte == '#' && m_state != State::Magic)
        beginComment();
    else if (m_state == State::Magic)
        takeMagic(byte);
    else if (m_state == State::Text)
        takeTextByte(byte);
    else
        takeHeaderByte(byte);
}

void PgmReader::beginComment()
{
    if (m_state == State::Largest && m_number) {
        lose(LoggedText::of([] {
            return Text::tr("a comment follows its largest value without a blank");
        }));
        return;
    }
    takeByte(' '); // it ends a number
    m_inComment = true;
    m_comment.clear();
}

void PgmReader::takeComment(unsigned char byte)
{
    if (byte != '\n' && byte != '\r') {
        if (m_comment.size() < longestComment)
            m_comment += char(byte);
        return;
    }
    m_inComment = false;
    if (const std::optional<double> time = timeOf(m_comment))
        m_image.time = time;
}

void PgmReader::takeMagic(unsigned char byte)
{
    if (m_magic.empty() && isSpace(byte))
        return; // between two images
    if (m_magic.size() < 2) {
        m_magic += char(byte);
        return;
    }
    if ((m_magic != "P2" && m_magic != "P5") || !isSpace(byte))
        lose(LoggedText::of([] {
            return Text::tr("it does not begin with P2 or P5, as grey images do");
        }));
    else
        m_state = State::Columns;
}

void PgmReader::takeHeaderByte(unsigned char byte)
{
    if (isDigit(byte))
        m_number = std::min(m_number.value_or(0) * 10 + (byte - '0'), tooLarge);
    else if (!isSpace(byte))
        lose(LoggedText::of([] {
            return Text::tr("its header has other characters than digits");
        }));
    else if (m_number)
        endNumber();
}

//! Takes a complete number of the header.
void PgmReader::endNumber()
{
    const int number = *std::exchange(m_number, std::nullopt);
    if (m_state == State::Largest) {
        m_largest = number;
        beginRaster();
        return;
    }
    if (number < 1 || number > DetectorLayout::maxSide) {
        lose(LoggedText::of([] {
            return Text::tr("a frame has 1 to %1 rows and columns").arg(DetectorLayout::maxSide);
        }));
        return;
    }
    (m_state == State::Columns ? m_image.columns : m_image.rows) = number;
    m_state = m_state == State::Columns ? State::Rows : State::Largest;
}

void PgmReader::beginRaster()
{
    if (m_largest < 1 || m_largest > largestOfAll) {
        lose(LoggedText::of([] {
            return Text::tr("its largest value must be 1 to %1").arg(largestOfAll);
        }));
        return;
    }
    m_image.values.assign(std::size_t(m_image.rows) * std::size_t(m_image.columns), 0.0);
    m_state = m_magic == "P2" ? State::Text : State::Binary;
}

void PgmReader::takeTextByte(unsigned char byte)
{
    if (isDigit(byte))
        m_number = std::min(m_number.value_or(0) * 10 + (byte - '0'), tooLarge);
    else if (!isSpace(byte))
        lose(LoggedText::of([this] {
            return Text::tr("value %1 is not a number").arg(m_taken + 1);
        }));
    else if (m_number)
        takeValue(*std::exchange(m_number, std::nullopt));
}

//! Takes as many bytes as belong to the image and returns their number.
std::size_t PgmReader::takeBinary(std::string_view bytes)
{
    std::size_t taken = 0;
    while (taken < bytes.size() && m_state == State::Binary) {
        const int byte = static_cast<unsigned char>(bytes[taken++]);
        if (m_largest <= largestOfAByte)
            takeValue(byte);
        else if (m_highByte)
            takeValue(*std::exchange(m_highByte, std::nullopt) * 256 + byte);
        else
            m_highByte = byte;
    }
    return taken;
}

void PgmReader::takeValue(int value)
{
    if (value > m_largest && m_fault.isEmpty())
        m_fault = LoggedText::of([this] {
            return Text::tr("value %1 is above %2, the largest").arg(m_taken + 1).arg(m_largest);
        });
    const int columns = m_image.columns;
    const int row = m_image.rows - 1 - int(m_taken) / columns;
    const int cell = row * columns + int(m_taken) % columns;
    m_image.values[std::size_t(cell)] = value;
    if (++m_taken < m_image.values.size())
        return;
    if (m_fault.isEmpty())
        m_imageHandler(m_image);
    else
        m_faultHandler(m_fault);
    restart();
}

void PgmReader::lose(const LoggedText &fault)
{
    m_faultHandler(fault);
    m_state = State::Lost;
}

} // namespace Monitor
