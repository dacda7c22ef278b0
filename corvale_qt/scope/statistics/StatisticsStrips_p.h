// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: the place of the statistics above a histogram.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <qwt_plot.h>

#include <QPointer>
#include <QScrollArea>

class QVBoxLayout;

namespace Corvale_Qt {

class RVX_HistogramItemAxisWidget;

/*! The strips of the statistics items, one above the other. They are as high as they need to be while the canvas
    of the plot below has half of the view's height; where there is less room, they can be scrolled, by wheel or by
    Page Up and Page Down. */
class StatisticsStrips : public QScrollArea
{
public:
    //! Both the strips and the plot stand in the \a viewport of the same view.
    StatisticsStrips(QwtPlot *plot, QWidget *viewport);

    //! Puts a strip above those there are.
    void add(RVX_HistogramItemAxisWidget *strip);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int wantedHeight() const;
    void alignStrips();
    bool scrollByPage(int key);

    QPointer<QwtPlot> m_plot; // as much the viewport's as the strips are
    QVBoxLayout *m_layout;
};

} // namespace Corvale_Qt
