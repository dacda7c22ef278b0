// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QRect>
#include <QtGlobal>

class QScrollBar;

namespace Corvale_Qt {

/*! While it exists, a scroll bar asks for no paint. In the end it asks for one if it looks different: a chart that grows by a row
    changes the range in each frame, and moves the slider by less than a pixel. */
class QuietScrollBar
{
public:
    explicit QuietScrollBar(QScrollBar &bar);
    ~QuietScrollBar();
    Q_DISABLE_COPY(QuietScrollBar)

private:
    //! What is painted of a scroll bar's range and value.
    struct Picture
    {
        QRect slider;
        bool isAtStart;
        bool isAtEnd;

        bool operator==(const Picture &other) const;
    };
    Picture picture() const;

    QScrollBar &m_bar;
    const Picture m_before;
    const bool m_wasQuiet;
};

} // namespace Corvale_Qt
