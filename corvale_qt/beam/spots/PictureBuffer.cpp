// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/PictureBuffer_p.h"

#include <QGLFramebufferObject>
#include <QGLWidget>
#include <QPainter>
#include <QPointer>

namespace Corvale_Qt {

namespace {

class ImageStore : public PictureStore
{
public:
    explicit ImageStore(QImage::Format format)
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

/*! Painted by the graphics driver, and read back once after each change: QPainter cannot draw the texture
    of one context into a picture, a printer or another context. */
class FrameBufferStore : public PictureStore
{
public:
    explicit FrameBufferStore(QGLWidget *widget)
        : m_widget(widget)
    {
    }

    ~FrameBufferStore() override
    {
        if (m_widget)
            m_widget->makeCurrent();
    }

    bool resize(const QSize &pixels) override
    {
        m_image = QImage();
        if (!m_widget)
            return false;
        // Without a current context the constructor would crash.
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
            // All that is painted here lies on an opaque ground.
            m_image.reinterpretAsFormat(QImage::Format_RGB32);
        }
        return m_image;
    }

    //! A frame buffer lives and dies with the context that it was made in; the widget may have got another one.
    bool isLost() const override
    {
        return m_frameBuffer && m_widget
            && (m_widget->context() != m_context || !m_frameBuffer->isValid());
    }

private:
    const QPointer<QGLWidget> m_widget;
    const QGLContext *m_context = nullptr; // to be compared, not used
    std::unique_ptr<QGLFramebufferObject> m_frameBuffer;
    QImage m_image;
};

} // namespace

PictureStore::~PictureStore() = default;

std::unique_ptr<PictureStore> makeImageStore(QImage::Format format)
{
    return std::make_unique<ImageStore>(format);
}

std::unique_ptr<PictureStore> makePictureStore(QWidget *viewport)
{
    auto *widget = qobject_cast<QGLWidget *>(viewport);
    if (!widget || !widget->isValid())
        return makeImageStore();
    // Asked without a current context, this too would crash.
    widget->makeCurrent();
    if (!QGLFramebufferObject::hasOpenGLFramebufferObjects())
        return makeImageStore();
    return std::make_unique<FrameBufferStore>(widget);
}

QWidget *makeOpenGlViewport()
{
    if (qEnvironmentVariableIntValue("CORVALE_QT_NO_OPENGL") != 0)
        return nullptr;
    // Only the widget itself knows whether there is a context: QGLFormat::hasOpenGL() also says yes
    // where there is no display.
    auto widget = std::make_unique<QGLWidget>();
    return widget->isValid() ? widget.release() : nullptr;
}

bool canPaintOn(const QWidget *viewport)
{
    const auto *widget = qobject_cast<const QGLWidget *>(viewport);
    return !widget || widget->isValid();
}

} // namespace Corvale_Qt
