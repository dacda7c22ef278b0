// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

namespace Corvale_Qt {
class RVXScope;
class TimeSpanBox;
} // namespace Corvale_Qt

namespace Monitor {

//! The control that says how much time the strip chart shows.
class SpanControl : public QWidget
{
    Q_OBJECT

public:
    //! The span that the first start shows, in seconds.
    static constexpr double usualSpan = 60.0;

    explicit SpanControl(Corvale_Qt::RVXScope &scope, QWidget *parent = nullptr);

    Corvale_Qt::TimeSpanBox *box() const { return m_box; }
    /*! Sets whether the readings have times that a chart can be measured in. Without them the chart shows as many readings as
        their model asks for. */
    void setTimed(bool timed);
    bool isTimed() const { return m_timed; }
    //! Returns whether its span applies: the scope shows a strip chart of readings with times.
    bool applies() const;
    //! Gives the box the focus, with its text selected, so that a span can be typed.
    void edit();

private:
    void apply();

    Corvale_Qt::RVXScope &m_scope;
    Corvale_Qt::TimeSpanBox *m_box;
    bool m_timed = true;
};

} // namespace Monitor
