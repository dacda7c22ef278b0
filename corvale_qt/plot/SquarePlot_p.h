// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_plot.h>

namespace Corvale_Qt {

/*! A plot whose canvas is square in a widget of any shape, so that a round beam looks round. The rest of the widget is left
    empty around the plot. */
class SquarePlot : public QwtPlot
{
    Q_OBJECT

public:
    explicit SquarePlot(QWidget *parent = nullptr);
    ~SquarePlot() override;

protected:
    void resizeEvent(QResizeEvent *event) override;
};

} // namespace Corvale_Qt
