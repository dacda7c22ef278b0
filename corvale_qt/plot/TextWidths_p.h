// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QFont>
#include <QHash>
#include <QString>

class QPaintDevice;

namespace Corvale_Qt {

//! The widths of lines of text in one font. Those asked for lately are kept, since measuring a line means laying it out.
class TextWidths
{
public:
    //! Sets the font, as it is on \a device. Returns whether it is another one.
    bool setFont(const QFont &font, const QPaintDevice &device);
    //! Returns the width of a line in pixels.
    double of(const QString &text);

private:
    QFont m_font;
    int m_dpi = 0;
    QHash<QString, double> m_widths;
};

} // namespace Corvale_Qt
