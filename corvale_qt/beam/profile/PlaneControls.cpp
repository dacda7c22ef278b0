// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/PlaneControls_p.h"
#include "corvale_qt/detector/DetectorLayout.h"

#include "ui_RVXSpectrogram.h"

namespace Corvale_Qt {

namespace {

using Widgets = std::initializer_list<QWidget *>;

void setVisible(Widgets widgets, bool visible)
{
    for (QWidget *widget : widgets)
        widget->setVisible(visible);
}

} // namespace

void showControlsFor(const DetectorLayout &layout, const Ui::RVXSpectrogram &ui)
{
    using Axis = DetectorLayout::Axis;
    const bool isPreset = layout.isEmpty();
    const bool hasX = isPreset || layout.cells(Axis::X) > 0;
    const bool hasY = isPreset || layout.cells(Axis::Y) > 0;
    setVisible({ui.label_meanx,
                ui.doubleSpinBox_meanx,
                ui.label_dx,
                ui.doubleSpinBox_dx,
                ui.checkBox_invertX,
                ui.checkBox_meanX},
               hasX);
    setVisible({ui.label_meany,
                ui.doubleSpinBox_meany,
                ui.label_dy,
                ui.doubleSpinBox_dy,
                ui.checkBox_invertY,
                ui.checkBox_meanY},
               hasY);
    setVisible({ui.label_major,
                ui.doubleSpinBox_major,
                ui.label_minor,
                ui.doubleSpinBox_minor,
                ui.label_rotation,
                ui.doubleSpinBox_rotation,
                ui.label_elongation,
                ui.doubleSpinBox_elongation,
                ui.checkBox_ellipse,
                ui.spinBox_sigma,
                ui.checkBox_arrow,
                ui.spinBox_arrow,
                ui.label_xorigin,
                ui.xorigin_doubleSpinBox,
                ui.label_yorigin,
                ui.yorigin_doubleSpinBox},
               hasX && hasY);
    setVisible({ui.label_discriminator, ui.discriminator_QScienceSpinBox}, isPreset);
}

} // namespace Corvale_Qt
