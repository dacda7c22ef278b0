// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_plot_item.h>

#include <QString>

namespace Corvale_Qt {

//! Says why there is no position, usually "no beam", in the middle of a canvas. It is hidden at the start.
class NoBeamText : public QwtPlotItem
{
public:
    NoBeamText();

    void setText(const QString &text) { m_text = text; }
    const QString &text() const { return m_text; }
    //! Returns "no beam", translated.
    static QString noBeam();

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    QString m_text = noBeam();
};

} // namespace Corvale_Qt
