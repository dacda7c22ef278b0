// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ImageMoments.h"

#include "corvale_qt/numerics/NumberPair_p.h"
#include "corvale_qt/numerics/PeakSearch.h"
#include "corvale_qt/numerics/SecondMomentMethod_p.h"
#include "corvale_qt/numerics/WideRegisters_p.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace Corvale_Qt {

namespace {

using namespace SecondMomentMethod;

//! A part of an image.
struct Window
{
    IndexRange rows;
    IndexRange columns;

    bool operator==(const Window &other) const
    {
        return rows.first == other.rows.first && rows.last == other.rows.last
            && columns.first == other.columns.first && columns.last == other.columns.last;
    }
};

//! The sums of a window, by rows and columns, from which all moments follow. Places count from an origin inside.
struct Projections
{
    std::vector<double> ofColumns;
    std::vector<double> ofRows;
    std::vector<double> momentOfRows; //!< sum of charge x (x - origin)
    double max = 0;
};

//! The sums over some cells of one row of a window, two of them at once.
struct RowSums
{
    NumberPair charge{};
    NumberPair moment{};
    NumberPair largest{};

    void add(NumberPair cells, NumberPair x)
    {
        charge += cells;
        moment += cells * x;
        largest = cells > largest ? cells : largest;
    }
    //! Adds two cells, also to the sums of their columns.
    void addTwo(const double *cells, const double *x, double *ofColumns)
    {
        const NumberPair charges = pairAt(cells);
        add(charges, pairAt(x));
        writePair(ofColumns, pairAt(ofColumns) + charges);
    }
};

/*! Adds up one row, and adds its cells to the sums of the columns. Four sums do not wait for each other; the compiler may not
    split a single one. */
void addRow(const double *cells, const double *x, int columns, Projections &sums)
{
    RowSums first, second;
    double *ofColumns = sums.ofColumns.data();
    int c = 0;
    for (; c + 4 <= columns; c += 4) {
        first.addTwo(cells + c, x + c, ofColumns + c);
        second.addTwo(cells + c + 2, x + c + 2, ofColumns + c + 2);
    }
    for (; c < columns; ++c) {
        first.add(NumberPair{cells[c], 0.0}, NumberPair{x[c], 0.0});
        ofColumns[c] += cells[c];
    }
    const auto sumOf = [](NumberPair one, NumberPair other) {
        return (one[0] + one[1]) + (other[0] + other[1]);
    };
    sums.ofRows.push_back(sumOf(first.charge, second.charge));
    sums.momentOfRows.push_back(sumOf(first.moment, second.moment));
    for (int i : {0, 1})
        sums.max = std::max({sums.max, first.largest[i], second.largest[i]});
}

Projections project(const BeamImage &image, const Window &window, double originX)
{
    clearWideRegisters();
    const int columns = window.columns.size();
    const auto firstX = image.x.begin() + window.columns.first;
    std::vector<double> x(firstX, firstX + columns);
    for (double &place : x)
        place -= originX;
    Projections sums;
    sums.ofColumns.resize(std::size_t(columns));
    for (int r = window.rows.first; r <= window.rows.last; ++r) {
        const double *cells =
            image.charges.constData() + std::ptrdiff_t(r) * image.columns + window.columns.first;
        addRow(cells, x.data(), columns, sums);
    }
    return sums;
}

double sum(const QVector<double> &values, IndexRange range)
{
    double total = 0;
    for (int i = range.first; i <= range.last; ++i)
        total += values[i];
    return total;
}

//! Takes the charge of the background out of the sums, which it spreads over the area of the cells.
void subtract(double background,
              const BeamImage &image,
              const Window &window,
              double originX,
              Projections &sums)
{
    if (background == 0)
        return;
    const double width = sum(image.intervalsX, window.columns);
    const double height = sum(image.intervalsY, window.rows);
    double moment = 0;
    for (int c = window.columns.first; c <= window.columns.last; ++c) {
        moment += image.intervalsX[c] * (image.x[c] - originX);
        sums.ofColumns[std::size_t(c - window.columns.first)] -=
            background * height * image.intervalsX[c];
    }
    for (int r = window.rows.first; r <= window.rows.last; ++r) {
        const auto row = std::size_t(r - window.rows.first);
        sums.ofRows[row] -= background * width * image.intervalsY[r];
        sums.momentOfRows[row] -= background * moment * image.intervalsY[r];
    }
}

void takePrincipalAxes(double xx, double yy, double xy, ImageMoments &moments)
{
    const double difference = xx - yy;
    const double root = std::sqrt(difference * difference + 4 * xy * xy);
    moments.sigmaX = std::sqrt(xx);
    moments.sigmaY = std::sqrt(yy);
    moments.sigmaMajor = std::sqrt((xx + yy + root) / 2);
    moments.sigmaMinor = std::sqrt(std::max((xx + yy - root) / 2, 0.0));
    moments.rotation = std::atan2(2 * xy, difference) / 2;
}

ImageMoments momentsOf(const BeamImage &image, const Window &window, double background)
{
    const double originX = image.x[(window.columns.first + window.columns.last) / 2];
    Projections sums = project(image, window, originX);
    subtract(background, image, window, originX, sums);
    ImageMoments moments;
    moments.max = sums.max;
    moments.background = background;
    double first = 0, firstY = 0;
    for (std::size_t r = 0; r < sums.ofRows.size(); ++r) {
        moments.total += sums.ofRows[r];
        first += sums.momentOfRows[r];
        firstY += sums.ofRows[r] * image.y[window.rows.first + int(r)];
    }
    moments.status = EstimateStatus::NoSignal;
    if (!(moments.total > 0) || !std::isfinite(moments.total))
        return moments;
    const double meanX = first / moments.total; // from the origin
    moments.meanX = originX + meanX;
    moments.meanY = firstY / moments.total;
    double xx = 0, yy = 0, xy = 0;
    for (std::size_t c = 0; c < sums.ofColumns.size(); ++c)
        xx +=
            sums.ofColumns[c] * std::pow(image.x[window.columns.first + int(c)] - moments.meanX, 2);
    for (std::size_t r = 0; r < sums.ofRows.size(); ++r) {
        const double dy = image.y[window.rows.first + int(r)] - moments.meanY;
        yy += sums.ofRows[r] * dy * dy;
        xy += (sums.momentOfRows[r] - meanX * sums.ofRows[r]) * dy;
    }
    takePrincipalAxes(xx / moments.total, yy / moments.total, xy / moments.total, moments);
    const bool real = moments.sigmaX > 0 && moments.sigmaY > 0 && std::isfinite(moments.sigmaMajor);
    moments.status = real ? EstimateStatus::Ok : EstimateStatus::NoRealWidth;
    return moments;
}

double cornerBackground(const BeamImage &image)
{
    const int high =
        std::min(std::max(int(kBackgroundShare * image.rows), kLeastBackgroundCells), image.rows);
    const int wide =
        std::min(std::max(int(kBackgroundShare * image.columns), kLeastBackgroundCells),
                 image.columns);
    std::vector<double> densities;
    for (int r = 0; r < image.rows; ++r) {
        for (int c = 0; c < image.columns; ++c) {
            const bool corner =
                (r < high || r >= image.rows - high) && (c < wide || c >= image.columns - wide);
            const int cell = r * image.columns + c;
            if (corner && (image.unused.isEmpty() || !image.unused[cell]))
                densities.push_back(image.charges[cell]
                                    / (image.intervalsX[c] * image.intervalsY[r]));
        }
    }
    if (densities.empty())
        return 0;
    const auto middle = densities.begin() + std::ptrdiff_t(densities.size() / 2);
    std::nth_element(densities.begin(), middle, densities.end());
    return *middle;
}

//! Returns the cells whose middle lies between two positions; the places rise or fall.
IndexRange cellsBetween(const QVector<double> &places, double lower, double upper, bool &clipped)
{
    IndexRange range{places.size(), -1};
    for (int i = 0; i < places.size(); ++i) {
        if (places[i] < lower || places[i] > upper)
            continue;
        range.first = std::min(range.first, i);
        range.last = i;
    }
    const auto [least, most] = std::minmax_element(places.begin(), places.end());
    clipped = clipped || lower < *least || upper > *most;
    return range;
}

} // namespace

bool BeamImage::isUsable() const
{
    const auto positive = [](double length) {
        return length > 0;
    };
    return rows > 0 && columns > 0 && charges.size() == rows * columns && x.size() == columns
        && y.size() == rows && intervalsX.size() == columns && intervalsY.size() == rows
        && (unused.isEmpty() || unused.size() == charges.size())
        && std::all_of(intervalsX.begin(), intervalsX.end(), positive)
        && std::all_of(intervalsY.begin(), intervalsY.end(), positive);
}

ImageMoments imageMoments(const BeamImage &image)
{
    ImageMoments moments;
    moments.status = EstimateStatus::NotUsable;
    return image.isUsable() ? momentsOf(image, {{0, image.rows - 1}, {0, image.columns - 1}}, 0.0)
                            : moments;
}

ImageMoments secondMomentImage(const BeamImage &image)
{
    ImageMoments moments;
    moments.status = EstimateStatus::NotUsable;
    if (!image.isUsable())
        return moments;
    const double background = cornerBackground(image);
    Window window{{0, image.rows - 1}, {0, image.columns - 1}};
    for (int round = 0; round < kMostIterations; ++round) {
        moments = momentsOf(image, window, background);
        if (!moments.isOk())
            return moments;
        const double halfX = kAreaInSigma * moments.sigmaX, halfY = kAreaInSigma * moments.sigmaY;
        bool clipped = false;
        const Window next{
            cellsBetween(image.y, moments.meanY - halfY, moments.meanY + halfY, clipped),
            cellsBetween(image.x, moments.meanX - halfX, moments.meanX + halfX, clipped)};
        moments.clipped = clipped;
        if (next == window)
            return moments;
        window = next;
        if (window.rows.size() < 1 || window.columns.size() < 1)
            break;
    }
    moments.status = EstimateStatus::NotConverged;
    return moments;
}

} // namespace Corvale_Qt
