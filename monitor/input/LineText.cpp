// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/LineText.h"

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
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
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
