// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// +------------------------------------------------------------------------------------+
// | This file is not part of the interface: it may change, or go, without notice.      |
// +------------------------------------------------------------------------------------+

#include <qwt_plot.h>
#include <qwt_plot_item.h>

#include <QColor>

namespace Corvale_Qt {

/*! One value as a bar from 0, with the value's text at its end and a line through 0. */
class SplitItem : public QwtPlotItem
{
public:
    explicit SplitItem(const QColor &color);

    double value() const { return m_value; }
    void setValue(double value) { m_value = value; }

    int rtti() const override;
    //! As far on either side of 0, so that an automatic axis keeps 0 in the middle.
    QRectF boundingRect() const override;
    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    void drawText(QPainter *painter,
                  const QRectF &canvasRect,
                  const QRectF &bar,
                  double zero,
                  double end) const;

    QColor m_color;
    double m_value = 0;
};

/*! A small plot of one split indicator. */
class SplitPlot : public QwtPlot
{
    Q_OBJECT

public:
    //! \a index, counted from 0, chooses the colour.
    explicit SplitPlot(int index, QWidget *parent = nullptr);
    ~SplitPlot() override;

    SplitItem *item() const { return m_item; }
    //! Stores the value and paints it.
    void show(double value);
    using QwtPlot::show;

private:
    SplitItem *m_item; // belongs to the plot
};

} // namespace Corvale_Qt
