// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/detector/BeamVerdict.h"
#include "corvale_qt/numerics/BeamEstimate.h"
#include "corvale_qt/numerics/FitStatus.h"
#include "corvale_qt/scope/statistics/RVX_HistogramItem.h"

#include <qwt_scale_draw.h>

#include <QColor>
#include <QString>

#include <memory>

namespace Corvale_Qt {

class RVX_HistogramItemAxisWidget;
class RVX_StatisticsHistogramItemPrivate;
struct ProfileFit;

/*! Base class of the beam statistics of a histogram: a marker at the position, ticks on an axis widget (at the position
    and one and three sigma to each side of it) and a label with the numbers, or with the reason for their absence.

    The getters of an item that belongs to an RVXScopePlotView return the result for the newest sample of the view's model.
    They compute it if that has not been done yet, whether or not the view shows it. Those of an item that a host has created
    return the result of the last compute(). */
class CORVALE_QT_EXPORT RVX_StatisticsHistogramItem : public RVX_HistogramItem
{
public:
    //! Draws the ticks of the axis widget, without labels: the label of the item explains them.
    class CORVALE_QT_EXPORT ScaleDraw : public QwtScaleDraw
    {
    public:
        //! Sets the lengths of the ticks: 12 pixels for the position, 8 for one sigma and 5 for three sigma.
        ScaleDraw();
        QwtText label(double value) const override;
    };

    ~RVX_StatisticsHistogramItem() override;
    RVX_StatisticsHistogramItem(const RVX_StatisticsHistogramItem &) = delete;
    RVX_StatisticsHistogramItem &operator=(const RVX_StatisticsHistogramItem &) = delete;

    void attach(QwtPlot *plot) override;
    void detach() override;
    //! Returns the rich text of the label.
    virtual QString label() const = 0;

    //! Returns whether there is an outcome; false without a sample, before the first compute() and after clear().
    bool isComputed() const;
    //! Returns the fit. Its positions and widths are in bins of the item's group of channels; the first bin is at 0.
    const ProfileFit &fit() const;
    /*! Returns FitStatus::Ok for a result, FitStatus::NotComputed while isComputed() is false, and otherwise the reason why
        there is no result. */
    FitStatus status() const;
    //! Returns the reason why there is no result as a translated text; empty for a result.
    QString statusMessage() const;
    /*! Returns the row of the sample that the result belongs to, in the view's model. It is 0 while isComputed() is false
        and for an item that belongs to no view. */
    int row() const;
    //! Returns x of that sample in the unit of x, usually its time in seconds; NaN where row() is 0.
    double time() const;
    //! Returns the first channel of the item's group, counted from 1; 0 while isComputed() is false.
    int firstChannel() const;
    //! Returns how many channels the group has, those that are not shown included; they count as 0.
    int channelCount() const;
    /*! Returns the estimate on the places of the detector (RVXScopePlotView::setDetectorLayout()), in positionUnit(). Its status is
        not Ok if the channels have no places. */
    BeamEstimate estimate() const;
    //! Returns the verdict on estimate(); NotValid, without a reason, if the channels have no places.
    BeamVerdict verdict() const;
    //! Returns the unit of estimate(), for example "mm" or "cells"; empty if the channels have no places.
    QString positionUnit() const;
    /*! Returns the position on the x axis of the plot, where channel k is at k, or at the place of its strip. Without a result it is the middle of
        the item's channels. */
    double position() const;
    /*! Returns whether signalToNoise() and noiseDeviation() were computed. They need a result, full statistics, a bar
        within three sigma and at least two bars beyond. */
    bool hasSignalToNoise() const;
    /*! Returns the sum of the n bars within three sigma, divided by the noise of such a sum, sqrt(n) noiseDeviation().
        Returns 1 if it was not computed, and infinity if the bars beyond three sigma are all alike. */
    double signalToNoise() const;
    //! Returns the standard deviation of the bars beyond three sigma, in the unit of the bars.
    double noiseDeviation() const;
    //! Removes the result, and the marker, the ticks and the numbers that show it.
    void clear();

    /*! Sets the symbol of the bars' unit as plain text, for the label; empty for no unit. The label shows it from the
        next compute() on. */
    void setValueUnit(const QString &name);
    //! Returns the symbol of the bars' unit; empty unless set.
    QString valueUnit() const;
    /*! Sets the number by which the plot divides the bars; the item's marker and curve are divided by it too, from the
        next compute() on. The results and the label are not divided. A divisor that is not above 0 is ignored. */
    void setPlotDivisor(double divisor);
    //! Returns the divisor of the marker and the curve; 1 unless set.
    double plotDivisor() const;
    /*! Sets what 1 in the unit of the limits is in the unit of the bars: the lowest peak and the lowest sum are multiplied
        by it, from the next compute() on. A view whose bars are in nanoampere sets 1e9, so that limits in ampere select
        the same beams whatever the unit of display. A factor that is not above 0 and finite is ignored. */
    void setLimitFactor(double factor);
    //! Returns the factor of the limits; 1 unless set.
    double limitFactor() const;

    //! Returns the translated text of a failure; empty for FitStatus::Ok and FitStatus::NotComputed.
    static QString messageOf(FitStatus status);

protected:
    /*! Creates an item with a marker in \a color. \a title names the estimator. \a axisWidget shows the ticks and the
        label; it is not owned and may be null. */
    RVX_StatisticsHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                const QString &title,
                                const QColor &color,
                                bool fullStatistics);

    /*! Stores the outcome of a computation, shows it and returns whether \a status is FitStatus::Ok. A \a message that
        is not empty replaces the text of the status. */
    bool take(int offset,
              const ProfileFit &fit,
              FitStatus status,
              double axisUpper,
              const QString &message = QString());
    //! Writes the label into the axis widget.
    void showLabel();
    //! Updates further marks of the item after take() stored an outcome. The default implementation does nothing.
    virtual void showFit(int offset);
    //! Returns the colour of the marker and of the label's background.
    QColor color() const;
    //! Returns whether the item measures noise too and has the long form of the label.
    bool hasFullStatistics() const;

private:
    Q_DECLARE_PRIVATE(RVX_StatisticsHistogramItem)
    const std::unique_ptr<RVX_StatisticsHistogramItemPrivate> d_ptr;
};

} // namespace Corvale_Qt
