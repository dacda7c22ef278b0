// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ScreenFit.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace Monitor {

namespace {

qint64 commonArea(const QRect &a, const QRect &b)
{
    const QRect common = a & b;
    return qint64(common.width()) * common.height();
}

} // namespace

QList<QRect> usableScreens()
{
    QList<QRect> places;
    for (const QScreen *screen : QGuiApplication::screens())
        places.append(screen->availableGeometry());
    // A window that no screen shows any more goes to the first one.
    std::stable_partition(places.begin(), places.end(), [](const QRect &place) {
        return place == QGuiApplication::primaryScreen()->availableGeometry();
    });
    return places;
}

QRect fitted(const QRect &frame, const QList<QRect> &screens)
{
    if (screens.isEmpty())
        return frame;
    const QRect screen =
        *std::max_element(screens.begin(), screens.end(), [&](const QRect &a, const QRect &b) {
            return commonArea(a, frame) < commonArea(b, frame);
        });
    QRect placed(frame.topLeft(), frame.size().boundedTo(screen.size()));
    placed.moveLeft(std::clamp(placed.left(), screen.left(), screen.right() + 1 - placed.width()));
    placed.moveTop(std::clamp(placed.top(), screen.top(), screen.bottom() + 1 - placed.height()));
    return placed;
}

void fitToScreen(QWidget *window)
{
    // The frame is known once the window is shown; until then there must be room for a title.
    const int title =
        window->isVisible() ? 0 : window->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect frame = window->frameGeometry().adjusted(0, -title, 0, 0);
    const QSize margins = frame.size() - window->size();
    const QRect wanted = fitted(frame, usableScreens());
    if (wanted.size() != frame.size())
        window->resize(wanted.size() - margins);
    // A window that nobody has moved is placed by the desktop, which knows the height of the title.
    if (wanted.topLeft() == frame.topLeft())
        return;
    if (window->isVisible())
        window->move(wanted.topLeft());
    else if (window->testAttribute(Qt::WA_Moved)) // move() would put the title above the screen
        window->setGeometry({wanted.topLeft() + QPoint(0, title), window->size()});
}

} // namespace Monitor
