// SPDX-License-Identifier: LGPL-2.1-or-later
// Random heaps of devices and proxies, to which anything happens: sources are swapped and put into circles, and models
// are read, changed and deleted while others announce their changes. CORVALE_QT_TEST_STEPS in the environment sets the
// number of steps, for runs under a sanitizer.
#include "corvale_qt/proxies/RVXComputedChannelsProxyModel.h"
#include "tests/proxies/Averages.h"
#include "tests/proxies/ProxyTest.h"

using namespace Corvale_Qt;
using Model = QAbstractItemModel;

namespace {

constexpr int places = 10;
constexpr int sumEvery = 4; //!< steps; a sum that is wrong stays wrong
//! Steps of each heap: a hundred thousand in all, or a fifth of that where the sanitizers take their time.
#ifdef __SANITIZE_ADDRESS__
constexpr int usualSteps = 3400;
#else
constexpr int usualSteps = 17000;
#endif

//! Proxies that are broken in one way each.
enum class Plant {
    None,
    WrongTime,
    UnannouncedChange
};

class WrongTime : public RVXZeroingProxyModel
{
public:
    double doubleData(int row, int column) const override
    {
        return RVXZeroingProxyModel::doubleData(row, column)
            + (row == 3 && column == 0 ? 1.0 : 0.0);
    }
};

class Drifting : public RVXZeroingProxyModel
{
public:
    double doubleData(int row, int column) const override
    {
        return RVXZeroingProxyModel::doubleData(row, column)
            + (row == 1 && column == 1 ? m_drift : 0);
    }

protected:
    void sourceRowsInserted(const QModelIndex &parent, int first, int last) override
    {
        RVXZeroingProxyModel::sourceRowsInserted(parent, first, last);
        ++m_drift;
    }

private:
    int m_drift = 0;
};

//! Models, and listeners that were connected to some of them before and after their proxies.
class Heap : public QObject
{
public:
    explicit Heap(int seed, Plant plant = Plant::None)
        : m_plant(plant)
        , m_random(unsigned(seed))
    {
        for (int place = 0; place < places; ++place)
            renew(place);
    }
    ~Heap() override
    {
        m_mayMeddle = false;
        m_checks.clear();
        for (const QPointer<Model> &model : m_models)
            delete model;
    }

    void step()
    {
        if (below(3) == 0)
            addMeddler(anyModel());
        m_act = QStringLiteral("step %1: ").arg(++m_steps);
        act(below(places), [](const Model *) { return true; });
        for (int place = 0; place < places; ++place)
            if (!m_models[place])
                renew(place);
    }

    //! Returns what is wrong with a model; empty if nothing is.
    QString fault()
    {
        for (const QPointer<Model> &model : m_models) {
            QString text = faultOf(model);
            if (m_steps % sumEvery == 0)
                text += sumFaultOf(model);
            if (showsMerged(model))
                m_checks.remove(model);
            else if (!m_checks.contains(model))
                m_checks.insert(model, checkOf(model));
            else
                text += m_checks[model]();
            if (!text.isEmpty())
                return m_act + model->metaObject()->className() + QStringLiteral(": ") + text;
        }
        return {};
    }

private:
    using Check = std::function<QString()>;
    using MayTouch = std::function<bool(const Model *)>;

    int below(int limit) { return int(m_random() % unsigned(limit)); }
    Model *anyModel() { return m_models[below(places)]; }

    void renew(int place)
    {
        Model *model = nullptr;
        switch (place < 3 ? 0 : below(6)) {
        case 0:
            model = new BufferModel(2, 2 + below(8));
            break;
        case 1:
            model = new RVXAveragingProxyModel;
            break;
        case 2:
            model = newZeroing();
            break;
        case 3:
            model = new RVXComputedChannelsProxyModel;
            break;
        case 4:
            model = new RVXLatestPlotDataProxyModel;
            break;
        default:
            model = new RVXMultichannelProxyModel;
        }
        m_models[place] = model;
        m_below.insert(model, {});
        connect(model, &QObject::destroyed, this, [this, model] {
            m_checks.remove(model);
            m_below.remove(model);
            // Another model may have its address soon.
            for (QSet<const Model *> &below : m_below)
                below.remove(model);
        });
        if (below(2))
            addMeddler(model);
        if (place >= 3)
            giveSource(model, anyModel());
    }

    RVXZeroingProxyModel *newZeroing() const
    {
        switch (m_plant) {
        case Plant::WrongTime:
            return new WrongTime;
        case Plant::UnannouncedChange:
            return new Drifting;
        case Plant::None:
            break;
        }
        return new RVXZeroingProxyModel;
    }

    //! Returns a model and all that it stands on or has stood on.
    QSet<const Model *> reachOf(const Model *model) const
    {
        QSet<const Model *> reach;
        QVector<const Model *> left{model};
        while (!left.isEmpty()) {
            const Model *next = left.takeLast();
            if (reach.contains(next))
                continue;
            reach.insert(next);
            for (const Model *source : m_below.value(next))
                left.append(source);
        }
        return reach;
    }

    void giveSource(Model *model, Model *source)
    {
        // A circle is tried, and refused. Merged models of merged models would have to be read along too many ways.
        const bool isCircle = source && reachOf(source).contains(model);
        if (!source || (!isCircle && isBelowMerged(model) && standsOnMerged(source)))
            return;
        m_below[model].insert(source);
        if (auto *merged = qobject_cast<RVXMultichannelProxyModel *>(model))
            merged->columnCount() < 9 ? merged->addSourceModel(source, 1 + below(2))
                                      : removeSource(*merged, source);
        else if (auto *proxy = qobject_cast<QAbstractProxyModel *>(model))
            proxy->setSourceModel(source);
    }

    //! Removes a source, but not the first one, or what may be it: it would stay without being heard.
    static void removeSource(RVXMultichannelProxyModel &merged, Model *source)
    {
        const QModelIndex first = merged.mapToSource(merged.index(0, 1));
        if (first.isValid() && first.model() != source)
            merged.removeSourceModel(source);
    }

    //! Does something to the model of a place, if a model that is touched may be.
    void act(int place, const MayTouch &mayTouch)
    {
        Model *model = m_models[place];
        if (!model || !mayTouch(model))
            return;
        const QSet<const Model *> reach = reachOf(model);
        const QSet<const Model *> before = std::exchange(m_busy, m_busy | reach);
        const bool mayClear = !before.intersects(reach);
        const int what = below(100);
        m_act += QStringLiteral("%1 on %2 %3; ")
                     .arg(what)
                     .arg(model->metaObject()->className())
                     .arg(place);
        auto *device = dynamic_cast<BufferModel *>(model);
        if (what == 99)
            delete model;
        else if (device)
            drive(*device, what);
        else
            change(model, what, mayClear);
        m_busy = before;
    }

    void drive(BufferModel &device, int what)
    {
        const int rows = device.rowCount() - 1, channels = device.NumberOfChannels();
        const int row = 1 + below(std::max(rows, 1));
        device.rollOver = BufferModel::RollOver(below(3));
        if (what < 60 || rows == 0)
            append(device, 1 + below(what < 40 ? 1 : 5));
        else if (what < 70)
            device.change(row, 1 + below(channels), value());
        else if (what < 76)
            device.dropOldest(row);
        else if (what < 80)
            device.remove(row, row + below(rows - row + 1));
        else if (what < 83)
            device.reverse();
        else if (what < 86 && row < rows)
            device.moveToEnd(row);
        else if (what < 89 && channels < 4)
            below(2) ? device.appendChannel(value()) : device.insertChannelInFront(value());
        else if (what < 92 && channels > 2)
            device.removeChannel(1 + below(channels));
        else if (what < 94)
            device.moveFirstChannelToEnd();
        else if (what < 96)
            device.Clear();
        else if (what < 98)
            Q_EMIT device.layoutChanged();
        else
            device.setData(device.index(0, 1), below(2) ? Qt::Checked : 0, Qt::CheckStateRole);
    }

    //! Does something to a proxy. Clear() goes on to the devices, which must not be in the middle of a change.
    void change(Model *model, int what, bool mayClear)
    {
        if (what < 30)
            giveSource(model, anyModel());
        else if (auto *plot = dynamic_cast<RVXAbstractPlotDataModel *>(model);
                 plot && mayClear && what < 40)
            plot->Clear();
        else if (auto *averaging = qobject_cast<RVXAveragingProxyModel *>(model))
            averaging->setAveraging(1 + below(4));
        else if (auto *zeroing = qobject_cast<RVXZeroingProxyModel *>(model))
            what < 80 ? zeroing->zeroNow() : zeroing->zeroClear();
        else if (auto *computed = qobject_cast<RVXComputedChannelsProxyModel *>(model))
            computed->setComputedChannels(what < 80
                                              ? QVector<ComputedChannel>{{"sum", "", "ch1 + ch2"}}
                                              : QVector<ComputedChannel>());
        else if (auto *merged = qobject_cast<RVXMultichannelProxyModel *>(model))
            what < 70 ? removeSource(*merged, anyModel()) : merged->setShowNames(below(2));
        else if (auto *latest = qobject_cast<RVXLatestPlotDataProxyModel *>(model))
            latest->setSiPrefix(below(2));
    }

    double value() { return below(8) == 0 ? qQNaN() : below(1000) / 7.0; }

    void append(BufferModel &device, int count)
    {
        QVector<BufferModel::Sample> samples;
        while (samples.size() < std::min(count, device.MaxBufferSize())) {
            BufferModel::Sample sample{m_time += 0.25, {}};
            while (sample.values.size() < device.NumberOfChannels())
                sample.values << value();
            samples << sample;
        }
        device.append(samples);
    }

    //! Connects a listener that, once, does something when the model says something.
    void addMeddler(Model *model)
    {
        if (!model)
            return;
        const auto listen = [this, model](auto signal, bool isEnd) {
            auto connection = std::make_shared<QMetaObject::Connection>();
            *connection = connect(model, signal, this, [this, model, isEnd, connection] {
                QObject::disconnect(*connection);
                meddle(model, isEnd);
            });
        };
        switch (below(9)) {
        case 0:
            return listen(&Model::rowsAboutToBeInserted, false);
        case 1:
            return listen(&Model::rowsInserted, true);
        case 2:
            return listen(&Model::rowsAboutToBeRemoved, false);
        case 3:
            return listen(&Model::rowsRemoved, true);
        case 4:
            return listen(&Model::modelAboutToBeReset, false);
        case 5:
            return listen(&Model::modelReset, true);
        case 6:
            return listen(&Model::columnsInserted, true);
        case 7:
            return listen(&Model::dataChanged, true);
        default:
            return listen(&QObject::destroyed, true);
        }
    }

    /*! Reads everything, and does something to a model that does not take part in what \a sender announces: a model on which
        a function is running may not be deleted. */
    void meddle(const Model *sender, bool isEnd)
    {
        readAll();
        if (!m_mayMeddle)
            return;
        m_mayMeddle = false;
        m_checks
            .clear(); // from here on, listeners hear of changes in another order than they happen
        m_act += QStringLiteral("[%1 says, ").arg(isEnd ? "end" : "begin");
        const QSet<const Model *> busy = m_busy | reachOf(sender);
        act(below(places), [&](const Model *model) { return !busy.contains(model); });
        readAll();
        m_act += QStringLiteral("] ");
        m_mayMeddle = true;
    }

    void readAll() const
    {
        for (const QPointer<Model> &model : m_models) {
            if (!model)
                continue;
            const auto *plot = dynamic_cast<const RVXAbstractPlotDataModel *>(model.data());
            for (int row = 0; row < model->rowCount(); ++row) {
                for (int column = 0; column < model->columnCount(); ++column) {
                    model->index(row, column).data();
                    if (plot)
                        plot->doubleData(row, column);
                }
            }
            model->headerData(1, Qt::Horizontal);
            model->flags(model->index(1, 1));
        }
    }

    //! Returns how the table of a proxy differs from what it is by definition.
    static QString faultOf(const Model *model)
    {
        const auto *proxy = qobject_cast<const RVXPlotProxyModel *>(model);
        if (!proxy)
            return {};
        const Model *items = proxy->sourceModel();
        const auto *source = dynamic_cast<const RVXAbstractPlotDataModel *>(items);
        if (!source)
            return proxy->rowCount() == 0 ? QString() : QStringLiteral("rows without a source");
        if (proxy->rowCount() != items->rowCount())
            return QStringLiteral("%1 rows, the source has %2")
                .arg(proxy->rowCount())
                .arg(items->rowCount());
        const auto *averaging = qobject_cast<const RVXAveragingProxyModel *>(proxy);
        const int equal = averaging && averaging->averaging() > 1 ? 1 : items->columnCount();
        const bool isZeroing = qobject_cast<const RVXZeroingProxyModel *>(proxy);
        for (int row = 1; row < items->rowCount(); ++row)
            for (int column = 0; column < (isZeroing ? 1 : equal); ++column)
                if (!same(proxy->doubleData(row, column), source->doubleData(row, column)))
                    return QStringLiteral("row %1, column %2").arg(row).arg(column);
        return {};
    }

    //! Returns the first column whose channel has that name; 0 if there is none.
    static int columnCalled(const Model *items, const char *name)
    {
        for (int i = 1; i < items->columnCount(); ++i)
            if (items->index(0, i).data().toString() == QLatin1String(name))
                return i;
        return 0;
    }

    //! Returns how the computed sum of a proxy differs from that of its source's channels.
    static QString sumFaultOf(const Model *model)
    {
        const auto *proxy = qobject_cast<const RVXComputedChannelsProxyModel *>(model);
        const Model *items = proxy ? proxy->sourceModel() : nullptr;
        const auto *source = dynamic_cast<const RVXAbstractPlotDataModel *>(items);
        if (!source || proxy->computedChannels().isEmpty() || !proxy->fault().isEmpty())
            return {};
        const int ch1 = columnCalled(items, "ch1"), ch2 = columnCalled(items, "ch2");
        for (int row = 1; ch1 > 0 && ch2 > 0 && row < items->rowCount(); ++row)
            if (!same(proxy->doubleData(row, items->columnCount()),
                      source->doubleData(row, ch1) + source->doubleData(row, ch2)))
                return QStringLiteral("row %1, the sum").arg(row);
        return {};
    }

    //! Returns whether a model shows merged channels. A merged model announces when its rows change, but not always each
    //! cell whose row came from another source before; tst_MergedRows checks its numbers.
    static bool showsMerged(const Model *model)
    {
        while (const auto *proxy = qobject_cast<const QAbstractProxyModel *>(model)) {
            if (qobject_cast<const RVXMultichannelProxyModel *>(proxy))
                return true;
            model = proxy->sourceModel();
        }
        return false;
    }
    //! Returns whether a model is merged, or stands or has stood on a merged one.
    bool standsOnMerged(const Model *model) const
    {
        const QSet<const Model *> reach = reachOf(model);
        return std::any_of(std::begin(m_models), std::end(m_models), [&](const Model *each) {
            return reach.contains(each) && qobject_cast<const RVXMultichannelProxyModel *>(each);
        });
    }
    //! Returns whether a model is merged, or a merged model stands on it.
    bool isBelowMerged(const Model *model) const
    {
        return std::any_of(std::begin(m_models), std::end(m_models), [&](const Model *each) {
            return qobject_cast<const RVXMultichannelProxyModel *>(each)
                && reachOf(each).contains(model);
        });
    }

    //! Returns what compares a model with the table that its announcements make.
    static Check checkOf(Model *model)
    {
        if (auto *averaging = qobject_cast<RVXAveragingProxyModel *>(model))
            return mirrorOf(averaging);
        if (auto *zeroing = qobject_cast<RVXZeroingProxyModel *>(model))
            return mirrorOf(zeroing);
        if (auto *computed = qobject_cast<RVXComputedChannelsProxyModel *>(model))
            return mirrorOf(computed);
        return [] { return QString(); };
    }
    template<typename Proxy>
    static Check mirrorOf(Proxy *proxy)
    {
        const auto mirror = std::make_shared<TableMirror<Proxy>>(proxy);
        const auto account = std::make_shared<RowAccount>(proxy);
        return [mirror, account] { return mirror->error() + account->error(); };
    }

    const Plant m_plant;
    std::mt19937 m_random;
    QPointer<Model> m_models[places];
    QHash<const Model *, QSet<const Model *>> m_below;
    QHash<const Model *, Check> m_checks;
    QSet<const Model *> m_busy; //!< models on which a function may be running
    bool m_mayMeddle = true;
    double m_time = 0.0;
    int m_steps = 0;
    QString m_act;
};

} // namespace

class tst_ModelAbuse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anythingToAnyHeap_data()
    {
        QTest::addColumn<int>("seed");
        for (int seed = 1; seed <= 6; ++seed)
            QTest::addRow("seed %d", seed) << seed;
    }
    void anythingToAnyHeap()
    {
        const int wanted = qEnvironmentVariableIntValue("CORVALE_QT_TEST_STEPS");
        Heap heap(cell<int>("seed"));
        for (int i = 0; i < (wanted > 0 ? wanted : usualSteps); ++i) {
            heap.step();
            const QString fault = heap.fault();
            QVERIFY2(fault.isEmpty(), qPrintable(fault));
        }
    }

    void plantedFaultsAreFound()
    {
        for (const Plant plant : {Plant::WrongTime, Plant::UnannouncedChange}) {
            Heap heap(1, plant);
            QString fault;
            for (int i = 0; i < usualSteps && fault.isEmpty(); ++i) {
                heap.step();
                fault = heap.fault();
            }
            qInfo("%s", qPrintable(fault));
            QVERIFY2(!fault.isEmpty(), plant == Plant::WrongTime ? "a wrong time" : "a change");
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_ModelAbuse)
#include "tst_ModelAbuse.moc"
