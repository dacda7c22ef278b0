// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QPointer>

class QDockWidget;
class QWidget;

namespace Corvale_Qt {
class RVXScope;
} // namespace Corvale_Qt

namespace Monitor {

class WindowSettings;

/*! Gives the plot most of a small window: hides the log and the controls of the scope while the window is low, and the controls
    while the plot shares the window with others. Brings back what it has hidden when there is room again. What the operator shows or hides meanwhile stays so. */
class PlotRoom : public QObject
{
    Q_OBJECT

public:
    //! Arranges \a log and \a scope, which are parts of \a window, from begin() on.
    PlotRoom(QWidget *window, QDockWidget *log, Corvale_Qt::RVXScope *scope);

    /*! Arranges a window that is about to be shown for the first time. A log that is shown because an operator chose so
        stays: \a isLogChosen. */
    void begin(const WindowSettings &settings, bool isLogChosen);
    //! Sets whether the plot shares the window with those of other sources.
    void setShared(bool shared);
    //! Keeps whether the log is hidden only for want of room.
    void save(WindowSettings &settings) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void hideLog();
    void hideControls();
    void showLog();
    void showControls();

    QWidget *const m_window;
    const QPointer<QDockWidget> m_log;
    const QPointer<Corvale_Qt::RVXScope> m_scope;
    bool m_isSmall = false;
    bool m_isShared = false;
    bool m_hidLog = false;
    bool m_hidControls = false;
};

} // namespace Monitor
