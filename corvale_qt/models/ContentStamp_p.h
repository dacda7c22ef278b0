// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/RVXBulkPlotData.h"

namespace Corvale_Qt {

/*! Says whether numbers in a ring are still those that they were: as long as value() stays, every number that the ring has taken
    is the same, and the ring has only dropped its oldest numbers and taken new ones. A copy of a ring goes on by itself, so
    that it gets another stamp. */
class ContentStamp
{
public:
    ContentStamp() = default;
    ContentStamp(const ContentStamp &) { }
    ContentStamp(ContentStamp &&other) noexcept
        : m_value(other.m_value)
    {
        other.renew();
    }
    ContentStamp &operator=(const ContentStamp &other)
    {
        if (this != &other)
            renew();
        return *this;
    }
    ContentStamp &operator=(ContentStamp &&other) noexcept
    {
        m_value = other.m_value;
        other.renew();
        return *this;
    }
    ~ContentStamp() = default;

    //! Returns a number that no other stamp returns; never 0.
    quint64 value() const { return m_value; }
    //! Says that a number was changed, or counted anew.
    void renew() { m_value = RVXBulkPlotData::newXVersion(); }

private:
    quint64 m_value = RVXBulkPlotData::newXVersion();
};

} // namespace Corvale_Qt
