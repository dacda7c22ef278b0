// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_interval.h>
#include <qwt_plot_item.h>

#include <QString>
#include <QVector>

namespace Corvale_Qt {

//! Shades the times without readings over the whole height of the canvas, and says so in words where there is room.
class OutageBands : public QwtPlotItem
{
public:
    OutageBands();

    //! Sets the text, for example "no readings".
    void setText(const QString &text) { m_text = text; }
    //! Removes all bands.
    void clear() { m_bands.resize(0); }
    //! Adds the band of an outage. Bands must be added in the order of x.
    void add(const QwtInterval &outage) { m_bands.append(outage); }
    const QVector<QwtInterval> &bands() const { return m_bands; }

    void draw(QPainter *painter,
              const QwtScaleMap &xMap,
              const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    void drawText(QPainter *painter, const QRectF &band) const;

    QVector<QwtInterval> m_bands;
    QString m_text;
};

} // namespace Corvale_Qt
