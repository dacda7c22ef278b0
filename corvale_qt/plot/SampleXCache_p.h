// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QVector>

class QwtScaleMap;

namespace Corvale_Qt {

struct ColumnSpans;

/*! Where samples lie across the canvas. All channels of a chart have the same time stamps, so what was found for
    one is kept for the next. */
class SampleXCache
{
public:
    /*! Of all samples of \a x, in pixels, rounded as Qwt rounds if \a whole; a NaN for what is not finite.
        \a version tells when x has changed (0: always). Good until the next call. */
    const double *find(const ColumnSpans &x, quint64 version, const QwtScaleMap &map, bool whole);
    //! Whether all of those found last are finite.
    bool areFinite() const { return m_finite; }

private:
    struct Request
    {
        quint64 version = 0;
        const double *memory = nullptr;
        int count = 0;
        double s1 = 0, s2 = 0, p1 = 0, p2 = 0;
        bool whole = false;

        bool operator==(const Request &other) const;
    };

    Request m_request;
    QVector<double> m_positions;
    bool m_finite = false;
};

} // namespace Corvale_Qt
