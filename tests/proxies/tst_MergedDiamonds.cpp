// SPDX-License-Identifier: LGPL-2.1-or-later
// Devices merged with their own averages and zeros, and an average of it all: every number after every step of a long
// random history. CORVALE_QT_TEST_STEPS in the environment sets the number of steps, for runs under a sanitizer.
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "tests/support/BufferModel.h"
#include "tests/support/ModelText.h"
#include "tests/support/RowAccount.h"
#include "tests/support/TestMain.h"

#include <QPointer>

#include <memory>
#include <random>

using namespace Corvale_Qt;

namespace {

// The averages of a channel over the history of its source, computed from their definition.
struct Averages
{
    template<typename Value>
    void renew(int from, int rows, Value value)
    {
        const double alpha = 1.0 / length;
        numbers.resize(rows);
        for (int r = std::max(from, 1); r <= rows; ++r)
            numbers[r - 1] = r == 1 ? value(r) : (1.0 - alpha) * numbers[r - 2] + alpha * value(r);
    }
    void drop(int count) { numbers.remove(0, std::min(count, numbers.size())); }

    int length;
    QVector<double> numbers;
};

// A device, its average, and the zeroed average, of which channel 2 is shown. Without a device the others are empty.
struct Trio
{
    enum Part {
        Device,
        Average,
        Zero
    };

    Trio()
        : average(new RVXAveragingProxyModel)
        , zero(new RVXZeroingProxyModel)
    {
        zero->setSourceModel(average.get());
    }

    QAbstractItemModel *model(Part part) const
    {
        return part == Device ? static_cast<QAbstractItemModel *>(device.get())
            : part == Average ? static_cast<QAbstractItemModel *>(average.get())
                              : zero.get();
    }
    void renew(int from)
    {
        own.renew(from, rows(), [this](int row) {
            return value(Device, row);
        });
    }
    int rows() const { return device ? device->rowCount() - 1 + ahead : 0; }
    double value(Part part, int row) const
    {
        return part == Device ? device->doubleData(row - ahead, channel)
            : part == Average ? own.numbers[row - 1]
                              : own.numbers[row - 1] - offset;
    }

    static constexpr int channel = 2;
    std::unique_ptr<BufferModel> device;
    std::unique_ptr<RVXAveragingProxyModel> average;
    std::unique_ptr<RVXZeroingProxyModel> zero;
    Averages own{1, {}};
    double offset = 0.0;
    // Rows that the device has dropped, while the numbers here are still those of before.
    int ahead = 0;
};

struct Column
{
    Trio *trio;
    Trio::Part part;
    Averages top{5, {}};

    // Beyond the rows of its source a channel repeats the newest.
    double raw(int row) const
    {
        const int rows = trio->rows();
        return rows == 0 ? qQNaN() : trio->value(part, std::min(row, rows));
    }
    double average(int row) const
    {
        const int rows = trio->rows();
        double value = rows == 0 ? qQNaN() : top.numbers[std::min(row, rows) - 1];
        for (int r = rows + 1; rows > 0 && r <= row; ++r)
            value = (1.0 - 1.0 / top.length) * value + 1.0 / top.length * raw(r);
        return value;
    }
};

bool same(double one, double other)
{
    return one == other || (qIsNaN(one) && qIsNaN(other));
}

class Scene
{
public:
    explicit Scene(int seed)
        : random(unsigned(seed))
        , merged(new RVXMultichannelProxyModel)
        , top(new RVXAveragingProxyModel)
    {
        top->setSourceModel(merged.get());
        top->setAveraging(5);
        QObject::connect(merged.get(), &QAbstractItemModel::modelReset, top.get(), [this] {
            ++resets;
        });
        account = std::make_unique<RowAccount>(top.get());
        for (Trio &trio : trios) {
            // Decides whether the merged model or the average hears of the device first.
            const bool mergedFirst = below(2);
            trio.device = std::make_unique<BufferModel>(2, 2 + below(8));
            if (mergedFirst)
                add(&trio, Trio::Device);
            trio.average->setSourceModel(trio.device.get());
            add(&trio, below(2) ? Trio::Average : Trio::Zero);
            if (!mergedFirst)
                add(&trio, Trio::Device);
            add(&trio, below(2) ? Trio::Average : Trio::Zero);
        }
    }

    int below(int limit) { return int(random() % unsigned(limit)); }

    void step()
    {
        Trio &trio = trios[below(2)];
        const int what = below(100);
        act = QStringLiteral("act %1 on trio %2").arg(what).arg(&trio - trios);
        resets = 0;
        mayReset = what >= 90;
        if (mayReset)
            changeModels(trio, what - 90);
        else if (!trio.device)
            return;
        else if (what < 60)
            append(trio, 1 + below(what < 30 ? 1 : std::min(6, trio.device->MaxBufferSize())));
        else if (trio.rows() == 0)
            return;
        else if (what < 72)
            drop(trio, 1 + below(trio.rows()));
        else if (what < 80)
            change(trio, 1 + below(trio.rows()));
        else if (what < 82)
            announceAll(trio);
        else if (what < 84)
            toggle(trio);
        else if (what < 86)
            insertBetween(trio, 1 + below(trio.rows()));
        else if (trio.rows() > 1)
            removeBetween(trio, 2 + below(trio.rows() - 1));
    }

    QString difference() const
    {
        int rows = 0;
        for (const Column &column : columns)
            rows = std::max(rows, column.trio->rows());
        if (resets > 0 && !mayReset)
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
        return account->error();
    }

    //! Deletes all models one after the other, while listeners read from those that are left.
    void deleteInAnyOrder()
    {
        account.reset();
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
    std::mt19937 random;
    Trio trios[2];
    std::unique_ptr<RVXMultichannelProxyModel> merged;
    std::unique_ptr<RVXAveragingProxyModel> top;

private:
    void add(Trio *trio, Trio::Part part)
    {
        merged->addSourceModel(trio->model(part), Trio::channel);
        columns.append(Column{trio, part});
        reset();
    }
    void reset()
    {
        for (Column &column : columns)
            renew(column, 1);
    }
    void renew(Column &column, int from)
    {
        column.top.renew(from, column.trio->rows(), [&column](int row) {
            return column.raw(row);
        });
    }
    double time(int row) const
    {
        for (const Column &column : columns) {
            if (row <= column.trio->rows())
                return column.trio->device->doubleData(row, 0);
        }
        return qQNaN();
    }
    void renewAll(Trio &trio, int from)
    {
        trio.renew(from);
        renewColumns(trio, from);
    }
    void renewColumns(Trio &trio, int from)
    {
        for (Column &column : columns) {
            if (column.trio == &trio)
                renew(column, from);
        }
    }
    void dropped(Trio &trio, int count)
    {
        trio.own.drop(count);
        for (Column &column : columns) {
            if (column.trio == &trio)
                column.top.drop(count);
        }
    }

    BufferModel::Sample sample() { return {now += 0.25, {now / 3.0, below(1000) / 7.0}}; }
    void append(Trio &trio, int count)
    {
        trio.device->rollOver = BufferModel::RollOver(below(3));
        QVector<BufferModel::Sample> samples;
        while (samples.size() < count)
            samples << sample();
        const int before = trio.rows();
        trio.device->append(samples);
        const int surplus = before + count - trio.rows();
        const bool insertsFirst = trio.device->rollOver == BufferModel::InsertThenRemove;
        trio.ahead = insertsFirst ? surplus : 0;
        if (!insertsFirst)
            dropped(trio, surplus);
        renewAll(trio, trio.rows() - count + 1);
        if (insertsFirst)
            dropped(trio, surplus);
        trio.ahead = 0;
    }
    void drop(Trio &trio, int count)
    {
        trio.device->dropOldest(count);
        dropped(trio, count);
    }
    void change(Trio &trio, int row)
    {
        // All channels of a model are announced with any of its columns; averages start again from there.
        const int channel = 1 + below(2);
        trio.device->change(row, channel, below(1000) / 7.0);
        if (channel == Trio::channel)
            trio.renew(row);
        renewColumns(trio, row);
    }
    void announceAll(Trio &trio)
    {
        const QModelIndex first = trio.device->index(below(2), 1);
        Q_EMIT trio.device->dataChanged(first, trio.device->index(trio.rows(), 2));
        renewAll(trio, 1);
    }
    void insertBetween(Trio &trio, int row)
    {
        if (trio.rows() == trio.device->MaxBufferSize())
            return;
        trio.device->insert(row, sample());
        renewAll(trio, row);
    }
    void removeBetween(Trio &trio, int first)
    {
        trio.device->remove(first, first + below(trio.rows() - first + 1));
        renewAll(trio, first);
    }
    // A check box changes no number.
    void toggle(Trio &trio)
    {
        const QModelIndex box = trio.device->index(0, 1);
        const bool isOn = box.data(Qt::CheckStateRole).toInt() != Qt::Unchecked;
        trio.device->setData(box, !isOn, Qt::CheckStateRole);
    }

    // Does what resets the table: acts of the host, and of a device.
    void changeModels(Trio &trio, int what)
    {
        if (what == 0 && trio.device) {
            trio.device->Clear();
            trio.renew(1);
        } else if (what == 1) {
            trio.own.length = 1 + below(4);
            trio.average->setAveraging(trio.own.length);
            trio.renew(1);
        } else if (what == 2 && trio.rows() > 0) {
            trio.zero->zeroNow();
            trio.offset = trio.own.numbers.last();
        } else if (what == 3 && trio.device) {
            trio.device.reset();
            for (int i = columns.size() - 1; i >= 0; --i) {
                if (columns[i].trio == &trio && columns[i].part == Trio::Device)
                    columns.removeAt(i);
            }
            trio.own.numbers.clear();
            trio.offset = 0.0;
        } else if (what == 4 && !trio.device) {
            trio.device = std::make_unique<BufferModel>(2, 2 + below(8));
            trio.average->setSourceModel(trio.device.get());
            trio.renew(1);
            add(&trio, Trio::Device);
        } else if (what == 5) {
            swapDevices();
        } else if (what == 6 && columns.size() < 9) {
            const auto part = Trio::Part(below(3));
            if (trio.model(part))
                add(&trio, part);
        } else if (what == 7) {
            takeOut(columns.value(below(columns.size() + 1)));
        } else if (trio.rows() > 1) {
            rearrange(trio);
        }
        // Averages start afresh after a reset of the table.
        if (resets > 0)
            reset();
    }
    // Averages of all channels start afresh with the rows in another order.
    void rearrange(Trio &trio)
    {
        if (below(2))
            trio.device->reverse();
        else
            trio.device->moveToEnd(1 + below(trio.rows() - 1));
        trio.renew(1);
        const auto shows = [&trio](const Column &column) {
            return column.trio == &trio;
        };
        if (std::any_of(columns.begin(), columns.end(), shows))
            reset();
    }
    void swapDevices()
    {
        if (!trios[0].device || !trios[1].device)
            return;
        // The averages exchange their sources. Channels that show a device keep showing it.
        for (Column &column : columns) {
            if (column.part == Trio::Device)
                column.trio = column.trio == &trios[0] ? &trios[1] : &trios[0];
        }
        std::swap(trios[0].device, trios[1].device);
        for (Trio &trio : trios) {
            trio.average->setSourceModel(trio.device.get());
            trio.renew(1);
        }
    }
    void takeOut(const Column &gone)
    {
        // The model at position 0 would stay without being heard.
        const auto isGone = [&gone](const Column &column) {
            return column.trio == gone.trio && column.part == gone.part;
        };
        if (columns.isEmpty() || isGone(columns.first()) || !gone.trio)
            return;
        merged->removeSourceModel(gone.trio->model(gone.part));
        columns.erase(std::remove_if(columns.begin(), columns.end(), isGone), columns.end());
    }

    std::unique_ptr<RowAccount> account;
    QVector<Column> columns;
    double now = 0.0;
    int resets = 0;
    bool mayReset = true;
};

} // namespace

class tst_MergedDiamonds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anythingInAnyOrder_data();
    void anythingInAnyOrder();
    void deletedInAnyOrder();
};

void tst_MergedDiamonds::anythingInAnyOrder_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 8; ++seed)
        QTest::addRow("seed %d", seed) << seed;
}

void tst_MergedDiamonds::anythingInAnyOrder()
{
    QFETCH(int, seed);
    const int wanted = qEnvironmentVariableIntValue("CORVALE_QT_TEST_STEPS");
    Scene scene(seed);
    for (int i = 0; i < (wanted > 0 ? wanted : 1500); ++i) {
        scene.step();
        const QString difference = scene.difference();
        if (!difference.isEmpty())
            QFAIL(qPrintable(QString("step %1, %2: %3").arg(i).arg(scene.act, difference)));
    }
    scene.deleteInAnyOrder();
}

void tst_MergedDiamonds::deletedInAnyOrder()
{
    for (int seed = 1; seed <= 100; ++seed) {
        Scene scene(seed);
        for (int i = 0; i < 5; ++i)
            scene.step();
        scene.deleteInAnyOrder();
    }
}

CORVALE_QT_TEST_MAIN(tst_MergedDiamonds)
#include "tst_MergedDiamonds.moc"
