// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/PlotDataExport.h"

#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXAbstractPlotDataModel.h"
#include "corvale_qt/proxies/ChannelUnit_p.h"
#include "corvale_qt/units/MeasurementUnit.h"

#include <QAbstractItemModel>
#include <QLocale>
#include <QPointer>
#include <QSaveFile>
#include <QTimer>
#include <QVector>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

constexpr int cellsOfSlice = 20000; // some milliseconds

QByteArray field(QString text)
{
    const bool isPlain = std::none_of(text.begin(), text.end(), [](QChar c) {
        return c == QLatin1Char(',') || c == QLatin1Char('"') || c < QLatin1Char(' ');
    });
    if (!isPlain)
        text = QLatin1Char('"') + text.replace(QLatin1Char('"'), QLatin1String("\"\""))
            + QLatin1Char('"');
    return text.toUtf8();
}

//! Returns the name of a channel with its unit in parentheses, unless its name shows it already.
QByteArray title(const QAbstractItemModel *model, int column)
{
    const QString name = model->index(0, column).data().toString();
    const Units::MeasurementUnit *const unit = channelUnit(model, column);
    const QString suffix =
        unit && !unit->name().isEmpty() ? QStringLiteral(" (%1)").arg(unit->name()) : QString();
    return field(name.endsWith(suffix) ? name : name + suffix);
}

} // namespace

class PlotDataExportPrivate
{
public:
    QVector<int> chosenColumns() const;
    void chooseRows(const PlotDataReader &reader, int *firstRow, int *lastRow) const;
    QByteArray titles() const;
    void take(const PlotDataReader &reader, int firstRow, int lastRow);
    void appendLine(QByteArray &text, int row) const;

    QPointer<const QAbstractItemModel> model;
    int first = 1;
    int last = std::numeric_limits<int>::max();
    double left = -std::numeric_limits<double>::infinity();
    double right = std::numeric_limits<double>::infinity();
    bool shownOnly = false;
    QDateTime startTime;

    QSaveFile file;
    QTimer slices;
    QVector<int> columns; // that are written, x first
    std::vector<std::vector<double>> numbers; // of each of them
    int count = 0;
    int written = 0;
    QString error;
};

//! Returns the columns that are to be written: x, and the channels.
QVector<int> PlotDataExportPrivate::chosenColumns() const
{
    QVector<int> chosen{0};
    for (int column = 1; column < model->columnCount(); ++column) {
        if (!shownOnly || model->index(0, column).data(Qt::CheckStateRole).toInt() != 0)
            chosen.append(column);
    }
    return chosen;
}

void PlotDataExportPrivate::chooseRows(const PlotDataReader &reader,
                                       int *firstRow,
                                       int *lastRow) const
{
    *firstRow = std::max(first, 1);
    *lastRow = std::min(last, model->rowCount() - 1);
    if (std::isinf(left) && std::isinf(right))
        return;
    std::vector<double> x(size_t(std::max(*lastRow - *firstRow + 1, 0)));
    reader.read(0, *firstRow, int(x.size()), x.data());
    const auto isInside = [this](double time) {
        return time >= left && time <= right;
    };
    const auto begin = std::find_if(x.begin(), x.end(), isInside);
    const auto end = std::find_if(x.rbegin(), x.rend(), isInside).base();
    *lastRow = *firstRow + int(end - x.begin()) - 1;
    *firstRow += int(begin - x.begin());
}

QByteArray PlotDataExportPrivate::titles() const
{
    const auto *plot = dynamic_cast<const RVXAbstractPlotDataModel *>(model.data());
    const Units::MeasurementUnit *const unit = plot->xUnits();
    QByteArray line = "time";
    if (unit)
        line += " (" + field(unit->name()) + ')';
    if (startTime.isValid())
        line += ",UTC";
    for (int i = 1; i < columns.size(); ++i)
        line += ',' + title(model, columns[i]);
    return line + '\n';
}

void PlotDataExportPrivate::take(const PlotDataReader &reader, int firstRow, int lastRow)
{
    count = lastRow - firstRow + 1;
    numbers.assign(size_t(columns.size()), std::vector<double>(size_t(count)));
    for (int i = 0; i < columns.size(); ++i)
        reader.read(columns[i], firstRow, count, numbers[size_t(i)].data());
}

void PlotDataExportPrivate::appendLine(QByteArray &text, int row) const
{
    const double x = numbers[0][size_t(row)];
    for (size_t i = 0; i < numbers.size(); ++i) {
        const double value = numbers[i][size_t(row)];
        if (i > 0)
            text += ',';
        if (std::isfinite(value))
            text += QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
        if (i == 0 && startTime.isValid()) {
            text += ',';
            if (std::abs(x) < 1e11) // QDateTime holds no moments beyond
                text += startTime.toUTC()
                            .addMSecs(std::llround(x * 1000.0))
                            .toString(Qt::ISODateWithMs)
                            .toLatin1();
        }
    }
    text += '\n';
}

PlotDataExport::PlotDataExport(const QAbstractItemModel *model, QObject *parent)
    : QObject(parent)
    , d(new PlotDataExportPrivate)
{
    d->model = model;
    d->slices.setInterval(0);
    connect(&d->slices, &QTimer::timeout, this, [this] {
        const int slice = std::max(cellsOfSlice / d->columns.size(), 1);
        const int end = std::min(d->written + slice, d->count);
        QByteArray text;
        for (; d->written < end; ++d->written)
            d->appendLine(text, d->written);
        if (d->file.write(text) != text.size())
            d->error = d->file.errorString();
        const bool isDone = d->written == d->count || !d->error.isEmpty();
        if (!isDone) {
            Q_EMIT progressed(d->written);
            return;
        }
        d->slices.stop();
        d->numbers.clear();
        if (!d->error.isEmpty())
            d->file.cancelWriting();
        const bool isComplete = d->file.commit();
        if (!isComplete && d->error.isEmpty())
            d->error = d->file.errorString();
        Q_EMIT finished(isComplete);
    });
}

PlotDataExport::~PlotDataExport() = default;

void PlotDataExport::setRows(int first, int last)
{
    d->first = first;
    d->last = last;
}

void PlotDataExport::setTimes(double left, double right)
{
    d->left = left;
    d->right = right;
}

void PlotDataExport::setShownOnly(bool shownOnly)
{
    d->shownOnly = shownOnly;
}

void PlotDataExport::setStartTime(const QDateTime &moment)
{
    d->startTime = moment;
}

bool PlotDataExport::start(const QString &path)
{
    if (isRunning())
        return false;
    d->error.clear();
    d->written = 0;
    const auto *plot = dynamic_cast<const RVXAbstractPlotDataModel *>(d->model.data());
    int first = 1;
    int last = 0;
    const PlotDataReader reader(plot);
    if (plot)
        d->chooseRows(reader, &first, &last);
    if (last < first) {
        d->error = tr("there are no rows to save");
        return false;
    }
    d->columns = d->chosenColumns();
    d->file.setFileName(path);
    if (!d->file.open(QIODevice::WriteOnly)) {
        d->error = d->file.errorString();
        return false;
    }
    d->take(reader, first, last);
    d->file.write(d->titles());
    d->slices.start();
    return true;
}

void PlotDataExport::cancel()
{
    if (!isRunning())
        return;
    d->slices.stop();
    d->numbers.clear();
    d->file.cancelWriting();
    d->file.commit();
    Q_EMIT finished(false);
}

bool PlotDataExport::isRunning() const
{
    return d->slices.isActive();
}

int PlotDataExport::rows() const
{
    return d->count;
}

QString PlotDataExport::errorString() const
{
    return d->error;
}

} // namespace Corvale_Qt
