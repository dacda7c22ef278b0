// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPoint>
#include <QString>

class QPainter;

namespace Corvale_Qt {

/*! Plain text that is drawn many times and changes rarely. The second time, its letters are kept as a picture, until text, font, colour or
    resolution are others: to copy them takes a tenth of the time of laying them out and drawing them. The pixels are those of
    QPainter::drawText(). */
class KeptText
{
public:
    //! Draws \a text of one or more lines in the painter's font and pen from \a topLeft down, written from left to right.
    void draw(QPainter &painter, const QPointF &topLeft, const QString &text);
    //! Draws \a text in the painter's font and pen with the beginning of its baseline at a place.
    void drawLine(QPainter &painter, const QPointF &baseline, const QString &text);

private:
    //! What the letters look like.
    struct Key
    {
        QString text;
        bool isLine = false; //!< drawn by drawLine()
        QFont font;
        QColor color;
        Qt::LayoutDirection direction = Qt::LeftToRight;
        int dpi = 0;
        double pixelRatio = 0.0;

        bool operator==(const Key &other) const;
        void write(QPainter &painter, const QPointF &at) const;
        QRect bounds() const;
    };

    void draw(QPainter &painter, const QPointF &at, const QString &text, bool isLine);
    void makePicture();
    QImage pictureOf(const QSize &size,
                     QImage::Format format,
                     const QColor &ground,
                     const QColor &color) const;

    Key m_key;
    QImage m_picture; //!< null if there is none
    QPoint m_corner; //!< of the picture, relative to the place of the text
    int m_timesDrawn = 0; //!< since the text changed; no more than two are counted
};

} // namespace Corvale_Qt
