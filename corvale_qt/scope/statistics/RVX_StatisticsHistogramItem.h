// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

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

/*! Beam statistics of a histogram: a marker at the position, ticks on an axis widget (position, one sigma and three
    sigma to each side) and a label with the numbers, or with the reason why there are none.

    What the last compute() found is here for hosts to log. */
class CORVALE_QT_EXPORT RVX_StatisticsHistogramItem : public RVX_HistogramItem
{
public:
    //! Draws the ticks of the axis widget; what they mean stands in the label.
    class CORVALE_QT_EXPORT ScaleDraw : public QwtScaleDraw
    {
    public:
        ScaleDraw();
        QwtText label(double value) const override;
    };

    ~RVX_StatisticsHistogramItem() override;
    RVX_StatisticsHistogramItem(const RVX_StatisticsHistogramItem &) = delete;
    RVX_StatisticsHistogramItem &operator=(const RVX_StatisticsHistogramItem &) = delete;

    void attach(QwtPlot *plot) override;
    void detach() override;
    //! The rich text that stands beside the histogram.
    virtual QString label() const = 0;

    //! False before the first compute() and after clear(): then there is no data to speak of.
    bool isComputed() const;
    //! Positions and widths in bins of the item's share of the channels, the first one at 0.
    const ProfileFit &fit() const;
    FitStatus status() const;
    //! Why there is no result; empty where there is one.
    QString statusMessage() const;
    //! On the plot's x axis: channel k is at k. The middle of the item's channels where there is no result.
    double position() const;
    //! Whether there is a ratio: only with full statistics, and where bars lie outside three sigma.
    bool hasSignalToNoise() const;
    //! Sum of the bars within three sigma to the noise beside them; 1 where there is none.
    double signalToNoise() const;
    //! Standard deviation of the bars outside three sigma.
    double noiseDeviation() const;
    //! Takes the result away, the item's marks included.
    void clear();

    //! The symbol of the bars' unit, which labels name; empty for none. It holds for computations that come next.
    void setValueUnit(const QString &name);
    QString valueUnit() const;
    /*! The plot shows the bars divided by this, and the item's marks alike; 1 unless set. The results and the label are
        not divided. It holds for computations that come next; a divisor that is not above 0 is ignored. */
    void setPlotDivisor(double divisor);
    double plotDivisor() const;

    //! What a status says to a person; empty for a result.
    static QString messageOf(FitStatus status);

protected:
    //! \a axisWidget shows ticks and label; not owned, may be null.
    RVX_StatisticsHistogramItem(RVX_HistogramItemAxisWidget *axisWidget,
                                const QString &title,
                                const QColor &color,
                                bool fullStatistics);

    //! Keeps a result, or its absence, and shows it. \a message goes before that of the status.
    bool take(int offset,
              const ProfileFit &fit,
              FitStatus status,
              double axisUpper,
              const QString &message = QString());
    //! Writes the label into the axis widget.
    void showLabel();
    //! Puts the marks of a fit that take() has kept onto the plot, beyond marker and ticks.
    virtual void showFit(int offset);
    QColor color() const;
    bool hasFullStatistics() const;

private:
    const std::unique_ptr<RVX_StatisticsHistogramItemPrivate> d;
};

} // namespace Corvale_Qt
