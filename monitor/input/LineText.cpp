// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/LineText.h"

#include "monitor/input/DecimalNumber.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace Monitor {

namespace {

bool isSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

void splitAtCommas(std::string_view line, std::vector<std::string_view> *fields)
{
    for (;;) {
        const std::size_t comma = line.find(',');
        fields->push_back(trimmed(line.substr(0, comma)));
        if (comma == std::string_view::npos)
            return;
        line.remove_prefix(comma + 1);
    }
}

void splitAtSpaces(std::string_view line, std::vector<std::string_view> *fields)
{
    auto begin = line.begin();
    while (begin != line.end()) {
        const auto end = std::find_if(begin, line.end(), isSpace);
        fields->push_back(line.substr(std::size_t(begin - line.begin()), std::size_t(end - begin)));
        begin = std::find_if_not(end, line.end(), isSpace);
    }
}

/*! Returns whether a number that is out of range is too small rather than too large. The place of its first digit other
    than 0 and its exponent decide, whatever their size. */
bool isTooSmall(std::string_view number)
{
    const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
    const std::string_view digits = number.substr(0, mark);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = digits.find_first_of("123456789");
    const long place = long(point) - long(first);

    std::string_view exponentText = number.substr(std::min(mark + 1, number.size()));
    if (!exponentText.empty() && exponentText.front() == '+')
        exponentText.remove_prefix(1);
    long exponent = 0;
    const auto [end, error] =
        std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    Q_UNUSED(end)
    if (error == std::errc::result_out_of_range)
        return exponentText.front() == '-';
    return exponent + place < 0;
}

} // namespace

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

void splitFields(std::string_view line, std::vector<std::string_view> *fields)
{
    fields->clear();
    line = trimmed(line);
    if (line.empty())
        return;
    if (line.find(',') != std::string_view::npos)
        splitAtCommas(line, fields);
    else
        splitAtSpaces(line, fields);
}

bool parseNumber(std::string_view text, double *number)
{
    if (text.empty()) {
        *number = std::numeric_limits<double>::quiet_NaN();
        return true;
    }
    const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-';
    if (plus)
        text.remove_prefix(1);
    double value = 0.0;
    if (readDecimal(text.data(), text.data() + text.size(), &value) == text.data() + text.size()) {
        *number = value;
        return true;
    }
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size())
        return false;
    if (error == std::errc::result_out_of_range && isTooSmall(text))
        value = text.front() == '-' ? -0.0 : 0.0;
    else if (error != std::errc())
        return false;
    *number = value;
    return true;
}

QByteArray escapedExcerpt(std::string_view text, int length)
{
    const bool cut = int(text.size()) > length;
    QByteArray escaped;
    for (const char c : text.substr(0, std::size_t(length))) {
        const bool printable = c >= 0x20 && c < 0x7f;
        if (printable)
            escaped += c;
        else
            escaped += "\\x" + QByteArray::number(uchar(c), 16).rightJustified(2, '0');
    }
    return cut ? escaped + "..." : escaped;
}

} // namespace Monitor
