// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_interval.h>
#include <qwt_plot_item.h>

#include <QVector>

namespace Corvale_Qt {

//! Draws limits as horizontal lines: warnings amber and dashed, alarms red and solid.
class LimitLines : public QwtPlotItem
{
public:
    //! A limit over a range of x.
    struct Line
    {
        double y = 0.0;
        bool isAlarm = false;
        QwtInterval x; //!< invalid for the whole width of the canvas

        bool operator==(const Line &other) const
        {
            return y == other.y && isAlarm == other.isAlarm && x == other.x;
        }
    };

    LimitLines();

    //! Removes all lines.
    void clear() { m_lines.resize(0); }
    //! Adds a line, unless there is the same one.
    void add(const Line &line);
    const QVector<Line> &lines() const { return m_lines; }

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    QVector<Line> m_lines;
};

} // namespace Corvale_Qt
