// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/FuzzMutator.h"

#include <algorithm>
#include <iterator>

namespace {

//! Texts that parsers often get wrong: limits of number ranges, quotes, separators, broken and wide UTF-8.
const std::string kPieces[] = {
    std::string(1, '\0'),
    "-1",
    "2147483648",
    "-2147483649",
    "1e309",
    "nan",
    "inf",
    "%n",
    "\"",
    "'",
    ",",
    ";",
    "\r\n",
    "\n",
    "\t",
    "=",
    "<",
    "]]>",
    "&#0;",
    "(",
    ")*",
    "[",
    "\\",
    "{1,99999}",
    "\xff",
    "\xc3",
    "\xe2\x82\xac",
    "\xf0\x9f\x92\xa5",
    "\xef\xbb\xbf",
    "\xe2\x80\xa8",
};

} // namespace

FuzzMutator::FuzzMutator(std::vector<std::string> seeds)
    : m_seeds(std::move(seeds))
{
    m_seeds.push_back(std::string());
}

size_t FuzzMutator::below(size_t limit)
{
    return limit ? m_random() % limit : 0;
}

std::string FuzzMutator::next()
{
    if (m_given < m_seeds.size())
        return m_seeds[m_given++];
    std::string input = m_seeds[below(m_seeds.size())];
    for (size_t left = 1 + below(6); left > 0; --left)
        mutate(input);
    input.resize(std::min(input.size(), kMaximumSize));
    return input;
}

void FuzzMutator::mutate(std::string &input)
{
    const size_t at = below(input.size() + 1);
    const size_t length = below(std::min<size_t>(input.size() - at, 32) + 1);
    switch (below(7)) {
    case 0:
        if (at < input.size())
            input[at] = char(input[at] ^ (1 << below(8)));
        break;
    case 1:
        if (at < input.size())
            input[at] = char(below(256));
        break;
    case 2:
        input.insert(at, 1, char(below(256)));
        break;
    case 3:
        input.insert(at, kPieces[below(std::size(kPieces))]);
        break;
    case 4:
        input.erase(at, length);
        break;
    case 5:
        for (size_t copies = 1 + below(8); copies > 0; --copies)
            input.insert(at, input.substr(at, length));
        break;
    default:
        splice(input);
    }
}

//! Replaces the end of \a input by the end of a seed.
void FuzzMutator::splice(std::string &input)
{
    const std::string &other = m_seeds[below(m_seeds.size())];
    input.resize(below(input.size() + 1));
    input += other.substr(below(other.size() + 1));
}
