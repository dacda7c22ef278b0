// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QTimer>

namespace Corvale_Qt {

class HoverCursor;
class RVXScopePlotViewPrivate;

/*! Follows the pointer over the canvas and makes the cursor show what the plot reads there. While the pointer rests and the plot
    moves, the readings are shown ten times a second: nobody reads faster, and each plot would pay for it. */
class HoverTracker : public QObject
{
public:
    explicit HoverTracker(RVXScopePlotViewPrivate &view);
    ~HoverTracker() override;

    //! Reads the plot again soon, because it was redrawn.
    void plotted();

    bool eventFilter(QObject *canvas, QEvent *event) override;

private:
    void refresh();

    RVXScopePlotViewPrivate &d;
    QPointer<HoverCursor> m_cursor; //!< the canvas owns it
    bool m_isInside = false;
    QPoint m_pointer;
    QTimer m_refresh;
    const bool m_trackedBefore;
};

} // namespace Corvale_Qt
