// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/NumberScaleDraw_p.h"
#include "corvale_qt/plot/TimeTicks_p.h"

namespace Corvale_Qt {

/*! Labels a time axis: with the texts of TimeTicks, or with numbers while there are none. A number that would touch the one
    before is left out. */
class TimeScaleDraw : public NumberScaleDraw
{
public:
    //! Sets the labels of the ticks. Returns whether they differ from those before.
    bool setTicks(const TimeTicks &ticks);
    //! Labels the ticks with numbers again.
    void useNumbers();

    QwtText label(double value) const override;
    void draw(QPainter *painter, const QPalette &palette) const override;

protected:
    void drawLabel(QPainter *painter, double value) const override;

private:
    TimeTicks m_ticks;
    bool m_hasTicks = false;
    mutable double m_taken = 0.0; //!< right end of the last label of the drawing in progress
};

} // namespace Corvale_Qt
