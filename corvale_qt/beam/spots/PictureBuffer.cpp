// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/PictureBuffer_p.h"

#include <QGLFramebufferObject>
#include <QGLWidget>
#include <QPainter>
#include <QPointer>

namespace Corvale_Qt {

namespace {

class ImageBuffer : public PictureBuffer
{
public:
    explicit ImageBuffer(QImage::Format format)
        : m_format(format)
    {
    }

    bool resize(const QSize &pixels) override
    {
        m_image = QImage(pixels, m_format);
        return !m_image.isNull();
    }

    void paint(const Paint &paint) override
    {
        QPainter painter(&m_image);
        paint(painter);
    }

    const QImage &image() override { return m_image; }

private:
    const QImage::Format m_format;
    QImage m_image;
};

/*! A frame-buffer object that the graphics driver paints. It is read back once after each change, since QPainter
    cannot draw the texture of one context into a picture, on a printer or in another context. */
class OpenGlBuffer : public PictureBuffer
{
public:
    explicit OpenGlBuffer(QGLWidget *widget)
        : m_widget(widget)
    {
    }

    ~OpenGlBuffer() override
    {
        if (m_widget)
            m_widget->makeCurrent();
    }

    bool resize(const QSize &pixels) override
    {
        m_image = QImage();
        if (!m_widget)
            return false;
        // The constructor would crash without a current context.
        m_widget->makeCurrent();
        m_frameBuffer = std::make_unique<QGLFramebufferObject>(pixels);
        m_context = m_widget->context();
        return m_frameBuffer->isValid();
    }

    void paint(const Paint &paint) override
    {
        if (!m_widget || !m_frameBuffer)
            return;
        m_image = QImage();
        m_widget->makeCurrent();
        QPainter painter(m_frameBuffer.get());
        paint(painter);
    }

    const QImage &image() override
    {
        if (m_image.isNull() && m_widget && m_frameBuffer) {
            m_widget->makeCurrent();
            m_image = m_frameBuffer->toImage();
            // The picture has an opaque background.
            m_image.reinterpretAsFormat(QImage::Format_RGB32);
        }
        return m_image;
    }

    //! A frame buffer is gone together with its context, which the widget may have replaced.
    bool isLost() const override
    {
        return m_frameBuffer && m_widget
            && (m_widget->context() != m_context || !m_frameBuffer->isValid());
    }

private:
    const QPointer<QGLWidget> m_widget;
    const QGLContext *m_context = nullptr; // only compared, never used
    std::unique_ptr<QGLFramebufferObject> m_frameBuffer;
    QImage m_image;
};

} // namespace

PictureBuffer::~PictureBuffer() = default;

std::unique_ptr<PictureBuffer> makeImageBuffer(QImage::Format format)
{
    return std::make_unique<ImageBuffer>(format);
}

std::unique_ptr<PictureBuffer> makeOpenGlBuffer(QWidget *viewport)
{
    auto *widget = qobject_cast<QGLWidget *>(viewport);
    if (!widget || !widget->isValid())
        return nullptr;
    // This would crash too without a current context.
    widget->makeCurrent();
    if (!QGLFramebufferObject::hasOpenGLFramebufferObjects())
        return nullptr;
    return std::make_unique<OpenGlBuffer>(widget);
}

QWidget *makeOpenGlViewport()
{
    if (qEnvironmentVariableIntValue("CORVALE_QT_NO_OPENGL") != 0)
        return nullptr;
    // Only a widget can tell whether there is a context: QGLFormat::hasOpenGL() returns true even without a
    // display.
    auto widget = std::make_unique<QGLWidget>();
    return widget->isValid() ? widget.release() : nullptr;
}

bool canPaintOn(const QWidget *viewport)
{
    const auto *widget = qobject_cast<const QGLWidget *>(viewport);
    return !widget || widget->isValid();
}

} // namespace Corvale_Qt
