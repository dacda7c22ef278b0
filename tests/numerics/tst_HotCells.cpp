// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/CellScreening.h"
#include "tests/support/CellCharges.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

//! A matrix of cells around a place. Places outside have no value.
struct Around
{
    const std::vector<double> &cells;
    int rows;
    int columns;

    bool has(int row, int column) const
    {
        return row >= 0 && row < rows && column >= 0 && column < columns;
    }
    double at(int row, int column) const
    {
        return cells[std::size_t(row) * std::size_t(columns) + std::size_t(column)];
    }

    std::vector<double> neighboursOf(int row, int column) const
    {
        std::vector<double> values;
        for (int r = row - 1; r <= row + 1; ++r) {
            for (int c = column - 1; c <= column + 1; ++c) {
                if (has(r, c) && (r != row || c != column))
                    values.push_back(at(r, c));
            }
        }
        std::sort(values.begin(), values.end());
        return values;
    }

    double noise() const
    {
        std::vector<double> sizes;
        for (int row = 0; row < rows; ++row) {
            for (int c = 1; c + 1 < columns; ++c)
                sizes.push_back(std::abs(at(row, c - 1) - 2 * at(row, c) + at(row, c + 1)));
        }
        std::sort(sizes.begin(), sizes.end());
        return sizes.empty() ? 0 : 1.4826 * sizes[sizes.size() / 2] / std::sqrt(6.0);
    }

    bool standsOutOfFlank(int row, int column, int down, int right, double noise) const
    {
        std::vector<double> line;
        for (const int step : {-2, -1, 1, 2}) {
            if (!has(row + step * down, column + step * right))
                return false;
            line.push_back(at(row + step * down, column + step * right));
        }
        const auto isSteady = [&](double sign) {
            for (std::size_t i = 1; i < 4; ++i) {
                if (sign * (line[i] - line[i - 1]) < -3 * noise)
                    return false;
            }
            return true;
        };
        const double high = std::max(line[1], line[2]);
        const double low = std::max(std::min(line[1], line[2]), noise);
        const double expected = low > 0 ? std::sqrt(high * low) : high;
        return (isSteady(1) || isSteady(-1)) && high > 0 && at(row, column) > high + 8 * noise
            && at(row, column) > 2 * expected;
    }

    //! The rule for hot cells, word by word, for each cell.
    bool isHot(int row, int column) const
    {
        const std::vector<double> others = neighboursOf(row, column);
        if (others.size() < 2 || !(at(row, column) > others.back()))
            return false;
        const std::size_t half = others.size() / 2;
        const double median = (others[half] + others[(others.size() - 1) / 2]) / 2;
        const double ground = others.size() < 4 ? others.front() : median;
        const double excess = at(row, column) - median, highest = others.back(), sigma = noise();
        const bool stands =
            excess > 8 * sigma && excess > 10 * (highest - ground) && excess > 0.2 * highest;
        const bool aboveAll = at(row, column) > highest + 8 * sigma;
        return stands
            || (aboveAll
                && (standsOutOfFlank(row, column, 0, 1, sigma)
                    || standsOutOfFlank(row, column, 1, 0, sigma)));
    }
};

} // namespace

class tst_HotCells : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    //! Matrices of few cells with beams, noise and lone cells of any height, of which the search may leave out none too early.
    void hotCellsAreThoseOfTheRule()
    {
        std::mt19937 generator(17);
        const auto between = [&](double low, double high) {
            return low + (high - low) * generator() / 4294967296.0;
        };
        int found = 0;
        for (int trial = 0; trial < 2000; ++trial) {
            const int rows = 1 + int(between(0, 10)), columns = 1 + int(between(0, 10));
            const double sigma = between(0.8, 5), noise = trial % 3 ? between(0, 0.02) : 0.0;
            std::vector<double> cells(std::size_t(rows) * std::size_t(columns));
            for (int i = 0; i < rows * columns; ++i) {
                const int row = i / columns;
                cells[std::size_t(i)] = CellCharges::gaussian(3, sigma)(i % columns)
                        * CellCharges::gaussian(4, sigma)(row)
                    + between(-noise, noise);
            }
            for (int i = 0; i < 3; ++i)
                cells[std::size_t(between(0, rows * columns))] += between(0, 60 * noise + 1);
            const Around around{cells, rows, columns};
            std::vector<int> expected;
            for (int i = 0; i < rows * columns; ++i) {
                if (around.isHot(i / columns, i % columns))
                    expected.push_back(i);
            }
            QCOMPARE(hotCells(cells.data(), rows, columns), expected);
            found += int(expected.size());
        }
        QVERIFY2(found > 200, qPrintable(QString::number(found)));
    }
};

CORVALE_QT_TEST_MAIN(tst_HotCells)
#include "tst_HotCells.moc"
