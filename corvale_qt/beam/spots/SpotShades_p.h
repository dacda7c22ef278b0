// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/SpotCover_p.h"
#include "corvale_qt/beam/spots/SpotPainting_p.h"

#include <QImage>
#include <QRect>

#include <vector>

namespace Corvale_Qt {

/*! Spots that cover each other, before they are a picture: for each pixel which part of the background still shows, as a product
    of what each spot leaves of it. A spot of one colour costs a multiplication for each of its pixels, much less than a painter
    needs for a gradient, and is not rounded to one of 256 levels in between. A spot is the Gaussian of its brush, without the
    straight lines between the steps. */
class SpotShades
{
public:
    //! Makes all pixels background. Returns false if there is not enough memory.
    bool begin(const SpotStyle &style);
    //! Makes the pixels of \a part background again.
    void clear(const QRect &part);
    //! Returns the rectangle that holds all pixels of a drawable spot; empty if it has none.
    QRect pixelsOf(const SpotMapView::MapSpot &spot) const;
    /*! Covers the pixels of \a part that a drawable spot reaches. The order of the spots over a pixel matters: a negative dose has
        another colour. */
    void add(const SpotMapView::MapSpot &spot, const QRect &part);
    //! Turns \a part into the pixels of an image of the style's size.
    void paint(QImage &image, const QRect &part) const;

private:
    //! A spot in pixels.
    struct Blob;

    Blob blobOf(const SpotMapView::MapSpot &spot) const;
    void computeRows(const Blob &blob, const QRect &part);
    void coverNegative(float *pixels, const SpotCover &spot, bool isNegative) const;
    QRgb mixed(size_t pixel) const;

    const CoverPixels m_cover = fastestCover();
    SpotStyle m_style;
    std::vector<float> m_background; //!< the part of the background that still shows
    std::vector<float>
        m_negative; //!< the part that spots of negative dose cover; empty while there is none
    std::vector<float> m_columns; //!< the Gaussian along x of the spot at hand
    std::vector<SpotRow> m_rows; //!< of the spot at hand
    std::vector<QRgb> m_colors; //!< the pixels between the spots' colour and the background
};

} // namespace Corvale_Qt
