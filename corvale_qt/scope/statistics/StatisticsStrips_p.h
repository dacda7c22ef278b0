// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_plot.h>

#include <QPointer>
#include <QScrollArea>

class QVBoxLayout;

namespace Corvale_Qt {

class RVX_HistogramItemAxisWidget;

/*! The area above the histogram that stacks the strips of the statistics items. It is as high as the strips need, but
    leaves half of the view's height to the canvas of the plot below; strips that do not fit are reached by the wheel or
    by Page Up and Page Down. */
class StatisticsStrips : public QScrollArea
{
public:
    //! Creates an empty area. It and \a plot lie in the \a viewport of a view.
    StatisticsStrips(QwtPlot *plot, QWidget *viewport);

    //! Adds a strip at the top.
    void add(RVX_HistogramItemAxisWidget *strip);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int wantedHeight() const;
    void alignStrips();
    bool scrollByPage(int key);

    QPointer<QwtPlot> m_plot; // the viewport may delete it first
    QVBoxLayout *m_layout;
};

} // namespace Corvale_Qt
