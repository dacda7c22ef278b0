// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"

namespace Corvale_Qt {

RVXAbstractPlotDataModel::RVXAbstractPlotDataModel() = default;
RVXAbstractPlotDataModel::RVXAbstractPlotDataModel(const RVXAbstractPlotDataModel &) = default;
RVXAbstractPlotDataModel &
RVXAbstractPlotDataModel::operator=(const RVXAbstractPlotDataModel &) = default;
RVXAbstractPlotDataModel::~RVXAbstractPlotDataModel() = default;

int RVXAbstractPlotDataModel::NumberOfChannels() const
{
    return 1;
}

} // namespace Corvale_Qt
