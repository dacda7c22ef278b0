// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXBulkPlotData.h"

#include "corvale_qt/models/RVXAbstractPlotDataModel.h"

#include <QMetaProperty>
#include <QObject>

#include <atomic>

namespace Corvale_Qt {

namespace {

/*! Returns the bulk interface of the library's class that \a model is or derives from; null if there is none.

    Those classes hand it out by a property, since their virtual functions are settled: hosts are built with them. */
const RVXBulkPlotData *ofLibraryClass(const RVXAbstractPlotDataModel &model)
{
    const auto *object = dynamic_cast<const QObject *>(&model);
    const QMetaObject *meta = object ? object->metaObject() : nullptr;
    const int index = meta ? meta->indexOfProperty("bulkPlotData") : -1;
    const bool isOurs = index >= 0
        && qstrcmp(meta->property(index).typeName(), "const Corvale_Qt::RVXBulkPlotData*") == 0;
    if (!isOurs)
        return nullptr;
    // What QMetaProperty::read() does in the end; its QVariant costs more than all the rest.
    const RVXBulkPlotData *found = nullptr;
    void *result[] = {&found, nullptr, nullptr};
    const_cast<QObject *>(object)->qt_metacall(QMetaObject::ReadProperty, index, result);
    return found;
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
