// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QVector>

#include <algorithm>

namespace Corvale_Qt {

/*! Walks forward through the samples to which no line leads from the sample before, given as sorted indexes into a series.
    Samples are counted from the first one that is drawn. */
class LineBreaks
{
public:
    //! \a breaks may be null if there are none; \a from is the first sample that is drawn.
    LineBreaks(const QVector<int> *breaks, int from)
        : m_from(from)
    {
        if (!breaks)
            return;
        m_next = std::lower_bound(breaks->constBegin(), breaks->constEnd(), from);
        m_end = breaks->constEnd();
    }

    //! Returns whether no line leads to sample \a i. The samples of all calls must not fall.
    bool isAt(int i)
    {
        while (m_next != m_end && *m_next - m_from < i)
            ++m_next;
        return m_next != m_end && *m_next - m_from == i;
    }
    /*! Returns how many of the \a count samples from \a first on, for which isAt() was called last, can be drawn as one
        line. */
    int lengthOfLine(int first, int count) const
    {
        const bool isHere = m_next != m_end && *m_next - m_from <= first;
        const int *const after = isHere ? m_next + 1 : m_next;
        return after == m_end ? count : std::min(count, *after - m_from - first);
    }

private:
    int m_from;
    const int *m_next = nullptr;
    const int *m_end = nullptr;
};

} // namespace Corvale_Qt
