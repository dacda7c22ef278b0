// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/models/SaveProgress.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/Files.h"
#include "tests/support/ModelLog.h"
#include "tests/support/ModelText.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/RowAccount.h"
#include "tests/support/TableMirror.h"
#include "tests/support/TestMain.h"

#include <cstring>
#include <deque>

using namespace Corvale_Qt;

namespace {

constexpr double gap = std::numeric_limits<double>::quiet_NaN();

bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

//! What the model holds by its rules, in the plainest form.
struct Expected
{
    struct Row
    {
        double time;
        std::vector<double> values;
    };

    void append(const std::vector<double> &times, const std::vector<double> &values, int channels)
    {
        for (std::size_t i = 0; i < times.size(); ++i) {
            if (times[i] == 0.0)
                clear();
            if (!isDue || (!rows.empty() && rows.back().time == times[i]))
                continue;
            const auto first = values.begin() + std::ptrdiff_t(i) * channels;
            rows.push_back({times[i], std::vector<double>(first, first + channels)});
        }
        keep(capacity);
        if (isShown)
            visible = int(rows.size());
    }
    void keep(int count)
    {
        for (; int(rows.size()) > count; visible = std::max(visible - 1, 0))
            rows.pop_front();
    }
    void clear()
    {
        rows.clear();
        visible = 0;
    }
    bool rises() const
    {
        for (std::size_t i = 1; i < rows.size(); ++i) {
            if (!(rows[i - 1].time < rows[i].time))
                return false;
        }
        return true;
    }

    std::deque<Row> rows;
    int visible = 0;
    int capacity = 0;
    bool isDue = true;
    bool isShown = true;
};

//! Returns where a column differs from \a wanted, from row -1 on, cell by cell, by the chunk and in memory.
QString differenceOfColumn(const RVXMultichannelDeviceModel &model, int column,
                           const std::vector<double> &wanted)
{
    const RVXBulkPlotData *const bulk = RVXBulkPlotData::of(&model);
    const int rows =
        int(wanted.size()) - 3; // row -1, the header and the row after the newest do not exist
    std::vector<double> chunk(wanted.size());
    bulk->read(column, -1, rows + 3, chunk.data());
    RingSpans spans;
    if (!PlotDataReader(&model).spans(column, 1, rows, spans))
        return QStringLiteral("column %1 is not in memory").arg(column);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const int row = int(i) - 1;
        const double expected = wanted[i];
        const double there = row >= 1 && row <= rows ? spans.value(row - 1) : expected;
        if (!sameBits(model.doubleData(row, column), expected) || !sameBits(chunk[i], expected)
            || !sameBits(there, expected))
            return QStringLiteral("row %1, column %2").arg(row).arg(column);
    }
    for (int first : {0, rows / 3}) {
        const NumberRange kept = storedRange(spans, first, rows);
        const NumberRange fresh = readRange(spans, first, rows);
        if (kept.least != fresh.least || kept.greatest != fresh.greatest)
            return QStringLiteral("range of column %1").arg(column);
    }
    return QString();
}

//! Returns where a model's rows differ from what is expected.
QString difference(const RVXMultichannelDeviceModel &model, const Expected &expected)
{
    if (model.rowCount() != expected.visible + 1)
        return QStringLiteral("%1 rows, not %2").arg(model.rowCount() - 1).arg(expected.visible);
    if (RVXBulkPlotData::of(&model)->xRises() != expected.rises())
        return QStringLiteral("whether x rises");
    QString found;
    for (int column = 0; column <= model.NumberOfChannels() && found.isEmpty(); ++column) {
        std::vector<double> wanted{0.0, double(column)};
        for (const Expected::Row &row : expected.rows)
            wanted.push_back(column == 0
                                 ? row.time
                                 : model.units()->scale(1.0) * row.values[std::size_t(column - 1)]);
        wanted.push_back(0.0);
        found = differenceOfColumn(model, column, wanted);
    }
    return found;
}

//! A random history of a model, and what it should hold.
class History
{
public:
    History(RVXMultichannelDeviceModel *model, int capacity)
        : m_model(model)
        , m_random(unsigned(capacity))
        , m_capacity(capacity)
    {
        model->SetUnits(&m_nA);
        model->setCapacity(capacity);
        expected.capacity = capacity;
    }

    //! Does something to the model, most often appends rows.
    void step()
    {
        switch (below(20)) {
        case 0:
            append(below(3 * m_capacity));
            break;
        case 1:
            m_model->Clear();
            expected.clear();
            break;
        case 2:
            expected.isDue = below(3) > 0;
            m_model->setPeriod(expected.isDue ? 0 : 1000000);
            break;
        case 3:
            expected.capacity = 1 + below(2 * m_capacity);
            m_model->setCapacity(expected.capacity);
            expected.keep(expected.capacity);
            break;
        case 4:
            expected.isShown = below(3) > 0;
            m_model->setAutoUpdate(expected.isShown);
            break;
        case 5:
            m_model->UpdateView();
            expected.visible = int(expected.rows.size());
            break;
        case 6:
            m_model->SetUnits(below(2) == 0 ? static_cast<const Units::MeasurementUnit *>(&m_mA)
                                            : &m_nA);
            break;
        case 7:
            append(1);
            break;
        default:
            append(below(1 + m_capacity / 3));
        }
    }

    Expected expected;

private:
    int below(int limit) { return int(m_random() % unsigned(limit)); }

    //! Appends rows whose times rise, repeat, go back, are missing or start over, with missing values.
    void append(int rows)
    {
        std::vector<double> times;
        std::vector<double> values;
        for (int i = 0; i < rows; ++i) {
            const double steps[] = {-m_now, -2.0, 0.0, 0.0};
            const int kind = below(60 + 4 * m_capacity); // seldom enough for full buffers
            m_now += kind < 4 ? steps[kind] : 0.1;
            times.push_back(kind == 5 ? gap : m_now);
            for (int c = 0; c < m_model->NumberOfChannels(); ++c)
                values.push_back(below(9) == 0 ? gap : 1e-9 * below(1000) / 7.0);
        }
        if (rows == 1)
            m_model->appendRow(times[0], values.data());
        else
            m_model->appendRows(times.data(), values.data(), rows);
        expected.append(times, values, m_model->NumberOfChannels());
    }

    RVXMultichannelDeviceModel *m_model;
    std::mt19937 m_random;
    int m_capacity;
    double m_now = 1.0;
    const Units::nA m_nA;
    const Units::mA m_mA;
};

} // namespace

class tst_RVXMultichannelDeviceModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anyHistory_data()
    {
        columns<int, int>("channels", "capacity");
        row("one channel, few rows", 1, 5);
        row("three channels", 3, 40);
        row("cached ranges", 2, 3000);
        row("no channel", 0, 7);
    }
    void anyHistory()
    {
        RVXMultichannelDeviceModel model(cell<int>("channels"));
        History history(&model, cell<int>("capacity"));
        RVXAveragingProxyModel averaging;
        RVXZeroingProxyModel top;
        averaging.setSourceModel(&model);
        top.setSourceModel(&averaging);
        averaging.setAveraging(3);
        ModelWatch watch(&model);
        ModelWatch watchOfTop(&top);
        RowAccount account(&model);
        TableMirror<RVXMultichannelDeviceModel> mirror(&model);
        TableMirror<RVXZeroingProxyModel> mirrorOfTop(&top);
        for (int step = 0; step < 120; ++step) {
            history.step();
            QCOMPARE(difference(model, history.expected), QString());
            QCOMPARE(mirror.error() + mirrorOfTop.error() + account.error(), QString());
        }
        QCOMPARE(watch.complaints() + watchOfTop.complaints(), QString());
    }

    void announcements_data()
    {
        columns<bool, int, QString, QString>("autoUpdate", "rows", "announced", "updated");
        row("one", true, 1, "insert 3-3?, insert 3-3!", "");
        row("a block", true, 2, "insert 3-4?, insert 3-4!", "");
        row("one displaced", true, 3, "remove 1-1?, remove 1-1!, insert 2-4?, insert 2-4!", "");
        row("all displaced", true, 9, "remove 1-2?, remove 1-2!, insert 1-4?, insert 1-4!", "");
        row("later", false, 2, "", "insert 3-4?, insert 3-4!");
        row("later, all displaced", false, 9, "remove 1-2?, remove 1-2!",
            "insert 1-4?, insert 1-4!");
        row("none", true, 0, "", "");
    }
    void announcements()
    {
        QFETCH(int, rows);
        RVXMultichannelDeviceModel model(1);
        model.setCapacity(4);
        model.appendRows({1, 2}, {10, 20});
        model.setAutoUpdate(cell<bool>("autoUpdate"));
        ModelLog log(&model);
        QVector<double> times;
        for (int i = 0; i < rows; ++i)
            times.append(3 + i);
        model.appendRows(times, times);
        QTEST(log.take(), "announced");
        model.UpdateView();
        QTEST(log.take(), "updated");
        QCOMPARE(model.rowCount() - 1, std::min(2 + rows, 4));
        // A change of the capacity is one reset.
        model.setCapacity(2);
        QCOMPARE(log.take(), "reset?, reset!");
        QCOMPARE(model.doubleData(2, 0), 2.0 + rows);
        QCOMPARE(model.MaxBufferSize(), 2);
    }

    void namesAndUnits()
    {
        const Units::nA nA;
        const Units::mm mm;
        RVXMultichannelDeviceModel model(3);
        model.SetUnits(&nA);
        model.setChannelName(2, "plate");
        ModelLog log(&model);
        model.setChannelName(3, "motor");
        QCOMPARE(log.take(), "header 3-3, changed (0,3)-(0,3)");
        model.setChannelUnit(3, &mm);
        QCOMPARE(log.take(), "reset?, reset!");
        model.appendRows({1.5}, {1.25e-9, gap, 0.002});
        const auto text = [&model](int row) {
            QStringList cells;
            for (int column = 0; column <= 3; ++column)
                cells << model.index(row, column).data().toString();
            return cells.join('|');
        };
        QCOMPARE(text(0), "Time (s)|1|plate|motor (mm)");
        QCOMPARE(text(1), "1.500e+00|" + nA.format(1.25e-9) + "||" + mm.format(0.002));
        QCOMPARE(model.index(1, 3).data(Qt::ToolTipRole).toString(), mm.formatSuffix(0.002));
        QCOMPARE(model.index(1, 2).data(Qt::ToolTipRole).toString(), "no reading");
        QCOMPARE(model.headerData(2, Qt::Horizontal).toString(), "plate");
        const auto unitOf = [&model](int column) {
            return model.index(0, column).data(RVXAbstractPlotDataModel::ChannelUnitRole);
        };
        QCOMPARE(unitOf(3).value<const Units::MeasurementUnit *>(), &mm);
        QVERIFY(!unitOf(1).isValid());
        QCOMPARE(rowsText(model), "1.5: 1.25 nan 2");
        // The texts that the library writes to files of merged channels are those of the cells.
        for (int column = 0; column <= 3; ++column) {
            QByteArray written;
            QVERIFY(LibraryBulkData::of(&model)->appendText(written, 1, column));
            QCOMPARE(QString(written), model.index(1, column).data().toString());
        }
        model.setChannelCount(2);
        QCOMPARE(text(0), "Time (s)|1|2|");
        QCOMPARE(model.rowCount(), 1);
    }

    //! What a device gives in nA is shown in nA without a rounding, and converted for any other unit.
    void givenUnitsAreExact()
    {
        const Units::nA nA;
        const Units::nA anotherNA;
        const Units::pA pA;
        struct Celsius : Units::MeasurementUnit
        {
            Celsius()
                : MeasurementUnit(1.0, "degC", 1.0)
            {
            }
            double scale(double value) const override { return value - 273.15; }
            double unscale(double value) const override { return value + 273.15; }
        };
        const Celsius celsius;
        RVXMultichannelDeviceModel model;
        model.setChannels(
            {{"a", nullptr, &nA}, {"b", nullptr, &anotherNA}, {"c", nullptr, &celsius}});
        model.SetUnits(&nA);
        model.appendRows({1.0}, {0.1, 0.1, 20.0});
        QVERIFY(sameBits(model.doubleData(1, 1), 0.1) && sameBits(model.doubleData(1, 2), 0.1));
        model.SetUnits(&pA);
        QVERIFY(qFuzzyCompare(model.doubleData(1, 1), 100.0));
        QCOMPARE(model.index(1, 2).data().toString(), pA.formatUnscaled(100.0));
        QCOMPARE(model.givenValue(1, 1), 0.1);
        QVERIFY(std::isnan(model.givenValue(2, 1)) && std::isnan(model.givenValue(1, 4)));
        model.SetUnits(&celsius);
        QCOMPARE(model.doubleData(1, 3), 20.0);
        RVXBulkPlotData::Spans spans;
        const RVXBulkPlotData *const bulk = RVXBulkPlotData::of(&model);
        QVERIFY2(!bulk->spans(1, 1, 1, spans), "who knows what a host's unit does");
        double read = 0.0;
        bulk->read(1, 1, 1, &read);
        QVERIFY(sameBits(read, model.doubleData(1, 1)));
        model.SetUnits(nullptr);
        QCOMPARE(model.doubleData(1, 3), 20.0);
    }

    void fitsOfTheNewestRow()
    {
        RVXMultichannelDeviceModel model(1);
        model.setCapacity(3);
        const auto fits = [&model](int row) {
            return model.index(row, 0).data(RVXAbstractPlotDataModel::DeviceFitRole).toList();
        };
        const double value = 5.0;
        const QVariantList one{12.3, 2.5, 4.0};
        QVariantList heard;
        connect(&model, &QAbstractItemModel::rowsInserted, this,
                [&] { heard = fits(model.rowCount() - 1); });
        model.appendRow(1.0, &value, one);
        QCOMPARE(heard, one);
        model.appendRow(1.0, &value, {1.0}); // a repetition
        QCOMPARE(fits(1), one);
        model.appendRow(2.0, &value);
        QVERIFY(fits(2).isEmpty());
        QCOMPARE(fits(1), one);
        // More rows than there is room for.
        const double times[] = {3, 4, 5, 6, 7};
        model.appendRows(times, times, 5, {7.0});
        QCOMPARE(fits(3), QVariantList{7.0});
        QVERIFY(fits(2).isEmpty());
        QVERIFY(!model.index(3, 1).data(RVXAbstractPlotDataModel::DeviceFitRole).isValid());
        model.Clear();
        model.appendRow(1.0, &value);
        QVERIFY(fits(1).isEmpty());
    }

    void savesWhatReadsBackTheSame()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("saved.csv");
        const Units::nA nA;
        RVXMultichannelDeviceModel model;
        model.setChannels({{}, {"left, \"x\"", nullptr, &nA}});
        model.appendRows({0.5, 12.25}, {1.0 / 3.0, gap, -1e-300, 0.1});
        QVERIFY(model.SaveDataToFile(path));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(QString(file.readAll()),
                 "timestamp(s),channel_1,\"left, \"\"x\"\"(nA)\"\n"
                 "0.500000000,0.3333333333333333,\n"
                 "12.250000000,-1e-300,0.1\n");
        QVERIFY(!model.SaveDataToFile(QString()));
        QVERIFY(!model.SaveDataToFile(dir.filePath("no/such/folder.csv")));
        if (hasFullDevice())
            QVERIFY(!model.SaveDataToFile("/dev/full"));
    }

    //! While somebody watches, rows may come and leave: the file has those that were there at first.
    void savingIsWatched()
    {
        constexpr int rows = 5000;
        QTemporaryDir dir;
        RVXMultichannelDeviceModel model(3);
        model.setCapacity(rows);
        const auto append = [&model](int first) {
            for (int i = first; i < first + rows; ++i)
                model.appendRows({0.001 * i}, {1.0 / (i + 1), i % 10 ? 1e-9 * i : gap, -0.1});
        };
        append(0);
        const QString plain = dir.filePath("plain.csv"), watched = dir.filePath("watched.csv");
        QVERIFY(model.SaveDataToFile(plain));
        QVector<double> shares;
        {
            const SaveProgress progress([&](double share) {
                shares << share;
                append(rows * shares.size());
                return true;
            });
            QVERIFY(model.SaveDataToFile(watched));
        }
        QVERIFY(shares.size() > 1 && std::is_sorted(shares.begin(), shares.end()));
        QVERIFY(shares.first() > 0.0 && shares.last() < 1.0);
        QCOMPARE(fileContents(watched), fileContents(plain));
        const SaveProgress canceling([](double) { return false; });
        QVERIFY(!model.SaveDataToFile(watched));
        QCOMPARE(fileContents(watched), fileContents(plain)); // the older file stays
        QVERIFY(!model.SaveDataToFile(dir.filePath("new.csv")));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files),
                 QStringList({"plain.csv", "watched.csv"}));
    }

    void refusals()
    {
        QTest::ignoreMessage(QtWarningMsg, "No more than 256 channels: 300 are too many");
        RVXMultichannelDeviceModel model(300);
        QCOMPARE(model.columnCount(), 257);
        model.setChannelCount(-1);
        QCOMPARE(model.columnCount(), 1);
        model.setChannelCount(2);
        QTest::ignoreMessage(QtWarningMsg, "3 values are not 2 rows of 2 channels");
        model.appendRows({1.0, 2.0}, {1.0, 2.0, 3.0});
        model.setCapacity(0);
        model.setChannelName(3, "no such channel");
        model.setChannelUnit(0, nullptr);
        QCOMPARE(model.capacity(), 100000);
        QCOMPARE(model.rowCount(), 1);
        QVERIFY(!model.index(1, 0).isValid() && !model.index(0, 3).isValid());
        QVERIFY(model.channel(3).name.isEmpty());
    }

    //! A worker that forgets the queued connection is told once, and loses nothing.
    void rowsFromAnotherThread()
    {
#ifndef QT_NO_DEBUG
        QSKIP("a debug build stops at the assertion");
#endif
        RVXMultichannelDeviceModel model(1);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^Rows come from another thread"));
        const std::unique_ptr<QThread> worker(QThread::create([&model] {
            for (double time : {1.0, 2.0, 2.0})
                model.appendRow(time, &time);
        }));
        worker->start();
        QVERIFY(worker->wait());
        QCOMPARE(model.rowCount(), 1);
        QCoreApplication::processEvents();
        QCOMPARE(rowsText(model), "1: 1; 2: 2");
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXMultichannelDeviceModel)
#include "tst_RVXMultichannelDeviceModel.moc"
