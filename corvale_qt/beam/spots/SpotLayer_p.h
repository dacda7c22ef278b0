// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/PictureBuffer_p.h"
#include "corvale_qt/beam/spots/SpotPainting_p.h"

namespace Corvale_Qt {

//! A picture of spots, each drawn over those before it.
class SpotLayer
{
public:
    virtual ~SpotLayer();

    //! Makes an empty picture; a null image if there is not enough memory.
    virtual void begin(const SpotStyle &style) = 0;
    //! Draws the spots from row \a first on.
    virtual void draw(const SpotList &spots, int first) = 0;
    /*! Draws all spots anew where they touch \a area, a part of the map in its units, and leaves the rest. Returns false if this
        kind of picture cannot do so; nothing is drawn then. */
    virtual bool redraw(const SpotList &spots, const QRectF &area);
    //! Returns what was drawn so far. The reference is valid until the next call to this object.
    virtual const QImage &image() = 0;
    //! Returns whether the picture is gone, so that begin() must be called again.
    virtual bool isLost() const { return false; }

protected:
    SpotLayer() = default;

private:
    Q_DISABLE_COPY(SpotLayer)
};

//! How a painter draws spots: drawSpots() or drawPath().
using SpotDrawing = void (*)(QPainter &, const SpotList &, int first, const SpotStyle &);

//! Returns a picture that a painter draws.
std::unique_ptr<SpotLayer> makePaintedLayer(std::unique_ptr<PictureBuffer> buffer,
                                            SpotDrawing drawing);
//! Returns a picture of spots in memory, which is computed without a painter.
std::unique_ptr<SpotLayer> makeShadedLayer();
/*! Returns a picture of spots in the OpenGL context of \a viewport if it has one, otherwise one in memory. The picture may outlive
    the viewport. */
std::unique_ptr<SpotLayer> makeSpotLayer(QWidget *viewport);

} // namespace Corvale_Qt
