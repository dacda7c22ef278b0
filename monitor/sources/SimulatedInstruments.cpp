// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/SimulatedInstruments.h"

#include <QString>

#include <cmath>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

//! Returns the fraction of a Gaussian that lies between two edges.
double fractionBetween(double lower, double upper, double mean, double sigma)
{
    const double scale = 1.0 / (std::sqrt(2.0) * sigma);
    return 0.5 * (std::erf((upper - mean) * scale) - std::erf((lower - mean) * scale));
}

//! Returns the fraction of a beam that falls on \a cell, counted from 0, of \a cells cells, whose middle is the axis.
double onCell(int cell, int cells, double pitch, double mean, double sigma)
{
    const double lower = (cell - 0.5 * cells) * pitch;
    return fractionBetween(lower, lower + pitch, mean, sigma);
}

//! Returns a detector with the same number of cells along both axes, \a pitch mm apart.
DetectorLayout uniform(DetectorKind kind, int cells, double pitch)
{
    DetectorDescription description;
    description.kind = kind;
    description.x = DetectorAxis::uniform(cells, pitch, QStringLiteral("mm"));
    description.y = description.x;
    return DetectorLayout::fromDescription(description);
}

//! An ionisation chamber whose foil is split: two halves in x, two in y.
class SplitChamber : public SimulatedInstrument
{
public:
    StreamHeader header() const override
    {
        StreamHeader header;
        for (const char *name : {"left", "right", "up", "down"})
            header.channels.append({QLatin1String(name), QStringLiteral("nA")});
        header.rangeLow = -500.0;
        header.rangeHigh = 500.0;
        return header;
    }
    double period() const override { return 0.01; }
    void read(qint64, SimulatedBeam &beam, std::vector<double> *values) override
    {
        constexpr double nominal = 200.0, darkCurrent = 0.05, noise = 0.4, reach = 100.0; // nA, mm
        const double current = nominal * beam.intensity();
        const double right = fractionBetween(0.0, reach, beam.x(), beam.sigmaX());
        const double up = fractionBetween(0.0, reach, beam.y(), beam.sigmaY());
        *values = {current * (1.0 - right), current * right, current * up, current * (1.0 - up)};
        for (double &value : *values)
            value += darkCurrent + beam.noise(noise);
    }
};

//! 32 strips for x and 32 for y, 2 mm apart. A reading is the charge that each strip collected since the one before.
class StripPair : public SimulatedInstrument
{
public:
    StreamHeader header() const override
    {
        StreamHeader header;
        header.kind = StreamKind::Strips;
        header.channels = StreamHeader::defaultChannels(StreamKind::Strips, 2 * strips);
        for (Channel &channel : header.channels)
            channel.unit = QStringLiteral("pC");
        header.setDetector(uniform(DetectorKind::Strips, strips, pitch));
        return header;
    }
    double period() const override { return 0.05; }
    void read(qint64, SimulatedBeam &beam, std::vector<double> *values) override
    {
        constexpr double nominal = 400.0, dark = 0.02, noise = 0.15; // pC
        const double charge = nominal * beam.intensity();
        values->resize(2 * std::size_t(strips));
        for (int i = 0; i < strips; ++i) {
            const double x = charge * onCell(i, strips, pitch, beam.x(), beam.sigmaX());
            const double y = charge * onCell(i, strips, pitch, beam.y(), beam.sigmaY());
            (*values)[std::size_t(i)] = x + dark + beam.noise(noise);
            (*values)[std::size_t(strips) + std::size_t(i)] = y + dark + beam.noise(noise);
        }
    }

private:
    static constexpr int strips = 32;
    static constexpr double pitch = 2.0; // mm
};

//! A matrix of 12 by 12 pixels, 3.8 mm apart.
class PixelMatrix : public SimulatedInstrument
{
public:
    StreamHeader header() const override
    {
        StreamHeader header;
        header.kind = StreamKind::Pixels;
        header.channels = StreamHeader::defaultChannels(StreamKind::Pixels, side * side);
        for (Channel &channel : header.channels)
            channel.unit = QStringLiteral("pC");
        header.setDetector(uniform(DetectorKind::Matrix, side, pitch));
        return header;
    }
    double period() const override { return 0.05; }
    void read(qint64, SimulatedBeam &beam, std::vector<double> *values) override
    {
        constexpr double nominal = 400.0, dark = 0.01, noise = 0.05; // pC
        const double charge = nominal * beam.intensity();
        values->clear();
        for (int row = 0; row < side; ++row) {
            const double inRow = onCell(row, side, pitch, beam.y(), beam.sigmaY());
            for (int column = 0; column < side; ++column) {
                const double inCell = inRow * onCell(column, side, pitch, beam.x(), beam.sigmaX());
                values->push_back(charge * inCell + dark + beam.noise(noise));
            }
        }
    }

private:
    static constexpr int side = 12;
    static constexpr double pitch = 3.8; // mm
};

//! A scanned field: layers of a square grid of spots, one spot per reading, with the errors of the scanner.
class SpotScanner : public SimulatedInstrument
{
public:
    StreamHeader header() const override
    {
        StreamHeader header;
        header.kind = StreamKind::Spots;
        header.channels = {{QStringLiteral("layer"), {}},
                           {QStringLiteral("energy"), QStringLiteral("MeV")},
                           {QStringLiteral("x"), QStringLiteral("mm")},
                           {QStringLiteral("y"), QStringLiteral("mm")},
                           {QStringLiteral("mu"), {}},
                           {QStringLiteral("sigma_x"), QStringLiteral("mm")},
                           {QStringLiteral("sigma_y"), QStringLiteral("mm")}};
        return header;
    }
    double period() const override { return 0.02; }
    void read(qint64 number, SimulatedBeam &beam, std::vector<double> *values) override
    {
        constexpr double positionError = 0.25, doseError = 0.04; // mm, MU
        constexpr int spots = side * side;
        const int inLayer = int(number % spots);
        const qint64 layer = number / spots;
        const int row = inLayer / side;
        const bool backwards = row % 2 == 1;
        const int column = backwards ? side - 1 - inLayer % side : inLayer % side;
        const double centre = 0.5 * (side - 1);
        const double x = (column - centre) * pitch;
        const double y = (row - centre) * pitch;
        const double dose = 1.0 + 0.6 * std::exp(-(x * x + y * y) / 800.0);
        const double energy = 150.0 - 4.0 * double(layer % layers);
        const double sigma = 3.2 + 0.01 * (150.0 - energy);
        *values = {double(layer + 1),
                   energy,
                   x + beam.noise(positionError),
                   y + beam.noise(positionError),
                   dose + beam.noise(doseError),
                   sigma,
                   sigma * 0.97};
    }

private:
    static constexpr int side = 13;
    static constexpr int layers = 12;
    static constexpr double pitch = 6.0; // mm
};

} // namespace

SimulatedInstrument::~SimulatedInstrument() = default;

std::unique_ptr<SimulatedInstrument> SimulatedInstrument::make(const QString &name)
{
    if (name == QLatin1String("ic4"))
        return std::make_unique<SplitChamber>();
    if (name == QLatin1String("strips"))
        return std::make_unique<StripPair>();
    if (name == QLatin1String("pixels"))
        return std::make_unique<PixelMatrix>();
    if (name == QLatin1String("spots"))
        return std::make_unique<SpotScanner>();
    return nullptr;
}

} // namespace Monitor
