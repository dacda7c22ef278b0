// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_scale_map.h>

#include <QVector>

namespace Corvale_Qt {

struct ColumnSpans;

//! Which rows fall on which pixel columns, for x that only rises.
class PixelColumns
{
public:
    struct Edge
    {
        int column; //!< pixel
        int first; //!< the first row on it, counted from the first row of the spans
    };

    /*! Finds the columns from \a left to \a right of the rows \a from to \a to, with one row beyond either edge,
        so that lines run to the border. It searches rather than reads: the work is one search for a column.

        \a version tells when x has changed (0: always); the columns of the last call are kept, since all
        channels of a chart ask for the same ones. */
    void find(const ColumnSpans &x,
              quint64 version,
              int from,
              int to,
              const QwtScaleMap &map,
              int left,
              int right);

    const QVector<Edge> &edges() const { return m_edges; }
    //! One past the last row of the last column.
    int end() const { return m_end; }

private:
    struct Request
    {
        quint64 version = 0;
        const double *memory = nullptr;
        int from = 0;
        int to = 0;
        double s1 = 0, s2 = 0, p1 = 0, p2 = 0;
        int left = 0;
        int right = 0;

        bool operator==(const Request &other) const;
    };

    Request m_request;
    QVector<Edge> m_edges;
    int m_end = 0;
};

} // namespace Corvale_Qt
