// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_plot_item.h>

#include <QString>

namespace Corvale_Qt {

//! A line at the bottom of the canvas that says what the plot cannot show.
class CanvasNote : public QwtPlotItem
{
public:
    CanvasNote();
    //! Sets the line; empty for none.
    void setText(const QString &text);
    const QString &text() const { return m_text; }

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvas) const override;

private:
    QString m_text;
};

} // namespace Corvale_Qt
