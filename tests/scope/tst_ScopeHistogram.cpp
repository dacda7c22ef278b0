// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/scope/ChannelNameDraw.h"
#include "corvale_qt/scope/ChannelNumberDraw.h"
#include "corvale_qt/scope/statistics/RVX_HistogramItemAxisWidget.h"
#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"
#include "corvale_qt/units/Units.h"
#include "tests/scope/ScopeTestModel.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/Profiles.h"
#include "tests/support/TestMain.h"

#include <qwt_plot_histogram.h>
#include <qwt_series_data.h>

#include <QLabel>

#include <cmath>

using namespace Corvale_Qt;
using View = RVXScopePlotView;

namespace {

QVector<double> bars(const ScopeTestView &view)
{
    auto &shown = const_cast<ScopeTestView &>(view);
    QVector<double> values;
    for (size_t i = 0; i < shown.histogram()->dataSize(); ++i)
        values << shown.histogram()->sample(int(i)).value;
    return values;
}

//! Returns the visible axis widgets, from top to bottom.
QList<RVX_HistogramItemAxisWidget *> axisWidgets(const ScopeTestView &view)
{
    QList<RVX_HistogramItemAxisWidget *> shown;
    for (auto *widget : view.findChildren<RVX_HistogramItemAxisWidget *>()) {
        if (widget->isVisible())
            shown << widget;
    }
    std::sort(shown.begin(), shown.end(), [](const QWidget *a, const QWidget *b) {
        return a->y() < b->y();
    });
    return shown;
}

//! Owns a model and shows it in histogram mode.
class Histogram : public ScopeTestView
{
public:
    explicit Histogram(int channels)
        : model(channels)
    {
        setModel(&model);
        SetPlotMode(HistogramMode);
    }
    //! Switches on one item of each type.
    void enableAll(bool fullStatistics)
    {
        for (int type = 0; type < 4; ++type)
            enableHistogramItem(HistogramItemTypes(type), 1, {}, fullStatistics);
    }
    //! Shows a beam at bin 12.3, with a fit by the device.
    void showBeam()
    {
        model.deviceFits = QVariantList{12.3, 2.5, 4e-9};
        model.show(Profiles::gaussian<double>(32, 12.3, 2.5, 4e-9));
        settle();
    }

    ScopeTestModel model;
};

//! Returns the middle of columns first to last of a widget's picture, in pixels of the view's viewport.
double middle(const ScopeTestView &view, const QWidget *widget, int first, int last)
{
    const double inWidget = (first + last + 1) / 2.0 / widget->devicePixelRatioF() - 0.5;
    return widget->mapTo(view.viewport(), QPoint(0, 0)).x() + inWidget;
}

//! Returns the positions of a widget's ticks that cross a line above its lower edge.
QVector<double> ticksAt(const ScopeTestView &view, QWidget *widget, int linesFromBottom)
{
    const QImage picture = widget->grab().toImage();
    const int y = picture.height() - int(linesFromBottom * picture.devicePixelRatio());
    const QColor background = widget->palette().color(QPalette::Window);
    QVector<double> ticks;
    int first = 0;
    for (int x = 0; x < picture.width(); ++x) {
        if (picture.pixelColor(x, y) == background)
            continue;
        if (x == 0 || picture.pixelColor(x - 1, y) == background)
            first = x;
        if (x == picture.width() - 1 || picture.pixelColor(x + 1, y) == background)
            ticks << middle(view, widget, first, x);
    }
    return ticks;
}

//! Returns the middle of the bar, including its outline, that is the only one as high as \a value.
double middleOfBar(ScopeTestView &view, double value)
{
    const QImage picture = view.canvas();
    const int y = int(view.at(1.0, value).y() * picture.devicePixelRatio());
    int first = -1;
    int last = -1;
    for (int x = 0; x < picture.width(); ++x) {
        const QColor colour = picture.pixelColor(x, y);
        if (colour == QColor(Qt::yellow) || colour == QColor(Qt::yellow).darker(130)) {
            first = first < 0 ? x : first;
            last = x;
        }
    }
    return middle(view, view.qwtPlot()->canvas(), first, last);
}

} // namespace

class tst_ScopeHistogram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneBarAChannel();
    void barsWithoutAReading();
    void normalizedBars_data();
    void normalizedBars();
    void marksOfNormalizedBars();
    void channelsAreLabelled_data();
    void channelsAreLabelled();
    void ticksStandAboveTheBars_data();
    void ticksStandAboveTheBars();
    void labelsStandBesideEachOther_data();
    void labelsStandBesideEachOther();
    void canvasKeepsHalfOfTheHeight_data();
    void canvasKeepsHalfOfTheHeight();
    void labelsAreReadableInDarkPalettes();
    void itemsShareTheChannels();
    void groupsOfChannels_data();
    void groupsOfChannels();
    void itemsComeAndGoWithTheMode();
    void deviceFitsComeFromTheModel();
    void energyNeverReachesCentresOfGravity();
    void emptyModelsHaveNoStatistics();
};

void tst_ScopeHistogram::oneBarAChannel()
{
    const Units::nA nA;
    Histogram view(3);
    view.model.SetUnits(&nA);
    view.model.show({1.0, 2.0, 3.0});
    view.model.show({5.0, -6.0, 7.0});
    view.settle();
    QCOMPARE(bars(view), QVector<double>({5.0, -6.0, 7.0}));
    QCOMPARE(view.xText(), QString("0.5..3.5"));
    QCOMPARE(view.histogram()->sample(1).interval.minValue(), 1.5);
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::xBottom).text(), QString("Channel"));
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::yLeft).text(), QString("nA"));
    const QImage picture = view.canvas();
    QCOMPARE(view.colourIn(picture, 1.0, 2.0), QColor(Qt::yellow));
    QCOMPARE(view.colourIn(picture, 2.2, -3.0), QColor(Qt::yellow));
    QVERIFY(view.colourIn(picture, 2.2, 3.0) != QColor(Qt::yellow));
    QCOMPARE(view.curves().size(), 0);

    view.model.setData(view.model.index(0, 3), Qt::Unchecked, Qt::CheckStateRole);
    view.settle();
    QCOMPARE(bars(view), QVector<double>({5.0, -6.0, 0.0}));
    view.SetPlotMode(View::StripMode);
    view.settle();
    QVERIFY(!view.histogram()->plot());
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::xBottom).text(), QString("s"));
}

void tst_ScopeHistogram::barsWithoutAReading()
{
    Histogram view(6);
    view.enablePlotMarker(true);
    view.enableHistogramItem(View::CenterOfGravityItem, 1, {}, true);
    view.model.setData(view.model.index(0, 6), Qt::Unchecked, Qt::CheckStateRole);
    view.model.show({qQNaN(), 1.0, qInf(), 1.0, 1e300, 7.0});
    view.settle();
    QCOMPARE(bars(view), QVector<double>({0.0, 1.0, 0.0, 1.0, 1e300, 0.0}));
    // A statistic is in single precision, which does not hold 1e300.
    QCOMPARE(view.histogramItems(View::CenterOfGravityItem).value(0)->position(), 3.0);
    QStringList readings;
    for (int channel = 1; channel <= 6; ++channel) {
        view.SelectPoint1(QPointF(channel, 0.0));
        view.settle();
        readings << view.markerText(0).section('\n', 2);
    }
    QCOMPARE(readings.join(", "), QString("no reading, 1, no reading, 1, 1e+300, no reading"));
}

void tst_ScopeHistogram::normalizedBars_data()
{
    QTest::addColumn<QVector<double>>("values");
    QTest::addColumn<QVector<double>>("shown");
    QTest::newRow("positive") << QVector<double>{1e-9, 4e-9, 2e-9}
                              << QVector<double>{0.25, 1.0, 0.5};
    QTest::newRow("the largest is negative")
        << QVector<double>{1.0, -2.0, 0.5} << QVector<double>{0.5, -1.0, 0.25};
    QTest::newRow("dark") << QVector<double>{0.0, 0.0, 0.0} << QVector<double>{0.0, 0.0, 0.0};
    QTest::newRow("one channel without a reading")
        << QVector<double>{qInf(), 5.0, qQNaN()} << QVector<double>{0.0, 1.0, 0.0};
}

void tst_ScopeHistogram::normalizedBars()
{
    QFETCH(QVector<double>, values);
    ScopeTestModel model(4);
    model.setData(model.index(0, 4), Qt::Unchecked, Qt::CheckStateRole);
    model.show(values + QVector<double>{1e3}); // hidden, so it does not count
    ScopeTestView view(&model);
    view.SetYScaleMode(View::Normalized);
    view.SetPlotMode(View::HistogramMode);
    view.settle();
    QCOMPARE(view.yText(), QString("-1..1"));
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::yLeft).text(), QString("Relative Value"));
    QTEST(bars(view).mid(0, 3), "shown");
}

//! Marks on a normalised histogram are divided like the bars; the numbers in labels are not.
void tst_ScopeHistogram::marksOfNormalizedBars()
{
    const Units::nA nA;
    Histogram view(32);
    view.model.SetUnits(&nA);
    view.model.deviceFits = QVariantList{12.0, 2.5, 4.0};
    view.model.show(Profiles::gaussian<double>(32, 12.0, 2.5, 4.0));
    view.enablePlotMarker(true);
    view.enableAll(true);
    view.SelectPoint1(QPointF(13.0, 0.0));
    view.settle();
    const auto heights = [&view] {
        QString text;
        for (const QwtPlotItem *item : view.qwtPlot()->itemList()) {
            if (auto *marker = dynamic_cast<const QwtPlotMarker *>(item))
                text += QStringLiteral("marker %1, ").arg(marker->yValue(), 0, 'g', 3);
            else if (auto *curve = dynamic_cast<const QwtPlotCurve *>(item))
                text += QStringLiteral("curve %1, ").arg(curve->maxYValue(), 0, 'g', 3);
        }
        return text;
    };
    const QString absolute = heights();
    QCOMPARE(absolute.count(" 4, "), 8);
    QCOMPARE(view.markerText(0).section('\n', 2), QString("4"));
    view.SetYScaleMode(View::Normalized);
    view.settle();
    QCOMPARE(heights(), QString(absolute).replace(" 4, ", " 1, "));
    QCOMPARE(view.markerText(0).section('\n', 2), QString("4 nA"));
    const QString label = view.histogramItems(View::GaussabolaItem)[0]->label();
    QVERIFY2(label.contains("Peak: 4 nA\n") && label.contains("Noise Std. Dev (nA): "),
             qPrintable(label));
    const QImage picture = view.canvas();
    QCOMPARE(view.colourIn(picture, 12.2, 0.8), QColor(Qt::yellow));
    QVERIFY(view.colourIn(picture, 16.2, 0.8) != QColor(Qt::yellow));
}

void tst_ScopeHistogram::channelsAreLabelled_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<QString>("labels");
    QTest::newRow("eight have letters") << 8 << "A B C D E F G H";
    QTest::newRow("one") << 1 << "A";
    QTest::newRow("nine have numbers") << 9 << "1 2 3 4 5 6 7 8 9";
    QTest::newRow("every fourth of 128")
        << 128
        << "4 8 12 16 20 24 28 32 36 40 44 48 52 56 60 64 68 72 76 80 84 88 92 96 100 104 108 112 "
           "116 120 124 128";
}

void tst_ScopeHistogram::channelsAreLabelled()
{
    QFETCH(int, channels);
    ScopeTestModel model(channels);
    model.show(QVector<double>(channels, 1.0));
    ScopeTestView view(&model);
    const QFont fontOfTime = view.qwtPlot()->axisFont(QwtPlot::xBottom);
    view.SetPlotMode(View::HistogramMode);
    view.settle();
    const QwtScaleDraw *draw = view.qwtPlot()->axisScaleDraw(QwtPlot::xBottom);
    QStringList labels;
    for (double tick :
         view.qwtPlot()->axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick)) {
        const QString label = draw->label(tick).text();
        if (!label.isEmpty())
            labels << label;
    }
    QTEST(labels.join(' '), "labels");
    // There are too few samples for a sweep, but the x axis shows time.
    view.SetPlotMode(View::ScopeMode);
    view.settle();
    QCOMPARE(view.qwtPlot()->axisFont(QwtPlot::xBottom), fontOfTime);
    QCOMPARE(view.qwtPlot()->axisTitle(QwtPlot::xBottom).text(), QString("s"));
    QCOMPARE(ChannelNameDraw().label(26.0).text(), QString("Z"));
    for (double none : {0.0, 27.0, 1.5, qQNaN(), -qInf()})
        QVERIFY(ChannelNameDraw().label(none).isEmpty());
    QCOMPARE(ChannelNumberDraw(256).label(8.0).text(), QString("8"));
    QVERIFY(ChannelNumberDraw(256).label(9.0).isEmpty());
}

void tst_ScopeHistogram::ticksStandAboveTheBars_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("peak"); // counted from 1
    for (int width : {500, 777, 1000, 1399}) {
        for (int channels : {5, 32, 61})
            QTest::addRow("%d wide, %d channels", width, channels)
                << width << channels << channels * 2 / 3;
    }
}

void tst_ScopeHistogram::ticksStandAboveTheBars()
{
    QFETCH(int, width);
    QFETCH(int, channels);
    QFETCH(int, peak);
    Histogram view(channels);
    view.resize(width, 500);
    view.enableHistogramItem(View::CenterOfGravityItem, 1, {}, false);
    // The centre of gravity lies in the middle of the highest bar.
    QVector<double> values(channels, 0.0);
    values[peak - 2] = 1.0;
    values[peak - 1] = 2.0;
    values[peak] = 1.0;
    view.model.show(values);
    view.settle();
    const auto widgets = axisWidgets(view);
    QCOMPARE(widgets.size(), 1);
    const double bar = middleOfBar(view, 1.4);
    // Only the tick of the position is long enough for the lowest lines.
    const QVector<double> major = ticksAt(view, widgets[0], 4);
    QCOMPARE(major.size(), 1);
    QVERIFY2(qAbs(major[0] - bar) <= 1.0, qPrintable(QString("%1 %2").arg(major[0]).arg(bar)));
    const QVector<double> sigma = ticksAt(view, widgets[0], 7);
    QCOMPARE(sigma.size(), 3);
    const double channelWidth =
        double(view.at(channels, 0.0).x() - view.at(1.0, 0.0).x()) / (channels - 1);
    const double expected = bar + channelWidth * std::sqrt(2.0 / 4.0);
    QVERIFY2(qAbs(sigma[2] - expected) <= 1.0,
             qPrintable(QString("%1 %2").arg(sigma[2]).arg(expected)));
    const QVector<double> all = ticksAt(view, widgets[0], 10);
    QCOMPARE(all.size(), 5);
    QVERIFY(qAbs(all[4] - bar - 3 * (expected - bar)) <= 1.5);
}

void tst_ScopeHistogram::labelsStandBesideEachOther_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("peaks");
    for (int type = 0; type < 4; ++type) {
        for (int peaks : {1, 2, 4, 8})
            QTest::addRow("type %d, %d peaks", type, peaks) << type << peaks;
    }
}

void tst_ScopeHistogram::labelsStandBesideEachOther()
{
    QFETCH(int, type);
    QFETCH(int, peaks);
    Histogram view(128);
    QVector<double> values;
    for (int i = 0; i < peaks; ++i) {
        values += Profiles::gaussian<double>(128 / peaks, 64.0 / peaks, 1.7, 1e-5 * (i + 1));
        view.model.deviceFits << 64.0 / peaks << 1.7 << 1e-5 * (i + 1);
    }
    view.resize(1000, 700);
    std::vector<double> energies(128, 228.57);
    view.toggleMLFC(true);
    view.upload_MLFC_calibration_table(&energies);
    view.enableHistogramItem(View::HistogramItemTypes(type), peaks, {}, true);
    view.model.show(values);
    view.settle();
    const auto widgets = axisWidgets(view);
    QCOMPARE(widgets.size(), 1);
    const QList<QLabel *> labels = widgets[0]->findChildren<QLabel *>();
    QCOMPARE(labels.size(), 1 + peaks); // the first is the estimator's name
    QRegion taken;
    for (const QLabel *label : labels) {
        QVERIFY2(label == labels[0] || label->text().contains("Position"),
                 qPrintable(label->text()));
        QVERIFY(label->width() >= label->sizeHint().width());
        QVERIFY(label->height() >= label->sizeHint().height());
        QVERIFY(widgets[0]->rect().contains(label->geometry()));
        QVERIFY(!taken.intersects(label->geometry()));
        taken += label->geometry();
    }
    // The plot lies below the labels.
    const QPoint bottom = widgets[0]->mapTo(view.viewport(), widgets[0]->rect().bottomLeft());
    QVERIFY(view.qwtPlot()->y() >= bottom.y());
}

void tst_ScopeHistogram::canvasKeepsHalfOfTheHeight_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("fits");
    QTest::newRow("small") << QSize(400, 300) << false;
    QTest::newRow("usual") << QSize(900, 700) << false;
    QTest::newRow("large") << QSize(1400, 1100) << true;
}

void tst_ScopeHistogram::canvasKeepsHalfOfTheHeight()
{
    QFETCH(QSize, size);
    QFETCH(bool, fits);
    Histogram view(32);
    view.resize(size);
    view.SetPlotMode(View::StripMode);
    view.settle();
    const int alone = view.qwtPlot()->canvas()->height();
    view.enableAll(true);
    view.SetPlotMode(View::HistogramMode);
    view.showBeam();
    QCOMPARE(view.size(), size);
    QVERIFY(view.minimumSizeHint().height() <= 300);
    QVERIFY(2 * view.qwtPlot()->canvas()->height() >= size.height());

    const auto widgets = axisWidgets(view);
    const double peak = view.qwtPlot()->transform(QwtPlot::xBottom, 13.3)
        + view.qwtPlot()->canvas()->mapTo(view.viewport(), QPoint(0, 0)).x();
    QStringList names;
    for (auto *widget : widgets) {
        names << widget->findChild<QLabel *>("estimator")->text();
        QCOMPARE(widget->height(), widget->sizeHint().height()); // none is squeezed
        const QVector<double> major = ticksAt(view, widget, 4);
        QVERIFY(major.size() == 1 && qAbs(major[0] - peak) <= 1.5);
    }
    QCOMPARE(names.join(", "),
             QString("Gaussian Fit (Device), Gaussian Fit, Center of Gravity, Gaussabola Fit"));
    const auto isInSight = [&](const QWidget *strip) {
        return strip->visibleRegion().boundingRect().bottom() == strip->rect().bottom();
    };
    QCOMPARE(isInSight(widgets.last()), fits);
    for (int i = 0; i < 8; ++i)
        QTest::keyClick(&view, Qt::Key_PageDown);
    QVERIFY(isInSight(widgets.last()));

    view.SetPlotMode(View::StripMode);
    view.settle();
    QCOMPARE(view.qwtPlot()->canvas()->height(), alone);
}

void tst_ScopeHistogram::labelsAreReadableInDarkPalettes()
{
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(45, 45, 48), QColor(45, 45, 48)));
    Histogram view(32);
    view.enableHistogramItem(View::RegressionItem, 1, {}, true);
    view.showBeam();
    const QList<QLabel *> labels = axisWidgets(view)[0]->findChildren<QLabel *>();
    QApplication::setPalette(before);
    QCOMPARE(labels.size(), 2);
    for (QLabel *label : labels) {
        const QImage picture = label->grab().toImage();
        int dark = 0;
        int background = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                dark += picture.pixelColor(x, y).lightness() < 40;
                background += picture.pixelColor(x, y) == QColor(255, 171, 251);
            }
        }
        QVERIFY(dark > (label == labels[0] ? 50 : 300));
        QVERIFY(background > picture.width() * picture.height() / 2);
    }
}

void tst_ScopeHistogram::itemsShareTheChannels()
{
    Histogram view(40);
    for (int type : {View::GaussabolaItem, View::CenterOfGravityItem, View::RegressionItem})
        view.enableHistogramItem(View::HistogramItemTypes(type), 2, {0.0, 0.0, 10.0}, false);
    view.model.show(Profiles::gaussian<double>(18, 6.0, 1.5, 1.0)
                    + Profiles::gaussian<double>(22, 14.0, 1.5, 2.0));
    view.settle();
    for (int type : {View::GaussabolaItem, View::RegressionItem}) {
        const auto items = view.histogramItems(View::HistogramItemTypes(type));
        QCOMPARE(items.size(), 2);
        QVERIFY(qAbs(items[0]->position() - 7.0) < 1e-2);
        QVERIFY(qAbs(items[1]->position() - 33.0) < 1e-2);
        QCOMPARE(items[1]->fit().count(), 20);
    }
    QCOMPARE(axisWidgets(view).size(), 3);
    view.enableHistogramItem(View::CenterOfGravityItem, 0, {}, false);
    QVERIFY(view.histogramItems(View::CenterOfGravityItem).isEmpty());
    QCOMPARE(axisWidgets(view).size(), 2);
}

void tst_ScopeHistogram::groupsOfChannels_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("peaks");
    QTest::addColumn<QString>("groups");
    QTest::newRow("equal groups") << 32 << 2 << "0+16 16+16";
    QTest::newRow("the last group takes the rest") << 14 << 4 << "0+3 3+3 6+3 9+5";
    QTest::newRow("fewer channels than groups") << 2 << 4 << "0+1 1+1 2+0 2+0";
}

//! Without a beam, an item is placed in the middle of its group, which shows the offset of the group.
void tst_ScopeHistogram::groupsOfChannels()
{
    QFETCH(int, channels);
    QFETCH(int, peaks);
    ScopeTestModel model(channels);
    model.show(QVector<double>(channels, 0.0));
    ScopeTestView view(&model);
    view.enableHistogramItem(View::GaussabolaItem, peaks, {}, false);
    view.SetPlotMode(View::HistogramMode);
    view.settle();
    QStringList groups;
    for (const auto *item : view.histogramItems(View::GaussabolaItem)) {
        const int size = item->fit().count();
        groups << QString("%1+%2").arg(item->position() - (size + 1) / 2.0).arg(size);
        QCOMPARE(item->statusMessage(),
                 QString(size < 3 ? "Not enough channels." : "Peak below threshold."));
    }
    QTEST(groups.join(' '), "groups");
}

void tst_ScopeHistogram::itemsComeAndGoWithTheMode()
{
    ScopeTestModel model(32);
    model.show(Profiles::gaussian<double>(32, 12.3, 2.5, 4e-9));
    ScopeTestView view(&model);
    view.enableHistogramItem(View::RegressionItem, 1, {}, true);
    view.settle();
    const auto onPlot = [&view] {
        return view.qwtPlot()->itemList(QwtPlotItem::Rtti_PlotMarker).size();
    };
    QVERIFY(axisWidgets(view).isEmpty());
    for (int other : {View::StripMode, View::ScopeMode, View::SplitMode}) {
        view.SetPlotMode(View::HistogramMode);
        view.settle();
        QCOMPARE(axisWidgets(view).size(), 1);
        QCOMPARE(onPlot(), 1);
        view.SetPlotMode(other);
        view.settle();
        QVERIFY(axisWidgets(view).isEmpty());
        QCOMPARE(onPlot(), 0);
    }
    view.enableHistogramItem(View::HistogramItemTypes(4), 1, {}, true); // there is no such type
    view.enableHistogramItem(View::RegressionItem, -3, {}, true);
    QVERIFY(view.histogramItems(View::RegressionItem).isEmpty());
}

void tst_ScopeHistogram::deviceFitsComeFromTheModel()
{
    Histogram view(40);
    view.model.deviceFits = QVariantList{6.0, 1.5, 1.0, 14.0, 1.5, 2.0};
    view.enableHistogramItem(View::PrecalculatedFitItem, 3, {}, true);
    view.model.show(QVector<double>(40, 0.5));
    view.settle();
    const auto items = view.histogramItems(View::PrecalculatedFitItem);
    QCOMPARE(items[0]->position(), 7.0);
    QCOMPARE(items[1]->position(), 28.0);
    QCOMPARE(items[2]->statusMessage(), QString("Fit failed."));
}

void tst_ScopeHistogram::energyNeverReachesCentresOfGravity()
{
    Histogram view(32);
    view.showBeam();
    const auto withEnergy = [&view] {
        QString types;
        for (int type = 0; type < 4; ++type) {
            if (view.histogramItems(View::HistogramItemTypes(type))[0]->label().contains("Energy"))
                types += QString::number(type);
        }
        return types;
    };
    view.enableAll(false);
    std::vector<double> energies(32, 70.0);
    view.upload_MLFC_calibration_table(&energies);
    QCOMPARE(withEnergy(), QString());
    view.toggleMLFC(true);
    QCOMPARE(withEnergy(), QString("023"));
    // New parameters create new items, which still show the energy.
    view.enableHistogramItem(View::GaussabolaItem, 1, {1e-12}, true);
    view.settle();
    QCOMPARE(withEnergy(), QString("023"));
    view.toggleMLFC(false);
    QCOMPARE(withEnergy(), QString());
}

void tst_ScopeHistogram::emptyModelsHaveNoStatistics()
{
    Histogram view(32);
    view.enableHistogramItem(View::GaussabolaItem, 1, {}, true);
    view.settle();
    const auto *item = view.histogramItems(View::GaussabolaItem)[0];
    QVERIFY(!view.histogram()->plot());
    QVERIFY(item->label().contains("N/A"));
    view.showBeam();
    QVERIFY(view.histogram()->plot());
    QVERIFY(item->label().contains("13.30"));
    view.model.Clear();
    view.settle();
    QVERIFY(!view.histogram()->plot());
    QVERIFY(item->label().contains("N/A"));
}

CORVALE_QT_TEST_MAIN(tst_ScopeHistogram)
#include "tst_ScopeHistogram.moc"
