// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: how many samples come at once.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <array>

namespace Corvale_Qt {

/*! The sizes of the last batches of rows that a model has appended. Their median is how many samples a strip chart
    shows of a model without a wish of its own: one odd batch does not change it. */
class BatchSizes
{
public:
    //! Fewer rows at once are no batch.
    static constexpr int smallest = 6;

    void add(int rows);
    void clear() { m_count = 0; }
    //! The median, rounded down; 0 where there was no batch.
    int median() const;

private:
    static constexpr int kept = 16;

    std::array<int, kept> m_sizes{};
    int m_count = 0; //!< of all batches so far
};

} // namespace Corvale_Qt
