// SPDX-License-Identifier: LGPL-2.1-or-later
#include "CameraFrames.h"

#include <cmath>
#include <random>

using namespace Corvale_Qt;

namespace {

constexpr int side = 256;
constexpr double pitch = 0.1;

} // namespace

DetectorLayout camera()
{
    DetectorDescription description;
    description.kind = DetectorKind::Matrix;
    description.x = DetectorAxis::uniform(side, pitch, QStringLiteral("mm"));
    description.y = description.x;
    return DetectorLayout::fromDescription(description);
}

CameraBeam beamOf(int number)
{
    return {1.5 * std::sin(0.3 * number), 1.0 * std::cos(0.2 * number), 1.3, 2.1};
}

QVector<double> cameraReadings(int number)
{
    const CameraBeam beam = beamOf(number);
    std::mt19937 random{unsigned(number)};
    std::normal_distribution<double> noise(0.0, 1.0);
    QVector<double> readings;
    for (int row = 0; row < side; ++row) {
        const double y = ((row - (side - 1) / 2.0) * pitch - beam.y) / beam.sigmaY;
        for (int column = 0; column < side; ++column) {
            const double x = ((column - (side - 1) / 2.0) * pitch - beam.x) / beam.sigmaX;
            readings.append(200.0 * std::exp(-0.5 * (x * x + y * y)) + noise(random));
        }
    }
    return readings;
}
