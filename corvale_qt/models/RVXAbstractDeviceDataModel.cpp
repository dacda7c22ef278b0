// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXAbstractDeviceDataModel.h"

#include "corvale_qt/models/ChannelLimit_p.h"
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/models/RVXSeriesData.h"
#include "corvale_qt/units/Units.h"

#include <QBrush>
#include <QIcon>
#include <QTimer>
#include <QVector>

#include <algorithm>
#include <bitset>

namespace Corvale_Qt {

class RVXAbstractDeviceDataModelPrivate
{
public:
    // Made when they are first asked for, so that loading the library takes no memory.
    static const Units::MeasurementUnit &defaultUnits();
    static const Units::S &defaultXUnits();

    RVXAbstractDeviceDataModelPrivate() { enabled.set(); }

    bool isEnabled(int channel) const
    {
        return channel >= 1 && channel <= maxChannels && enabled.test(channel - 1);
    }
    //! Makes room for channels that were inserted; they are shown.
    void insertChannels(int first, int last)
    {
        for (int channel = maxChannels; channel >= first; --channel) {
            const int before = channel - (last - first + 1);
            enabled.set(channel - 1, before < first || isEnabled(before));
        }
    }
    void removeChannels(int first, int last)
    {
        for (int channel = first; channel <= maxChannels; ++channel) {
            const int before = channel + last - first + 1;
            enabled.set(channel - 1, before > maxChannels || isEnabled(before));
        }
    }
    void moveChannels(int first, int last, int before)
    {
        QVector<bool> moved;
        for (int channel = first; channel <= last; ++channel)
            moved.append(isEnabled(channel));
        removeChannels(first, last);
        const int at = before > last ? before - moved.size() : before;
        insertChannels(at, at + moved.size() - 1);
        for (int i = 0; i < moved.size() && at + i <= maxChannels; ++i)
            enabled.set(at + i - 1, moved[i]);
    }
    QBrush background(const QModelIndex &index, bool overrange) const
    {
        if (index.row() == 0)
            return QBrush(RVXPlotColors::color(index.column() - 1, palette));
        return QBrush(overrange ? Qt::red : Qt::black);
    }
    static QBrush foreground(const QModelIndex &index, bool overrange)
    {
        if (index.row() == 0)
            return QBrush(Qt::black);
        return QBrush(overrange ? Qt::white : Qt::green);
    }
    //! Returns the dashes of a channel's curve, counted from 1; nothing in the palette that has none.
    QVariant dashes(int channel) const
    {
        return palette == RVXPlotColors::EightColors
            ? QVariant()
            : QVariant::fromValue(RVXPlotColors::dashes(channel - 1, palette));
    }

    const Units::MeasurementUnit *units = &defaultUnits();
    const Units::MeasurementUnit *xUnits = &defaultXUnits();
    int period = 0;
    bool sampleDue = true;
    QTimer *timer = nullptr;
    std::bitset<maxChannels> enabled;
    bool autoUpdate = true;
    RVXPlotColors::Palette palette = RVXPlotColors::EightColors;
    QIcon editIcon;
};

const Units::MeasurementUnit &RVXAbstractDeviceDataModelPrivate::defaultUnits()
{
    static const Units::MeasurementUnit ampere(1.0, QStringLiteral("A"), 1.0);
    return ampere;
}

const Units::S &RVXAbstractDeviceDataModelPrivate::defaultXUnits()
{
    static const Units::S seconds;
    return seconds;
}

const unsigned int RVXAbstractDeviceDataModel::maxBufferSize = 100000;

namespace {

bool isHeader(const QModelIndex &index)
{
    return index.row() == 0;
}

bool isChannel(const QModelIndex &index)
{
    return index.column() >= 1;
}

bool isReading(const QModelIndex &index)
{
    return index.row() >= 1 && isChannel(index);
}

} // namespace

RVXAbstractDeviceDataModel::RVXAbstractDeviceDataModel(QObject *parent)
    : QAbstractItemModel(parent)
    , d_ptr(new RVXAbstractDeviceDataModelPrivate)
{
    Q_D(RVXAbstractDeviceDataModel);
    qRegisterMetaType<const Corvale_Qt::Units::MeasurementUnit *>();
    d->editIcon = QIcon::fromTheme("edit-rename", QIcon(":/resources/icons/edit-rename.svg"));
    d->timer = new QTimer(this);
    connect(d->timer, &QTimer::timeout, this, &RVXAbstractDeviceDataModel::collectSample);
    // A subclass may insert, remove and move channels. These connections are the first, so that views find the check boxes moved.
    using Model = QAbstractItemModel;
    connect(this, &Model::columnsInserted, this, [d](const QModelIndex &, int first, int last) {
        d->insertChannels(std::max(first, 1), last);
    });
    connect(this, &Model::columnsRemoved, this, [d](const QModelIndex &, int first, int last) {
        d->removeChannels(std::max(first, 1), last);
    });
    connect(this,
            &Model::columnsMoved,
            this,
            [d](const QModelIndex &, int first, int last, const QModelIndex &, int before) {
                d->moveChannels(std::max(first, 1), last, std::max(before, 1));
            });
}

RVXAbstractDeviceDataModel::~RVXAbstractDeviceDataModel() = default;

QModelIndex RVXAbstractDeviceDataModel::parent(const QModelIndex &) const
{
    return QModelIndex();
}

int RVXAbstractDeviceDataModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : NumberOfChannels() + 1;
}

bool RVXAbstractDeviceDataModel::hasChildren(const QModelIndex &parent) const
{
    return !parent.isValid();
}

QVariant RVXAbstractDeviceDataModel::data(const QModelIndex &index, int role) const
{
    Q_D(const RVXAbstractDeviceDataModel);
    if (!index.isValid())
        return QVariant();
    const bool isCorner = isHeader(index) && !isChannel(index);
    if (isCorner)
        return role == Qt::DisplayRole ? tr("Time (s)") : QVariant();

    const auto overrange = [&] {
        return isReading(index) && isOverrange(index.column() - 1, index.row() - 1);
    };
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
    case Qt::ToolTipRole:
    case NumericValueRole:
    case Qt::UserRole:
        return deviceSpecificData(index, role);
    case Qt::DecorationRole:
        return flags(index).testFlag(Qt::ItemIsEditable) ? d->editIcon : QVariant();
    case Qt::FontRole:
        return isHeader(index) ? QFont("Arial", 10, QFont::DemiBold) : dataFont();
    case Qt::TextAlignmentRole:
        return int(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::BackgroundRole:
        return d->background(index, overrange());
    case Qt::ForegroundRole:
        return RVXAbstractDeviceDataModelPrivate::foreground(index, overrange());
    case Qt::CheckStateRole:
        if (isHeader(index))
            return d->isEnabled(index.column()) ? Qt::Checked : Qt::Unchecked;
        return QVariant();
    case ChannelDashesRole:
        return isHeader(index) ? d->dashes(index.column()) : QVariant();
    default:
        return QVariant();
    }
}

bool RVXAbstractDeviceDataModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    Q_D(RVXAbstractDeviceDataModel);
    const bool isCheckBox = role == Qt::CheckStateRole && index.isValid() && isHeader(index)
        && isChannel(index) && index.column() < columnCount() && index.row() < rowCount()
        && index.column() <= maxChannels;
    if (!isCheckBox)
        return false;

    const bool on = value.toBool();
    if (d->isEnabled(index.column()) != on) {
        d->enabled.set(index.column() - 1, on);
        Q_EMIT dataChanged(index, index);
    }
    return true;
}

QVariant
RVXAbstractDeviceDataModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return QVariant();
    if (role == Qt::DisplayRole)
        return data(index(0, section), Qt::DisplayRole);
    if (role == Qt::TextAlignmentRole)
        return Qt::AlignHCenter;
    return QAbstractItemModel::headerData(section, orientation, role);
}

Qt::ItemFlags RVXAbstractDeviceDataModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::ItemIsEnabled;
    const Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return isHeader(index) && isChannel(index) ? shown | Qt::ItemIsUserCheckable : shown;
}

RVXPlotColors::Palette RVXAbstractDeviceDataModel::palette() const
{
    Q_D(const RVXAbstractDeviceDataModel);
    return d->palette;
}

void RVXAbstractDeviceDataModel::setPalette(RVXPlotColors::Palette palette)
{
    Q_D(RVXAbstractDeviceDataModel);
    if (palette == d->palette)
        return;
    d->palette = palette;
    if (columnCount() > 1)
        Q_EMIT dataChanged(index(0, 1), index(0, columnCount() - 1));
}

QFont RVXAbstractDeviceDataModel::dataFont() const
{
    return QFont("Arial", 13);
}

void RVXAbstractDeviceDataModel::SetUnits(const Units::MeasurementUnit *units)
{
    Q_D(RVXAbstractDeviceDataModel);
    d->units = units;
    Q_EMIT unitsChanged(units);
    if (rowCount() > 1 && columnCount() > 1)
        Q_EMIT dataChanged(index(1, 1), index(rowCount() - 1, columnCount() - 1));
}

int RVXAbstractDeviceDataModel::MaxBufferSize() const
{
    return int(maxBufferSize);
}

double RVXAbstractDeviceDataModel::PlotWidthHint() const
{
    return 0.0;
}

int RVXAbstractDeviceDataModel::PlotWidthHintPoints() const
{
    return 256;
}

const Units::MeasurementUnit *RVXAbstractDeviceDataModel::units() const
{
    Q_D(const RVXAbstractDeviceDataModel);
    return d->units;
}

const Units::MeasurementUnit *RVXAbstractDeviceDataModel::xUnits() const
{
    Q_D(const RVXAbstractDeviceDataModel);
    return d->xUnits;
}

QwtSeriesData<QPointF> *
RVXAbstractDeviceDataModel::seriesData(int column, int startRow, int endRow) const
{
    return new RVXSeriesData(*this, column, startRow, endRow);
}

void RVXAbstractDeviceDataModel::setPeriod(int milliseconds)
{
    Q_D(RVXAbstractDeviceDataModel);
    d->period = milliseconds;
    d->timer->stop();
    const bool sampled = milliseconds >= 1;
    d->sampleDue = !sampled;
    if (sampled)
        d->timer->start(milliseconds);
}

bool RVXAbstractDeviceDataModel::autoUpdate() const
{
    Q_D(const RVXAbstractDeviceDataModel);
    return d->autoUpdate;
}

//! Returns where autoUpdate() is kept, for models that ask for it at each reading.
const bool &RVXAbstractDeviceDataModel::autoUpdateFlag() const
{
    Q_D(const RVXAbstractDeviceDataModel);
    return d->autoUpdate;
}

void RVXAbstractDeviceDataModel::setAutoUpdate(bool on)
{
    Q_D(RVXAbstractDeviceDataModel);
    d->autoUpdate = on;
}

bool RVXAbstractDeviceDataModel::sampleDue() const
{
    Q_D(const RVXAbstractDeviceDataModel);
    return d->sampleDue;
}

void RVXAbstractDeviceDataModel::sampleTaken()
{
    Q_D(RVXAbstractDeviceDataModel);
    d->sampleDue = d->period < 1;
}

void RVXAbstractDeviceDataModel::collectSample()
{
    Q_D(RVXAbstractDeviceDataModel);
    d->sampleDue = true;
}

} // namespace Corvale_Qt
