// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXMultichannelDeviceModel_p.h"

#include "corvale_qt/models/Logging_p.h"
#include "corvale_qt/models/SaveProgress.h"
#include "corvale_qt/units/NumberText_p.h"

#include <QIODevice>
#include <QLocale>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <vector>

namespace Corvale_Qt {

const HistoryPyramid *ShownHistory::pyramid() const
{
    return m_model.rings.history();
}

int ShownHistory::levels() const
{
    return pyramid() ? HistoryPyramid::levels : 0;
}

qint64 ShownHistory::firstBlock(int level) const
{
    return pyramid() ? pyramid()->firstBlock(level) : 0;
}

qint64 ShownHistory::endBlock(int level) const
{
    return pyramid() ? pyramid()->endBlock(level) : 0;
}

RVXPlotHistory::Interval ShownHistory::interval(int level, qint64 block) const
{
    return pyramid()->interval(level, block);
}

bool ShownHistory::read(int level, int column, qint64 first, int count, Block *out) const
{
    if (!m_model.isChannel(column))
        return false;
    const ShownNumbers shown = m_model.shown(column);
    for (int i = 0; i < count; ++i) {
        Block &block = out[i];
        block = pyramid()->block(level, column - 1, first + i);
        block.least = shown(block.least);
        block.greatest = shown(block.greatest);
        block.mean = shown(block.mean);
        if (block.least > block.greatest && block.count > 0) // a unit of negative factor
            std::swap(block.least, block.greatest);
    }
    return true;
}

RVXMultichannelDeviceModelPrivate::RVXMultichannelDeviceModelPrivate(
    RVXMultichannelDeviceModel *model,
    int channelCount)
    : q(model)
    , channels(channelCount)
    , rings(channelCount, int(RVXAbstractDeviceDataModel::maxBufferSize))
{
}

void RVXMultichannelDeviceModelPrivate::read(int column, int firstRow, int count, double *out) const
{
    const auto asStored = [](double number) {
        return number;
    };
    if (column == 0) {
        readRing(rings.times().times(), firstRow - 1, count, out, asStored);
    } else if (isChannel(column)) {
        const ShownNumbers numbers = shown(column);
        const SampleRing &ring = rings.ring(column - 1);
        if (const auto factor = numbers.factor())
            readRing(ring, firstRow - 1, count, out, [product = *factor](double number) {
                return product * number;
            });
        else
            readRing(ring, firstRow - 1, count, out, numbers);
    } else {
        std::fill_n(out, std::max(count, 0), 0.0);
    }
    const bool withHeader = firstRow <= 0 && firstRow + count > 0;
    if (withHeader)
        out[-firstRow] = column;
}

bool RVXMultichannelDeviceModelPrivate::columnSpans(int column,
                                                    int firstRow,
                                                    int count,
                                                    RingSpans &spans) const
{
    if (column == 0)
        return rings.timeSpans(firstRow - 1, count, spans);
    const auto factor = isChannel(column) ? shown(column).factor() : std::nullopt;
    if (!factor || !rings.spans(column - 1, firstRow - 1, count, spans))
        return false;
    spans.factor = *factor;
    return true;
}

bool RVXMultichannelDeviceModelPrivate::appendText(QByteArray &text, int row, int column) const
{
    if (!has(row) || !(column == 0 || isChannel(column)))
        return false;
    if (column == 0) {
        Units::appendNumber(text, rings.time(row - 1), 'e', 3);
        return true;
    }
    const double stored = rings.value(row - 1, column - 1);
    const Units::MeasurementUnit *const unit = unitOf(column);
    if (std::isnan(stored))
        return true;
    if (!unit)
        Units::appendNumber(text, stored, 'g', 6);
    else if (!channels[column - 1].givenIn)
        Units::UnitTraits::appendFormatted(text, *unit, stored);
    else
        text += unit->formatUnscaled(shown(column)(stored)).toUtf8();
    return true;
}

const Units::MeasurementUnit *RVXMultichannelDeviceModelPrivate::unitOf(int column) const
{
    const Units::MeasurementUnit *const own = channels[column - 1].unit;
    return own ? own : q->units();
}

ShownNumbers RVXMultichannelDeviceModelPrivate::shown(int column) const
{
    return ShownNumbers(channels[column - 1].givenIn, unitOf(column));
}

RVXMultichannelDeviceModelPrivate::Stretches
RVXMultichannelDeviceModelPrivate::select(const double *times, int rows)
{
    Stretches taken;
    const double *newest = nullptr;
    for (int row = 0; row < rows; ++row) {
        if (times[row] == 0.0) {
            q->Clear();
            taken.clear();
            newest = nullptr;
        }
        const bool isRepeated = newest ? *newest == times[row] : rings.times().endsWith(times[row]);
        if (isRepeated || !q->sampleDue())
            continue;
        q->sampleTaken();
        newest = times + row;
        if (!taken.isEmpty() && taken.last().first + taken.last().count == row)
            ++taken.last().count;
        else
            taken.append({row, 1});
    }
    return taken;
}

void RVXMultichannelDeviceModelPrivate::store(const Block &block,
                                              const Stretches &stretches,
                                              const QVariantList &fits)
{
    int count = 0;
    for (const Stretch &stretch : stretches)
        count += stretch.count;
    if (count == 0)
        return;
    int surplus = std::max(count - rings.capacity(), 0);
    count -= surplus;
    dropOldest(rings.rows() + count - rings.capacity());
    if (surplus > 0 && rings.history())
        keepSurplus(block, stretches, surplus);

    const bool announced = q->autoUpdate();
    if (announced)
        q->beginInsertRows(QModelIndex(), visibleRows + 1, rings.rows() + count);
    for (const Stretch &stretch : stretches) {
        const int skipped = std::min(surplus, stretch.count);
        const int first = stretch.first + skipped;
        surplus -= skipped;
        rings.append(block.times + first,
                     block.values + std::ptrdiff_t(first) * rings.channels(),
                     stretch.count - skipped);
    }
    if (!fits.isEmpty()) {
        deviceFits = fits;
        fittedRow = rings.taken();
    }
    if (announced) {
        visibleRows = rings.rows();
        q->endInsertRows();
    }
}

//! Puts the rows of a block for which the empty rings have no room into the history.
void RVXMultichannelDeviceModelPrivate::keepSurplus(const Block &block,
                                                    const Stretches &stretches,
                                                    int surplus)
{
    for (const Stretch &stretch : stretches) {
        const int end = stretch.first + std::min(surplus, stretch.count);
        surplus -= end - stretch.first;
        for (int first = stretch.first; first < end; first += rings.rows()) {
            rings.dropOldest(rings.rows());
            rings.append(block.times + first,
                         block.values + std::ptrdiff_t(first) * rings.channels(),
                         std::min(end - first, rings.capacity()));
        }
    }
    rings.dropOldest(rings.rows());
}

//! Drops rows, and announces the removal of those among them that have been announced.
void RVXMultichannelDeviceModelPrivate::dropOldest(int rows)
{
    const int shownRows = std::min(rows, visibleRows);
    if (shownRows > 0)
        q->beginRemoveRows(QModelIndex(), 1, shownRows);
    rings.dropOldest(rows);
    if (shownRows > 0) {
        visibleRows -= shownRows;
        q->endRemoveRows();
    }
}

void RVXMultichannelDeviceModelPrivate::removeRows(int channelCount)
{
    rings.reset(channelCount);
    visibleRows = 0;
    deviceFits.clear();
}

bool RVXMultichannelDeviceModelPrivate::isOwnThread() const
{
    return QThread::currentThread() == q->thread();
}

void RVXMultichannelDeviceModelPrivate::handOver(const Block &block,
                                                 int rows,
                                                 const QVariantList &fits,
                                                 bool all)
{
    if (!toldOfOtherThread.exchange(true))
        qCWarning(modelsLog)
            << "Rows come from another thread than the model's and are handed over to it:"
            << "call appendRows() by a queued connection";
    Q_ASSERT_X(false, "RVXMultichannelDeviceModel", "rows come from another thread");
    const auto copy = [rows](const double *numbers, int width) {
        return std::vector<double>(numbers, numbers + std::ptrdiff_t(rows) * width);
    };
    const auto append = [this,
                         times = copy(block.times, 1),
                         values = copy(block.values, rings.channels()),
                         fits,
                         all] {
        const int size = int(times.size());
        if (values.size() != times.size() * std::size_t(rings.channels()))
            return; // the channels have changed meanwhile
        if (all)
            q->storeRows(times.data(), values.data(), size);
        else
            q->appendRows(times.data(), values.data(), size, fits);
    };
    QMetaObject::invokeMethod(q, append, Qt::QueuedConnection);
}

QVariantList RVXMultichannelDeviceModelPrivate::fitsOf(int row) const
{
    const bool isFitted = has(row) && rings.taken() - rings.rows() + row == fittedRow;
    return isFitted ? deviceFits : QVariantList();
}

QString RVXMultichannelDeviceModelPrivate::title(int column) const
{
    const RVXMultichannelDeviceModel::Channel &channel = channels[column - 1];
    const QString name = channel.name.isEmpty() ? QString::number(column) : channel.name;
    return channel.unit ? QStringLiteral("%1 (%2)").arg(name, channel.unit->name()) : name;
}

QVariant RVXMultichannelDeviceModelPrivate::text(int row, int column) const
{
    if (row == 0 && isChannel(column))
        return title(column);
    QByteArray text;
    return appendText(text, row, column) ? QString::fromUtf8(text) : QVariant();
}

QVariant RVXMultichannelDeviceModelPrivate::toolTip(int row, int column) const
{
    if (!has(row) || !isChannel(column))
        return column == 0 ? text(row, column) : QVariant();
    const double value = q->doubleData(row, column);
    if (std::isnan(value))
        return RVXMultichannelDeviceModel::tr("no reading");
    const Units::MeasurementUnit *const unit = unitOf(column);
    return unit ? unit->formatSuffixUnscaled(value) : QString::number(value);
}

namespace {

//! Returns the numbers of rows, row after row: the time, and then the channels.
std::vector<double> copyOf(const ChannelRings &rings, int rows)
{
    std::vector<double> numbers;
    numbers.reserve(size_t(rows) * size_t(rings.channels() + 1));
    for (int row = 0; row < rows; ++row) {
        numbers.push_back(rings.time(row));
        for (int channel = 0; channel < rings.channels(); ++channel)
            numbers.push_back(rings.value(row, channel));
    }
    return numbers;
}

//! Appends a line with the time and the channels, which \a numberAt returns for each column.
template<typename NumberAt>
void appendLine(QByteArray &text, int columns, NumberAt numberAt)
{
    Units::appendNumber(text, numberAt(0), 'f', 9);
    for (int column = 1; column < columns; ++column) {
        text += ',';
        const double value = numberAt(column);
        if (!std::isnan(value))
            text += QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
    }
    text += '\n';
}

} // namespace

bool RVXMultichannelDeviceModelPrivate::write(QIODevice &file) const
{
    constexpr int piece = 1 << 16;
    QByteArray text = titles();
    // The event loop may run while somebody watches: rows may come and leave, and so may the model.
    const int rows = visibleRows;
    const std::vector<double> copied =
        SaveProgress::isWatched() ? copyOf(rings, rows) : std::vector<double>();
    const int columns = rings.channels() + 1;
    for (int row = 0; row < rows; ++row) {
        if (copied.empty())
            appendLine(text, columns, [&](int column) {
                return column == 0 ? rings.time(row) : rings.value(row, column - 1);
            });
        else
            appendLine(text, columns, [&](int column) {
                return copied[size_t(row) * size_t(columns) + size_t(column)];
            });
        if (text.size() < piece)
            continue;
        if (file.write(text) != text.size())
            return false;
        text.resize(0);
        if (!SaveProgress::goOn(row, rows))
            return false;
    }
    return file.write(text) == text.size();
}

//! Returns the line of titles. A name that would not be one field is quoted.
QByteArray RVXMultichannelDeviceModelPrivate::titles() const
{
    QByteArray line = "timestamp(s)";
    for (int i = 0; i < channels.size(); ++i) {
        const auto &[name, unit, givenIn] = channels[i];
        Q_UNUSED(unit)
        QString field = name.isEmpty() ? QStringLiteral("channel_%1").arg(i + 1) : name;
        if (givenIn)
            field += QLatin1Char('(') + givenIn->name() + QLatin1Char(')');
        const bool isPlain = std::none_of(field.begin(), field.end(), [](QChar c) {
            return c == QLatin1Char(',') || c == QLatin1Char('"') || c < QLatin1Char(' ');
        });
        if (!isPlain)
            field = QLatin1Char('"') + field.replace(QLatin1Char('"'), QLatin1String("\"\""))
                + QLatin1Char('"');
        line += ',' + field.toUtf8();
    }
    return line + '\n';
}

} // namespace Corvale_Qt
