// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/TextWidths_p.h"

#include <QFontMetricsF>
#include <QPaintDevice>

namespace Corvale_Qt {

bool TextWidths::setFont(const QFont &font, const QPaintDevice &device)
{
    const int dpi = device.logicalDpiY();
    if (dpi == m_dpi && font == m_font)
        return false;
    m_font = QFont(font, const_cast<QPaintDevice *>(&device));
    m_dpi = dpi;
    m_widths.clear();
    return true;
}

double TextWidths::of(const QString &text)
{
    const auto known = m_widths.constFind(text);
    if (known != m_widths.constEnd())
        return *known;
    constexpr int most = 256; // the labels of some seconds, of an axis that moves
    if (m_widths.size() >= most)
        m_widths.clear();
    const double width = QFontMetricsF(m_font).horizontalAdvance(text);
    m_widths.insert(text, width);
    return width;
}

} // namespace Corvale_Qt
