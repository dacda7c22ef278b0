// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <random>
#include <string>
#include <vector>

/*! Makes inputs out of seeds, always the same ones in the same order: std::mt19937 from a fixed seed, and no
    distribution of the standard library, whose results differ between implementations. */
class FuzzMutator
{
public:
    explicit FuzzMutator(std::vector<std::string> seeds);

    //! First each seed as it is, then mutations of them, of at most kMaximumSize bytes.
    std::string next();

    static constexpr size_t kMaximumSize = 4096;

private:
    size_t below(size_t limit);
    void mutate(std::string &input);
    void splice(std::string &input);

    std::vector<std::string> m_seeds;
    size_t m_given = 0;
    std::mt19937 m_random{20151u};
};
