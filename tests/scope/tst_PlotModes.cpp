// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/LibraryBulkData_p.h"
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/scope/ChannelMoves_p.h"
#include "corvale_qt/scope/ScopeContext_p.h"
#include "corvale_qt/scope/ScopeSurface_p.h"
#include "corvale_qt/scope/StripPlotMode_p.h"
#include "corvale_qt/scope/StripWindow_p.h"
#include "corvale_qt/scope/SweepPlotMode_p.h"
#include "corvale_qt/scope/ViewHold_p.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/support/TestMain.h"

#include <qwt_plot.h>

using namespace Corvale_Qt;

namespace {

//! A plot without a view. It does what a mode asks for at once and counts the plots that are asked for.
class Bench : public ScopeSurface
{
public:
    explicit Bench(ScopeTestModel &model)
        : context(&plot, *this)
    {
        plot.setAutoDelete(false);
        context.statistics.insertInto(&layout);
        context.model.set(&model);
        context.createCurves();
        context.restart();
        QObject::connect(&model, &QAbstractItemModel::rowsInserted,
                         [this](const QModelIndex &, int first, int last) {
                             context.rowsInserted(first, last);
                         });
    }

    void showOnly(QWidget *widget) override { shown = widget; }
    void showScrollBar(bool isShown) override { hasScrollBar = isShown; }
    QScrollBar *scrollBar() const override { return &bar; }
    void requestReplot() override { ++replots; }
    void selectCell(int row, int column) override { selected << QPoint(column, row); }

    QString xText() const
    {
        const QwtInterval x = plot.axisInterval(QwtPlot::xBottom);
        return QStringLiteral("%1..%2").arg(x.minValue()).arg(x.maxValue());
    }
    int curves() const { return plot.itemList(QwtPlotItem::Rtti_PlotCurve).size(); }

    QWidget window;
    QWidget viewport{&window};
    QVBoxLayout layout{&viewport};
    QwtPlot plot;
    mutable QScrollBar bar;
    QWidget *shown = nullptr;
    bool hasScrollBar = false;
    int replots = 0;
    QVector<QPoint> selected; //!< channel and row
    ScopeContext context;
};

double rising(int channel, double time)
{
    return channel * time;
}

//! Finds the rows of a window by the definition, reading all rows.
RowRange literalRows(const RVXAbstractPlotDataModel &model, int lastRow, double left, double right)
{
    RowRange found{1, lastRow};
    for (int row = 1; row <= lastRow; ++row) {
        if (model.doubleData(row, 0) < left)
            found.first = row;
    }
    for (int row = lastRow; row > found.first; --row) {
        if (model.doubleData(row, 0) > right)
            found.last = row;
    }
    return found;
}

int literalFirstFrom(const RVXAbstractPlotDataModel &model, int lastRow, double x)
{
    for (int row = 1; row <= lastRow; ++row) {
        if (model.doubleData(row, 0) >= x)
            return row;
    }
    return -1;
}

QString text(RowRange rows)
{
    return QStringLiteral("%1-%2").arg(rows.first).arg(rows.last);
}

} // namespace

//! The modes of the plot without a view, and the rows and times that the strip chart shows.
class tst_PlotModes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stripFollowsOrStays()
    {
        ScopeTestModel model(2);
        model.pointsHint = 100;
        Bench bench(model);
        StripPlotMode mode(bench.context);
        mode.enter();
        QCOMPARE(bench.shown, &bench.plot);
        QVERIFY(bench.hasScrollBar);
        mode.plot();
        QCOMPARE(bench.curves(), 0);
        QVERIFY(!bench.hasScrollBar);

        model.appendRows(400, 1.0, rising);
        mode.plot();
        QCOMPARE(bench.curves(), 2);
        QCOMPARE(bench.xText(), QString("300..399"));
        QVERIFY(bench.hasScrollBar);
        bench.bar.setValue(0);
        model.appendRows(100, 1.0, rising);
        mode.plot();
        QVERIFY2(bench.xText().startsWith("0.."), qPrintable(bench.xText()));
    }

    void stripSelectsTheSampleOfAMarker()
    {
        ScopeTestModel model(2);
        model.appendRows(100, 1.0, rising);
        Bench bench(model);
        StripPlotMode mode(bench.context);
        mode.enter();
        bench.context.markers.place(0, QPointF(49.5, 90.0));
        mode.plot();
        QCOMPARE(bench.selected, QVector<QPoint>{QPoint(2, 51)}); // time 50 is in row 51
        mode.moveMarker(0, -10);
        mode.plot();
        QCOMPARE(bench.selected.value(1), QPoint(2, 41));
    }

    void sweepAsksForTheNextOne()
    {
        ScopeTestModel model(1);
        model.pointsHint = 100;
        Bench bench(model);
        SweepPlotMode mode(bench.context);
        mode.enter();
        model.appendRows(250, 1.0, rising);
        mode.plot();
        QCOMPARE(bench.xText(), QString("0..99"));
        QCOMPARE(bench.replots, 1); // another sweep is complete
        mode.plot();
        QCOMPARE(bench.xText(), QString("100..199"));
        QCOMPARE(bench.replots, 1);
        // The copy stays on the plot after its rows have left the model.
        model.remove(1, 200);
        bench.context.rowsRemoved(1, 200);
        bench.context.refreshAsked = true;
        mode.plot();
        QCOMPARE(bench.xText(), QString("100..199"));
        QCOMPARE(bench.curves(), 1);
    }

    //! Settings of a channel go where the channel of that name goes, and never to a place that another channel has taken.
    void channelsFollowTheirNames_data()
    {
        tableFrom("| old | now | places\n"
                  "the same | a b | a b | same\n"
                  "two of a name behind another | a a b | b a a | 2 3 1\n"
                  "one of two has gone | a a b | a b | 1 0 2\n"
                  "a third one of the name | a b a | a a a b | 1 4 2\n"
                  "renamed | a b | a c | same\n"
                  "renamed to a name that there is | a b | a a | same\n"
                  "all of one name, and one less | a a a | a a | same");
    }
    void channelsFollowTheirNames()
    {
        QFETCH(QString, old);
        const ChannelMoves moves = movesOfNames(old.split(' '), cell("now").split(' '));
        QStringList places;
        for (int channel = 1; moves && channel <= old.split(' ').size(); ++channel)
            places << QString::number(moves(channel));
        QTEST(moves ? places.join(' ') : QString("same"), "places");
    }

    void window_data()
    {
        // Samples half a second apart, the first at 0; the chart shows 20, or a width that is given. A scroll value of -1
        // follows, -2 also begins at the first sample.
        columns<int, double, int, QString>("samples", "width", "scrollValue", "shown");
        row("begins at the first, wider than the buffer", 10, 30.0, -2, "1-10 from 0 to 4.5");
        row("begins at the first, not filled yet", 10, 0.0, -2, "1-10 from 0 to 4.5");
        row("begins at the first, which is gone", 100, 5.0, -2, "89-100 from 44.5 to 49.5");
        row("follows, buffer longer than the chart", 100, 0.0, -1, "80-100 from 40 to 49.5");
        row("follows, buffer as long as the chart", 20, 0.0, -1, "1-20 from 0 to 9.5");
        row("follows, chart not filled yet", 10, 0.0, -1, "1-10 from -4.5 to 4.5");
        row("follows, width given", 100, 5.0, -1, "89-100 from 44.5 to 49.5");
        row("follows, wider than the buffer", 10, 30.0, -1, "1-10 from -25.5 to 4.5");
        row("a negative width is none", 100, -5.0, -1, "80-100 from 40 to 49.5");
        row("scrolled back", 100, 0.0, 1000000, "20-41 from 10 to 19.9");
        row("scrolled to the start", 100, 0.0, 0, "1-21 from 0 to 9.9");
        row("scrolled back, width given", 100, 5.0, 1000000, "20-32 from 10 to 15");
    }
    void window()
    {
        QFETCH(int, samples);
        QFETCH(int, scrollValue);
        QFETCH(double, width);
        ScopeTestModel model(1);
        model.appendRows(samples, 0.5, [](int, double) { return 0.0; });
        StripRequest request;
        request.samples = samples;
        request.sweepLength = 20;
        request.width = width;
        request.following = scrollValue < 0;
        request.beginsAtFirst = scrollValue == -2;
        request.scrollValue = scrollValue;
        const StripWindow window = stripWindow(PlotDataReader(&model), request);
        QTEST(text(window.rows) + QString(" from %1 to %2").arg(window.left).arg(window.right),
              "shown");
    }

    void reachesAnEnd_data()
    {
        columns<double, double, bool, QString>("width", "end", "following", "shown");
        const double open = std::numeric_limits<double>::quiet_NaN();
        row("no end", 5.0, open, true, "89-100 from 44.5 to 49.5");
        row("an end in the past", 5.0, 20.0, true, "89-100 from 44.5 to 49.5");
        row("an end to come", 5.0, 52.0, true, "94-100 from 47 to 52");
        row("long after the last sample", 5.0, 80.0, true, "100-100 from 75 to 80");
        row("an end that has no seconds in a double", 5.0, 1e17, true, "89-100 from 44.5 to 49.5");
        row("a number of samples has no end", 0.0, 80.0, true, "80-100 from 40 to 49.5");
        row("scrolled back", 5.0, 80.0, false, "20-32 from 10 to 15");
    }
    //! 100 samples half a second apart, the first at 0.
    void reachesAnEnd()
    {
        QFETCH(double, width);
        QFETCH(double, end);
        QFETCH(bool, following);
        ScopeTestModel model(1);
        model.appendRows(100, 0.5, [](int, double) { return 0.0; });
        StripRequest request;
        request.samples = 100;
        request.sweepLength = 20;
        request.width = width;
        request.end = end;
        request.following = following;
        request.scrollValue = 1000000;
        const StripWindow window = stripWindow(PlotDataReader(&model), request);
        QTEST(text(window.rows) + QString(" from %1 to %2").arg(window.left).arg(window.right),
              "shown");
    }

    void rowsAreThoseOfTheDefinition_data()
    {
        columns<int, QString>("samples", "stamps");
        for (const char *stamps : {"rising", "disordered", "equal", "with NaN"}) {
            for (int samples : {2, 1024, 1025, 3000})
                QTest::addRow("%d %s", samples, stamps) << samples << QString(stamps);
        }
    }

    void rowsAreThoseOfTheDefinition()
    {
        QFETCH(int, samples);
        QFETCH(QString, stamps);
        std::mt19937 random(5);
        const auto number = [&random](int below) { return int(random() % unsigned(below)); };
        // The library's model is read in bulk, the host's cell by cell.
        RVXSingleChannelDataModel bulk;
        bulk.setAutoUpdate(false);
        ScopeTestModel cells(1);
        QVector<ScopeTestModel::Row> rows;
        double last = 1.0;
        for (int i = 0; i < samples; ++i) {
            double x = i + 1.0;
            if (stamps == "disordered")
                x = 1.0 + number(samples);
            else if (stamps == "equal")
                x = 1.0 + double(i - i % 10);
            else if (stamps == "with NaN" && number(7) == 0)
                x = qQNaN();
            if (x == last && stamps == "disordered")
                x += 0.5; // the model drops a stamp that repeats
            last = x;
            rows.append({x, 0.0});
            if (stamps != "equal")
                bulk.AddData(x, 0.0);
        }
        bulk.UpdateView();
        cells.append(rows);

        for (int i = 0; i < 200; ++i) {
            const double left = number(samples + 4) - 1.0;
            const double right = left + number(samples);
            const RowRange expected = literalRows(cells, samples, left, right);
            QCOMPARE(text(rowsAround(PlotDataReader(&cells), {1, samples}, left, right)),
                     text(expected));
            const int from = literalFirstFrom(cells, samples, left);
            QCOMPARE(firstRowFrom(PlotDataReader(&cells), {1, samples}, left), from);
            if (stamps == "equal")
                continue;
            QCOMPARE(text(rowsAround(PlotDataReader(&bulk), {1, samples}, left, right)),
                     text(expected));
            QCOMPARE(firstRowFrom(PlotDataReader(&bulk), {1, samples}, left), from);
        }
    }

    //! The number of cells read must not grow with the buffer.
    void costsWhatIsVisible()
    {
        class CountingModel : public ScopeTestModel
        {
        public:
            using ScopeTestModel::ScopeTestModel;
            double doubleData(int row, int column) const override
            {
                ++reads;
                return ScopeTestModel::doubleData(row, column);
            }
            mutable int reads = 0;
        };
        CountingModel model(1);
        model.appendRows(100000, 1.0, [](int, double) { return 0.0; });

        StripRequest request;
        request.samples = 100000;
        const StripWindow window = stripWindow(PlotDataReader(&model), request);
        QCOMPARE(text(window.rows), QString("99744-100000"));
        QVERIFY2(model.reads < 3000, qPrintable(QString::number(model.reads)));
    }

    void scrollBar()
    {
        StripWindow window;
        window.oldest = 10.0;
        window.newest = window.right = 60.0;
        window.left = 50.0;
        for (const bool following : {true, false}) {
            StripRequest request;
            request.sweepLength = 20;
            request.following = following;
            request.scrollValue = 123456;
            const StripScrollBar bar = stripScrollBar(window, request);
            QCOMPARE(bar.maximum, 4000000);
            QCOMPARE(bar.pageStep, 1000000);
            QCOMPARE(bar.singleStep, 50000);
            QCOMPARE(bar.value, following ? bar.maximum : 123456);
        }
    }

    //! 100000 samples one second apart last more than a day: too long for an int that counts 10 microseconds.
    void daysOfSamplesKeepTheWindow()
    {
        ScopeTestModel model(1);
        model.appendRows(100000, 1.0, [](int, double) { return 0.0; });
        const PlotDataReader reader(&model);

        StripRequest request;
        request.samples = 100000;
        const StripScrollBar followed = stripScrollBar(stripWindow(reader, request), request);
        QVERIFY(followed.maximum > 0);
        QCOMPARE(followed.maximum / followed.units, 99999.0 - 255.0);

        request.following = false;
        request.scrollUnits = followed.units;
        request.scrollValue = followed.maximum / 2;
        const StripWindow middle = stripWindow(reader, request);
        QVERIFY(qAbs(middle.left - (99999.0 - 255.0) / 2) < 1e-3);
        QCOMPARE(stripScrollBar(middle, request).value, request.scrollValue);

        // In a buffer ten times as long the steps become coarser, but the window stays in place.
        StripWindow longer = middle;
        longer.newest = 1e6;
        const StripScrollBar coarser = stripScrollBar(longer, request);
        QVERIFY(coarser.units < followed.units);
        QVERIFY(qAbs(coarser.value / coarser.units - middle.left) <= 1.0 / coarser.units);
    }

    void howFarAPictureGoes()
    {
        const auto reached = [](double left, double right) {
            const QwtInterval x =
                reachable(QwtInterval(left, right), QwtInterval(0, 100), QwtInterval(0, 10));
            return QString("%1..%2").arg(x.minValue()).arg(x.maxValue());
        };
        QCOMPARE(reached(-1000, 1100), QString("-50..150")); // twice the samples, about its middle
        QCOMPARE(reached(500, 600), QString("95..195")); // a twentieth of it beside samples
        QCOMPARE(reached(-500, -400), QString("-95..5"));
        // What a double cannot divide into pixels is widened.
        QVERIFY(qAbs(divisible(QwtInterval(1e9, 1e9 + 1e-6)).width() - 1e-3) < 1e-6);
    }

    void stampsThatAreNoNumbers()
    {
        for (const double odd : {qQNaN(), qInf(), -qInf(), 1e308}) {
            ScopeTestModel model(1);
            model.append({{odd, 0.0}, {0.0, 1.0}, {-odd, 2.0}});
            StripRequest request;
            request.samples = 3;
            const StripWindow window = stripWindow(PlotDataReader(&model), request);
            QVERIFY(window.rows.first >= 1 && window.rows.last <= 3);
            const StripScrollBar bar = stripScrollBar(window, request);
            QVERIFY(bar.maximum >= 0 && bar.pageStep >= 0 && bar.singleStep >= 1);
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_PlotModes)
#include "tst_PlotModes.moc"
