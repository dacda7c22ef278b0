// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 6 compares finding the rows that a strip chart shows with a scan of all rows. It calls a part of the library
// that is not exported, since its share of a frame is too small to be measured there.
#include "Goal.h"
#include "Goals.h"
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/scope/SampleRows_p.h"
#include <corvale_qt/RVXAveragingProxyModel>
#include <corvale_qt/RVXSingleChannelDataModel>
#include <corvale_qt/RVXZeroingProxyModel>

#include <algorithm>
#include <cmath>

using namespace Corvale_Qt;

namespace {

constexpr int samples = 100000;

struct Stack
{
    explicit Stack(bool rising)
    {
        model.setAutoUpdate(false);
        for (int i = 1; i <= samples; ++i) {
            const bool swapped = !rising && i % 100 < 2;
            model.AddData(swapped ? i + 1 - 2 * (i % 100) : i, i);
        }
        model.UpdateView();
        averaging.setSourceModel(&model);
        zeroing.setSourceModel(&averaging);
    }

    RVXSingleChannelDataModel model;
    RVXAveragingProxyModel averaging;
    RVXZeroingProxyModel zeroing;
};

//! Returns the rows from the last one below \a left to the first one after it beyond \a right, by a literal scan.
RowRange literalRows(const RVXAbstractPlotDataModel &model, double left, double right)
{
    RowRange rows{1, samples};
    for (int row = 1; row <= samples; ++row) {
        if (model.doubleData(row, 0) < left)
            rows.first = row;
    }
    for (int row = rows.first + 1; row <= samples; ++row) {
        if (model.doubleData(row, 0) > right) {
            rows.last = row;
            break;
        }
    }
    return rows;
}

void measure(const QString &name, bool rising, int shown, double limit)
{
    Stack stack(rising);
    const double right = stack.model.doubleData(samples, 0);
    const double left = right - shown;
    RowRange quick;
    RowRange literal;
    const double faster = timesFaster(
        [&] {
            quick = rowsAround(PlotDataReader(&stack.zeroing), {1, samples}, left, right);
        },
        4000,
        [&] {
            literal = literalRows(stack.zeroing, left, right);
        },
        5);
    require(quick.first == literal.first && quick.last == literal.last, name + ", rows");
    report({name + ", times faster than the literal scan", faster, Goal::AtLeast, limit});
}

} // namespace

void measureRowRange()
{
    measure("6a rows of 256 shown, rising", true, 256, 1000.0);
    measure("6b rows of 256 shown, disordered", false, 256, 300.0);
}
