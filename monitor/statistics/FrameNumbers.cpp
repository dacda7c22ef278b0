// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/statistics/FrameNumbers.h"

#include "monitor/readings/PixelShape.h"
#include <corvale_qt/detector/DetectorFrame.h>
#include <corvale_qt/numerics/CellScreening.h>
#include <corvale_qt/numerics/ProfileEstimators.h>

#include <algorithm>
#include <limits>
#include <numeric>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

} // namespace

FrameNumbers::FrameNumbers(const StreamHeader &header)
    : m_header(header)
{
}

void FrameNumbers::take(const double *values)
{
    using Axis = DetectorLayout::Axis;
    const DetectorLayout &layout = m_header.detector;
    DetectorFrame frame = DetectorFrame::of(layout, values, m_header.frameSize);
    frame.flagHotCellsOfMatrix();
    m_leftOut = LeftOut::of(frame, m_header.frameUnit);
    const auto &cells = frame.values;
    m_numbers = {std::accumulate(cells.begin(), cells.end(), 0.0),
                 *std::max_element(cells.begin(), cells.end())};
    for (const Axis axis : {Axis::X, Axis::Y}) {
        if (layout.cells(axis) == 0)
            continue;
        BeamProfile profile = frame.profile(axis);
        flagHotCells(profile);
        const BeamEstimate estimate = leastSquaresGaussian(profile);
        m_numbers.push_back(estimate.isOk() ? estimate.position.value : none);
        m_numbers.push_back(estimate.isOk() ? estimate.sigma.value : none);
    }
    const PixelShape shape = PixelShape::of(m_header);
    m_moments = FrameMoments::of(cells.constData(), shape.rows, shape.columns);
}

} // namespace Monitor
