// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/model/MultichannelDeviceModel.h"

#include "monitor/readings/UnitSymbols.h"
#include "monitor/recording/RecordingWriter.h"
#include <corvale_qt/models/SaveProgress.h>

#include <QFile>
#include <QTextDocument>

#include <cmath>

namespace Monitor {

using Corvale_Qt::SaveProgress;

namespace {

//! Returns a tool tip that shows the text as it is: names come from outside and must not act as markup.
QString plainToolTip(const QString &text)
{
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace

MultichannelDeviceModel::MultichannelDeviceModel(QObject *parent)
    : RVXMultichannelDeviceModel(0, parent)
{
    setHistorySpan(historySeconds);
}

MultichannelDeviceModel::~MultichannelDeviceModel() = default;

void MultichannelDeviceModel::startStream(const StreamHeader &header)
{
    adopt(header, [this](const QVector<Channel> &channels) {
        setChannels(channels);
    });
}

void MultichannelDeviceModel::goOnWith(const StreamHeader &header, const QVector<int> &former)
{
    adopt(header, [this, &former](const QVector<Channel> &channels) {
        exchangeChannels(channels, former);
    });
}

//! Takes units and channels from a header, and hands the channels to the library's model by \a give.
void MultichannelDeviceModel::adopt(const StreamHeader &header,
                                    const std::function<void(const QVector<Channel> &)> &give)
{
    // Views may use the former unit until they hear of the new one.
    const auto formerUnit = std::move(m_unit);
    const auto formerOwnUnits = std::move(m_ownUnits);
    m_ownUnits.clear();
    m_unit = unitFromSymbol(header.commonUnit());
    m_header = header;
    forgetWaiting();
    QVector<Channel> channels;
    for (int i = 0; i < header.channels.size(); ++i)
        channels.append(channelOf(header, i));
    give(channels);
    SetUnits(m_unit.get());
}

//! Returns a channel as the library's model takes it. It may have another unit than the stream as a whole, or none.
MultichannelDeviceModel::Channel MultichannelDeviceModel::channelOf(const StreamHeader &header,
                                                                    int index)
{
    const Monitor::Channel &channel = header.channels[index];
    if (channel.unit == header.commonUnit())
        return {channel.name, nullptr, m_unit.get()};
    auto unit = unitFromSymbol(channel.unit);
    if (!unit)
        unit = std::make_unique<Corvale_Qt::Units::MeasurementUnit>(1.0, channel.unit, 1.0);
    m_ownUnits.push_back(std::move(unit));
    return {channel.name, m_ownUnits.back().get(), m_ownUnits.back().get()};
}

void MultichannelDeviceModel::setComputed(const ReadingBlock &readings)
{
    QVector<double> column(readings.size());
    for (int channel = m_header.measured(); channel < readings.channels(); ++channel) {
        for (int row = 0; row < readings.size(); ++row)
            column[row] = readings.values(row)[channel];
        setReadings(channel + 1, column);
    }
}

void MultichannelDeviceModel::addReading(double time, const double *values)
{
    ReadingBlock block(NumberOfChannels());
    block.append(time, values);
    addReadings(block);
}

void MultichannelDeviceModel::addReadings(const ReadingBlock &readings)
{
    if (readings.channels() != NumberOfChannels() || readings.isEmpty() || !sampleDue())
        return;
    sampleTaken();
    // Either no reading waits for a period, or the next one is due in another turn of the event loop.
    if (sampleDue()) {
        addDue(readings);
        return;
    }
    m_due.clear(readings.channels());
    m_due.append(readings.time(0), readings.values(0));
    addDue(m_due);
}

void MultichannelDeviceModel::addDue(const ReadingBlock &readings)
{
    if (!m_isPaused) {
        storeRows(readings.times(), readings.values(0), readings.size());
        return;
    }
    m_waiting.append(readings);
    m_arrivedWaiting += readings.size();
    // Seldom, since all that stay are moved.
    if (m_waiting.size() >= 2 * capacity())
        m_waiting.removeFirst(m_waiting.size() - capacity());
}

void MultichannelDeviceModel::setPaused(bool paused)
{
    m_isPaused = paused;
    if (!paused)
        showWaiting();
}

void MultichannelDeviceModel::showWaiting()
{
    storeRows(m_waiting.times(), m_waiting.values(0), m_waiting.size());
    forgetWaiting();
}

ReadingBlock MultichannelDeviceModel::shownReadings() const
{
    ReadingBlock readings(NumberOfChannels());
    std::vector<double> values(static_cast<std::size_t>(NumberOfChannels()));
    for (int row = 1; row < rowCount(); ++row) {
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = receivedValue(row, int(i));
        readings.append(doubleData(row, 0), values.data());
    }
    return readings;
}

void MultichannelDeviceModel::Clear()
{
    forgetWaiting();
    RVXMultichannelDeviceModel::Clear();
}

void MultichannelDeviceModel::forgetWaiting()
{
    m_waiting = ReadingBlock(m_header.channels.size());
    m_arrivedWaiting = 0;
}

bool MultichannelDeviceModel::has(int row, int column) const
{
    return row >= 1 && row < rowCount() && column >= 1 && column <= NumberOfChannels();
}

bool MultichannelDeviceModel::isOverrange(int channel, int sample) const
{
    // The limits are those of cells and of measured channels.
    if (!m_header.hasRange() || m_header.hasFrames() || channel >= m_header.measured())
        return false;
    const double value = receivedValue(sample + 1, channel);
    return value < m_header.rangeLow || value > m_header.rangeHigh;
}

QVariant MultichannelDeviceModel::deviceSpecificData(const QModelIndex &index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return text(index);
    case Qt::ToolTipRole:
        return toolTip(index.row(), index.column());
    case Qt::UserRole: // spot maps read this role; the header is not a spot
        return has(index.row(), index.column())
            ? QVariant(receivedValue(index.row(), index.column() - 1))
            : QVariant();
    default:
        return RVXMultichannelDeviceModel::deviceSpecificData(index, role);
    }
}

const Corvale_Qt::Units::MeasurementUnit *MultichannelDeviceModel::xUnits() const
{
    using Corvale_Qt::Units::MeasurementUnit;
    static const MeasurementUnit spot(1.0, QStringLiteral("spot"), 1.0);
    static const MeasurementUnit reading(1.0, QStringLiteral("reading"), 1.0);
    if (m_header.hasTimes)
        return RVXMultichannelDeviceModel::xUnits();
    return m_header.kind == StreamKind::Spots ? &spot : &reading;
}

//! Returns the text of a cell. The name of a channel comes without its unit, which every display shows with the readings.
QVariant MultichannelDeviceModel::text(const QModelIndex &index) const
{
    if (index.column() == 0)
        return QString::number(doubleData(index.row(), 0), 'f', m_header.hasTimes ? 3 : 0);
    if (index.row() > 0)
        return RVXMultichannelDeviceModel::deviceSpecificData(index, Qt::DisplayRole);
    return m_header.channels[index.column() - 1].name;
}

QVariant MultichannelDeviceModel::toolTip(int row, int column) const
{
    if (column == 0)
        return text(index(row, column));
    const Monitor::Channel &channel = m_header.channels[column - 1];
    const QString unit = channel.unit.isEmpty() ? tr("no unit") : channel.unit;
    if (row == 0)
        return plainToolTip(
            tr("%1, channel %2, %3").arg(channel.name, QString::number(column), unit));
    if (!has(row, column))
        return QVariant();
    const double value = receivedValue(row, column - 1);
    if (std::isnan(value))
        return tr("no reading");
    const QString number = QString::number(value, 'g', 10);
    return plainToolTip(isOverrange(column - 1, row - 1) ? tr("%1 %2, over range").arg(number, unit)
                                                         : tr("%1 %2").arg(number, unit));
}

bool MultichannelDeviceModel::SaveDataToFile(const QString &fileName) const
{
    return !fileName.isEmpty()
        && SaveProgress::writeWhole(fileName, QIODevice::WriteOnly, [this](QIODevice &file) {
               return writeRows(file);
           });
}

//! Writes all rows with their header. Returns false if that failed or was canceled.
bool MultichannelDeviceModel::writeRows(QIODevice &file) const
{
    const int channels = NumberOfChannels();
    const int rows = rowCount() - 1;
    // While somebody watches, readings may come and leave, and so may the model.
    const bool isWatched = SaveProgress::isWatched();
    const ReadingBlock copied = isWatched ? shownReadings() : ReadingBlock();
    const StreamHeader header = m_header.hasFrames() ? m_header.ofNumbers() : m_header;
    const ReadingShape shape = readingShape(header);
    QByteArray text = recordingHeader(header, QStringLiteral("saved from the monitor's buffer"));
    std::vector<double> values(static_cast<std::size_t>(channels));
    for (int row = 1; row <= rows; ++row) {
        if (isWatched) {
            appendRecordingReading(&text, shape, copied.time(row - 1), copied.values(row - 1));
        } else {
            for (std::size_t i = 0; i < values.size(); ++i)
                values[i] = receivedValue(row, int(i));
            appendRecordingReading(&text, shape, doubleData(row, 0), values.data());
        }
        if (text.size() < recordingPiece)
            continue;
        if (file.write(text) != text.size())
            return false;
        text.clear();
        if (!SaveProgress::goOn(row, rows))
            return false;
    }
    return file.write(text) == text.size();
}

} // namespace Monitor
