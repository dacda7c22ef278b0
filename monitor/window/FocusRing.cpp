// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/FocusRing.h"

#include "monitor/window/Look.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFocusEvent>
#include <QScrollArea>
#include <QTabBar>

namespace Monitor {

namespace {

constexpr int ringWidth = 2; // pixels

//! The contrast of a highlight that is seen at once, also as the shade of it that styles mark the focus with.
constexpr double clearly = 4.5;

double highlightContrast(const QPalette &palette)
{
    return Look::contrast(palette.color(QPalette::Highlight), palette.color(QPalette::Window));
}

//! Returns whether the style paints no mark, or a pale one, on a widget that has the focus.
bool needsRing(const QWidget *widget)
{
    return highlightContrast(widget->window()->palette()) < clearly
        || qobject_cast<const QAbstractScrollArea *>(widget)
        || qobject_cast<const QTabBar *>(widget) || widget->inherits("QwtPlotCanvas");
}

//! Returns the highlight, nearer to the colour of texts where it is pale.
QColor ringColor(const QPalette &palette)
{
    const QColor &highlight = palette.color(QPalette::Highlight);
    return highlightContrast(palette) < clearly
        ? Look::mixed(highlight, palette.color(QPalette::WindowText), 0.4)
        : highlight;
}

QRect markedPart(const QWidget *widget)
{
    const auto *tabs = qobject_cast<const QTabBar *>(widget);
    return tabs ? tabs->tabRect(tabs->currentIndex()) : widget->rect();
}

//! Scrolls until a control can be seen. A press of the mouse does not: the control would move away beneath it.
void scrollTo(QWidget *control)
{
    if (QApplication::mouseButtons() != Qt::NoButton)
        return;
    for (QWidget *outer = control->parentWidget(); outer; outer = outer->parentWidget())
        if (auto *area = qobject_cast<QScrollArea *>(outer))
            area->ensureWidgetVisible(control);
}

} // namespace

FocusRing::FocusRing(QObject *parent)
    : QObject(parent)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        follow(now);
    });
}

FocusRing::~FocusRing()
{
    delete m_ring;
}

void FocusRing::follow(QWidget *focused)
{
    if (m_focused)
        m_focused->removeEventFilter(this);
    delete m_ring;
    // Where the focus comes from another window, or from a menu, it is marked as it was.
    if (m_reason != Qt::ActiveWindowFocusReason && m_reason != Qt::PopupFocusReason)
        m_isByKeys = m_reason == Qt::TabFocusReason || m_reason == Qt::BacktabFocusReason
            || m_reason == Qt::ShortcutFocusReason;
    m_focused = focused;
    if (!focused)
        return;
    focused->installEventFilter(this);
    scrollTo(focused);
    if (m_isByKeys && needsRing(focused))
        mark(focused);
}

void FocusRing::mark(QWidget *focused)
{
    m_ring = new QWidget(focused);
    m_ring->setObjectName(QStringLiteral("focusRing"));
    m_ring->setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette colors = focused->window()->palette();
    colors.setColor(QPalette::Window, ringColor(colors));
    m_ring->setPalette(colors);
    m_ring->setBackgroundRole(QPalette::Window); // and not that of the button around it
    m_ring->setAutoFillBackground(true);
    place();
    m_ring->show();
}

void FocusRing::place()
{
    const QRect part = markedPart(m_focused);
    if (part == m_ring->geometry())
        return;
    m_ring->setGeometry(part);
    const QRect inside(QPoint(), part.size());
    m_ring->setMask(QRegion(inside)
                    - inside.adjusted(ringWidth, ringWidth, -ringWidth, -ringWidth));
    m_ring->raise();
}

bool FocusRing::eventFilter(QObject *watched, QEvent *event)
{
    // It is sent before the application tells who has the focus now, and has the same reason.
    if (event->type() == QEvent::FocusOut)
        m_reason = static_cast<QFocusEvent *>(event)->reason();
    // A tab bar is laid out, and paints itself anew, when another tab is chosen.
    const bool isDue = event->type() == QEvent::Resize
        || (event->type() == QEvent::Paint && qobject_cast<QTabBar *>(watched));
    if (isDue && m_ring)
        place();
    return false;
}

} // namespace Monitor
