// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: the ways in which the scope plot view plots.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/scope/HistogramStatistics_p.h"
#include "corvale_qt/scope/StripWindow_p.h"

#include <QVector>

class QWidget;

namespace Corvale_Qt {

class BarSeries;
class RVXScopePlotViewPrivate;

//! One way of showing the model. Each is made once for a view and is told when it is its turn.
class ScopePlotMode
{
public:
    explicit ScopePlotMode(RVXScopePlotViewPrivate &view);
    virtual ~ScopePlotMode();

    //! Sets up axes and widgets, and takes away what another mode has drawn.
    virtual void enter() = 0;
    //! Draws the model as it is now.
    virtual void plot() = 0;
    //! Takes away what was drawn: there is nothing to draw.
    virtual void clear() = 0;
    //! Moves a marker by samples, or by bars.
    virtual void moveMarker(int index, int steps);
    //! Scrolls to the sample at \a x, if the mode can and must; whether it did.
    virtual bool showSample(double x);

protected:
    RVXScopePlotViewPrivate &d;
};

//! What strip chart and sweeps share: curves over time.
class TimePlotMode : public ScopePlotMode
{
public:
    using ScopePlotMode::ScopePlotMode;
    void enter() override;

protected:
    //! Axis titles, markers and axes, once the curves are drawn.
    void finish(double left, double right);
    void setStripAxisTitles();
};

//! A chart that scrolls with the newest sample, or stands where it was scrolled back to.
class StripPlotMode : public TimePlotMode
{
public:
    using TimePlotMode::TimePlotMode;
    void enter() override;
    void plot() override;
    void clear() override;
    void moveMarker(int index, int steps) override;
    bool showSample(double x) override;

private:
    double m_scrollUnits = kScrollUnits; //!< of the scroll bar's value
};

//! Complete sweeps, one after the other.
class SweepPlotMode : public TimePlotMode
{
public:
    using TimePlotMode::TimePlotMode;
    void enter() override;
    void plot() override;
    void clear() override;
    void moveMarker(int index, int steps) override;

private:
    void drawAgain(int lastRow);
    void draw();
};

//! The newest sample, one bar a channel, with statistics.
class HistogramPlotMode : public ScopePlotMode
{
public:
    explicit HistogramPlotMode(RVXScopePlotViewPrivate &view);
    void enter() override;
    void plot() override;
    void clear() override;
    void moveMarker(int index, int steps) override;

private:
    void readChannels(int channels, int row);
    void drawBars();
    double plotDivisor() const;
    void showStatistics(int row);
    void showMarkers(int row);
    void describeMarker(int index, int row);
    QString barText(int channel, int row) const;
    int markerChannel(int index) const;

    BarSeries *m_series; //!< the histogram's
    QVector<double> m_readings; //!< a NaN where a channel has none, or is not shown
    HistogramBars m_bars;
};

//! A companion widget in place of the plot.
class CompanionPlotMode : public ScopePlotMode
{
public:
    CompanionPlotMode(RVXScopePlotViewPrivate &view, QWidget *companion);
    void enter() override;
    void plot() override;
    void clear() override;

private:
    QWidget *m_companion;
};

} // namespace Corvale_Qt
