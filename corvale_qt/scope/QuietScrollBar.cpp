// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/QuietScrollBar_p.h"

#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>

namespace Corvale_Qt {

bool QuietScrollBar::Picture::operator==(const Picture &other) const
{
    return slider == other.slider && isAtStart == other.isAtStart && isAtEnd == other.isAtEnd;
}

QuietScrollBar::QuietScrollBar(QScrollBar &bar)
    : m_bar(bar)
    , m_before(picture())
    , m_wasQuiet(bar.testAttribute(Qt::WA_UpdatesDisabled))
{
    bar.setAttribute(
        Qt::WA_UpdatesDisabled); // setUpdatesEnabled() would ask for a paint in the end
}

QuietScrollBar::~QuietScrollBar()
{
    m_bar.setAttribute(Qt::WA_UpdatesDisabled, m_wasQuiet);
    if (!(picture() == m_before))
        m_bar.update();
}

QuietScrollBar::Picture QuietScrollBar::picture() const
{
    QStyleOptionSlider option;
    option.initFrom(&m_bar);
    option.orientation = m_bar.orientation();
    if (option.orientation == Qt::Horizontal)
        option.state |= QStyle::State_Horizontal;
    option.minimum = m_bar.minimum();
    option.maximum = m_bar.maximum();
    option.sliderPosition = m_bar.sliderPosition();
    option.sliderValue = m_bar.value();
    option.singleStep = m_bar.singleStep();
    option.pageStep = m_bar.pageStep();
    option.upsideDown = m_bar.invertedAppearance();
    const QRect slider = m_bar.style()->subControlRect(QStyle::CC_ScrollBar,
                                                       &option,
                                                       QStyle::SC_ScrollBarSlider,
                                                       &m_bar);
    return {slider, m_bar.value() == m_bar.minimum(), m_bar.value() == m_bar.maximum()};
}

} // namespace Corvale_Qt
