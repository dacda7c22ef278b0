// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/TextWidths_p.h"
#include "corvale_qt/plot/TimeTicks_p.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <utility>

class QwtPlot;

namespace Corvale_Qt {

class ScopeModel;

/*! What the x axis of a chart says: seconds as the model has them, the time before the newest reading, or the time of a
    clock. The last two need a model whose x is a time; the axis of any other has its numbers. */
class ScopeTimeAxis
{
public:
    ScopeTimeAxis(QwtPlot *plot, const ScopeModel &model);

    //! Returns a value of RVXScopePlotView::TimeAxis.
    int kind() const { return m_kind; }
    void setKind(int kind);
    //! Returns the moment at which x is 0; invalid for 1970-01-01 00:00 UTC.
    QDateTime origin() const { return m_origin; }
    void setOrigin(const QDateTime &origin) { m_origin = origin; }

    //! Sets whether x counts from a trigger, so that it is not a moment.
    void setFromTrigger(bool fromTrigger) { m_isFromTrigger = fromTrigger; }

    //! Makes sure that the next range is set, because the axis was another one in between.
    void restart();
    //! Sets range and ticks of the axis. A range that is not finite changes nothing.
    void show(double left, double right);
    //! Sets the range of the axis while there are no samples: from 0 to \a width, or to 1 if that is no width.
    void showEmpty(double width);
    //! Returns the title that goes with the ticks.
    QString title() const;
    //! Returns whether the axis shows something else than the numbers of the model.
    bool isTranslated() const;
    //! Returns the text of \a x, which may differ from others by \a resolution. Only for a translated axis.
    QString text(double x, double resolution) const;

private:
    //! What ticks depend on, beside the kind of the axis and its font.
    struct Division
    {
        TimeAxisRange range;
        TimeScale scale;

        bool operator==(const Division &other) const
        {
            return range == other.range && scale == other.scale;
        }
    };

    TimeScale scale() const;
    void divide(const Division &division);
    void showNumbers(double left, double right);
    bool showTicks(double left, double right);

    QwtPlot *m_plot;
    const ScopeModel &m_model;
    int m_kind = 0;
    QDateTime m_origin;
    bool m_isFromTrigger = false;
    mutable ClockOffsets m_offsets;
    TextWidths m_widths;
    std::optional<Division> m_divided; //!< what the ticks below are for
    TimeTicks m_ticks;
    double m_widestLine = 0.0; //!< of their labels, in pixels
    QString m_unit; //!< of the labels, as TimeTicks gives it
    std::optional<std::pair<double, double>> m_numbered; //!< the range, if Qwt divides it
};

} // namespace Corvale_Qt
