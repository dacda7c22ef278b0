// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the spot map's own classes.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QImage>

#include <functional>
#include <memory>

class QGLWidget;
class QWidget;

namespace Corvale_Qt {

/*! Where a picture is kept between two paints, so that it can be painted on and read. */
class PictureStore
{
public:
    using Paint = std::function<void(QPainter &)>;

    virtual ~PictureStore();

    //! Room for a picture of that many pixels; false where there is none. The last picture is lost.
    virtual bool resize(const QSize &pixels) = 0;
    virtual void paint(const Paint &paint) = 0;
    //! What was painted up to now; valid until the next call to this object.
    virtual const QImage &image() = 0;
    //! Whether what was painted is gone, and room has to be made anew.
    virtual bool isLost() const { return false; }

protected:
    PictureStore() = default;

private:
    Q_DISABLE_COPY(PictureStore)
};

//! An image in memory, painted by the raster engine; opaque or with an alpha channel.
std::unique_ptr<PictureStore> makeImageStore(QImage::Format format = QImage::Format_RGB32);

/*! Where a view with that \a viewport keeps its picture: in a frame-buffer object of its OpenGL context if
    it has one, else in an image. The store may outlive the viewport. */
std::unique_ptr<PictureStore> makePictureStore(QWidget *viewport);

/*! A viewport on OpenGL; null where no context can be had, or where the environment variable
    CORVALE_QT_NO_OPENGL asks to do without (any number but 0). */
QWidget *makeOpenGlViewport();

//! Whether Qt can paint on \a viewport: on an OpenGL widget without a context it would crash.
bool canPaintOn(const QWidget *viewport);

} // namespace Corvale_Qt
