// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/BlockRanges_p.h"
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/proxies/RVXComputedChannelsProxyModel.h"
#include "tests/proxies/Averages.h"
#include "tests/proxies/Merged.h"

#include <cmath>
#include <cstring>

using namespace Corvale_Qt;

namespace {

const QVector<ComputedChannel> usual = {{"asym", "", "(ch1 - ch2) / total"},
                                        {"total", "nA", "ch1 + ch2"}};

//! Returns what an expression over the channels A, B, "left plate" and d gives, or what is wrong with it.
QString computedText(const QString &expression, const QVector<double> &readings)
{
    QStringList names{"A", "B", "left plate", "d"};
    ChannelExpressions expressions;
    ExpressionFault fault;
    if (!expressions.compile(names, {{"x", "", expression}}, &fault))
        return fault.message();
    const double *const first = readings.constData();
    const double *inputs[4] = {first, first + 1, first + 2, first + 3};
    double result = 0.0;
    double *const output = &result;
    expressions.evaluate(inputs, 1, &output);
    return QString::number(result);
}

//! Returns what the first computed column (k = 0), an asymmetry, or the second, a sum, has in a row.
double computedByHand(const RVXComputedChannelsProxyModel &proxy, int row, int k)
{
    if (row < 1 || row >= proxy.rowCount())
        return row == 0 ? proxy.columnCount() - 2 + k : 0.0;
    const double a = proxy.doubleData(row, 1);
    const double b = proxy.doubleData(row, 2);
    return k == 0 ? (a - b) / (a + b) : a + b;
}

//! Returns whether the range that is kept of rows in memory is that of their numbers.
bool hasKeptRange(const RingSpans &spans)
{
    NumberRange byHand{qInf(), -qInf(), true};
    for (int i = 0; i < spans.count(); ++i) {
        const double value = spans.value(i);
        byHand.allFinite = byHand.allFinite && std::isfinite(value);
        byHand.least = std::isfinite(value) ? std::min(byHand.least, value) : byHand.least;
        byHand.greatest = std::isfinite(value) ? std::max(byHand.greatest, value) : byHand.greatest;
    }
    const NumberRange kept = storedRange(spans, 0, spans.count());
    return spans.count() == 0
        || (kept.least == byHand.least && kept.greatest == byHand.greatest
            && kept.allFinite == byHand.allFinite);
}

//! Returns where the computed columns differ from what is computed by hand, by cell, by the chunk or in memory.
QString differenceOf(const RVXComputedChannelsProxyModel &proxy)
{
    const RVXBulkPlotData *const bulk = RVXBulkPlotData::of(&proxy);
    const int rows = proxy.rowCount() - 1;
    const int first = proxy.columnCount() - 2;
    std::vector<double> chunk(size_t(rows) + 3);
    const double *const read = &chunk[1];
    for (int k = 0; k < 2; ++k) {
        bulk->read(first + k, -1, rows + 3, chunk.data());
        RingSpans spans;
        const bool isInMemory = PlotDataReader(&proxy).spans(first + k, 1, rows, spans);
        if (isInMemory && !hasKeptRange(spans))
            return QString("the range of channel %1").arg(k);
        for (int row = -1; row <= rows + 1; ++row) {
            const double wanted = computedByHand(proxy, row, k);
            const double inMemory =
                isInMemory && row >= 1 && row <= rows ? spans.value(row - 1) : wanted;
            for (double found : {proxy.doubleData(row, first + k), read[row], inMemory}) {
                if (!same(found, wanted))
                    return QString("row %1, channel %2: %3, not %4")
                        .arg(row)
                        .arg(k)
                        .arg(found)
                        .arg(wanted);
            }
        }
    }
    return QString();
}

} // namespace

class tst_ComputedChannels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (!ChannelExpressions::isAvailable())
            QSKIP("The library was built without muparser.");
    }

    void expressions_data()
    {
        // A = 3, B = 2, left plate = 10, d = NaN
        tableFrom(R"(
            | expression | result
            difference over sum            | (A - B) / (A + B) | 0.2
            a name in brackets             | [left plate] * 2e-1 | 2
            a range of channels            | sum(A .. [left plate]) | 15
            a range of one                 | avg(B..B) | 2
            a condition                    | A > B ? 1 : 2 | 1
            a missing reading              | A + d | nan
            a number with an exponent      | 1.5E+3 + .5 | 1500.5
            nothing                        |  | character 1: there is no expression
            an unknown channel             | A + foo | character 5: no channel is called "foo"
            an unknown channel in brackets | 2 * [foo bar] | character 5: no channel is called "foo bar"
            an open bracket                | A + [left
                | character 5: a name of a channel is missing, or its bracket is not closed
            an unknown function            | A + foo(B) | character 5: there is no function "foo"
            an open parenthesis            | 2 * (A + B | character 11: a parenthesis is not closed
            an operator too many           | A + * B | character 5: a value is missing before this operator
            an operator too few            | A [left plate] | character 3: an operator is missing before this
            the end is missing             | A + | character 4: the expression ends too early
            too many arguments             | sqrt(A, B) | character 10: the function has too many arguments
            an assignment                  | A = 2 | character 3: "=" means nothing here
            a range backwards              | sum(B .. A)
                | character 10: a range of channels ends with a later channel that is not computed
            itself                         | x + 1 | "x" is computed from itself
        )");
        QTest::newRow("a text") << "A + \"x\""
                                << "character 5: \"\"\" means nothing here";
    }
    void expressions()
    {
        const QString found = computedText(cell("expression"), {3.0, 2.0, 10.0, std::nan("")});
        QVERIFY2(found.startsWith(cell("result")), qPrintable(found));
    }

    void textsOfChannels()
    {
        const auto text = [](const char *line) {
            const auto found = ComputedChannel::fromText(line);
            return found ? found->name + '|' + found->unit + '|' + found->expression : QString("-");
        };
        QCOMPARE(text("sum [nA] = A + B"), QString("sum|nA|A + B"));
        QCOMPARE(text("ratio=A == B"), QString("ratio||A == B"));
        QCOMPARE(text("[nA] = A"), QString("-"));
        QCOMPARE(text("A + B"), QString("-"));
    }

    void setsOfChannels()
    {
        ChannelExpressions expressions;
        ExpressionFault fault;
        const auto refuses = [&](const QVector<ComputedChannel> &channels) {
            const bool isGood = expressions.compile({"A", "B"}, channels, &fault);
            return isGood ? QString() : QString("%1: %2").arg(fault.channel).arg(fault.text);
        };
        QCOMPARE(refuses({{"a", "", "b + 1"}, {"b", "", "c"}, {"c", "", "A"}}), QString());
        QCOMPARE(refuses({{"a", "", "b"}, {"b", "", "c"}, {"c", "", "a"}}),
                 QString("0: \"a\" is computed from itself"));
        QCOMPARE(refuses({{"a", "", "A"}, {"A", "", "B"}}),
                 QString("1: there is already a channel called \"A\""));
        QCOMPARE(refuses({{"", "", "A"}}), QString("0: the computed channel has no name"));
        QCOMPARE(expressions.count(), 0);
    }

    void fitsFindTheBeam()
    {
        // A Gaussian at 5.3 of sigma 1.4 and area 20, over ten channels.
        QStringList names;
        std::vector<double> readings;
        for (int i = 1; i <= 10; ++i) {
            names << QString("s%1").arg(i);
            const double offset = (i - 5.3) / 1.4;
            readings.push_back(20.0 / (1.4 * std::sqrt(2.0 * M_PI))
                               * std::exp(-0.5 * offset * offset));
        }
        ChannelExpressions expressions;
        ExpressionFault fault;
        QVERIFY(expressions.compile(names,
                                    {{"p", "", "fit_position(s1 .. s10)"},
                                     {"s", "", "fit_sigma(s1 .. s10)"},
                                     {"i", "", "fit_integral(s1 .. s10)"}},
                                    &fault));
        std::vector<const double *> inputs;
        inputs.reserve(size_t(readings.size()));
        for (const double &reading : readings)
            inputs.push_back(&reading);
        double results[3];
        double *const outputs[] = {&results[0], &results[1], &results[2]};
        expressions.evaluate(inputs.data(), 1, outputs);
        QVERIFY(std::abs(results[0] - 5.3) < 1e-6);
        QVERIFY(std::abs(results[1] - 1.4) < 1e-6);
        QVERIFY(std::abs(results[2] - 20.0) < 1e-4);
        for (double &reading : readings)
            reading = 0.0;
        expressions.evaluate(inputs.data(), 1, outputs);
        QVERIFY(std::isnan(results[0]) && std::isnan(results[1]) && std::isnan(results[2]));
    }

    void anyHistoryOfTheSource()
    {
        RVXMultichannelDeviceModel source(2);
        source.setCapacity(700);
        source.setChannels({{"ch1", nullptr, nullptr}, {"ch2", nullptr, nullptr}});
        RVXComputedChannelsProxyModel proxy;
        proxy.setSourceModel(&source);
        ExpressionFault fault;
        QVERIFY2(proxy.setComputedChannels(usual, &fault), qPrintable(fault.message()));
        ModelWatch watch(&proxy);
        TableMirror<RVXComputedChannelsProxyModel> mirror(&proxy);
        std::mt19937 random(5);
        double now = 1.0;
        for (int step = 0; step < 30; ++step) {
            QVector<double> times;
            QVector<double> values;
            for (int i = int(random() % 400); i > 0; --i) {
                times << (now += 0.1);
                values << double(random() % 100)
                       << (random() % 9 == 0 ? std::nan("") : 1.0 + double(random() % 50));
            }
            source.appendRows(times, values);
            if (random() % 20 == 0)
                source.Clear();
            if (random() % 20 == 0)
                source.setCapacity(500 + int(random() % 400));
            QCOMPARE(differenceOf(proxy), QString());
            QCOMPARE(mirror.error(), QString());
        }
        QCOMPARE(watch.complaints(), QString());
    }

    void changesInAHostsModel()
    {
        BufferModel source(2, 2000);
        RVXComputedChannelsProxyModel proxy;
        proxy.setSourceModel(&source);
        QVERIFY(proxy.setComputedChannels(usual));
        for (int i = 1; i <= 600; ++i) // enough that ranges of blocks are kept
            source.append(i, i);
        const ModelWatch watch(&proxy);
        ModelLog log(&proxy);
        QCOMPARE(differenceOf(proxy), QString());
        source.change(4, 2, 100.0);
        QVERIFY2(log.take().contains("changed (4,3)-(4,4)"), "computed cells are announced");
        QCOMPARE(differenceOf(proxy), QString());
        for (const char *change : {"remove 3 5", "insert 2 1.5 7", "move 1", "drop 2", "reverse"}) {
            source.act(change);
            QCOMPARE(differenceOf(proxy), QString());
        }
    }

    /*! A listener that hears of removed rows before the proxy gives it other channels, or changes the source once more. Then, and
        as listeners follow it, the proxy has the rows that there are. */
    void listenersOvertakeTheProxy()
    {
        for (const char *act :
             {"", "drop 1", "remove 2 3", "change 2 1 50", "reverse", "append 9 90"}) {
            BufferModel source(2, 8);
            for (int i = 1; i <= 8; ++i)
                source.append(i, i * i);
            RVXComputedChannelsProxyModel proxy, above;
            auto once = std::make_shared<QMetaObject::Connection>();
            *once = connect(&source, &QAbstractItemModel::rowsRemoved, &proxy, [&] {
                QObject::disconnect(*once);
                if (*act)
                    source.act(act);
                else
                    proxy.setComputedChannels(usual);
            });
            proxy.setSourceModel(&source);
            above.setSourceModel(&proxy);
            QVERIFY(proxy.setComputedChannels(usual)
                    && above.setComputedChannels(
                        {{"again", "", "(ch1 - ch2) / total"}, {"sum", "", "ch1 + ch2"}}));
            const TableMirror<RVXComputedChannelsProxyModel> mirror(&proxy);
            source.dropOldest(2);
            QCOMPARE(differenceOf(proxy), QString());
            QCOMPARE(differenceOf(above), QString());
            QCOMPARE(mirror.error(), QString());
        }
    }

    //! The columns of merged models drop rows one after the other: what is computed of them is not kept.
    void readingsThatAreNotKept()
    {
        Merged merged(1, 2, 700);
        RVXComputedChannelsProxyModel proxy;
        proxy.setSourceModel(&merged.proxy);
        QVERIFY(proxy.setComputedChannels(usual));
        for (int i = 1; i <= 600; ++i) {
            merged.one.append(i, i * i % 101);
            merged.two.append(i, i % 37 + 1);
        }
        QCOMPARE(differenceOf(proxy), QString());
    }

    void channelsLikeAnyOther()
    {
        RVXMultichannelDeviceModel source(2);
        source.setChannels({{"ch1", nullptr, nullptr}, {"ch2", nullptr, nullptr}});
        source.appendRows({1.0}, {3.0, 1.0});
        RVXComputedChannelsProxyModel proxy;
        proxy.setSourceModel(&source);
        QVERIFY(proxy.setComputedChannels(usual));
        RVXLatestPlotDataProxyModel table;
        table.setSourceModel(&proxy);
        QCOMPARE(proxy.headerData(4, Qt::Horizontal).toString(), QString("total (nA)"));
        QCOMPARE(proxy.index(1, 3).data().toString(), QString("0.5"));
        QCOMPARE(proxy.index(1, 4).data(Qt::ToolTipRole).toString(), QString("4.0000 nA"));
        QVERIFY(proxy.setData(proxy.index(0, 3), Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(proxy.index(0, 3).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        QCOMPARE(proxy.index(0, 4).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        QCOMPARE(table.rowCount(), 4);

        // A missing channel is reported, and what is computed of it has no readings until it is back.
        source.setChannelName(2, "other");
        QCOMPARE(proxy.fault().message(), QString("character 8: no channel is called \"ch2\""));
        QVERIFY(std::isnan(proxy.doubleData(1, 3)) && !proxy.index(1, 3).data().isValid());
        source.setChannelName(2, "ch2");
        QVERIFY(proxy.fault().isEmpty());
        QCOMPARE(proxy.doubleData(1, 3), 0.5);
        ExpressionFault fault;
        QVERIFY(!proxy.setComputedChannels({{"x", "", "ch3"}}, &fault));
        QCOMPARE(proxy.columnCount(), 5);
    }
};

CORVALE_QT_TEST_MAIN(tst_ComputedChannels)
#include "tst_ComputedChannels.moc"
