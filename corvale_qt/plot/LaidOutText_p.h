// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QColor>
#include <QFont>
#include <QImage>
#include <QStaticText>
#include <QString>
#include <QVector>

class QPainter;

namespace Corvale_Qt {

/*! Plain text of one or more lines that is drawn in many frames and changes in few. Laying it out takes longer than painting its
    letters, so the layout is kept as long as text, font, colour and resolution are the same. From the second frame on the letters
    are kept as a picture. The pixels are those of QPainter::drawText(). */
class LaidOutText
{
public:
    //! Draws \a text in the painter's font and pen from \a topLeft down, written from left to right.
    void draw(QPainter &painter, const QPointF &topLeft, const QString &text);

private:
    struct Line
    {
        QStaticText text;
        double top;
    };
    //! What the layout and the picture depend on.
    struct Key
    {
        QString text;
        QFont font;
        QColor color;
        int dpi = 0;
        double pixelRatio = 0.0;

        bool operator==(const Key &other) const;
    };

    void layOut();
    void drawLines(QPainter &painter, const QPointF &topLeft) const;
    void paintPicture();
    QImage pictureOf(QImage::Format format, const QColor &ground, const QColor &color) const;

    Key m_key;
    QVector<Line> m_lines;
    QSizeF m_size;
    QImage m_picture; //!< of the letters; null if there is none
    bool m_isDrawn = false; //!< since the text changed
};

} // namespace Corvale_Qt
