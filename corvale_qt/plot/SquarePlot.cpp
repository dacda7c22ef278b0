// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/LayoutWhenShown_p.h"
#include "corvale_qt/plot/SquarePlot_p.h"

#include <qwt_plot_layout.h>

namespace Corvale_Qt {

namespace {

//! Makes the canvas square in the layout, since it changes with the width of axis labels, not only with the widget's size.
class SquareCanvasLayout : public QwtPlotLayout
{
public:
    void activate(const QwtPlot *plot, const QRectF &plotRect, Options options) override
    {
        QwtPlotLayout::activate(plot, plotRect, options);
        const QSize canvas = canvasRect().toAlignedRect().size();
        const int side = std::min(canvas.width(), canvas.height());
        const QPoint excess(canvas.width() - side, canvas.height() - side);
        if (side <= 0 || excess.isNull())
            return;
        QRectF square(plotRect);
        square.setSize(plotRect.size() - QSizeF(excess.x(), excess.y()));
        square.translate(excess / 2);
        QwtPlotLayout::activate(plot, square, options);
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
