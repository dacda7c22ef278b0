// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotGeometry_p.h"
#include "corvale_qt/beam/spots/SpotShades_p.h"
#include "corvale_qt/numerics/WideRegisters_p.h"
#include "corvale_qt/widgets/MixedColor_p.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace Corvale_Qt {

namespace {

constexpr int colorSteps = 4096;

//! Rounds up a number that is not negative and fits an int, without a call.
int roundedUp(double value)
{
    const int whole = int(value);
    return whole + (value > whole ? 1 : 0);
}

//! Returns the pixels whose middle lies between two places in a picture.
inline std::pair<int, int> pixelsBetween(double from, double to)
{
    const double behind = to + 0.5;
    return {roundedUp(from - 0.5), int(behind) - 1};
}

//! Returns the pixels of a picture whose middle lies between two places, which may be far outside.
inline std::pair<int, int> pixelsBetween(double from, double to, int pixels)
{
    const double first = qBound(0.0, from - 0.5, double(pixels));
    const double behind = qBound(0.0, to + 0.5, double(pixels));
    return {roundedUp(first), int(behind) - 1};
}

double gaussian(double distance, double sigma)
{
    return std::exp(-0.5 * distance * distance / (sigma * sigma));
}

//! A Gaussian at the middles of pixels, from one to the next: each is the one before times a factor that changes by a factor.
class GaussianSteps
{
public:
    //! \a change is that of a sigma.
    GaussianSteps(int first, double centre, double sigma, double change)
        : m_change(change)
    {
        const double distance = first + 0.5 - centre;
        m_value = gaussian(distance, sigma);
        m_factor = std::exp(-(distance + 0.5) / (sigma * sigma));
    }

    //! Returns by what the factor changes from pixel to pixel.
    static double change(double sigma) { return std::exp(-1.0 / (sigma * sigma)); }

    float next()
    {
        const auto value = float(m_value);
        m_value *= m_factor;
        m_factor *= m_change;
        return value;
    }

private:
    double m_value;
    double m_factor;
    const double m_change;
};

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
    float opacity = 0.0F;
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
        m_background.resize(pixels + SpotCover::slack);
        m_negative.clear();
        m_columns.resize(size_t(std::max(style.pixels.width(), 0)) + SpotCover::slack);
        m_rows.resize(size_t(std::max(style.pixels.height(), 0)));
        m_colors.resize(colorSteps + 1);
    } catch (const std::bad_alloc &) {
        return false;
    }
    for (int step = 0; step <= colorSteps; ++step)
        m_colors[size_t(step)] =
            mixedColor(style.color, style.background, double(step) / colorSteps).rgb();
    clear(QRect(QPoint(), style.pixels));
    return true;
}

void SpotShades::clear(const QRect &part)
{
    if (part.isEmpty())
        return;
    const std::ptrdiff_t width = m_style.pixels.width();
    const std::ptrdiff_t start = part.top() * width + part.left();
    const auto fill = [&](std::vector<float> &pixels, float value) {
        // To copy a line is faster than to fill it.
        const auto first = pixels.begin() + start;
        std::fill_n(first, part.width(), value);
        for (int y = 1; y < part.height(); ++y)
            std::copy_n(first, part.width(), first + y * width);
    };
    fill(m_background, 1.0F);
    if (!m_negative.empty())
        fill(m_negative, 0.0F);
}

SpotShades::Blob SpotShades::blobOf(const SpotMapView::MapSpot &spot) const
{
    Blob blob;
    if (m_style.bounds.isEmpty() || spot.dose == 0.0F)
        return blob;
    const int width = m_style.pixels.width(), height = m_style.pixels.height();
    const QPointF unit = toUnitSquare(m_style.bounds, QPointF(spot.x, spot.y));
    const double sigma = double(spot.sigma) / m_style.bounds.width();
    blob.centre = QPointF(unit.x() * width, unit.y() * height);
    blob.sigmaX = sigma * width;
    blob.sigmaY = sigma * height;
    blob.opacity = float(spotOpacity(spot.dose, m_style.fullScaleDose));
    blob.isNegative = spot.dose < 0.0F;
    blob.rim = Rim::of(sigma);
    // The rectangle of a wide spot's brush cuts its last step off, at whole pixels.
    const double margin = blob.rim.reach > spotReach ? 0.5 : 0.0;
    const double halfWidth = spotReach * blob.sigmaX + margin;
    const double halfHeight = spotReach * blob.sigmaY + margin;
    const auto [left, right] =
        pixelsBetween(blob.centre.x() - halfWidth, blob.centre.x() + halfWidth, width);
    const auto [top, bottom] =
        pixelsBetween(blob.centre.y() - halfHeight, blob.centre.y() + halfHeight, height);
    blob.pixels = QRect(QPoint(left, top), QPoint(right, bottom));
    return blob;
}

QRect SpotShades::pixelsOf(const SpotMapView::MapSpot &spot) const
{
    return blobOf(spot).pixels;
}

void SpotShades::add(const SpotMapView::MapSpot &spot, const QRect &part)
{
    const Blob blob = blobOf(spot);
    const QRect wanted = blob.pixels & part;
    if (wanted.isEmpty())
        return;
    if (blob.isNegative && m_negative.empty())
        m_negative.assign(m_background.size(), 0.0F);
    computeRows(blob, wanted);
    SpotCover cover{m_columns.data(), m_rows.data() + (wanted.top() - blob.pixels.top())};
    cover.rowCount = wanted.height();
    cover.slope = blob.rim.slope;
    cover.offset = blob.rim.offset * blob.opacity;
    const std::ptrdiff_t width = m_style.pixels.width();
    const std::ptrdiff_t first = wanted.top() * width + blob.pixels.left();
    m_cover(m_background.data() + first, width, cover);
    if (!m_negative.empty())
        coverNegative(m_negative.data() + first, cover, blob.isNegative);
}

/*! Computes the Gaussians of a spot up to the last pixel of \a part, from its first pixel on, whatever part of it is wanted: rounding
    must not depend on the part. Both directions go on together, since a processor would wait for each product of one. */
void SpotShades::computeRows(const Blob &blob, const QRect &part)
{
    const QPoint first = blob.pixels.topLeft();
    const double change = GaussianSteps::change(blob.sigmaX);
    GaussianSteps alongX(first.x(), blob.centre.x(), blob.sigmaX, change);
    GaussianSteps alongY(first.y(),
                         blob.centre.y(),
                         blob.sigmaY,
                         blob.sigmaY == blob.sigmaX ? change : GaussianSteps::change(blob.sigmaY));
    const int columns = part.right() - first.x() + 1, rows = part.bottom() - first.y() + 1;
    const int both = std::min(columns, rows);
    for (int i = 0; i < both; ++i) {
        m_columns[size_t(i)] = alongX.next();
        m_rows[size_t(i)].height = blob.opacity * alongY.next();
    }
    for (int i = both; i < columns; ++i)
        m_columns[size_t(i)] = alongX.next();
    for (int i = both; i < rows; ++i)
        m_rows[size_t(i)].height = blob.opacity * alongY.next();
    const double reach = blob.rim.reach * blob.rim.reach;
    const int width = m_style.pixels.width();
    const double widest = blob.rim.reach * blob.sigmaX + 1.0;
    const bool isInside = blob.centre.x() >= widest && blob.centre.x() + widest <= width;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const double above = (y + 0.5 - blob.centre.y()) / blob.sigmaY;
        const double half = blob.sigmaX * std::sqrt(std::max(reach - above * above, 0.0));
        const double from = blob.centre.x() - half, to = blob.centre.x() + half;
        const auto [left, right] =
            isInside ? pixelsBetween(from, to) : pixelsBetween(from, to, width);
        SpotRow &row = m_rows[size_t(y - first.y())];
        row.first = std::max(left, part.left()) - first.x();
        row.behind = std::min(right, part.right()) - first.x() + 1;
    }
}

//! Spots of a negative dose cover the others, and are covered by them.
void SpotShades::coverNegative(float *pixels, const SpotCover &spot, bool isNegative) const
{
    for (int y = 0; y < spot.rowCount; ++y) {
        const SpotRow &row = spot.rows[y];
        for (int x = row.first; x < row.behind; ++x) {
            const float left = spot.covered(1.0F, spot.alongX[x] * row.height);
            pixels[x] = isNegative ? 1.0F - (1.0F - pixels[x]) * left : pixels[x] * left;
        }
        pixels += m_style.pixels.width();
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
    clearWideRegisters();
    // Copied, since the compiler must assume that writing a pixel changes them.
    const QRgb *const colors = m_colors.data();
    const int right = part.right();
    for (int y = part.top(); y <= part.bottom(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        const size_t first = size_t(y) * size_t(m_style.pixels.width());
        const float *background = m_background.data() + first;
        for (int x = part.left(); x <= right; ++x) {
            const float place = background[x] * colorSteps + 0.5F; // to round; none is negative
            line[x] = colors[int(place)];
        }
        for (int x = part.left(); x <= right && !m_negative.empty(); ++x) {
            if (m_negative[first + size_t(x)] != 0.0F)
                line[x] = mixed(first + size_t(x));
        }
    }
}

} // namespace Corvale_Qt
