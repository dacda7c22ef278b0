// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QObject>

class QwtPlot;

namespace Corvale_Qt {

/*! Lays a plot out whenever it is shown. Qt asks only visible widgets to lay themselves out, so labels that have grown
    behind another tab would push the title of their axis over the edge of the plot. */
class LayoutWhenShown : public QObject
{
    Q_OBJECT

public:
    //! Becomes a child of the plot.
    explicit LayoutWhenShown(QwtPlot *plot);
    ~LayoutWhenShown() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QwtPlot *m_plot;
};

} // namespace Corvale_Qt
