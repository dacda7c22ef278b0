// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"

#include <iterator>

namespace Corvale_Qt {

namespace {

// Each colour is as far as possible from all before it, as people see distances (CIE L*a*b*), and bright enough on black.
constexpr QRgb manyColors[] = {
    0x00ffff, 0xbb00ff, 0xff3300, 0xddff00, 0xbb7799, 0x997700, 0x0077ff, 0x009933,
    0xff0099, 0xddddbb, 0x00ff33, 0x55bbff, 0xff9977, 0xdd77ff, 0xbbff99, 0x559999,
    0xffdd55, 0xff0055, 0xff9900, 0xffddff, 0x00ffbb, 0xff00dd, 0x997755, 0x779955,
    0x7777bb, 0x77bb00, 0x7755ff, 0xbb5500, 0x00bb99, 0xdd5577, 0xbbffff, 0x33dd55,
    0xbb99ff, 0x99ff33, 0xdd55bb, 0xff99dd, 0xddbb77, 0x9955bb, 0x55ddff, 0xffbbbb,
    0x3399ff, 0x777777, 0xbbbbff, 0x7799bb, 0xbbddff, 0xbb33dd, 0x77dd99, 0xdd3333,
    0xdddd77, 0xbbdd99, 0x999900, 0x9977ff, 0x99ffdd, 0x77bb55, 0xffbb55, 0xbbbbbb,
    0xbb7733, 0x77ff99, 0xddff77, 0xff7733, 0xffbb00, 0xff7777, 0xffdd00, 0x00bbbb,
};

// Chosen likewise, by the smallest of the distances as trichromats, protanopes, deuteranopes and tritanopes see them
// (Machado, Oliveira and Fernandes 2009).
constexpr QRgb safeColors[] = {
    0xffffff,
    0xff0000,
    0xdd00ff,
    0x337777,
    0x99ff99,
    0xbb99dd,
    0xffbb00,
    0x33bb77,
};

constexpr int manyColorsInARow = 16;
constexpr int safeColorsInARow = int(std::size(safeColors));

//! Returns i modulo n, from 0 to n - 1 for negative numbers as well.
int wrapped(int i, int n)
{
    const int rest = i % n;
    return rest < 0 ? rest + n : rest;
}

} // namespace

const unsigned int RVXPlotColors::NUM_SCOPE_COLORS = 8;

const QColor RVXPlotColors::colors[8] = {
    Qt::cyan,
    Qt::green,
    Qt::magenta,
    Qt::red,
    QColor(0, 85, 255),
    Qt::yellow,
    QColor(255, 128, 0),
    QColor(179, 102, 255),
};

QColor RVXPlotColors::color(int i)
{
    return colors[i & 7];
}

QColor RVXPlotColors::color(int i, Palette palette)
{
    switch (palette) {
    case ManyColors:
        return QColor(manyColors[wrapped(i, int(std::size(manyColors)))]);
    case ColorBlindSafe:
        return QColor(safeColors[wrapped(i, safeColorsInARow)]);
    case EightColors:
        break;
    }
    return color(i);
}

QVector<qreal> RVXPlotColors::dashes(int i, Palette palette)
{
    static const QVector<QVector<qreal>> patterns = {
        {},
        {8, 4},
        {2, 3},
        {10, 3, 2, 3},
        {16, 4},
        {5, 3, 5, 8},
        {2, 8},
        {10, 3, 2, 3, 2, 3},
    };
    if (palette != ManyColors && palette != ColorBlindSafe)
        return {};
    const int row = palette == ManyColors ? manyColorsInARow : safeColorsInARow;
    return patterns.at(wrapped(i, row * patterns.size()) / row);
}

QColor RVXPlotColors::labelBackgroundColor()
{
    return kLabelBackgroundColor;
}

QColor RVXPlotColors::labelTextColor()
{
    return kLabelTextColor;
}

} // namespace Corvale_Qt
