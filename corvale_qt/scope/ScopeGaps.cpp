// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/ScopeCurves_p.h"
#include "corvale_qt/scope/ScopeGaps_p.h"

#include <qwt_plot.h>

#include <QCoreApplication>

namespace Corvale_Qt {

ScopeGaps::ScopeGaps(QwtPlot *plot)
    : m_plot(plot)
{
    m_bands.setText(QCoreApplication::translate("Corvale_Qt::RVXScopePlotView", "no readings"));
}

void ScopeGaps::setIntervals(double intervals)
{
    m_strip.setIntervals(intervals);
    m_sweep.setIntervals(intervals);
    if (!m_strip.areSought())
        hide();
}

const TimeGaps &
ScopeGaps::showStrip(ScopeCurves &curves, const PlotDataReader &reader, RowRange rows, int lastRow)
{
    m_strip.update(reader, lastRow);
    show(m_strip, curves, reader, rows);
    return m_strip;
}

const TimeGaps &ScopeGaps::showSweep(ScopeCurves &curves, const PlotDataReader &reader, int size)
{
    m_sweep.restart();
    m_sweep.update(reader, size);
    show(m_sweep, curves, reader, {1, size});
    return m_sweep;
}

void ScopeGaps::hide()
{
    m_bands.detach();
}

void ScopeGaps::show(const TimeGaps &gaps,
                     ScopeCurves &curves,
                     const PlotDataReader &reader,
                     RowRange rows)
{
    QVector<int> &breaks = curves.breaks();
    breaks.resize(0); // keeps its memory
    m_bands.clear();
    gaps.forEach({rows.first + 1, rows.last}, [&](int row) {
        double x[2];
        reader.read(0, row - 1, 2, x);
        breaks.append(row - rows.first);
        if (x[0] < x[1]) // time may step back
            m_bands.add({x[0], x[1]});
    });
    if (m_bands.bands().isEmpty())
        m_bands.detach();
    else if (!m_bands.plot())
        m_bands.attach(m_plot);
}

} // namespace Corvale_Qt
