// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/plot/CanvasColors_p.h"
#include "corvale_qt/proxies/ChannelUnit_p.h"
#include "corvale_qt/proxies/ReadingPrefixes_p.h"
#include "corvale_qt/proxies/UpstreamChain_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"
#include "corvale_qt/scope/ScopeTimeAxis_p.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QAbstractItemModel>

#include <algorithm>

namespace Corvale_Qt {

void ScopeModel::set(QAbstractItemModel *items)
{
    m_items = items;
    m_plot = dynamic_cast<RVXAbstractPlotDataModel *>(items);
}

int ScopeModel::allChannels() const
{
    return plot() ? std::max(m_items->columnCount() - 1, 0) : 0;
}

int ScopeModel::channelCount() const
{
    return std::min(allChannels(), maximumChannels);
}

int ScopeModel::lastRow() const
{
    // A proxy without a source has no columns, and no rows to be asked for.
    return plot() && m_items->columnCount() > 0 ? m_items->rowCount() - 1 : 0;
}

bool ScopeModel::isShown(int channel) const
{
    return header(channel, Qt::CheckStateRole).toInt() != 0;
}

QString ScopeModel::name(int channel) const
{
    return header(channel, Qt::DisplayRole).toString();
}

QStringList ScopeModel::names() const
{
    QStringList names;
    for (int channel = 1; channel <= channelCount(); ++channel)
        names << name(channel);
    return names;
}

QBrush ScopeModel::brush(int channel) const
{
    const QVariant given = header(channel, Qt::BackgroundRole);
    QBrush brush = given.userType() == QMetaType::QBrush
        ? given.value<QBrush>()
        : QBrush(RVXPlotColors::color(channel - 1));
    if (m_isOnWhite)
        brush.setColor(colorOnWhite(brush.color()));
    return brush;
}

QPen ScopeModel::pen(int channel) const
{
    QPen pen(brush(channel), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    const auto dashes =
        header(channel, RVXAbstractPlotDataModel::ChannelDashesRole).value<QVector<qreal>>();
    if (!dashes.isEmpty() && dashes.size() % 2 == 0) {
        pen.setDashPattern(dashes);
        pen.setCapStyle(Qt::FlatCap);
    }
    return pen;
}

QString ScopeModel::xUnitName() const
{
    const Units::MeasurementUnit *unit = plot() ? plot()->xUnits() : nullptr;
    return unit ? unit->name() : QString();
}

double ScopeModel::secondsPerX() const
{
    const Units::MeasurementUnit *unit = plot() ? plot()->xUnits() : nullptr;
    if (!unit)
        return 1.0;
    constexpr int lastTime = Units::Type_S + 15; // the codes of a quantity are a block of 16
    return unit->type() >= Units::Type_S && unit->type() <= lastTime ? unit->unscale(1.0) : 0.0;
}

double ScopeModel::newestX() const
{
    const int row = lastRow();
    return row >= 1 ? plot()->doubleData(row, 0) : 0.0;
}

const ScopeTimeAxis *ScopeModel::translatedTime() const
{
    return m_timeAxis && m_timeAxis->isTranslated() ? m_timeAxis : nullptr;
}

QString ScopeModel::formatX(double x) const
{
    const Units::MeasurementUnit *unit = plot() ? plot()->xUnits() : nullptr;
    return unit ? unit->formatUnscaled(x) : QString::number(x);
}

QString ScopeModel::unitName() const
{
    const Units::MeasurementUnit *unit = plot() ? plot()->units() : nullptr;
    return unit ? unit->name() : QString();
}

QString ScopeModel::unitName(int channel) const
{
    const Units::MeasurementUnit *unit = plot() ? channelUnit(m_items, channel) : nullptr;
    return unit ? unit->name() : QString();
}

QString ScopeModel::readingWithPrefix(int channel, double reading, double noise) const
{
    const auto prefixes = ReadingPrefixes::of(m_items);
    const Units::SiPrefix prefix = prefixes->alike({channel, unitName(channel), reading, noise});
    return readingText(prefix, reading, m_fixedUnit);
}

QString ScopeModel::numberWithPrefix(int channel, double number, double error) const
{
    const auto prefixes = ReadingPrefixes::of(m_items);
    const Units::SiPrefix prefix = prefixes->alike({channel, unitName(channel), number, error});
    return readingText(prefix, number, m_fixedUnit);
}

double ScopeModel::unitScale() const
{
    const Units::MeasurementUnit *unit = plot() ? plot()->units() : nullptr;
    return unit ? unit->scale(1.0) : 1.0;
}

double ScopeModel::unitScale(int channel) const
{
    const Units::MeasurementUnit *unit = plot() ? channelUnit(m_items, channel) : nullptr;
    return unit ? unit->scale(1.0) : 1.0;
}

QVariantList ScopeModel::deviceFits(int row) const
{
    if (!m_items)
        return QVariantList();
    return m_items->data(m_items->index(row, 0), RVXAbstractPlotDataModel::DeviceFitRole).toList();
}

QAbstractItemModel *ScopeModel::innermost(QAbstractItemModel *model)
{
    // A proxy that merges several models has no single source: it is the innermost model itself.
    while (QAbstractItemModel *const source = sourceOf(model))
        model = source;
    return model;
}

QVariant ScopeModel::header(int channel, int role) const
{
    return m_items ? m_items->data(m_items->index(0, channel), role) : QVariant();
}

} // namespace Corvale_Qt
