// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"
#include "corvale_qt/units/Units.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

using View = RVXScopePlotView;

constexpr int channels = 24;

//! Returns the bars of a Gaussian beam; its centre is in channels, counted from 1.
QVector<double> beam(double centre, double sigma = 2.5, double height = 10.0)
{
    QVector<double> bars;
    for (int channel = 1; channel <= channels; ++channel) {
        const double distance = (channel - centre) / sigma;
        bars << height * std::exp(-0.5 * distance * distance);
    }
    return bars;
}

//! A view without a window that fits two types, and the readings that it shows.
struct HeadlessView
{
    HeadlessView()
    {
        view.setModel(&model);
        view.enableHistogramItem(View::RegressionItem, 1, {0.1, 10, 0.01, 0.1, 2, 5}, true);
        view.enableHistogramItem(View::CenterOfGravityItem, 2, {0, 0.0}, false);
    }
    const RVX_StatisticsHistogramItem &fit() const
    {
        return *view.histogramItems(View::RegressionItem).first();
    }
    //! Returns the row, the time and the position of the fit, or its status.
    QString fitText() const
    {
        return fit().status() == FitStatus::Ok ? QString("%1 at %2: %3")
                                                     .arg(fit().row())
                                                     .arg(fit().time())
                                                     .arg(fit().position(), 0, 'f', 3)
                                               : fit().statusMessage();
    }

    ScopeTestModel model{channels};
    RVXScopePlotView view;
};

//! Returns the signals that came as "type row time", one a line, and forgets them.
QString taken(QSignalSpy &spy)
{
    QStringList texts;
    for (const auto &signal : qAsConst(spy)) {
        texts << QString("%1 %2 %3")
                     .arg(signal[0].value<View::HistogramItemTypes>())
                     .arg(signal[1].toInt())
                     .arg(signal[2].toDouble());
    }
    spy.clear();
    return texts.join(", ");
}

QString markerText(const ScopeMarkerStatistics &m)
{
    const auto one = [](const ScopeMarkerStatistics::Marker &marker) {
        return marker.isSet ? QString("%1/%2 %3=%4")
                                  .arg(marker.row)
                                  .arg(marker.channel)
                                  .arg(marker.time)
                                  .arg(marker.reading)
                            : QString("-");
    };
    QString text = one(m.first) + " | " + one(m.second);
    if (m.hasSpan()) {
        text += QString(" | T %1 f %2 d %3 n %4 missing %5 sum %6 mean %7 rms %8 sd %9")
                    .arg(m.period)
                    .arg(m.frequency)
                    .arg(m.difference)
                    .arg(m.count)
                    .arg(m.missing)
                    .arg(m.sum)
                    .arg(m.mean)
                    .arg(m.rms, 0, 'g', 4)
                    .arg(m.standardDeviation, 0, 'g', 4);
    }
    return text;
}

} // namespace

//! The numbers that hosts read from a view: they do not depend on whether, and where, they are shown.
class tst_ScopeResults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsComputedWithoutASample()
    {
        HeadlessView v;
        const auto state = [&] {
            return QString("%1 %2 %3 %4")
                .arg(int(v.fit().status()))
                .arg(v.fit().row())
                .arg(v.fit().firstChannel())
                .arg(v.fit().time());
        };
        QCOMPARE(v.fitText(), QString("Not computed."));
        QCOMPARE(state(), QString("-9 0 0 nan"));
        v.model.show(beam(8));
        QCOMPARE(v.fitText(), QString("1 at 0: 8.000"));
        v.model.Clear();
        QCOMPARE(state(), QString("-9 0 0 nan"));
        v.model.show(beam(9));
        QCOMPARE(v.fitText(), QString("1 at 1: 9.000"));
        v.view.setModel(nullptr);
        QCOMPARE(state(), QString("-9 0 0 nan"));
        {
            ScopeTestModel other(channels);
            other.show(beam(5));
            v.view.setModel(&other);
            QCOMPARE(v.fitText(), QString("1 at 0: 5.000"));
        }
        QCOMPARE(state(), QString("-9 0 0 nan")); // that model is gone
    }

    void fitOfAGaussian_data()
    {
        columns<double, double, double>("centre", "sigma", "height");
        QTest::newRow("in the middle") << 12.5 << 2.5 << 10.0;
        QTest::newRow("between two channels") << 8.37 << 1.6 << 3.0;
        QTest::newRow("wide and low") << 13.0 << 4.0 << 0.2;
    }
    //! The logarithm of a Gaussian is a parabola, so the fit returns the numbers that the bars were made of.
    void fitOfAGaussian()
    {
        QFETCH(double, centre);
        QFETCH(double, sigma);
        QFETCH(double, height);
        HeadlessView v;
        v.model.show(beam(centre, sigma, height));
        const RVX_StatisticsHistogramItem &fit = v.fit();
        QCOMPARE(fit.status(), FitStatus::Ok);
        QVERIFY(std::abs(fit.position() - centre) < 1e-3);
        QVERIFY(std::abs(double(fit.fit().sigma) - sigma) < 1e-3 * sigma);
        QVERIFY(std::abs(double(fit.fit().peakHeight) - height) < 1e-3 * height);
        const double area = height * sigma * std::sqrt(2.0 * M_PI);
        QVERIFY(std::abs(double(fit.fit().amplitude) - area) < 1e-3 * area);
    }

    void fitsFollowTheNewestSample_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("strip chart") << int(View::StripMode);
        QTest::newRow("sweeps") << int(View::ScopeMode);
        QTest::newRow("histogram") << int(View::HistogramMode);
        QTest::newRow("profile") << int(View::SpectrogramMode);
    }
    //! A pointer to an item stays good, and never gives the fit of an older sample.
    void fitsFollowTheNewestSample()
    {
        HeadlessView v;
        v.view.SetPlotMode(cell<int>("mode"));
        const RVX_StatisticsHistogramItem &fit = v.fit();
        v.model.append({{0.5, 0}, QVector<double>{0.6} + beam(7)});
        QCOMPARE(v.fitText(), QString("2 at 0.6: 7.000"));
        v.model.append({QVector<double>{0.7} + beam(8), QVector<double>{0.8} + beam(9)});
        QCOMPARE(fit.position(), 9.0);
        v.model.remove(1, 1);
        QCOMPARE(v.fitText(), QString("3 at 0.8: 9.000"));
        v.model.remove(3, 3);
        QCOMPARE(v.fitText(), QString("2 at 0.7: 8.000"));
        v.model.append({QVector<double>{0.9} + beam(7, 2.5, 0.001)});
        QCOMPARE(v.fitText(), QString("Peak below threshold."));
        v.view.enableHistogramItem(View::RegressionItem, 1, {0.1, 10, 0, 0, 2, 5}, true);
        QCOMPARE(v.fitText(), QString("3 at 0.9: 7.000"));
        v.view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&v.view));
        v.view.hide();
        v.model.append({QVector<double>{1.0} + beam(6)});
        QCOMPARE(v.fitText(), QString("4 at 1: 6.000"));
        // A channel that is switched off counts as 0.
        v.model.setData(v.model.index(0, 6), Qt::Unchecked, Qt::CheckStateRole);
        QVERIFY(v.fitText() != QString("4 at 1: 6.000"));
    }

    void hostsMayAskBeforeTheViewHears()
    {
        ScopeTestModel model(channels, 2);
        RVXScopePlotView view;
        QStringList heard;
        connect(&model, &QAbstractItemModel::rowsInserted, this, [&] {
            const auto *fit = view.histogramItems(View::RegressionItem).first();
            heard << QString("%1/%2: %3").arg(fit->row()).arg(fit->time()).arg(fit->position());
        });
        view.setModel(&model);
        view.enableHistogramItem(View::RegressionItem, 1, {0.1, 10, 0.01, 0.1}, false);
        for (const double centre : {5.0, 6.0, 7.0})
            model.show(beam(centre));
        QCOMPARE(heard.join(' '), QString("1/0: 5 2/1: 6 2/2: 7"));
    }

    void itemsSayWhatTheyBelongTo()
    {
        HeadlessView v;
        v.view.enableHistogramItem(View::CenterOfGravityItem, 5, {0, 0.0}, false);
        QStringList groups;
        v.model.append({QVector<double>{2.25} + beam(12)});
        for (const auto *item : v.view.histogramItems(View::CenterOfGravityItem)) {
            groups << QString("%1+%2").arg(item->firstChannel()).arg(item->channelCount());
            QCOMPARE(item->row(), 1);
            QCOMPARE(item->time(), 2.25);
        }
        QCOMPARE(groups.join(' '), QString("1+4 5+4 9+4 13+4 17+8"));
    }

    //! A view that nobody sees gives the same numbers to the last bit as one that has painted them.
    void hiddenEqualsPainted()
    {
        const Units::nA nA;
        ScopeTestModel model(channels);
        model.isInBaseUnit = true;
        model.SetUnits(&nA);
        RVXAveragingProxyModel average;
        average.setSourceModel(&model);
        average.setAveraging(4);
        ScopeTestView painted(&average);
        RVXScopePlotView hidden;
        hidden.setModel(&average);
        for (View *view : {static_cast<View *>(&painted), &hidden}) {
            view->enableHistogramItem(View::GaussabolaItem, 1, {}, true);
            view->enableHistogramItem(View::RegressionItem, 2, {0.1, 10, 0.01, 0.1, 2, 5}, true);
            view->enableHistogramItem(View::CenterOfGravityItem, 1, {0, 0.1}, true);
            view->enableHistogramItem(View::PrecalculatedFitItem, 1, {}, true);
        }
        model.deviceFits = {5.0, 2.0, 4.0};
        painted.SetPlotMode(View::HistogramMode);
        painted.SetYScaleMode(View::Normalized); // divides what is shown, not what is read
        const auto numbers = [](const View &view) {
            QStringList texts;
            for (int type = 0; type < 4; ++type) {
                for (const auto *item : view.histogramItems(View::HistogramItemTypes(type))) {
                    texts << QString("%1 %2 %3 %4 %5 %6 %7")
                                 .arg(int(item->status()))
                                 .arg(item->row())
                                 .arg(item->position(), 0, 'g', 17)
                                 .arg(double(item->fit().sigma), 0, 'g', 17)
                                 .arg(double(item->fit().amplitude), 0, 'g', 17)
                                 .arg(item->signalToNoise(), 0, 'g', 17)
                                 .arg(item->valueUnit());
                }
            }
            return texts.join('\n');
        };
        for (double centre : {6.0, 6.8, 15.0}) {
            model.show(beam(centre, 2.0, 4e-9));
            painted.settle();
            QCOMPARE(numbers(hidden), numbers(painted));
        }
        QVERIFY(numbers(hidden).contains("nA"));
    }

    //! What is computed to be read leaves the picture of the histogram as it is until the next repaint.
    void askingPaintsNothing()
    {
        ScopeTestModel model(channels);
        ScopeTestView view(&model);
        view.enableHistogramItem(View::RegressionItem, 1, {0.1, 10, 0.01, 0.1, 2, 5}, true);
        model.show(beam(7));
        QCOMPARE(view.histogramItems(View::RegressionItem).first()->position(), 7.0);
        view.settle();
        QVERIFY(view.qwtPlot()->itemList(QwtPlotItem::Rtti_PlotMarker).isEmpty());
        view.SetPlotMode(View::HistogramMode);
        view.settle();
        QCOMPARE(view.qwtPlot()->itemList(QwtPlotItem::Rtti_PlotMarker).size(), 1);
    }

    void changesAreAnnouncedOncePerTurn()
    {
        HeadlessView v;
        QSignalSpy spy(&v.view, &View::statisticsChanged);
        v.model.show(beam(5));
        QCOMPARE(spy.size(), 0);
        QCoreApplication::processEvents();
        QCOMPARE(taken(spy), QString("1 1 0, 2 1 0"));
        for (int i = 0; i < 5; ++i)
            v.model.show(beam(5 + i));
        QCoreApplication::processEvents();
        QCOMPARE(taken(spy), QString("1 6 5, 2 6 5"));
        QCoreApplication::processEvents();
        QCOMPARE(taken(spy), QString());
        v.view.enableHistogramItem(View::CenterOfGravityItem, 0, {}, false);
        v.model.Clear();
        QCoreApplication::processEvents();
        QCOMPARE(taken(spy), QString("2 0 nan"));
    }

    void onlyWhatCountsIsAnnounced()
    {
        HeadlessView v;
        v.model.show(beam(5));
        v.model.show(beam(6));
        QSignalSpy spy(&v.view, &View::statisticsChanged);
        const auto heard = [&] {
            QCoreApplication::processEvents();
            return !taken(spy).isEmpty();
        };
        heard();
        Q_EMIT v.model.dataChanged(v.model.index(1, 1), v.model.index(1, 3)); // an older sample
        QVERIFY(!heard());
        v.view.SetYScaleMode(View::Normalized);
        v.view.resize(300, 200);
        QVERIFY(!heard());
        Q_EMIT v.model.dataChanged(v.model.index(1, 1), v.model.index(2, 3));
        QVERIFY(heard());
        v.model.setData(v.model.index(0, 6), Qt::Unchecked, Qt::CheckStateRole);
        QVERIFY(heard());
        v.view.enableHistogramItem(View::RegressionItem, 2, {}, true);
        QVERIFY(heard());
        v.model.remove(2, 2);
        QVERIFY(heard());
    }

    void hostsMayDeleteTheViewOnHearing()
    {
        ScopeTestModel model(channels);
        auto *view = new RVXScopePlotView;
        view->setModel(&model);
        view->enableHistogramItem(View::RegressionItem, 1, {}, true);
        view->enableHistogramItem(View::CenterOfGravityItem, 1, {}, true);
        int heard = 0;
        connect(view, &View::statisticsChanged, this, [&] {
            ++heard;
            delete view;
        });
        model.show(beam(5));
        QCoreApplication::processEvents();
        QCOMPARE(heard, 1);
        model.show(beam(6)); // which the view does not hear of any more
        QCoreApplication::processEvents();
        QCOMPARE(heard, 1);
    }

    void nothingIsReadWhileNobodyListens()
    {
        //! Counts the readings that are taken from it.
        struct CountingModel : ScopeTestModel
        {
            using ScopeTestModel::ScopeTestModel;
            double doubleData(int row, int column) const override
            {
                ++reads;
                return ScopeTestModel::doubleData(row, column);
            }
            mutable int reads = 0;
        };
        CountingModel model(channels);
        RVXScopePlotView view;
        view.setModel(&model);
        view.enableHistogramItem(View::RegressionItem, 1, {}, true);
        view.enablePlotMarker(true);
        model.show(beam(5));
        QCoreApplication::processEvents();
        QCOMPARE(model.reads, 0);
        view.histogramItems(View::RegressionItem).first()->position();
        QVERIFY(model.reads >= channels);
    }

    void markersOfAHiddenStripChart()
    {
        ScopeTestModel model(2, 10);
        model.append({{1, 3, 30}, {2, 4, 40}, {3, 8, 80}, {4, 1, 10}});
        ScopeTestView view(&model);
        view.enablePlotMarker(true);
        QCOMPARE(markerText(view.markerStatistics()), QString("- | -"));
        view.SelectPoint1(QPointF(1.8, 3));
        QCOMPARE(markerText(view.markerStatistics()), QString("2/1 2=4 | -"));
        view.SelectPoint2(QPointF(3.5, 12));
        // Of channel 2, which is nearer to the second click: 40, 80, 10.
        const QString span =
            "2/1 2=4 | 4/2 4=10 | T 2 f 0.5 d 6 n 3 missing 0 sum 130 mean 43.3333 "
            "rms 51.96 sd 35.12";
        QCOMPARE(markerText(view.markerStatistics()), span);
        view.settle();
        QVERIFY2(view.markerText(1).contains("Sum: 130"), qPrintable(view.markerText(1)));

        view.hide();
        model.append({{5, 0, 0}});
        QCOMPARE(markerText(view.markerStatistics()), span);
        const double gap = std::nan("");
        model.append({{6, 0, gap}, {7, 0, gap}, {8, 0, 0}, {9, 0, 0}, {10, 0, 0}, {11, 0, 0}});
        QCOMPARE(markerText(view.markerStatistics()),
                 QString(span).replace("2/1 2", "1/1 2").replace("4/2 4", "3/2 4"));
        model.append({{12, 0, 0}}); // the sample of the first marker leaves
        QCOMPARE(markerText(view.markerStatistics()), QString("- | 2/2 4=10"));
        view.SelectPoint1(QPointF(7, 0));
        view.selectionModel()->select(model.index(5, 2), QItemSelectionModel::ClearAndSelect);
        QCOMPARE(
            markerText(view.markerStatistics()),
            QString("5/2 7=nan | 2/2 4=10 | T 3 f 0.333333 d nan n 2 missing 2 sum 10 mean 5 rms "
                    "7.071 sd 7.071"));
        view.setModel(nullptr);
        QCOMPARE(markerText(view.markerStatistics()), QString("- | -"));
    }

    void markersOnBars()
    {
        ScopeTestModel model(5);
        model.append({{2.5, 1, 2, 4, 8, 16}});
        ScopeTestView view(&model);
        view.enablePlotMarker(true);
        view.SetPlotMode(View::HistogramMode);
        view.SelectPoint1(QPointF(4.2, 0));
        view.SelectPoint2(QPointF(1.9, 0));
        view.hide();
        QCOMPARE(
            markerText(view.markerStatistics()),
            QString("1/4 2.5=8 | 1/2 2.5=2 | T nan f nan d -6 n 3 missing 0 sum 14 mean 4.66667 "
                    "rms 5.292 sd 3.055"));
        model.append({{3.5, 0, 3, 3, 3, 0}});
        QCOMPARE(
            markerText(view.markerStatistics()),
            QString("2/4 3.5=3 | 2/2 3.5=3 | T nan f nan d 0 n 3 missing 0 sum 9 mean 3 rms 3 sd "
                    "0"));
        model.setData(model.index(0, 2), Qt::Unchecked, Qt::CheckStateRole);
        QCOMPARE(view.markerStatistics().missing, 1);
    }

    //! A marker keeps its place in the sweep; a hidden view reads the newest complete one.
    void markersOfSweeps()
    {
        ScopeTestModel model(1);
        model.pointsHint = 4;
        ScopeTestView view(&model);
        view.enablePlotMarker(true);
        view.SetPlotMode(View::ScopeMode);
        model.append({{1, 1}, {2, 2}, {3, 3}, {4, 4}});
        view.settle();
        view.SelectPoint1(QPointF(2, 0));
        view.SelectPoint2(QPointF(4, 0));
        view.settle();
        QCOMPARE(
            markerText(view.markerStatistics()),
            QString("2/1 2=2 | 4/1 4=4 | T 2 f 0.5 d 2 n 3 missing 0 sum 9 mean 3 rms 3.109 sd 1"));
        view.hide();
        model.append({{5, 5}, {6, 6}});
        QCOMPARE(view.markerStatistics().sum, 9.0);
        model.append({{7, 7}, {8, 8}});
        QCOMPARE(
            markerText(view.markerStatistics()),
            QString("6/1 6=6 | 8/1 8=8 | T 2 f 0.5 d 2 n 3 missing 0 sum 21 mean 7 rms 7.047 sd "
                    "1"));
        view.SetPlotMode(
            View::StripMode); // where the markers stand on no sample until they are plotted
        QVERIFY(view.markerStatistics().second.isSet);
    }

    void markerChangesAreAnnounced()
    {
        ScopeTestModel model(1, 6);
        model.pointsHint = 4;
        model.append({{1, 1}, {2, 2}, {3, 3}, {4, 4}});
        ScopeTestView view(&model);
        view.enablePlotMarker(true);
        QStringList heard;
        connect(&view, &View::markerStatisticsChanged, this,
                [&] { heard << markerText(view.markerStatistics()).section(' ', 0, 3); });
        const auto after = [&](auto action) {
            action();
            for (int i = 0; i < 6; ++i)
                QCoreApplication::processEvents();
            return std::exchange(heard, {}).join(", ");
        };
        QCOMPARE(after([&] { view.click(Qt::LeftButton, 1.9, 2); }), QString("2/1 2=2 | -"));
        QCOMPARE(after([&] {
                     view.setFocus();
                     QTest::keyClick(&view, Qt::Key_Right);
                 }),
                 QString("3/1 3=3 | -"));
        view.hide();
        QCOMPARE(after([&] {
                     model.append({{5, 5}});
                 }),
                 QString()); // nothing that the marker reads
        QCOMPARE(after([&] { model.append({{6, 6}, {7, 7}}); }), QString("2/1 3=3 | -"));
        QCOMPARE(after([&] { view.enablePlotMarker(false); }), QString("- | -"));
        QCOMPARE(after([&] { model.append({{8, 8}}); }), QString());
    }
};

CORVALE_QT_TEST_MAIN(tst_ScopeResults)
#include "tst_ScopeResults.moc"
