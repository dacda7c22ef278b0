// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <random>
#include <string>
#include <vector>

/*! Makes inputs from seeds, always the same inputs in the same order. It uses std::mt19937 with a fixed seed and no
    distribution of the standard library, since their results differ between implementations. */
class FuzzMutator
{
public:
    explicit FuzzMutator(std::vector<std::string> seeds);

    //! Returns each seed unchanged at first, then mutations of the seeds, of at most kMaximumSize bytes.
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
