// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <array>

namespace Corvale_Qt {

/*! The sizes of the last 16 batches of rows that a model has appended. A strip chart shows the median of them if the
    model does not say how many samples to show: a single odd batch does not change it. */
class BatchSizes
{
public:
    //! Fewer rows at once do not count as a batch.
    static constexpr int smallest = 6;

    void add(int rows);
    void clear() { m_count = 0; }
    //! Returns the median, rounded down; 0 before the first batch.
    int median() const;

private:
    static constexpr int kept = 16;

    std::array<int, kept> m_sizes{};
    int m_count = 0; //!< of all batches so far
};

} // namespace Corvale_Qt
