// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/models/SampleNoise_p.h"
#include "corvale_qt/proxies/ChannelUnit_p.h"
#include "corvale_qt/proxies/LatestCells_p.h"
#include "corvale_qt/proxies/RVXLatestPlotDataProxyModel.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QBrush>

#include <cmath>

namespace Corvale_Qt {

namespace {

QString symbolOf(const QAbstractItemModel *model, int column)
{
    const Units::MeasurementUnit *unit = channelUnit(model, column);
    return unit ? unit->name() : QString();
}

} // namespace

QVariant cellWithoutSample(int role)
{
    switch (role) {
    case Qt::DisplayRole:
        return QStringLiteral("N/A");
    case Qt::EditRole:
        return QStringLiteral("0");
    case Qt::BackgroundRole:
        return QBrush(Qt::black);
    case Qt::ForegroundRole:
        return QBrush(QColor(0, 255, 0));
    case RVXAbstractPlotDataModel::NumericValueRole:
        return 0;
    default:
        return QVariant();
    }
}

QVariant channelBackground(const QModelIndex &header)
{
    const auto brush = header.data(Qt::BackgroundRole).value<QBrush>();
    return QBrush(brush.color().lighter(140));
}

QVariant channelForeground(const QModelIndex &header)
{
    QVariant own = header.data(Qt::ForegroundRole);
    if (own.isValid() && header.data(Qt::BackgroundRole).isValid())
        return own;
    const QColor background = channelBackground(header).value<QBrush>().color();
    return QBrush(qGray(background.rgb()) < 128 ? Qt::white : Qt::black);
}

QVariant readingWithUnit(const QModelIndex &sample)
{
    QVariant text = sample.data(Qt::DisplayRole);
    const QVariant number = sample.data(RVXAbstractPlotDataModel::NumericValueRole);
    const QString symbol = symbolOf(sample.model(), sample.column());
    const bool isReading = number.isValid() && std::isfinite(number.toDouble());
    if (!isReading || symbol.isEmpty())
        return text;
    return QString(text.toString() + QLatin1Char(' ') + symbol);
}

void LatestPrefixes::restart(const QAbstractItemModel *source)
{
    if (m_shared && !m_shared->outlastReset(source))
        m_shared.reset();
}

QVariant LatestPrefixes::reading(const QModelIndex &sample)
{
    const QVariant number = sample.data(RVXAbstractPlotDataModel::NumericValueRole);
    const double value = number.toDouble();
    if (!number.isValid() || !std::isfinite(value))
        return sample.data(Qt::DisplayRole);
    const auto *const plot = dynamic_cast<const RVXAbstractPlotDataModel *>(sample.model());
    const int column = sample.column();
    const double noise = plot ? sampleNoise(PlotDataReader(plot), column, sample.row()) : 0.0;
    if (!m_shared)
        m_shared = ReadingPrefixes::of(sample.model());
    const QString unit = symbolOf(sample.model(), column);
    return readingText(m_shared->follow({column, unit, value, noise}), value, m_fixedUnit);
}

bool unitsDiffer(const QAbstractItemModel *model)
{
    if (!hasChannelUnits(model))
        return false;
    const QString first = symbolOf(model, 1);
    for (int column = model->columnCount() - 1; column > 1; --column) {
        if (symbolOf(model, column) != first)
            return true;
    }
    return false;
}

QString dataTitle(const QAbstractItemModel *model, bool readingsShowUnits)
{
    const Units::MeasurementUnit *const unit = channelUnit(model, 1);
    if (!unit || readingsShowUnits)
        return RVXLatestPlotDataProxyModel::tr("Data");
    return RVXLatestPlotDataProxyModel::tr("Data (%1)").arg(unit->name());
}

QVariant checkStateOfAll(const QAbstractItemModel *model)
{
    const auto state = [model](int column) {
        return model->index(0, column).data(Qt::CheckStateRole).toInt();
    };
    const int last = model ? model->columnCount() - 1 : 0;
    if (last < 1)
        return QVariant();
    const int first = state(1);
    for (int column = 2; column <= last; ++column) {
        const bool differs = (state(column) == Qt::Unchecked) != (first == Qt::Unchecked);
        if (differs)
            return Qt::PartiallyChecked;
    }
    return first;
}

} // namespace Corvale_Qt
