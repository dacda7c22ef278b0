// SPDX-License-Identifier: LGPL-2.1-or-later
// The header of QCustomPlot uses Qt's short keywords.
#undef QT_NO_KEYWORDS
#undef QT_NO_FOREACH
#include "WindowPeer.h"

#include <qcustomplot.h>

namespace {

//! Adds and removes points as the library's example of data in real time does.
class CustomPlotWindow : public WindowPeer
{
public:
    CustomPlotWindow()
    {
        m_plot.setBackground(Qt::black);
        m_plot.setNotAntialiasedElements(QCP::aeAll);
        m_plot.setNoAntialiasingOnDrag(true);
        m_plot.yAxis->setRange(-5.0, 2.0 * channels + 5.0);
        for (QCPAxis *axis : {m_plot.xAxis, m_plot.yAxis}) {
            axis->setBasePen(QPen(Qt::white));
            axis->setTickPen(QPen(Qt::white));
            axis->setTickLabelColor(Qt::white);
        }
        for (int channel = 0; channel < channels; ++channel) {
            QCPGraph *graph = m_plot.addGraph();
            graph->setPen(QPen(color(channel), 1.0));
            graph->setAdaptiveSampling(true);
        }
    }

    QWidget &widget() override { return m_plot; }
    void append(double time, const double *values) override
    {
        for (int channel = 0; channel < channels; ++channel)
            m_plot.graph(channel)->addData(time, values[channel]);
    }
    void draw(double newest) override
    {
        for (int channel = 0; channel < channels; ++channel)
            m_plot.graph(channel)->data()->removeBefore(newest - span);
        m_plot.xAxis->setRange(newest - span, newest);
        m_plot.replot();
    }

private:
    QCustomPlot m_plot;
};

} // namespace

std::unique_ptr<WindowPeer> makeCustomPlotWindow()
{
    return std::make_unique<CustomPlotWindow>();
}
