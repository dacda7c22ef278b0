// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QImage>

#include <functional>
#include <memory>

class QGLWidget;
class QWidget;

namespace Corvale_Qt {

/*! Holds a picture between two paints. It can be painted on and read. */
class PictureBuffer
{
public:
    using Paint = std::function<void(QPainter &)>;

    virtual ~PictureBuffer();

    /*! Makes room for a picture of \a pixels; the last picture is lost. Returns false if there is not enough
        memory. */
    virtual bool resize(const QSize &pixels) = 0;
    //! Calls \a paint with a painter on the picture.
    virtual void paint(const Paint &paint) = 0;
    //! Returns what was painted so far. The reference is valid until the next call to this object.
    virtual const QImage &image() = 0;
    //! Returns whether the picture is gone, so that resize() must be called again.
    virtual bool isLost() const { return false; }

protected:
    PictureBuffer() = default;

private:
    Q_DISABLE_COPY(PictureBuffer)
};

//! Returns an image in memory, which the raster engine paints. \a format may have an alpha channel.
std::unique_ptr<PictureBuffer> makeImageBuffer(QImage::Format format = QImage::Format_RGB32);

/*! Returns a frame-buffer object of the OpenGL context of \a viewport, or null if it has none. The buffer may outlive the
    viewport. */
std::unique_ptr<PictureBuffer> makeOpenGlBuffer(QWidget *viewport);

/*! Returns a new viewport that paints with OpenGL, or null if no context can be created or the environment
    variable CORVALE_QT_NO_OPENGL is a number other than 0. */
QWidget *makeOpenGlViewport();

//! Returns whether Qt can paint on \a viewport. On an OpenGL widget without a context it would crash.
bool canPaintOn(const QWidget *viewport);

} // namespace Corvale_Qt
