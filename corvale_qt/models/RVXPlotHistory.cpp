// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotHistory.h"

#include "corvale_qt/models/LibraryProperty_p.h"
#include "corvale_qt/models/RVXBulkPlotData.h"

#include <cmath>

namespace Corvale_Qt {

RVXPlotHistory::RVXPlotHistory(int layout)
    : m_layout(layout)
{
}

RVXPlotHistory::~RVXPlotHistory() = default;

double RVXPlotHistory::oldest() const
{
    double oldest = std::nan("");
    for (int level = 0; level < levels(); ++level) {
        if (firstBlock(level) < endBlock(level))
            oldest = std::fmin(oldest, interval(level, firstBlock(level)).first);
    }
    return oldest;
}

const RVXPlotHistory *RVXPlotHistory::of(const RVXAbstractPlotDataModel *model)
{
    if (!model)
        return nullptr;
    if (const auto *own = dynamic_cast<const RVXPlotHistory *>(model))
        return own;
    // The blocks hold what the library's doubleData() returned, which a subclass may override.
    if (!RVXBulkPlotData::of(model))
        return nullptr;
    return interfaceByProperty<RVXPlotHistory>(*model,
                                               "plotHistory",
                                               "const Corvale_Qt::RVXPlotHistory*");
}

} // namespace Corvale_Qt
