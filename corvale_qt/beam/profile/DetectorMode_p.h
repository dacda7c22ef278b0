// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/FrameAveraging_p.h"
#include "corvale_qt/beam/profile/JudgedFrame_p.h"

#include <optional>

namespace Corvale_Qt {

/*! What the profile display knows about a described detector: its layout, how frames are averaged, estimated and judged. */
class DetectorMode
{
public:
    //! Sets the detector; an empty layout leaves the mode. Forgets all frames and the background if it is another one.
    void setLayout(const DetectorLayout &layout);
    const DetectorLayout &layout() const { return m_layout; }
    bool isOn() const { return !m_layout.isEmpty(); }
    //! Mirrors the axes: positions change their signs.
    void setInverted(bool x, bool y);
    //! Returns the layout as it is shown, with mirrored axes.
    const DetectorLayout &shownLayout() const { return m_shown; }

    //! Puts a frame of readings on the cells. Returns nothing, and logs one line, if their number is not that of the layout.
    std::optional<DetectorFrame> frameOf(const QVector<double> &readings) const;
    //! Adds a frame and returns what is to be shown of it: averaged, less the background.
    DetectorFrame add(const DetectorFrame &frame) { return averaging.add(frame); }
    //! Computes and judges a frame, with the regression of the display and a factor from readings to the unit shown.
    JudgedFrame judge(const DetectorFrame &frame,
                      const RegressionOptions<double> &regression,
                      double factor) const;
    JudgedFrame judgePreset(const BeamFrame &beam,
                            ProfileLayout layout,
                            const FrameReadings &readings,
                            const FrameOptions &options) const;

    //! Returns the estimator: the chosen one, else the regression for strips and least squares for a matrix.
    BeamEstimator estimator() const;
    //! Returns the limits by which frames are judged: the chosen ones, else those of the layout.
    VerdictLimits limits() const;
    //! Returns what is done to frames as text: averaging and background; empty if nothing is.
    QString stateText() const;

    FrameAveraging averaging;
    std::optional<BeamEstimator> chosenEstimator;
    CentreOfGravityOptions centreOfGravity; //!< of described detectors
    std::optional<VerdictLimits> chosenLimits;
    bool verdictEnabled = false; //!< with a layout, frames are judged anyway

private:
    static QString missingText(int frames);
    static QString backgroundText(int frames, bool isSubtracted);
    void mirror();

    DetectorLayout m_layout;
    DetectorLayout m_shown;
    bool m_invertX = false;
    bool m_invertY = false;
};

} // namespace Corvale_Qt
