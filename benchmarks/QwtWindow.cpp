// SPDX-License-Identifier: LGPL-2.1-or-later
#include "WindowPeer.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_series_data.h>

#include <array>
#include <vector>

namespace {

//! The readings of a minute and a bit more, in rings.
struct Rings
{
    static constexpr std::size_t capacity = 65536;

    std::vector<double> times = std::vector<double>(capacity);
    std::array<std::vector<double>, WindowPeer::channels> values;
    std::size_t first = 0; // of all that ever came
    std::size_t end = 0;
};

//! A channel, read in place, as the library's documentation advises for data that grow.
class RingSeries : public QwtSeriesData<QPointF>
{
public:
    RingSeries(const Rings &rings, int channel)
        : m_rings(rings)
        , m_values(rings.values[std::size_t(channel)])
    {
    }
    std::size_t size() const override { return m_rings.end - m_rings.first; }
    QPointF sample(std::size_t i) const override
    {
        const std::size_t place = (m_rings.first + i) % Rings::capacity;
        return {m_rings.times[place], m_values[place]};
    }
    //! The scales are set, so that nobody needs it.
    QRectF boundingRect() const override { return {0.0, 0.0, 1.0, 1.0}; }

private:
    const Rings &m_rings;
    const std::vector<double> &m_values;
};

class QwtWindow : public WindowPeer
{
public:
    QwtWindow()
    {
        m_plot.setCanvasBackground(Qt::black);
        m_plot.setAxisScale(QwtPlot::yLeft, -5.0, 2.0 * channels + 5.0);
        auto *grid = new QwtPlotGrid;
        grid->setMajorPen(QPen(Qt::darkGray));
        grid->attach(&m_plot);
        for (int channel = 0; channel < channels; ++channel) {
            m_rings.values[std::size_t(channel)].resize(Rings::capacity);
            auto *curve = new QwtPlotCurve;
            curve->setPen(QPen(color(channel), 1.0));
            curve->setPaintAttribute(QwtPlotCurve::FilterPoints, true); // the fast setting
            curve->setData(new RingSeries(m_rings, channel));
            curve->attach(&m_plot);
        }
    }

    QWidget &widget() override { return m_plot; }
    void append(double time, const double *values) override
    {
        const std::size_t place = m_rings.end++ % Rings::capacity;
        m_rings.times[place] = time;
        for (std::size_t channel = 0; channel < channels; ++channel)
            m_rings.values[channel][place] = values[channel];
        while (m_rings.times[m_rings.first % Rings::capacity] < time - span)
            ++m_rings.first;
    }
    void draw(double newest) override
    {
        m_plot.setAxisScale(QwtPlot::xBottom, newest - span, newest);
        m_plot.replot();
    }

private:
    Rings m_rings;
    QwtPlot m_plot;
};

} // namespace

std::unique_ptr<WindowPeer> makeQwtWindow()
{
    return std::make_unique<QwtWindow>();
}

#ifndef HAVE_QCUSTOMPLOT
std::unique_ptr<WindowPeer> makeCustomPlotWindow()
{
    return nullptr;
}
#endif
