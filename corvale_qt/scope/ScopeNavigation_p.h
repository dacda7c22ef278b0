// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/ViewHold_p.h"

#include <QObject>

#include <memory>

class QKeyEvent;

namespace Corvale_Qt {

class CanvasGestures;
class HeldMark;
class HoverTracker;
class RVXScopePlotViewPrivate;

/*! Where a user is in the chart: it zooms and pans the axes, goes back, shows that the view is held, and turns keys into all
    of that. CanvasGestures does the same for mouse, wheel and touch pad. */
class ScopeNavigation : public QObject
{
    Q_OBJECT

public:
    explicit ScopeNavigation(RVXScopePlotViewPrivate &view);
    ~ScopeNavigation() override;

    bool isInteractive() const;
    void setInteractive(bool interactive);
    bool isCursorEnabled() const { return m_hover != nullptr; }
    void setCursorEnabled(bool enabled);

    //! Steps of the same kind that follow each other are undone together.
    enum class Step {
        Single,
        WheelIn,
        WheelOut,
        WheelMove,
        Pinch
    };
    //! Shows an interval of an axis; one that is not valid leaves its axis as it is. The right axis moves along with the left one.
    void zoomTo(const QwtInterval &x, const QwtInterval &y, Step step = Step::Single);
    //! Shows a window without noting the present one.
    void show(const ViewWindow &window);
    //! Notes the present window for undo().
    void remember();
    //! Follows the newest samples again, with the whole y scale.
    void goLive();
    //! Goes back to the window before. Returns false if there is none.
    bool undo();
    //! Follows the newest samples again and forgets all windows, because the samples are others.
    void forget();
    //! Gives a held strip chart the width that was set, about its middle.
    void spanChanged();
    //! Lets go of the y axis, whose scale was set.
    void releaseY();

    //! Returns the axis that a wheel or a key zooms: x if it is a time and \a wantsY is false, else y.
    int zoomedAxis(bool wantsY) const;
    //! Zooms an axis about a pixel of the canvas; a factor below 1 shows less of it.
    void zoomAxis(int axis, double pixel, double factor, Step step = Step::Single);
    //! Zooms one of two y axes about a pixel of the canvas, and leaves the other one as it is.
    void zoomYAxisAlone(int axis, double pixel, double factor, Step step);
    //! Moves the contents of an axis by pixels.
    void moveAxis(int axis, double pixels, Step step = Step::Single);
    //! Returns \a x, or the interval next to it to which a user may go.
    QwtInterval limited(const QwtInterval &x) const;

    //! Follows a plot: shows what is held and what the pointer reads.
    void plotted();
    //! Handles a key of the view. Returns false if it means nothing here.
    bool keyPressed(const QKeyEvent &event);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isPlot() const;
    bool zoomKeyPressed(const QKeyEvent &event);
    bool moveKeyPressed(const QKeyEvent &event);
    bool placeMarkerKeyPressed(const QKeyEvent &event);
    bool escape();
    bool handles(const QKeyEvent &event) const;
    void zoomTo(const ViewWindow &window, Step step);
    QwtInterval besideOnRight(const QwtInterval &y) const;
    void goTo(int axis, const QwtInterval &wanted, Step step);
    void goToFirst();
    void showMark();
    void announceLater();
    void announceHeld();

    RVXScopePlotViewPrivate &d;
    std::unique_ptr<CanvasGestures> m_gestures; //!< while the view is interactive
    std::unique_ptr<HoverTracker> m_hover; //!< while the cursor is enabled
    HeldMark *m_mark = nullptr; //!< made when it is first shown; the canvas owns it
    Step m_lastStep = Step::Single;
    bool m_announcedHeld = false;
};

} // namespace Corvale_Qt
