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

/*! A strip above a histogram: the name of the estimator, the labels of its statistics items beside each other, in as
    many rows as it takes, and below them the ticks of all items, in line with the bars. */
class CORVALE_QT_EXPORT RVX_HistogramItemAxisWidget : public QwtScaleWidget
{
    Q_OBJECT

public:
    explicit RVX_HistogramItemAxisWidget(QWidget *parent = nullptr);
    ~RVX_HistogramItemAxisWidget() override;

    //! Keeps the ticks in line with the plot's bottom axis. The plot is not owned.
    void alignTo(QwtPlot *plot);

    //! Names the estimator whose results the labels tell.
    void setEstimator(const QString &name);
    //! A new item, with a label in its colour.
    void add(const RVX_StatisticsHistogramItem *item, const QColor &color);
    void remove(const RVX_StatisticsHistogramItem *item);
    void setTicks(const RVX_StatisticsHistogramItem *item, const QwtScaleDiv &ticks);
    void setLabel(const RVX_StatisticsHistogramItem *item, const QString &richText);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    //! Puts labels and ticks where they belong.
    void updateLayout();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    Q_DECLARE_PRIVATE(RVX_HistogramItemAxisWidget)
    const std::unique_ptr<RVX_HistogramItemAxisWidgetPrivate> d_ptr;
};

} // namespace Corvale_Qt
