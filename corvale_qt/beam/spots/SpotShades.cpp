// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotGeometry_p.h"
#include "corvale_qt/beam/spots/SpotShades_p.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>

namespace Corvale_Qt {

namespace {

/*! Is added to each part of the background, where it cannot be seen. Otherwise products would become denormal numbers, which are
    slow. */
constexpr float leastBackground = 1e-12F;
constexpr int colorSteps = 4096;

/*! What a row of a spot is made of, in parts of a pixel's colour: the Gaussian along y, and the rim, where the Gaussian g bends down
    to 0: min(g, slope x g - offset). */
struct Row
{
    float height;
    float slope;
    float offset;
};

//! Four pixels at once. Compilers turn this into the instructions of the processor, whatever it has.
using Four = float __attribute__((vector_size(16)));

template<typename Number>
Number larger(Number one, Number other)
{
    return one > other ? one : other;
}

//! Multiplies what shows of the background with what a row of a spot leaves of it. \a column is the Gaussian along x.
template<typename Number>
Number covered(Number background, Number column, const Row &row)
{
    const Number gauss = column * row.height;
    const Number left = larger(1.0F - gauss, (1.0F + row.offset) - row.slope * gauss);
    return background * left + leastBackground;
}

void cover(float *pixels, const float *alongX, int count, const Row &row)
{
    int x = 0;
    for (; x + 4 <= count; x += 4) {
        Four background, column;
        std::memcpy(&background, pixels + x, sizeof background);
        std::memcpy(&column, alongX + x, sizeof column);
        background = covered(background, column, row);
        std::memcpy(pixels + x, &background, sizeof background);
    }
    for (; x < count; ++x)
        pixels[x] = covered(pixels[x], alongX[x], row);
}

//! Rounds up a number that is not negative and fits an int, without a call.
int roundedUp(double value)
{
    const int whole = int(value);
    return whole + (value > whole ? 1 : 0);
}

//! Returns the pixels of a picture whose middle lies between two places, which may be far outside.
std::pair<int, int> pixelsBetween(double from, double to, int pixels)
{
    const double first = qBound(0.0, from - 0.5, double(pixels));
    const double behind = qBound(0.0, to + 0.5, double(pixels));
    return {roundedUp(first), int(behind) - 1};
}

double gaussian(double distance, double sigma)
{
    return std::exp(-0.5 * distance * distance / (sigma * sigma));
}

//! Computes a Gaussian at the middles of \a count pixels. Each is the one before times a factor that changes by a factor.
void gaussianRow(float *row, int first, int count, double centre, double sigma)
{
    const double distance = first + 0.5 - centre;
    double value = gaussian(distance, sigma);
    double factor = std::exp(-(distance + 0.5) / (sigma * sigma));
    const double change = std::exp(-1.0 / (sigma * sigma));
    for (int x = 0; x < count; ++x) {
        row[x] = float(value);
        value *= factor;
        factor *= change;
    }
}

QRgb between(const QColor &color, const QColor &background, double part)
{
    const auto mix = [part](int one, int other) {
        return qRound(one + (other - one) * part);
    };
    return qRgb(mix(color.red(), background.red()),
                mix(color.green(), background.green()),
                mix(color.blue(), background.blue()));
}

/*! Where a spot ends. A brush has separate steps; in the last of them it falls from the Gaussian to 0. */
struct Rim
{
    Rim() = default;
    Rim(double last, double end) // in sigmas
        : reach(end)
    {
        const double from = gaussian(last, 1.0), to = gaussian(end, 1.0);
        slope = float(from / (from - to));
        offset = slope * float(to);
    }

    //! \a sigma is in the unit square of the map.
    static Rim of(double sigma)
    {
        static const Rim narrow(spotReach * (1.0 - 1.0 / narrowSteps), spotReach);
        const double steps = spotReach * sigma * stepsAcrossTheMap;
        if (steps < narrowSteps)
            return narrow;
        if (steps > stepsAcrossTheMap)
            return Rim(); // the brush's gradient ends before
        const double last = std::ceil(steps) - 1.0;
        const double stepsInSigma = sigma * stepsAcrossTheMap;
        return Rim(last / stepsInSigma, (last + 1.0) / stepsInSigma);
    }

    double reach = spotReach;
    float slope = 0.0F;
    float offset = -1.0F;
};

} // namespace

struct SpotShades::Blob
{
    QPointF centre;
    double sigmaX = 0.0;
    double sigmaY = 0.0;
    double opacity = 0.0;
    bool isNegative = false;
    Rim rim;
    QRect pixels; //!< empty if the spot holds the middle of no pixel
};

bool SpotShades::begin(const SpotStyle &style)
{
    m_style = style;
    const auto pixels =
        size_t(std::max(style.pixels.width(), 0)) * size_t(std::max(style.pixels.height(), 0));
    try {
        m_background.assign(pixels, 1.0F);
        m_negative.clear();
        m_columns.resize(size_t(std::max(style.pixels.width(), 0)));
        m_rows.resize(size_t(std::max(style.pixels.height(), 0)));
        m_colors.resize(colorSteps + 1);
    } catch (const std::bad_alloc &) {
        return false;
    }
    for (int step = 0; step <= colorSteps; ++step)
        m_colors[size_t(step)] = between(style.color, style.background, double(step) / colorSteps);
    return true;
}

void SpotShades::clear(const QRect &part)
{
    const int width = m_style.pixels.width();
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const auto first = size_t(y) * size_t(width) + size_t(part.left());
        std::fill_n(m_background.begin() + std::ptrdiff_t(first), part.width(), 1.0F);
        if (!m_negative.empty())
            std::fill_n(m_negative.begin() + std::ptrdiff_t(first), part.width(), 0.0F);
    }
}

QRect SpotShades::add(const SpotMapView::MapSpot &spot, const QRect &part)
{
    if (m_style.bounds.isEmpty() || spot.dose == 0.0F)
        return QRect();
    const int width = m_style.pixels.width(), height = m_style.pixels.height();
    const QPointF unit = toUnitSquare(m_style.bounds, QPointF(spot.x, spot.y));
    const double sigma = double(spot.sigma) / m_style.bounds.width();
    Blob blob{QPointF(unit.x() * width, unit.y() * height),
              sigma * width,
              sigma * height,
              spotOpacity(spot.dose, m_style.fullScaleDose),
              spot.dose < 0.0F,
              Rim::of(sigma),
              QRect()};
    // The rectangle of a wide spot's brush cuts its last step off, at whole pixels.
    const double margin = blob.rim.reach > spotReach ? 0.5 : 0.0;
    const double halfWidth = spotReach * blob.sigmaX + margin;
    const double halfHeight = spotReach * blob.sigmaY + margin;
    const auto [left, right] =
        pixelsBetween(blob.centre.x() - halfWidth, blob.centre.x() + halfWidth, width);
    const auto [top, bottom] =
        pixelsBetween(blob.centre.y() - halfHeight, blob.centre.y() + halfHeight, height);
    blob.pixels = QRect(QPoint(left, top), QPoint(right, bottom));
    const QRect wanted = blob.pixels & part;
    if (wanted.isEmpty())
        return blob.pixels;
    if (blob.isNegative && m_negative.empty())
        m_negative.assign(m_background.size(), 0.0F);
    // From its first pixel on, whatever part is wanted: rounding must not depend on the part.
    gaussianRow(m_columns.data(),
                blob.pixels.left(),
                blob.pixels.width(),
                blob.centre.x(),
                blob.sigmaX);
    gaussianRow(m_rows.data(),
                blob.pixels.top(),
                blob.pixels.height(),
                blob.centre.y(),
                blob.sigmaY);
    for (int y = wanted.top(); y <= wanted.bottom(); ++y)
        coverRow(blob, y, wanted);
    return blob.pixels;
}

void SpotShades::coverRow(const Blob &blob, int y, const QRect &part)
{
    const double above = (y + 0.5 - blob.centre.y()) / blob.sigmaY;
    const double half = std::sqrt(std::max(blob.rim.reach * blob.rim.reach - above * above, 0.0));
    auto [first, last] = pixelsBetween(blob.centre.x() - half * blob.sigmaX,
                                       blob.centre.x() + half * blob.sigmaX,
                                       m_style.pixels.width());
    first = std::max(first, part.left());
    last = std::min(last, part.right());
    if (first > last)
        return;
    const auto pixel = size_t(y) * size_t(m_style.pixels.width()) + size_t(first);
    const float *alongX = m_columns.data() + (first - blob.pixels.left());
    const Row row{float(blob.opacity) * m_rows[size_t(y - blob.pixels.top())],
                  blob.rim.slope,
                  blob.rim.offset * float(blob.opacity)};
    const int count = last - first + 1;
    cover(m_background.data() + pixel, alongX, count, row);
    if (m_negative.empty())
        return;
    // Spots of a negative dose cover the others, and are covered by them.
    float *negative = m_negative.data() + pixel;
    for (int x = 0; x < count; ++x) {
        const float left = covered(1.0F, alongX[x], row);
        negative[x] = blob.isNegative ? 1.0F - (1.0F - negative[x]) * left : negative[x] * left;
    }
}

//! Returns the colour of a pixel that spots of a negative dose cover in part.
QRgb SpotShades::mixed(size_t pixel) const
{
    const double background = m_background[pixel], negative = m_negative[pixel];
    const double spots = std::max(1.0 - background - negative, 0.0);
    const auto mix = [&](int ofBackground, int ofNegative, int ofSpots) {
        return qRound(background * ofBackground + negative * ofNegative + spots * ofSpots);
    };
    const QColor &ground = m_style.background, &color = m_style.color;
    const QColor other = spotColor(-1.0F, m_style);
    return qRgb(mix(ground.red(), other.red(), color.red()),
                mix(ground.green(), other.green(), color.green()),
                mix(ground.blue(), other.blue(), color.blue()));
}

void SpotShades::paint(QImage &image, const QRect &part) const
{
    for (int y = part.top(); y <= part.bottom(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        const size_t first = size_t(y) * size_t(m_style.pixels.width());
        const float *background = m_background.data() + first;
        for (int x = part.left(); x <= part.right(); ++x) {
            if (m_negative.empty() || m_negative[first + size_t(x)] == 0.0F)
                line[x] = m_colors[size_t(qRound(background[x] * colorSteps))];
            else
                line[x] = mixed(first + size_t(x));
        }
    }
}

} // namespace Corvale_Qt
