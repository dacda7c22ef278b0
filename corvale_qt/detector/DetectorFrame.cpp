// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/DetectorFrame.h"

#include "corvale_qt/numerics/CellScreening.h"
#include "corvale_qt/numerics/NumberPair_p.h"
#include "corvale_qt/numerics/WideRegisters_p.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace Corvale_Qt {

namespace {

using Axis = DetectorLayout::Axis;

constexpr CellFlags kHoles = CellFlag::Dead | CellFlag::Hot;

void setFlag(DetectorFrame &frame, int cell, CellFlag flag)
{
    if (frame.flags.isEmpty())
        frame.flags.resize(frame.values.size());
    frame.flags[cell] |= flag;
}

bool has(const DetectorFrame &frame, int cell, CellFlags which)
{
    return !frame.flags.isEmpty() && (frame.flags[cell] & which);
}

//! Counts the readings that no cell takes. Without a wiring table these are the ones behind the cells.
void countLeftOut(const QVector<int> &wiring,
                  const double *readings,
                  int count,
                  DetectorFrame &frame)
{
    std::vector<bool> taken(std::size_t(wiring.isEmpty() ? 0 : count), false);
    for (int reading : wiring)
        if (reading >= 0 && reading < count)
            taken[std::size_t(reading)] = true;
    for (int i = wiring.isEmpty() ? frame.values.size() : 0; i < count; ++i) {
        const bool used = !wiring.isEmpty() && taken[std::size_t(i)];
        if (used || readings[i] == 0 || !std::isfinite(readings[i]))
            continue;
        ++frame.leftOut;
        frame.leftOutSum += readings[i];
    }
}

//! Returns the mean of the good cells around a cell; 0 if there are none.
double meanAround(const DetectorFrame &frame, const QVector<double> &charges, int row, int column)
{
    const int rows = frame.layout.cells(Axis::Y), columns = frame.layout.cells(Axis::X);
    double sum = 0;
    int count = 0;
    for (int r = std::max(row - 1, 0); r <= std::min(row + 1, rows - 1); ++r) {
        for (int c = std::max(column - 1, 0); c <= std::min(column + 1, columns - 1); ++c) {
            const int cell = r * columns + c;
            if (has(frame, cell, kHoles) || frame.layout.readingAt(cell) < 0)
                continue;
            sum += charges[cell];
            ++count;
        }
    }
    return count > 0 ? sum / count : 0.0;
}

/*! Gives a profile its places, rising. Cells that touch each other collect between the edges of their intervals, whose middle
    is not the stated position where distances differ. */
void takePlaces(const DetectorLayout &layout, Axis axis, BeamProfile &profile)
{
    const DetectorAxis &stated = axis == Axis::X ? layout.description().x : layout.description().y;
    profile.positions = layout.positions(axis);
    profile.widths = layout.widths(axis);
    profile.intervals = layout.intervals(axis);
    const bool touching = stated.widths.isEmpty() && !stated.positions.isEmpty();
    const QVector<double> &given = layout.positions(axis);
    for (int i = 1; touching && !layout.description().density && i + 1 < given.size(); ++i)
        profile.positions[i] = given[i] + (given[i + 1] - 2 * given[i] + given[i - 1]) / 4;
    profile.scales = profile.widths;
    if (layout.description().density)
        profile.scales.fill(1.0);
}

void reverse(BeamProfile &profile)
{
    for (QVector<double> *list : {&profile.positions,
                                  &profile.widths,
                                  &profile.intervals,
                                  &profile.scales,
                                  &profile.readings})
        std::reverse(list->begin(), list->end());
    std::reverse(profile.flags.begin(), profile.flags.end());
}

//! Returns the share of the charge of a matrix that lies in holes: hot cells as they read, dead ones as they are interpolated.
double shareOfHoles(const DetectorFrame &frame, const BeamImage &image)
{
    const bool density = frame.layout.description().density;
    double inHoles = 0, all = 0;
    for (int cell = 0; cell < frame.flags.size(); ++cell) {
        const int row = cell / image.columns, column = cell % image.columns;
        const double area = density ? image.intervalsX[column] * image.intervalsY[row] : 1.0;
        const bool hot = has(frame, cell, CellFlag::Hot);
        const double charge = std::max(hot ? frame.values[cell] * area : image.charges[cell], 0.0);
        all += charge;
        if (has(frame, cell, kHoles))
            inHoles += charge;
    }
    return all > 0 ? inHoles / all : 0.0;
}

void addColumns(const BeamImage &image, double *sums)
{
    clearWideRegisters();
    const double *row = image.charges.constData();
    for (int r = 0; r < image.rows; ++r, row += image.columns) {
        int c = 0;
        for (; c + 2 <= image.columns; c += 2)
            writePair(sums + c, pairAt(sums + c) + pairAt(row + c));
        for (; c < image.columns; ++c)
            sums[c] += row[c];
    }
}

//! Adds the cells of each row one after the other. Four rows at once do not wait for each other's sums.
void addRows(const BeamImage &image, double *sums)
{
    constexpr int atOnce = 4;
    for (int r = 0; r < image.rows; r += atOnce) {
        std::array<double, atOnce> sum{};
        std::array<const double *, atOnce> cells{};
        for (int i = 0; i < atOnce; ++i) // behind the last row, the last row again
            cells[std::size_t(i)] = image.charges.constData()
                + std::ptrdiff_t(std::min(r + i, image.rows - 1)) * image.columns;
        for (int c = 0; c < image.columns; ++c) {
            sum[0] += cells[0][c];
            sum[1] += cells[1][c];
            sum[2] += cells[2][c];
            sum[3] += cells[3][c];
        }
        std::copy_n(sum.begin(), std::min(atOnce, image.rows - r), sums + r);
    }
}

//! Adds up the columns or rows of a matrix.
void takeSums(const DetectorFrame &frame, Axis axis, BeamProfile &profile)
{
    const BeamImage image = frame.image();
    const bool alongX = axis == Axis::X;
    profile.readings.fill(0, alongX ? image.columns : image.rows);
    if (alongX)
        addColumns(image, profile.readings.data());
    else
        addRows(image, profile.readings.data());
    for (int cell = 0; cell < frame.flags.size(); ++cell) {
        if (frame.flags[cell].testFlag(CellFlag::Saturated))
            profile.setFlag(alongX ? cell % image.columns : cell / image.columns,
                            CellFlag::Saturated);
    }
    profile.shareOfHoles = shareOfHoles(frame, image);
    // The image holds charges, also where the readings are densities.
    profile.widths = profile.intervals;
    profile.scales = profile.intervals;
    profile.noise *= std::sqrt(alongX ? image.rows : image.columns);
}

void takeStrips(const DetectorFrame &frame, Axis axis, BeamProfile &profile)
{
    const int first = axis == Axis::X ? 0 : frame.layout.cells(Axis::X);
    const int count = frame.layout.cells(axis);
    profile.readings = frame.values.mid(first, count);
    if (!frame.flags.isEmpty())
        profile.flags = frame.flags.mid(first, count);
}

} // namespace

DetectorFrame DetectorFrame::of(const DetectorLayout &layout, const double *readings, int count)
{
    DetectorFrame frame;
    frame.layout = layout;
    frame.values.fill(0, layout.cells());
    const QVector<DetectorChannel> &channels = layout.description().channels;
    const QVector<int> &wiring = layout.description().wiring;
    double *values = frame.values.data();
    const int cells = frame.values.size();
    for (int cell = 0; cell < cells; ++cell) {
        const int reading = wiring.isEmpty() ? cell : wiring[cell];
        if (reading < 0)
            continue;
        const double value = reading < count ? readings[reading] : std::nan("");
        const bool ordinary = channels.isEmpty();
        if (!std::isfinite(value) || (!ordinary && channels[reading].dead)) {
            setFlag(frame, cell, CellFlag::Dead);
            continue;
        }
        values[cell] =
            ordinary ? value : (value - channels[reading].pedestal) / channels[reading].gain;
        if (!ordinary && value >= channels[reading].saturation)
            setFlag(frame, cell, CellFlag::Saturated);
    }
    countLeftOut(wiring, readings, count, frame);
    return frame;
}

void DetectorFrame::flagHotCellsOfMatrix()
{
    if (layout.kind() != DetectorKind::Matrix)
        return;
    for (const int cell :
         hotCells(values.constData(), layout.cells(Axis::Y), layout.cells(Axis::X)))
        setFlag(*this, cell, CellFlag::Hot);
}

BeamProfile DetectorFrame::profile(Axis axis) const
{
    BeamProfile profile;
    if (layout.cells(axis) == 0)
        return profile;
    takePlaces(layout, axis, profile);
    profile.noise = layout.description().noise;
    if (layout.kind() == DetectorKind::Matrix)
        takeSums(*this, axis, profile);
    else
        takeStrips(*this, axis, profile);
    if (profile.positions.size() > 1 && profile.positions.first() > profile.positions.last())
        reverse(profile);
    return profile;
}

BeamImage DetectorFrame::image() const
{
    BeamImage image;
    if (layout.kind() != DetectorKind::Matrix)
        return image;
    image.rows = layout.cells(Axis::Y);
    image.columns = layout.cells(Axis::X);
    image.x = layout.positions(Axis::X);
    image.y = layout.positions(Axis::Y);
    image.intervalsX = layout.intervals(Axis::X);
    image.intervalsY = layout.intervals(Axis::Y);
    image.charges = values;
    if (layout.unwiredCells() > 0) {
        for (int reading : layout.description().wiring)
            image.unused.append(reading < 0);
    }
    for (int cell = 0; cell < flags.size(); ++cell) {
        if (flags[cell] & kHoles)
            image.charges[cell] =
                meanAround(*this, values, cell / image.columns, cell % image.columns);
    }
    if (!layout.description().density)
        return image;
    double *charge = image.charges.data();
    for (const double height : qAsConst(image.intervalsY)) {
        for (const double width : qAsConst(image.intervalsX))
            *charge++ *= width * height;
    }
    return image;
}

} // namespace Corvale_Qt
