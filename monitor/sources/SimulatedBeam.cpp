// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/SimulatedBeam.h"

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

constexpr double twoPi = 6.283185307179586;
constexpr double spillPeriod = 5.0; // s
constexpr double spillLength = 4.0; // s
constexpr double edge = 0.15; // s, from nothing to full intensity

double spillShape(double time)
{
    const double phase = std::fmod(time, spillPeriod);
    if (phase >= spillLength)
        return 0.0;
    return std::min({1.0, phase / edge, (spillLength - phase) / edge});
}

} // namespace

SimulatedBeam::Drift::Drift(double mean, double sigma, double correlationTime)
    : m_mean(mean)
    , m_sigma(sigma)
    , m_correlationTime(correlationTime)
{
}

//! Takes an Ornstein-Uhlenbeck step, which is exact for a step of any length, and returns the new value.
double SimulatedBeam::Drift::advance(double step, std::mt19937_64 &dice)
{
    const double kept = std::exp(-step / m_correlationTime);
    std::normal_distribution<double> normal(0.0, m_sigma * std::sqrt(1.0 - kept * kept));
    m_deviation = m_deviation * kept + (step > 0.0 ? normal(dice) : 0.0);
    return value();
}

SimulatedBeam::SimulatedBeam(unsigned seed)
    : m_dice(seed)
    , m_driftX(0.0, 0.6, 8.0)
    , m_driftY(0.0, 0.4, 8.0)
    , m_driftWidth(1.0, 0.08, 12.0)
    , m_driftIntensity(1.0, 0.05, 1.0)
{
    advanceTo(0.0);
}

void SimulatedBeam::advanceTo(double time)
{
    const double step = std::max(0.0, time - m_time);
    m_time = time;
    // A slow oscillation that an eye can follow, with the drift on top of it.
    m_x = 4.0 * std::sin(twoPi * time / 11.0) + m_driftX.advance(step, m_dice);
    m_y = 3.0 * std::sin(twoPi * time / 7.0 + 1.0) + m_driftY.advance(step, m_dice);
    const double width = m_driftWidth.advance(step, m_dice);
    m_sigmaX = 5.0 * width;
    m_sigmaY = 6.5 * width;
    const double ripple = 1.0 + 0.03 * std::sin(twoPi * 3.0 * time);
    m_intensity = spillShape(time) * ripple * m_driftIntensity.advance(step, m_dice);
}

double SimulatedBeam::noise(double sigma)
{
    return std::normal_distribution<double>(0.0, sigma)(m_dice);
}

} // namespace Monitor
