// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

namespace Corvale_Qt {

class DetectorLayout;

namespace Ui {
class RVXSpectrogram;
} // namespace Ui

/*! Shows the numbers and controls of the side bar that a detector can fill or obey, and hides the others: a single plane has no second
    coordinate and no ellipse, and only the preset of 128 pixels has a discriminator. An empty layout stands for a preset. */
void showControlsFor(const DetectorLayout &layout, const Ui::RVXSpectrogram &ui);

} // namespace Corvale_Qt
