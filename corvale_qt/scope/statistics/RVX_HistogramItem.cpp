// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/statistics/RVX_HistogramItem.h"

namespace Corvale_Qt {

bool RVX_HistogramItem::usesDeviceFit() const
{
    return false;
}

void RVX_HistogramItem::toggleMLFC(bool) { }

void RVX_HistogramItem::upload_MLFC_calibration_table(std::vector<double> *) { }

RVX_HistogramItem::~RVX_HistogramItem() = default;

} // namespace Corvale_Qt
