// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/BeamFrame_p.h"
#include "corvale_qt/numerics/PixelMoments.h"
#include "corvale_qt/plot/PlotRange_p.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Corvale_Qt {

namespace {

constexpr int kStrips = 32;
constexpr int kFirstYStrip = 64;
constexpr double kStripPitch = 2.0;
constexpr double kMiddleStrip = (kStrips - 1) / 2.0;

// Rounded to single precision, so that results equal those of earlier versions.
constexpr double kPixelPitch = 3.8F;
constexpr double kMiddlePixel = RoundPixelDetector::kSide / 2.0;
constexpr int kPixelLayoutCode = 1;
constexpr double kDegreesPerRadian = 57.2958;

struct StripFits
{
    RegressionResult<double> x;
    RegressionResult<double> y;
};

/*! Spreads the integral over the cells as a Gaussian. Distances are measured from the centre in raster units to a
    cell's index instead of its middle, so the spot lies half a cell to the right of and below the ellipse. Hosts that
    compare rasters rely on this. */
void buildStripRaster(const StripFits &fits, double integral, BeamFrame &frame)
{
    const double cx = frame.ellipse.x;
    const double cy = frame.ellipse.y;
    double sum = 0;
    double largest = 0;
    for (int i = 0; i < kStrips; ++i) {
        for (int j = 0; j < kStrips; ++j) {
            const double g = std::exp(-((i - cy) * (i - cy) / (2 * fits.y.variance)
                                        + (j - cx) * (j - cx) / (2 * fits.x.variance)));
            frame.raster[i * kStrips + j] = g;
            sum += g;
            largest = std::max(largest, g);
        }
    }
    // A beam far thinner than a strip may fall between the cells and leave no sum.
    const double scale = sum > 0 ? integral / sum : 0.0;
    for (double &cell : frame.raster)
        cell *= scale;
    frame.calc.max = largest * scale;
    frame.hasMaximum = true;
}

void takeStripEllipse(const StripFits &fits, BeamFrame &frame)
{
    const double larger = std::max(fits.x.sigma, fits.y.sigma);
    const double smaller = std::min(fits.x.sigma, fits.y.sigma);
    frame.calc.sigmaMajor = kStripPitch * larger;
    frame.calc.sigmaMinor = kStripPitch * smaller;
    frame.ellipse.x = frame.rasterMeanX;
    frame.ellipse.y = frame.rasterMeanY;
    frame.ellipse.semiMajor = larger;
    frame.ellipse.semiMinor = smaller;
    // calc.rotation stays 0 for strips; only the picture turns for an upright beam.
    frame.ellipse.rotation = fits.y.sigma > fits.x.sigma ? 90 : 0;
}

BeamFrame computeStripFrame(const FrameReadings &readings, const FrameOptions &options)
{
    const StripFits fits{
        fitLogParabola(readings.data(), kStrips, options.regression),
        fitLogParabola(readings.data() + kFirstYStrip, kStrips, options.regression)};
    BeamFrame frame;
    frame.raster.fill(0, kStrips * kStrips);
    SpectrogramCalc &calc = frame.calc;
    calc.integral = fits.x.correctedSum + fits.y.correctedSum;
    if (fits.x.status == FitStatus::Ok) {
        const double fromMiddle = kStripPitch * (fits.x.mean - kMiddleStrip);
        calc.meanX = options.invertX ? -fromMiddle : fromMiddle;
        calc.sigmaX = kStripPitch * fits.x.sigma;
        frame.rasterMeanX = fits.x.mean + 0.5;
    }
    if (fits.y.status == FitStatus::Ok) {
        // Rows run downwards, strips upwards.
        const double row = kStrips - 1 - fits.y.mean;
        const double fromMiddle = kStripPitch * (kMiddleStrip - row);
        calc.meanY = options.invertY ? -fromMiddle : fromMiddle;
        calc.sigmaY = kStripPitch * fits.y.sigma;
        frame.rasterMeanY = row + 0.5;
    }
    frame.status = fits.x.status != FitStatus::Ok ? fits.x.status : fits.y.status;
    calc.valid = frame.status == FitStatus::Ok;
    if (calc.valid) {
        calc.elongation = calc.sigmaY / calc.sigmaX;
        takeStripEllipse(fits, frame);
        buildStripRaster(fits, calc.integral, frame);
    }
    return frame;
}

//! Returns the same axis in (-90, 90] degrees, where angles that three decimals show as -90 count as 90.
double axisRotation(double degrees)
{
    return degrees < -90 + 0.0005 ? degrees + 180 : degrees;
}

void takePixelNumbers(const PixelMoments &moments,
                      const FrameOptions &options,
                      SpectrogramCalc &calc)
{
    const double rotation = moments.rotation * kDegreesPerRadian;
    const bool mirrored = options.invertX != options.invertY;
    // Rows run downwards, so the angle changes its sign; 0 - x avoids a negative zero.
    calc.rotation = mirrored ? rotation : 0 - rotation;
    const double right = (moments.meanX - kMiddlePixel) * kPixelPitch;
    const double up = (kMiddlePixel - moments.meanY) * kPixelPitch;
    calc.meanX = options.invertX ? -right : right;
    calc.meanY = options.invertY ? -up : up;
    calc.sigmaX = moments.sigmaX * kPixelPitch;
    calc.sigmaY = moments.sigmaY * kPixelPitch;
    calc.sigmaMajor = moments.sigmaMajor * kPixelPitch;
    calc.sigmaMinor = moments.sigmaMinor * kPixelPitch;
    calc.elongation = moments.elongation;
    calc.valid = true;
}

BeamFrame computePixelFrame(const FrameReadings &readings, const FrameOptions &options)
{
    const PixelMoments moments =
        computePixelMoments(readings, options.discriminator, kPixelLayoutCode);
    BeamFrame frame;
    frame.raster.reserve(RoundPixelDetector::kCells);
    std::copy(moments.raster.begin(), moments.raster.end(), std::back_inserter(frame.raster));
    frame.calc.integral = moments.integral;
    frame.calc.max = moments.max;
    frame.hasMaximum = true;
    frame.status = moments.status;
    if (moments.valid) {
        takePixelNumbers(moments, options, frame.calc);
        const bool mirrored = options.invertX != options.invertY;
        frame.axisRotation =
            axisRotation((mirrored ? moments.axisAngle : 0 - moments.axisAngle) * 180 / M_PI);
        frame.rasterMeanX = moments.meanX;
        frame.rasterMeanY = moments.meanY;
        frame.ellipse = {moments.meanX,
                         moments.meanY,
                         moments.sigmaMajor,
                         moments.sigmaMinor,
                         moments.axisAngle * kDegreesPerRadian};
    }
    return frame;
}

} // namespace

bool isPresentable(const SpectrogramCalc &calc)
{
    const auto numbers = {calc.sigmaX,
                          calc.sigmaY,
                          calc.elongation,
                          calc.integral,
                          calc.sigmaMajor,
                          calc.sigmaMinor,
                          calc.max,
                          calc.rotation,
                          calc.meanX,
                          calc.meanY};
    return std::all_of(numbers.begin(), numbers.end(), isPlottable);
}

DetectorGrid DetectorGrid::of(ProfileLayout layout)
{
    switch (layout) {
    case ProfileLayout::StripPair:
        return {kStrips, kStripPitch, 4};
    case ProfileLayout::PixelMatrix:
        return {RoundPixelDetector::kSide, kPixelPitch, 2};
    case ProfileLayout::None:
        break;
    }
    return {};
}

FrameReadings frameReadings(const double *values, int count)
{
    FrameReadings readings{};
    std::copy_n(values, std::clamp(count, 0, kFrameReadings), readings.begin());
    return scaled(readings, 1);
}

FrameReadings scaled(FrameReadings readings, double factor)
{
    for (double &reading : readings) {
        reading *= factor;
        if (!std::isfinite(reading))
            reading = 0;
    }
    return readings;
}

bool stripFrameIsEmpty(const FrameReadings &readings)
{
    const double x = std::accumulate(readings.begin(), readings.begin() + kStrips, 0.0);
    const double y = std::accumulate(readings.begin() + kFirstYStrip,
                                     readings.begin() + kFirstYStrip + kStrips,
                                     0.0);
    return (x + y) / 2 == 0;
}

BeamFrame
computeFrame(ProfileLayout layout, const FrameReadings &readings, const FrameOptions &options)
{
    if (layout == ProfileLayout::None)
        return {};
    BeamFrame frame = layout == ProfileLayout::StripPair ? computeStripFrame(readings, options)
                                                         : computePixelFrame(readings, options);
    if (isPresentable(frame.calc)
        && std::all_of(frame.raster.begin(), frame.raster.end(), isPlottable))
        return frame;
    BeamFrame nothing;
    nothing.status = FitStatus::NoRealWidth;
    nothing.raster.fill(0, frame.raster.size());
    return nothing;
}

BeamFrame
computeFrame(ProfileLayout layout, const double *readings, int count, const FrameOptions &options)
{
    return computeFrame(layout, frameReadings(readings, count), options);
}

} // namespace Corvale_Qt
