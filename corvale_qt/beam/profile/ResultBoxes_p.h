// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/AmountUnit_p.h"
#include "corvale_qt/beam/profile/JudgedFrame_p.h"
#include "corvale_qt/plot/AccessibleChart_p.h"

class QDoubleSpinBox;
class QLabel;

namespace Corvale_Qt {

namespace Ui {
class RVXSpectrogram;
} // namespace Ui

/*! The numbers and the verdict of a frame in the side bar. */
class ResultBoxes
{
public:
    explicit ResultBoxes(const Ui::RVXSpectrogram &ui);

    //! Removes all numbers, as before the first frame.
    void clear();
    //! Sets the text that boxes without a number show.
    void showNoNumbers(const QString &text);
    //! Sets the units behind lengths along X and Y. Lengths of the axes of the ellipse have a unit only if both are equal.
    void setLengthUnits(const QString &x, const QString &y);
    //! Sets the symbol of the unit of integral and maximum, and whether each is shown with the prefix that suits it.
    void setAmountUnit(const AmountUnit &unit);
    //! Shows the numbers of a frame; only mean X, mean Y and elongation unless \a all.
    void show(const JudgedFrame &frame, bool all);
    //! Keeps a place for two reasons of a verdict, so that the controls below do not jump from frame to frame.
    void keepRoomForReasons();
    //! Returns what a screen reader says of the frame: the verdict, mean and sigma.
    ChartWords words() const;

private:
    void showVerdict(const JudgedFrame &frame);

    const Ui::RVXSpectrogram &m_ui;
};

} // namespace Corvale_Qt
