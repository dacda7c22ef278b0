// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXBulkPlotData.h"

#include "corvale_qt/models/LibraryProperty_p.h"

#include <atomic>

namespace Corvale_Qt {

namespace {

//! Returns the bulk interface of the library's class that \a model is or derives from; null if there is none.
const RVXBulkPlotData *ofLibraryClass(const RVXAbstractPlotDataModel &model)
{
    return interfaceByProperty<RVXBulkPlotData>(model,
                                                "bulkPlotData",
                                                "const Corvale_Qt::RVXBulkPlotData*");
}

} // namespace

RVXBulkPlotVoucher::RVXBulkPlotVoucher() = default;
RVXBulkPlotVoucher::~RVXBulkPlotVoucher() = default;

RVXBulkPlotData::RVXBulkPlotData(int layout)
    : m_layout(layout)
{
}

RVXBulkPlotData::~RVXBulkPlotData() = default;

bool RVXBulkPlotData::spans(int, int, int, Spans &) const
{
    return false;
}

quint64 RVXBulkPlotData::xVersion() const
{
    return 0;
}

const RVXBulkPlotData *RVXBulkPlotData::of(const RVXAbstractPlotDataModel *model)
{
    if (!model)
        return nullptr;
    const RVXBulkPlotData *const inherited = ofLibraryClass(*model);
    if (inherited && inherited->vouchedType() == typeid(*model))
        return inherited;
    const auto *voucher = dynamic_cast<const RVXBulkPlotVoucher *>(model);
    if (!voucher || voucher->vouchedType() != typeid(*model))
        return nullptr;
    const auto *own = dynamic_cast<const RVXBulkPlotData *>(model);
    return own ? own : inherited;
}

quint64 RVXBulkPlotData::newXVersion()
{
    static std::atomic<quint64> last{0};
    return ++last;
}

} // namespace Corvale_Qt
