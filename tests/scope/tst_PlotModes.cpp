// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/ChannelMoves_p.h"
#include "corvale_qt/scope/ScopeContext_p.h"
#include "corvale_qt/scope/ScopeSurface_p.h"
#include "corvale_qt/scope/StripPlotMode_p.h"
#include "corvale_qt/scope/SweepPlotMode_p.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/support/TestMain.h"
#include "tests/support/TextTable.h"

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
        QObject::connect(&model,
                         &QAbstractItemModel::rowsInserted,
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

} // namespace

//! The plot modes alone, on a plot that no view owns.
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
        QFETCH(QString, now);
        const ChannelMoves moves = movesOfNames(old.split(' '), now.split(' '));
        QStringList places;
        for (int channel = 1; moves && channel <= old.split(' ').size(); ++channel)
            places << QString::number(moves(channel));
        QTEST(moves ? places.join(' ') : QString("same"), "places");
    }
};

CORVALE_QT_TEST_MAIN(tst_PlotModes)
#include "tst_PlotModes.moc"
