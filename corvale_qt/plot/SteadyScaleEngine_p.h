// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/FiniteScaleEngine_p.h"
#include "corvale_qt/plot/SteadyRange_p.h"

namespace Corvale_Qt {

/*! The scale of an axis that follows the data. As it is made, it is a FiniteScaleEngine. It can also move with hysteresis
    (SteadyRange), and show a part of the data's full scale. Qwt asks for a scale once for each picture. */
class SteadyScaleEngine : public FiniteScaleEngine
{
public:
    //! Sets whether the range moves with hysteresis; false at first.
    void setSteady(bool on);
    /*! Shows \a lowerFraction to \a upperFraction of the full scale, which is 1, 2 or 5 times a power of ten and not
        less than any magnitude of the data. With 0 for both, as at first, the range spans the data. */
    void setFractions(double lowerFraction, double upperFraction);
    //! Follows the next data as if they were the first.
    void restart() { m_range.restart(); }

    void autoScale(int maxSteps, double &x1, double &x2, double &stepSize) const override;

private:
    SteadyRange::Range rangeFor(int maxSteps, double x1, double x2) const;

    bool m_isSteady = false;
    double m_lowerFraction = 0.0;
    double m_upperFraction = 0.0;
    // Qwt's function is const, although it is where an axis learns of its data.
    mutable SteadyRange m_range;
};

//! Returns the smallest of 1, 2 and 5 times a power of ten that is not less than \a magnitude; 1 for 0.
double fullScaleFor(double magnitude);

} // namespace Corvale_Qt
