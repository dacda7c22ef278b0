// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/statistics/RVX_HistogramItemAxisWidget.h"
#include "corvale_qt/scope/statistics/StatisticsStrips_p.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace Corvale_Qt {

StatisticsStrips::StatisticsStrips(QwtPlot *plot, QWidget *viewport)
    : QScrollArea(viewport)
    , m_plot(plot)
{
    auto *strips = new QWidget;
    m_layout = new QVBoxLayout(strips);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    setWidget(strips);
    setWidgetResizable(true);
    setFrameStyle(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // the view handles the keys
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Maximum);
    // This puts the scroll bar on the left, above the y axis; on the right it would cover ticks.
    setLayoutDirection(Qt::RightToLeft);
    strips->setLayoutDirection(Qt::LeftToRight);

    // The layout ignores the size hint of the plot: the strips themselves leave half of the height to it.
    plot->setMinimumHeight(plot->minimumSizeHint().height());
    plot->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    plot->canvas()->installEventFilter(this);
    viewport->installEventFilter(this);
    viewport->parentWidget()->installEventFilter(this);
}

void StatisticsStrips::add(RVX_HistogramItemAxisWidget *strip)
{
    m_layout->insertWidget(0, strip);
}

int StatisticsStrips::wantedHeight() const
{
    if (!m_plot || !m_plot->canvas())
        return 0;
    const QWidget *viewport = parentWidget();
    const int leastForCanvas = (viewport->parentWidget()->height() + 1) / 2;
    const int axes = m_plot->height() - m_plot->canvas()->height();
    const int mostForStrips = std::max(viewport->height() - leastForCanvas - axes, 0);
    return std::min(m_layout->minimumSize().height(), mostForStrips);
}

QSize StatisticsStrips::sizeHint() const
{
    return QSize(0, wantedHeight());
}

QSize StatisticsStrips::minimumSizeHint() const
{
    return QSize(0, 0);
}

bool StatisticsStrips::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && watched == parentWidget()->parentWidget())
        return scrollByPage(static_cast<QKeyEvent *>(event)->key());
    const bool filtered = QScrollArea::eventFilter(watched, event);
    const bool stripsChanged = watched == widget() && event->type() == QEvent::LayoutRequest;
    const bool plotChanged = watched != widget() && event->type() == QEvent::Resize;
    if (watched == widget() && event->type() == QEvent::Move)
        alignStrips();
    if ((stripsChanged || plotChanged) && wantedHeight() != height())
        updateGeometry();
    return filtered;
}

//! Aligns the strips again after a scroll bar has shifted them: they do not notice a move of their parent.
void StatisticsStrips::alignStrips()
{
    for (auto *strip : widget()->findChildren<RVX_HistogramItemAxisWidget *>())
        strip->updateLayout();
}

bool StatisticsStrips::scrollByPage(int key)
{
    QScrollBar *bar = verticalScrollBar();
    if (!isVisible() || bar->maximum() == 0 || (key != Qt::Key_PageUp && key != Qt::Key_PageDown))
        return false;
    bar->triggerAction(key == Qt::Key_PageUp ? QScrollBar::SliderPageStepSub
                                             : QScrollBar::SliderPageStepAdd);
    return true;
}

} // namespace Corvale_Qt
