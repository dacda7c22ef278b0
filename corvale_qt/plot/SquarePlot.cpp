// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/LayoutWhenShown_p.h"
#include "corvale_qt/plot/SquarePlot_p.h"

#include <qwt_plot_layout.h>

#include <QMargins>

#include <algorithm>

namespace Corvale_Qt {

namespace {

/*! Makes the canvas square in the layout, since it changes with the width of axis labels, not only with the widget's size. A second layout
    in a smaller rectangle would break a long title into more lines, and give the canvas another shape again. */
class SquareCanvasLayout : public QwtPlotLayout
{
public:
    void activate(const QwtPlot *plot, const QRectF &plotRect, Options options) override
    {
        QwtPlotLayout::activate(plot, plotRect, options);
        const QRect canvas = canvasRect().toAlignedRect();
        const int side = std::min(canvas.width(), canvas.height());
        const QSize excess = canvas.size() - QSize(side, side);
        if (side > 0 && !excess.isNull())
            shrink(QMargins(excess.width() / 2,
                            excess.height() / 2,
                            excess.width() - excess.width() / 2,
                            excess.height() - excess.height() / 2));
    }

private:
    //! Moves the edges of the canvas inwards, and what lies along each edge with it.
    void shrink(const QMargins &by)
    {
        const double left = by.left(), top = by.top(), right = by.right(), bottom = by.bottom();
        setCanvasRect(canvasRect().toAlignedRect().marginsRemoved(by));
        setScaleRect(QwtPlot::yLeft, scaleRect(QwtPlot::yLeft).adjusted(left, top, left, -bottom));
        setScaleRect(QwtPlot::yRight,
                     scaleRect(QwtPlot::yRight).adjusted(-right, top, -right, -bottom));
        setScaleRect(QwtPlot::xTop, scaleRect(QwtPlot::xTop).adjusted(left, top, -right, top));
        setScaleRect(QwtPlot::xBottom,
                     scaleRect(QwtPlot::xBottom).adjusted(left, -bottom, -right, -bottom));
        setTitleRect(titleRect().translated(0, top));
        setFooterRect(footerRect().translated(0, -bottom));
    }
};

} // namespace

SquarePlot::SquarePlot(QWidget *parent)
    : QwtPlot(parent)
{
    setPlotLayout(new SquareCanvasLayout);
    new LayoutWhenShown(this);
    plotLayout()->setAlignCanvasToScales(true);
    setMinimumSize(100, 100); // Qwt's hint is large enough for every label
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

SquarePlot::~SquarePlot() = default;

void SquarePlot::resizeEvent(QResizeEvent *event)
{
    QwtPlot::resizeEvent(event);
    updateLayout();
}

} // namespace Corvale_Qt
