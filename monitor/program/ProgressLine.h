// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/Clock.h"

#include <QObject>

#include <functional>

namespace Monitor {

/*! Tells on standard error how far long work is: on a terminal as one line that changes every second, elsewhere as a line every
    half minute. Short work says nothing. */
class ProgressLine : public QObject
{
    Q_OBJECT

public:
    //! \a text is asked for the line. \a clock must outlive this object.
    ProgressLine(Clock &clock, const std::function<QString()> &text, QObject *parent = nullptr);
    //! Ends the line.
    ~ProgressLine() override;

private:
    void tick();
    void clear();

    Clock &m_clock;
    const std::function<QString()> m_text;
    const bool m_isTerminal;
    double m_nextAt;
    bool m_isShown = false;
};

} // namespace Monitor
