// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotGeometry_p.h"
#include "corvale_qt/beam/spots/SpotLayer_p.h"
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "corvale_qt/beam/spots/SpotShades_p.h"

#include <QPainter>

#include <algorithm>
#include <vector>

namespace Corvale_Qt {

namespace {

class PaintedLayer : public SpotLayer
{
public:
    PaintedLayer(std::unique_ptr<PictureBuffer> buffer, SpotDrawing drawing)
        : m_buffer(std::move(buffer))
        , m_drawing(drawing)
    {
    }

    void begin(const SpotStyle &style) override
    {
        const bool sameSize = style.pixels == m_style.pixels && !m_buffer->isLost();
        m_style = style;
        if (!sameSize && !m_buffer->resize(style.pixels)) {
            // The driver has no buffer of this size; memory has room for it.
            m_buffer = makeImageBuffer();
            m_buffer->resize(style.pixels);
        }
        m_buffer->paint([&style](QPainter &painter) {
            painter.setCompositionMode(QPainter::CompositionMode_Source);
            painter.fillRect(QRect(QPoint(), style.pixels), style.background);
        });
    }

    void draw(const SpotList &spots, int first) override
    {
        m_buffer->paint([&](QPainter &painter) {
            m_drawing(painter, spots, first, m_style);
        });
    }

    const QImage &image() override { return m_buffer->image(); }
    bool isLost() const override { return m_buffer->isLost(); }

private:
    std::unique_ptr<PictureBuffer> m_buffer;
    const SpotDrawing m_drawing;
    SpotStyle m_style;
};

//! Returns whether a drawable spot reaches \a area.
bool touches(const SpotMapView::MapSpot &spot, const QRectF &area)
{
    const double radius = spotReach * double(spot.sigma);
    return spot.x + radius >= area.left() && spot.x - radius <= area.right()
        && spot.y + radius >= area.top() && spot.y - radius <= area.bottom();
}

/*! Returns how many lines of pixels are shaded before the ones below them: as many as stay in the processor's cache while thousands of
    spots cover them. */
int bandHeight(int width)
{
    constexpr int pixelsInCache = 1 << 18;
    return std::max(pixelsInCache / std::max(width, 1), 16);
}

class ShadedLayer : public SpotLayer
{
public:
    void begin(const SpotStyle &style) override
    {
        if (style.pixels != m_style.pixels || m_image.isNull())
            m_image = QImage(style.pixels, QImage::Format_RGB32);
        m_style = style;
        if (m_image.isNull() || !m_shades.begin(style))
            m_image = QImage();
        m_stale = m_image.rect();
    }

    void draw(const SpotList &spots, int first) override
    {
        if (m_image.isNull())
            return;
        const int height = bandHeight(m_image.width());
        std::vector<std::vector<int>> bands(size_t((m_image.height() + height - 1) / height));
        for (int row = first; row < spots.size(); ++row) {
            if (!isDrawable(spots.at(row)))
                continue;
            const QRect pixels = m_shades.pixelsOf(spots.at(row));
            if (pixels.isEmpty())
                continue;
            for (int band = pixels.top() / height; band <= pixels.bottom() / height; ++band)
                bands[size_t(band)].push_back(row);
            m_stale |= pixels;
        }
        const bool isAnew = m_stale == m_image.rect();
        QRect part(0, 0, m_image.width(), height);
        for (const std::vector<int> &rows : bands) {
            for (const int row : rows)
                m_shades.add(spots.at(row), part);
            if (isAnew) // while the shades are in the cache
                m_shades.paint(m_image, part & m_image.rect());
            part.translate(0, height);
        }
        if (isAnew)
            m_stale = QRect();
    }

    bool redraw(const SpotList &spots, const QRectF &changed) override
    {
        if (m_style.bounds.isEmpty() || m_image.isNull())
            return false;
        // Places far outside have no pixels that an int could count.
        const QRectF area = changed & m_style.bounds;
        if (area.isEmpty())
            return true;
        const QPointF first = toUnitSquare(m_style.bounds, area.bottomLeft());
        const QPointF last = toUnitSquare(m_style.bounds, area.topRight());
        const int width = m_style.pixels.width(), height = m_style.pixels.height();
        const QRectF pixels(QPointF(first.x() * width, first.y() * height),
                            QPointF(last.x() * width, last.y() * height));
        const QRect part = pixels.toAlignedRect().adjusted(-1, -1, 1, 1) & m_image.rect();
        // The pixels of the part reach beyond the area, so that spots beside it are drawn again as well.
        const double x = 3 * m_style.bounds.width() / width;
        const double y = 3 * m_style.bounds.height() / height;
        const QRectF wide = area.adjusted(-x, -y, x, y);
        m_shades.clear(part);
        for (int row = 0; row < spots.size(); ++row) {
            if (touches(spots.at(row), wide) && isDrawable(spots.at(row)))
                m_shades.add(spots.at(row), part);
        }
        m_stale |= part;
        return true;
    }

    const QImage &image() override
    {
        if (!m_stale.isEmpty() && !m_image.isNull())
            m_shades.paint(m_image, m_stale);
        m_stale = QRect();
        return m_image;
    }

private:
    SpotStyle m_style;
    SpotShades m_shades;
    QImage m_image;
    QRect m_stale; //!< pixels of the image that are older than the shades
};

} // namespace

SpotLayer::~SpotLayer() = default;

bool SpotLayer::redraw(const SpotList &, const QRectF &)
{
    return false;
}

std::unique_ptr<SpotLayer> makePaintedLayer(std::unique_ptr<PictureBuffer> buffer,
                                            SpotDrawing drawing)
{
    return std::make_unique<PaintedLayer>(std::move(buffer), drawing);
}

std::unique_ptr<SpotLayer> makeShadedLayer()
{
    return std::make_unique<ShadedLayer>();
}

std::unique_ptr<SpotLayer> makeSpotLayer(QWidget *viewport)
{
    if (auto buffer = makeOpenGlBuffer(viewport))
        return makePaintedLayer(std::move(buffer), drawSpots);
    return makeShadedLayer();
}

} // namespace Corvale_Qt
