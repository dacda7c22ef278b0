// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <qwt_plot_canvas.h>

#include <QImage>
#include <QStyle>

#include <array>

namespace Corvale_Qt {

/*! A canvas that copies its picture to the window in rectangles. Opaque widgets on the canvas, such as the box of the cursor,
    leave a region with holes. Clipped to that, Qt would copy the picture line by line, which takes twice as long. Its frame is kept from picture
    to picture, since a style draws it line by line, and each of their pixels alone. */
class PiecewiseCanvas : public QwtPlotCanvas
{
    Q_OBJECT

public:
    using QwtPlotCanvas::QwtPlotCanvas;

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void drawBorder(QPainter *painter) override;

private:
    //! One of the four sides of the frame, with what lies beside it left out.
    struct Side
    {
        QPoint at;
        QImage picture;
    };

    void keepFrame();

    //! Drawn with this size, frame style and state. Empty after the palette or the style has changed.
    std::array<Side, 4> m_frame;
    QSize m_size;
    int m_frameStyle = 0;
    int m_frameWidth = 0;
    QStyle::State m_state;
};

} // namespace Corvale_Qt
