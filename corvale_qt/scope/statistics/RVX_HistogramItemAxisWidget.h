// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <qwt_scale_widget.h>

#include <memory>

class QColor;
class QwtPlot;
class QwtScaleDiv;

namespace Corvale_Qt {

class RVX_HistogramItemAxisWidgetPrivate;
class RVX_StatisticsHistogramItem;

/*! A strip above a histogram: the name of the estimator, the labels of its statistics items in one or more rows, and
    below them the ticks of all items, in line with the bars. */
class CORVALE_QT_EXPORT RVX_HistogramItemAxisWidget : public QwtScaleWidget
{
    Q_OBJECT

public:
    //! Creates a strip without items.
    explicit RVX_HistogramItemAxisWidget(QWidget *parent = nullptr);
    ~RVX_HistogramItemAxisWidget() override;

    //! Keeps the ticks in line with the bottom axis of \a plot, which is not owned.
    void alignTo(QwtPlot *plot);

    //! Sets the name of the estimator, which is also the accessible name of the strip.
    void setEstimator(const QString &name);
    //! Adds an item, which is not owned, with an empty label on a background of \a color.
    void add(const RVX_StatisticsHistogramItem *item, const QColor &color);
    //! Removes an item and its label. An item must be removed before it is deleted.
    void remove(const RVX_StatisticsHistogramItem *item);
    //! Sets the ticks of an item, in channels. An item that was not added is ignored.
    void setTicks(const RVX_StatisticsHistogramItem *item, const QwtScaleDiv &ticks);
    //! Sets the label of an item. An item that was not added is ignored.
    void setLabel(const RVX_StatisticsHistogramItem *item, const QString &richText);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    //! Places the labels and the ticks, and adapts the height of the strip.
    void updateLayout();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    Q_DECLARE_PRIVATE(RVX_HistogramItemAxisWidget)
    const std::unique_ptr<RVX_HistogramItemAxisWidgetPrivate> d_ptr;
};

} // namespace Corvale_Qt
