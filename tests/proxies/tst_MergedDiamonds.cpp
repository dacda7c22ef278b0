// SPDX-License-Identifier: LGPL-2.1-or-later
// Devices merged with their own averages and zeros, and an average of it all: every number after every step of a long
// random history. CORVALE_QT_TEST_STEPS in the environment sets the number of steps, for runs under a sanitizer.
#include "corvale_qt/models/RVXBulkPlotData.h"
#include "tests/proxies/Averages.h"
#include "tests/proxies/ProxyTest.h"

#include <QPointer>

#include <vector>

using namespace Corvale_Qt;

namespace {

constexpr int channel = 2;
constexpr int length = 5;

// A device, its average, and the zeroed average. Without a device the others are empty.
struct Trio
{
    Trio() { zero->setSourceModel(average.get()); }
    QVector<QAbstractItemModel *> models() const
    {
        return {device.get(), average.get(), zero.get()};
    }
    int rows() const { return device ? device->rowCount() - 1 : 0; }

    std::unique_ptr<BufferModel> device;
    std::unique_ptr<RVXAveragingProxyModel> average = std::make_unique<RVXAveragingProxyModel>();
    std::unique_ptr<RVXZeroingProxyModel> zero = std::make_unique<RVXZeroingProxyModel>();
};

// A channel of the merged model, and the averages of its model where it is not merged with any other.
struct Column
{
    explicit Column(QAbstractItemModel *items)
        : model(items)
        , plot(dynamic_cast<RVXAbstractPlotDataModel *>(items))
        , alone(std::make_shared<RVXAveragingProxyModel>())
    {
        alone->setSourceModel(items);
        startAfresh();
    }
    void startAfresh() const { alone->setAveraging(length); }
    int rows() const { return std::max(model->rowCount() - 1, 0); }

    // Beyond the rows of its model a channel repeats the newest.
    double raw(int row) const
    {
        return rows() == 0 ? qQNaN() : plot->doubleData(std::min(row, rows()), channel);
    }
    double average(int row) const
    {
        if (rows() == 0)
            return qQNaN();
        double value = alone->doubleData(std::min(row, rows()), channel);
        for (int r = rows() + 1; r <= row; ++r)
            value = (1.0 - 1.0 / length) * value + 1.0 / length * raw(r);
        return value;
    }

    QAbstractItemModel *model;
    RVXAbstractPlotDataModel *plot;
    std::shared_ptr<RVXAveragingProxyModel> alone;
};

class Scene
{
public:
    explicit Scene(int seed)
        : random(unsigned(seed))
        , merged(new RVXMultichannelProxyModel)
        , top(new RVXAveragingProxyModel)
    {
        top->setSourceModel(merged.get());
        top->setAveraging(length);
        QObject::connect(merged.get(), &QAbstractItemModel::modelReset, top.get(), [this] {
            isReset = true;
        });
        account = std::make_unique<RowAccount>(top.get());
        for (Trio &trio : trios) {
            // Decides whether the merged model or the average hears of the device first.
            const bool mergedFirst = below(2);
            trio.device = std::make_unique<BufferModel>(2, 2 + below(8));
            if (mergedFirst)
                add(trio.device.get());
            trio.average->setSourceModel(trio.device.get());
            add(trio.models()[1 + below(2)]);
            if (!mergedFirst)
                add(trio.device.get());
            add(trio.models()[1 + below(2)]);
        }
    }

    int below(int limit) { return int(random() % unsigned(limit)); }

    void step()
    {
        Trio &trio = trios[below(2)];
        const int what = below(100);
        act = QStringLiteral("act %1 on trio %2").arg(what).arg(&trio - trios);
        isReset = false;
        mayReset = what >= 90;
        if (mayReset)
            changeModels(trio, what - 90);
        else if (what < 60 && trio.device)
            append(*trio.device, 1 + below(what < 30 ? 1 : 6));
        else if (trio.rows() > 0)
            changeRows(trio, what);
        // Averages start afresh after a reset of the table.
        if (isReset)
            startAfresh();
    }

    QString difference() const
    {
        int rows = 0;
        for (const Column &column : columns)
            rows = std::max(rows, column.rows());
        if (isReset && !mayReset)
            return QStringLiteral("a reset");
        if (merged->rowCount() != rows + 1 || top->rowCount() != rows + 1)
            return QStringLiteral("%1 rows instead of %2").arg(merged->rowCount() - 1).arg(rows);
        if (top->columnCount() != columns.size() + 1)
            return QStringLiteral("%1 columns").arg(top->columnCount());
        for (int row = 1; row <= rows; ++row) {
            if (merged->doubleData(row, 0) != time(row) || top->doubleData(row, 0) != time(row))
                return QStringLiteral("time of row %1").arg(row);
            for (int c = 1; c <= columns.size(); ++c) {
                if (!same(merged->doubleData(row, c), columns[c - 1].raw(row)))
                    return QStringLiteral("row %1, channel %2").arg(row).arg(c);
                if (!same(top->doubleData(row, c), columns[c - 1].average(row)))
                    return QStringLiteral("average of row %1, channel %2").arg(row).arg(c);
            }
        }
        return account->error() + differenceInBulk();
    }

    //! Deletes all models one after the other, while listeners read from those that are left.
    void deleteInAnyOrder()
    {
        account.reset();
        columns.clear();
        QVector<QPointer<QAbstractItemModel>> models{top.release(), merged.release()};
        const auto read = [all = models[0], below = models[1]] {
            rowsText(static_cast<RVXMultichannelProxyModel &>(*below));
            rowsText(static_cast<RVXAveragingProxyModel &>(*all));
        };
        QObject::connect(models[1], &QAbstractItemModel::modelAboutToBeReset, models[0], read);
        QObject::connect(models[1], &QAbstractItemModel::modelReset, models[0], read);
        for (Trio &trio : trios)
            models << trio.device.release() << trio.average.release() << trio.zero.release();
        std::shuffle(models.begin(), models.end(), random);
        for (const QPointer<QAbstractItemModel> &model : models)
            delete model;
    }

    QString act;

private:
    //! Returns where a chunk that reaches beyond the rows at both ends has other numbers than the cells.
    QString differenceInBulk() const
    {
        std::vector<double> chunk(size_t(merged->rowCount()) + 3);
        for (int column = 0; column <= columns.size(); ++column) {
            RVXBulkPlotData::of(merged.get())->read(column, -1, int(chunk.size()), chunk.data());
            for (size_t i = 0; i < chunk.size(); ++i) {
                if (!same(chunk[i], merged->doubleData(int(i) - 1, column)))
                    return QStringLiteral("chunk of channel %1, row %2").arg(column).arg(i - 1);
            }
        }
        return QString();
    }
    void add(QAbstractItemModel *model)
    {
        merged->addSourceModel(model, channel);
        columns.append(Column(model));
    }
    void removeColumnsOf(const QAbstractItemModel *model)
    {
        const auto shows = [model](const Column &column) {
            return column.model == model;
        };
        columns.erase(std::remove_if(columns.begin(), columns.end(), shows), columns.end());
    }
    void startAfresh()
    {
        for (const Column &column : columns)
            column.startAfresh();
    }
    double time(int row) const
    {
        for (const Column &column : columns) {
            if (row <= column.rows())
                return column.plot->doubleData(row, 0);
        }
        return qQNaN();
    }

    BufferModel::Sample sample() { return {now += 0.25, {now / 3.0, below(1000) / 7.0}}; }
    void append(BufferModel &device, int count)
    {
        device.rollOver = BufferModel::RollOver(below(3));
        QVector<BufferModel::Sample> samples;
        while (samples.size() < std::min(count, device.MaxBufferSize()))
            samples << sample();
        device.append(samples);
    }
    void changeRows(const Trio &trio, int what)
    {
        BufferModel &device = *trio.device;
        const int row = 1 + below(trio.rows());
        if (what < 72) {
            device.dropOldest(row);
        } else if (what < 80) {
            device.change(row, 1 + below(2), below(1000) / 7.0);
            // The channel is announced with the other one, so its averages start there.
            for (const Column &column : columns) {
                if (row == 1 && trio.models().contains(column.model))
                    column.startAfresh();
            }
        } else if (what < 82) {
            Q_EMIT device.dataChanged(device.index(below(2), 1), device.index(trio.rows(), 2));
        } else if (what < 84) {
            const QModelIndex box = device.index(0, 1); // changes no number
            device.setData(box, !box.data(Qt::CheckStateRole).toBool(), Qt::CheckStateRole);
        } else if (what < 86 && trio.rows() < device.MaxBufferSize()) {
            device.insert(row, sample());
        } else if (row > 1) {
            device.remove(row, row + below(trio.rows() - row + 1));
        }
    }

    // Does what resets the table: acts of the host, and of a device.
    void changeModels(Trio &trio, int what)
    {
        if (what == 0 && trio.device) {
            trio.device->Clear();
        } else if (what == 1) {
            trio.average->setAveraging(1 + below(4));
        } else if (what == 2) {
            trio.zero->zeroNow();
        } else if (what == 3 && trio.device) {
            const QAbstractItemModel *const gone = trio.device.get();
            trio.device.reset();
            removeColumnsOf(gone);
        } else if (what == 4 && !trio.device) {
            trio.device = std::make_unique<BufferModel>(2, 2 + below(8));
            trio.average->setSourceModel(trio.device.get());
            add(trio.device.get());
        } else if (what == 5 && trios[0].device && trios[1].device) {
            std::swap(trios[0].device, trios[1].device);
            for (const Trio &each : trios)
                each.average->setSourceModel(each.device.get());
        } else if (what == 6 && columns.size() < 9) {
            if (QAbstractItemModel *const model = trio.models()[below(3)])
                add(model);
        } else if (what == 7 && !columns.isEmpty()) {
            QAbstractItemModel *const gone = columns[below(columns.size())].model;
            if (gone == columns.first().model)
                return; // it would stay without being heard
            merged->removeSourceModel(gone);
            removeColumnsOf(gone);
        } else if (what >= 8 && trio.rows() > 1) {
            rearrange(trio);
        }
    }
    // Averages of all channels start afresh with the rows in another order.
    void rearrange(const Trio &trio)
    {
        if (below(2))
            trio.device->reverse();
        else
            trio.device->moveToEnd(1 + below(trio.rows() - 1));
        for (const Column &column : qAsConst(columns))
            isReset = isReset || trio.models().contains(column.model);
    }

    std::mt19937 random;
    Trio trios[2];
    std::unique_ptr<RVXMultichannelProxyModel> merged;
    std::unique_ptr<RVXAveragingProxyModel> top;
    std::unique_ptr<RowAccount> account;
    QVector<Column> columns;
    double now = 0.0;
    bool isReset = false;
    bool mayReset = true;
};

} // namespace

class tst_MergedDiamonds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anythingInAnyOrder_data()
    {
        QTest::addColumn<int>("seed");
        for (int seed = 1; seed <= 8; ++seed)
            QTest::addRow("seed %d", seed) << seed;
    }
    void anythingInAnyOrder()
    {
        const int wanted = qEnvironmentVariableIntValue("CORVALE_QT_TEST_STEPS");
        Scene scene(cell<int>("seed"));
        for (int i = 0; i < (wanted > 0 ? wanted : 1500); ++i) {
            scene.step();
            const QString difference = scene.difference();
            if (!difference.isEmpty())
                QFAIL(qPrintable(QString("step %1, %2: %3").arg(i).arg(scene.act, difference)));
        }
        scene.deleteInAnyOrder();
    }

    void deletedInAnyOrder()
    {
        for (int seed = 1; seed <= 100; ++seed) {
            Scene scene(seed);
            for (int i = 0; i < 5; ++i)
                scene.step();
            scene.deleteInAnyOrder();
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_MergedDiamonds)
#include "tst_MergedDiamonds.moc"
