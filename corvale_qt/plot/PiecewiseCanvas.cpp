// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/PiecewiseCanvas_p.h"
#include "corvale_qt/plot/PixelPen_p.h"

#include <QPaintEngine>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleOption>

namespace Corvale_Qt {

namespace {

constexpr int kMostPieces = 16; // with more, such as those of a mask of letters, the clip is faster

} // namespace

void PiecewiseCanvas::paintEvent(QPaintEvent *event)
{
    const QRegion &region = event->region();
    const bool isCopy = testPaintAttribute(BackingStore);
    if (!isCopy || region.rectCount() == 1 || region.rectCount() > kMostPieces) {
        QwtPlotCanvas::paintEvent(event);
        return;
    }
    for (const QRect &piece : region) {
        QPaintEvent part(piece);
        QwtPlotCanvas::paintEvent(&part); // the first one makes the picture anew if it has changed
    }
}

void PiecewiseCanvas::changeEvent(QEvent *event)
{
    m_size = QSize();
    QwtPlotCanvas::changeEvent(event);
}

void PiecewiseCanvas::drawBorder(QPainter *painter)
{
    const bool isOfPixels = painter->paintEngine()->type() == QPaintEngine::Raster
        && painter->combinedTransform().type() <= QTransform::TxTranslate && !isFiner(*painter);
    if (!isOfPixels) {
        QwtPlotCanvas::drawBorder(painter);
        return;
    }
    keepFrame();
    for (const Side &side : m_frame)
        painter->drawImage(side.at, side.picture);
}

//! Draws the frame anew if it looks different.
void PiecewiseCanvas::keepFrame()
{
    QStyleOption option;
    option.initFrom(this);
    const bool isSame = m_size == size() && m_frameStyle == frameStyle()
        && m_frameWidth == frameWidth() && m_state == option.state;
    if (isSame)
        return;
    m_size = size();
    m_frameStyle = frameStyle();
    m_frameWidth = frameWidth();
    m_state = option.state;
    const int wide = frameWidth();
    const QRect inside = rect().adjusted(wide, wide, -wide, -wide);
    const QRect places[] = {{0, 0, width(), wide},
                            {0, inside.bottom() + 1, width(), wide},
                            {0, wide, wide, inside.height()},
                            {inside.right() + 1, wide, wide, inside.height()}};
    for (std::size_t i = 0; i < m_frame.size(); ++i) {
        QImage picture(places[i].size().expandedTo({0, 0}), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        if (!picture.isNull()) {
            QPainter painter(&picture);
            painter.translate(-places[i].topLeft());
            QwtPlotCanvas::drawBorder(&painter);
        }
        m_frame[i] = {places[i].topLeft(), picture};
    }
}

} // namespace Corvale_Qt
