// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <random>

namespace Monitor {

/*! A beam as an accelerator delivers it: spills with pauses between them, a position and a width that drift, and an
    intensity that ripples. The same seed gives the same beam. */
class SimulatedBeam
{
public:
    explicit SimulatedBeam(unsigned seed);

    //! Advances the beam to \a time seconds; times must not decrease.
    void advanceTo(double time);

    double x() const { return m_x; } //!< mm
    double y() const { return m_y; } //!< mm
    double sigmaX() const { return m_sigmaX; } //!< mm
    double sigmaY() const { return m_sigmaY; } //!< mm
    //! Returns the intensity: 1 is nominal, 0 is the pause between spills.
    double intensity() const { return m_intensity; }

    //! Returns a normally distributed random number with that standard deviation, from the beam's generator.
    double noise(double sigma);

private:
    //! A value that drifts about its mean with a given standard deviation and correlation time.
    class Drift
    {
    public:
        Drift(double mean, double sigma, double correlationTime);
        double advance(double step, std::mt19937_64 &dice);
        double value() const { return m_mean + m_deviation; }

    private:
        double m_mean;
        double m_sigma;
        double m_correlationTime;
        double m_deviation = 0.0;
    };

    std::mt19937_64 m_dice;
    Drift m_driftX;
    Drift m_driftY;
    Drift m_driftWidth;
    Drift m_driftIntensity;
    double m_time = 0.0;
    double m_x = 0.0;
    double m_y = 0.0;
    double m_sigmaX = 1.0;
    double m_sigmaY = 1.0;
    double m_intensity = 0.0;
};

} // namespace Monitor
