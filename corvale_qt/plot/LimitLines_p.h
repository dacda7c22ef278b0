// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_interval.h>
#include <qwt_plot_item.h>

#include <QVector>

#include <vector>

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

        //! Orders all lines that differ, by their height first.
        bool isBelow(const Line &other) const;
    };

    LimitLines();

    //! Removes all lines.
    void clear();
    //! Returns whether there is the same line.
    bool contains(const Line &line) const;
    //! Adds a line, unless there is the same one.
    void add(const Line &line);
    const QVector<Line> &lines() const { return m_lines; }

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    std::vector<int>::const_iterator find(const Line &line) const;

    QVector<Line> m_lines; //!< in the order in which they are drawn
    std::vector<int> m_fromBelow; //!< their places there, from the lowest line on
};

} // namespace Corvale_Qt
