// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/plot/FiniteScaleEngine_p.h"

namespace Corvale_Qt {

/*! Decides which range an axis shows that follows noisy data. It grows as soon as the data leave it, and shrinks only after the
    data have stayed well inside for a number of pictures, so that the axis does not move with every picture. */
class SteadyRange
{
public:
    //! After this many pictures of data well inside, the range shrinks: two seconds at 25 pictures a second.
    static constexpr int picturesToShrink = 50;
    //! Data are well inside while the range for them would be at most this part of the shown one.
    static constexpr double wellInside = 0.7;

    //! A range with the distance of its ticks.
    struct Range
    {
        double lower = 0.0;
        double upper = 0.0;
        double step = 0.0;

        double width() const { return upper - lower; }
    };

    //! Returns the range to show for data from \a lower to \a upper. \a align makes a Range with round limits around data.
    template<typename Align>
    const Range &follow(double lower, double upper, Align align)
    {
        if (!m_hasRange) {
            m_range = align(lower, upper);
            m_hasRange = true;
            m_quiet = 0;
        } else if (lower < m_range.lower || upper > m_range.upper) {
            m_range = align(lower < m_range.lower ? lower : m_range.lower,
                            upper > m_range.upper ? upper : m_range.upper);
            m_quiet = 0;
        } else {
            extendRecent(lower, upper);
            const Range smaller = align(m_lowest, m_highest);
            if (smaller.width() > wellInside * m_range.width()) {
                m_quiet = 0;
            } else if (m_quiet >= picturesToShrink) {
                m_range = smaller;
                m_quiet = 0;
            }
        }
        return m_range;
    }

    //! Forgets the range: the next data are shown as if they were the first.
    void restart() { m_hasRange = false; }

private:
    void extendRecent(double lower, double upper)
    {
        m_lowest = m_quiet > 0 && m_lowest < lower ? m_lowest : lower;
        m_highest = m_quiet > 0 && m_highest > upper ? m_highest : upper;
        ++m_quiet;
    }

    Range m_range;
    bool m_hasRange = false;
    int m_quiet = 0; // pictures since the data were last not well inside
    // The extremes of the data of these pictures.
    double m_lowest = 0.0;
    double m_highest = 0.0;
};

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
