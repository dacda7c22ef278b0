// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/model/MultichannelDeviceModel.h"

#include "monitor/readings/UnitSymbols.h"
#include "monitor/recording/RecordingWriter.h"

#include <QFile>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

constexpr int capacity = 100000; // the same as in the library's models

QString timeText(double time)
{
    return QString::number(time, 'f', 3);
}

//! Returns a tool tip that shows the text as it is: names come from outside and must not act as markup.
QString plainToolTip(const QString &text)
{
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace

MultichannelDeviceModel::MultichannelDeviceModel(QObject *parent)
    : RVXAbstractDeviceDataModel(parent)
    , m_visible(capacity)
    , m_waiting(capacity)
{
}

MultichannelDeviceModel::~MultichannelDeviceModel() = default;

void MultichannelDeviceModel::startStream(const StreamHeader &header)
{
    beginResetModel();
    m_header = header;
    m_visible.reset(header.channels.size());
    m_waiting.reset(header.channels.size());
    m_arrivedWaiting = 0;
    adoptUnits();
    endResetModel();
    SetUnits(m_units.empty() ? nullptr : m_units.front().get());
}

//! Adopts the units of the channels if all are the same; otherwise there is no common unit, and the names show them.
void MultichannelDeviceModel::adoptUnits()
{
    // Views may use the former units until they hear of the new ones.
    m_formerUnits = std::move(m_units);
    m_units.clear();
    for (const Channel &channel : m_header.channels)
        m_units.push_back(unitFromSymbol(channel.unit));
    const bool mixed = m_header.commonUnit().isEmpty();
    if (mixed)
        m_units.clear();
}

void MultichannelDeviceModel::addReading(double time, const double *values)
{
    ReadingBlock block(m_header.channels.size());
    block.append(time, values);
    addReadings(block);
}

void MultichannelDeviceModel::addReadings(const ReadingBlock &readings)
{
    if (readings.channels() != m_header.channels.size())
        return;
    std::vector<int> due;
    due.reserve(std::size_t(readings.size()));
    for (int i = 0; i < readings.size(); ++i) {
        if (!sampleDue())
            continue;
        due.push_back(i);
        sampleTaken();
    }
    if (isPaused()) {
        for (const int i : due)
            m_waiting.append(readings.time(i), readings.values(i));
        m_arrivedWaiting += qint64(due.size());
        return;
    }
    appendVisible(int(due.size()), [&](int i) {
        const int row = due[std::size_t(i)];
        m_visible.append(readings.time(row), readings.values(row));
    });
}

//! Makes room for \a count readings, keeps the latest up to the capacity, and announces them as one insertion.
void MultichannelDeviceModel::appendVisible(int count, const std::function<void(int i)> &append)
{
    if (count == 0)
        return;
    const int kept = std::min(count, capacity);
    const int tooMany = m_visible.size() + kept - capacity;
    if (tooMany > 0) {
        beginRemoveRows(QModelIndex(), 1, tooMany);
        m_visible.dropOldest(tooMany);
        endRemoveRows();
    }
    beginInsertRows(QModelIndex(), m_visible.size() + 1, m_visible.size() + kept);
    for (int i = count - kept; i < count; ++i)
        append(i);
    endInsertRows();
}

void MultichannelDeviceModel::setPaused(bool paused)
{
    setAutoUpdate(!paused);
    if (!paused)
        UpdateView();
}

void MultichannelDeviceModel::UpdateView()
{
    std::vector<double> values(std::size_t(m_waiting.channels()));
    appendVisible(m_waiting.size(), [&](int i) {
        m_waiting.copyValues(i, values.data());
        m_visible.append(m_waiting.time(i), values.data());
    });
    m_waiting.reset(m_waiting.channels());
    m_arrivedWaiting = 0;
}

void MultichannelDeviceModel::Clear()
{
    beginResetModel();
    m_visible.reset(m_visible.channels());
    m_waiting.reset(m_waiting.channels());
    m_arrivedWaiting = 0;
    endResetModel();
}

void MultichannelDeviceModel::setPlotWidth(int points, double seconds)
{
    m_widthPoints = points;
    m_widthSeconds = seconds;
}

int MultichannelDeviceModel::NumberOfChannels() const
{
    return m_header.channels.size();
}

int MultichannelDeviceModel::PlotWidthHintPoints() const
{
    return m_widthPoints > 0 ? m_widthPoints : RVXAbstractDeviceDataModel::PlotWidthHintPoints();
}

double MultichannelDeviceModel::PlotWidthHint() const
{
    return m_widthSeconds;
}

int MultichannelDeviceModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_visible.size() + 1;
}

QModelIndex MultichannelDeviceModel::index(int row, int column, const QModelIndex &parent) const
{
    const bool exists =
        !parent.isValid() && row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    return exists ? createIndex(row, column) : QModelIndex();
}

bool MultichannelDeviceModel::has(int row, int column) const
{
    return row >= 1 && row <= m_visible.size() && column >= 1 && column <= m_visible.channels();
}

//! Converts a received value to units() if that is another unit of the same quantity; else returns it unchanged.
double MultichannelDeviceModel::shown(double value, int channel) const
{
    const Unit *unit = units();
    const Unit *received = m_units.empty() ? nullptr : m_units[std::size_t(channel)].get();
    const bool convert = unit && received && unit != received && sameQuantity(*unit, *received);
    return convert ? unit->scale(received->unscale(value)) : value;
}

double MultichannelDeviceModel::doubleData(int row, int column) const
{
    if (row == 0)
        return column;
    if (column == 0)
        return row >= 1 && row <= m_visible.size() ? m_visible.time(row - 1) : 0.0;
    return has(row, column) ? shown(m_visible.value(row - 1, column - 1), column - 1) : 0.0;
}

bool MultichannelDeviceModel::isOverrange(int channel, int sample) const
{
    if (!m_header.hasRange() || !has(sample + 1, channel + 1))
        return false;
    const double value = m_visible.value(sample, channel);
    return value < m_header.rangeLow || value > m_header.rangeHigh;
}

QVariant MultichannelDeviceModel::deviceSpecificData(const QModelIndex &index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return text(index.row(), index.column());
    case Qt::ToolTipRole:
        return toolTip(index.row(), index.column());
    case NumericValueRole:
        return doubleData(index.row(), index.column());
    case Qt::UserRole: // spot maps read this role; the header is not a spot
        return has(index.row(), index.column())
            ? QVariant(m_visible.value(index.row() - 1, index.column() - 1))
            : QVariant();
    default:
        return QVariant();
    }
}

QVariant MultichannelDeviceModel::text(int row, int column) const
{
    if (row == 0 && column >= 1) {
        const Channel &channel = m_header.channels[column - 1];
        const bool named = m_units.empty() && !channel.unit.isEmpty();
        return named ? QStringLiteral("%1 (%2)").arg(channel.name, channel.unit) : channel.name;
    }
    if (column == 0)
        return row <= m_visible.size() ? timeText(m_visible.time(row - 1)) : QVariant();
    if (!has(row, column))
        return QVariant();
    const double value = doubleData(row, column);
    if (std::isnan(value))
        return QString();
    return units() ? units()->formatUnscaled(value) : QString::number(value);
}

QVariant MultichannelDeviceModel::toolTip(int row, int column) const
{
    if (column == 0)
        return text(row, column);
    const Channel &channel = m_header.channels[column - 1];
    const QString unit = channel.unit.isEmpty() ? tr("no unit") : channel.unit;
    if (row == 0)
        return plainToolTip(tr("%1, channel %2, %3").arg(channel.name).arg(column).arg(unit));
    if (!has(row, column))
        return QVariant();
    const double value = m_visible.value(row - 1, column - 1);
    if (std::isnan(value))
        return tr("no reading");
    const QString number = QString::number(value, 'g', 10);
    return plainToolTip(isOverrange(column - 1, row - 1) ? tr("%1 %2, over range").arg(number, unit)
                                                         : tr("%1 %2").arg(number, unit));
}

bool MultichannelDeviceModel::SaveDataToFile(const QString &fileName) const
{
    QFile file(fileName);
    if (fileName.isEmpty() || !file.open(QIODevice::WriteOnly))
        return false;
    QByteArray text = recordingHeader(m_header, tr("saved from the monitor's buffer"));
    std::vector<double> values(std::size_t(m_visible.channels()));
    constexpr int pieceSize = 1024 * 1024;
    for (int i = 0; i < m_visible.size(); ++i) {
        m_visible.copyValues(i, values.data());
        appendRecordingRow(&text, m_visible.time(i), values.data(), m_visible.channels());
        if (text.size() < pieceSize)
            continue;
        if (file.write(text) != text.size())
            return false;
        text.clear();
    }
    return file.write(text) == text.size() && file.flush();
}

} // namespace Monitor
