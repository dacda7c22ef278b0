// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QRect>
#include <QVector>

#include <vector>

namespace Corvale_Qt {

//! The parts of a picture that must be drawn again, as square tiles of it.
class StaleTiles
{
public:
    //! The side of a tile. Those at the right and lower edges may be smaller.
    static constexpr int side = 32;

    //! Begins with none, for a picture of \a pixels.
    explicit StaleTiles(const QSize &pixels);

    //! Adds the tiles that \a part touches.
    void add(const QRect &part);
    void addAll();
    bool isEmpty() const { return m_isEmpty; }
    //! Returns whether \a part touches one of the tiles.
    bool touches(const QRect &part) const;
    //! Returns the pixels of all tiles; neighbours in a row of tiles are one rectangle.
    QVector<QRect> rects() const;

private:
    //! Returns the columns and rows of the tiles that \a part touches.
    QRect tilesOf(const QRect &part) const;
    //! Returns where a tile lies among all.
    std::ptrdiff_t placeOf(int column, int row) const;

    const QRect m_pixels;
    const QSize m_size; //!< in tiles
    std::vector<char> m_tiles;
    bool m_isEmpty = true;
};

} // namespace Corvale_Qt
