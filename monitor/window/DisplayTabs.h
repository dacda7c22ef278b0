// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/window/FrameFeeder.h"
#include "monitor/window/ProfilePage.h"
#include "monitor/window/SpotLayers.h"
#include <corvale_qt/widgets/RVXPopOutTabWidget.h>

#include <QMap>

namespace Corvale_Qt {
class RVXScope;
class SpotMapWidget;
} // namespace Corvale_Qt

namespace Monitor {

class Session;

/*! The displays as tabs: the scope always, the others while the stream has what they show. */
class DisplayTabs : public Corvale_Qt::RVXPopOutTabWidget
{
    Q_OBJECT

public:
    explicit DisplayTabs(Session &session, QWidget *parent = nullptr);

    Corvale_Qt::RVXScope *scope() const { return m_scope; }
    Corvale_Qt::RVXSpectrogram *profile() const { return m_profile->display(); }
    //! The display that the operator works with: the one in the active window, else the tab in front.
    QWidget *displayInUse() const;
    //! The name that showDisplay() knows the tab in front by.
    QString currentDisplay() const;
    /*! Turns to strip, scope, histogram, profile, position or spots, and fetches it back from a window of its own;
        false where there is no such view now. */
    bool showDisplay(const QString &name);
    //! The displays that stand in windows of their own, by name, each with the place and size of its window.
    QMap<QString, QByteArray> windows() const;
    //! Takes them out again, as far as they are there.
    void restoreWindows(const QMap<QString, QByteArray> &windows);
    //! Whether the view that is shown has shown data of this stream.
    bool hasDrawn() const;

private:
    void beginStream();
    QList<QWidget *> optionalDisplays() const;
    void setTab(QWidget *page, const QString &title, bool present);
    void showLatestSpot();

    Session &m_session;
    Corvale_Qt::RVXScope *m_scope;
    ProfilePage *m_profile;
    Corvale_Qt::RVXPositionPlot *m_position;
    Corvale_Qt::SpotMapWidget *m_spotMap;
    FrameFeeder m_frames;
    SpotLayers m_spots;
};

} // namespace Monitor
