// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/window/FrameFeeder.h"
#include "monitor/window/ProfilePage.h"
#include "monitor/window/SpanControl.h"
#include "monitor/window/SpotComparison.h"
#include "monitor/window/SpotLayers.h"
#include <corvale_qt/widgets/RVXPopOutTabWidget.h>

#include <QMap>

namespace Corvale_Qt {
class RVXScope;
class SpotMapWidget;
} // namespace Corvale_Qt

namespace Monitor {

class Baseline;
class Session;
class SweepNotice;

//! The displays as tabs: the scope always, the others while the stream has data for them.
class DisplayTabs : public Corvale_Qt::RVXPopOutTabWidget
{
    Q_OBJECT

public:
    explicit DisplayTabs(Session &session, QWidget *parent = nullptr);
    ~DisplayTabs() override;

    Corvale_Qt::RVXScope *scope() const { return m_scope; }
    Baseline *baseline() const { return m_baseline; }
    SpanControl *spanControl() const { return m_span; }
    Corvale_Qt::RVXSpectrogram *profile() const { return m_profile->display(); }
    //! Returns the display that the operator works with: the one in the active window, else the one in the front tab.
    QWidget *displayInUse() const;
    //! Returns the name by which showDisplay() knows the front tab.
    QString currentDisplay() const;
    /*! Brings strip, scope, histogram, profile, position, spots or errors to the front, also from a separate window. Returns
        false if there is no such display now. */
    bool showDisplay(const QString &name);
    /*! Shows the strip chart and lets the operator type how much time it shows. A scope in a separate window stays there
        while there are other tabs. */
    void editSpan();
    //! Returns the displays in separate windows by name, each with the saved geometry of its window.
    QMap<QString, QByteArray> windows() const;
    //! Returns whether the stream has data for the display of that name.
    bool offers(const QString &name) const;
    //! Moves these displays, if they are present, to separate windows with these geometries.
    void restoreWindows(const QMap<QString, QByteArray> &windows);
    //! Sets the limits of the verdicts of profile and histogram, at once; a detector that states its own is judged by those.
    void setVerdictLimits(const Corvale_Qt::VerdictLimits &limits);
    //! Makes the position display say "no beam" where the sum of the readings, in their unit, is less.
    void setMinimumSum(double sum) { m_position->setMinimumSum(sum); }
    //! Returns whether the front tab has drawn data of this stream.
    bool hasDrawn() const;

Q_SIGNALS:
    //! Emitted when what the displays leave out of the readings has changed; empty if nothing is left out.
    void leftOutChanged(const Monitor::LoggedText &text);

private:
    void beginStream();
    void showBaselineOn(const QList<QWidget *> &displays);
    void showDetectorInScope();
    void showSpanControl();
    QList<QWidget *> optionalDisplays() const;
    void setTab(QWidget *page, const QString &title, bool present);
    void showLatestSpot();
    void describeSpots();
    void showSpotColumns();

    Session &m_session;
    Corvale_Qt::RVXScope *m_scope;
    Baseline *m_baseline;
    SweepNotice *m_sweepNotice;
    SpanControl *m_span;
    ProfilePage *m_profile;
    Corvale_Qt::RVXPositionPlot *m_position;
    Corvale_Qt::SpotMapWidget *m_spotMap;
    FrameFeeder m_frames;
    SpotLayers m_spots;
    SpotComparison *m_comparison;
    Corvale_Qt::VerdictLimits m_verdictLimits;
};

} // namespace Monitor
