// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ChannelLimits.h"
#include "corvale_qt/scope/DisplayPicture.h"
#include "corvale_qt/scope/LegendDelegate_p.h"
#include "corvale_qt/scope/LegendModel_p.h"
#include "corvale_qt/scope/ScopeLegend.h"
#include "corvale_qt/units/Units.h"
#include "tests/scope/HistogramView.h"
#include "tests/scope/PanelDevice.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/AxisTexts.h"
#include "tests/support/BracketTranslator.h"
#include "tests/support/Contrast.h"
#include "tests/support/Files.h"
#include "tests/support/Mouse.h"
#include "tests/support/PaintCounter.h"
#include "tests/support/Pixels.h"
#include "tests/support/RunningTimers.h"
#include "tests/support/TestMain.h"

#include <qwt_plot_curve.h>
#include <qwt_scale_widget.h>

#include <QScrollBar>

using namespace Corvale_Qt;

namespace {

//! Returns the names of the visible controls that are too small for their contents.
QString clippedControls(const Panel &panel)
{
    QStringList names;
    for (const char *parent : {"frame", "configFrame"}) {
        for (const auto *widget : panel.control(parent)->findChildren<QWidget *>()) {
            const QSize needed = widget->minimumSizeHint();
            const bool clipped =
                widget->width() < needed.width() || widget->height() < needed.height();
            if (widget->isVisible() && clipped && !widget->objectName().startsWith("qt_"))
                names << widget->objectName();
        }
    }
    return names.join(' ');
}

QPalette darkPalette()
{
    const QColor dark(45, 45, 48);
    return QPalette(Qt::white, dark, Qt::lightGray, Qt::black, Qt::gray, Qt::white, Qt::white,
                    Qt::black, dark);
}

//! Makes the application use an icon theme that has only a red edit-clear icon, until it is destroyed.
class PoorTheme
{
public:
    PoorTheme()
    {
        QDir(m_folder.path()).mkpath("poor/16x16");
        putFile(m_folder.filePath("poor/index.theme"),
                "[Icon Theme]\nName=poor\nDirectories=16x16\n[16x16]\nSize=16\n");
        QImage red(16, 16, QImage::Format_RGB32);
        red.fill(Qt::red);
        red.save(m_folder.filePath("poor/16x16/edit-clear.png"));
        QIcon::setThemeSearchPaths({m_folder.path()});
        QIcon::setThemeName("poor");
    }
    ~PoorTheme()
    {
        QIcon::setThemeSearchPaths(m_paths);
        QIcon::setThemeName(m_name);
    }
    Q_DISABLE_COPY(PoorTheme)

private:
    const QStringList m_paths = QIcon::themeSearchPaths();
    const QString m_name = QIcon::themeName();
    QTemporaryDir m_folder;
};

} // namespace

//! The appearance of the scope panel in several palettes, in another language and at scale factors of 1 and 2.
class tst_RVXScopeAppearance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void icons()
    {
        for (const bool poorTheme :
             {false, true}) { // without a theme, and with one that lacks most
            const auto theme = poorTheme ? std::make_unique<PoorTheme>() : nullptr;
            const Panel panel;
            const auto pixelsOfIcon = [&panel](const char *button, const auto &matches) {
                return countPixels(
                    panel.control<QAbstractButton>(button)->icon().pixmap(16).toImage(), matches);
            };
            const auto isDrawn = [](const QColor &c) { return c.alpha() > 0; };
            const auto isRed = [](const QColor &c) { return c == QColor(Qt::red); };
            for (const char *name :
                 {"saveButton", "clearButton", "confButton", "zeroButton", "clearZeroButton"})
                QVERIFY2(pixelsOfIcon(name, isDrawn) > 20, name);
            QCOMPARE(pixelsOfIcon("clearButton", isRed), poorTheme ? 256 : 0);
            // Its name begins alike, but it has another function.
            QCOMPARE(pixelsOfIcon("clearZeroButton", isRed), 0);
        }
    }

    void translation()
    {
        DevicePanel panel(1, {{1, {5}}});
        panel.setWindowTitle("the host's");
        panel.choose("scaleYCombo", "50%");
        panel.choose("averagingCombo", "10x Avg");
        QTRY_COMPARE(panel.bufferSize(), QString("1 Samples"));
        const BracketTranslator translator;
        const auto *scales = panel.control<QComboBox>("scaleYCombo");
        QCOMPARE(panel.tabs(), QString("[<Strip>] <Scope> <Histogram>"));
        QCOMPARE(scales->itemText(1) + ' ' + scales->currentText(), QString("<Normalize> 50%"));
        QCOMPARE(panel.control<QComboBox>("averagingCombo")->currentText(), QString("<10x Avg>"));
        QCOMPARE(panel.bufferSize(), QString("<1 Samples>"));
        const auto *save = panel.control<QAbstractButton>("saveButton");
        QCOMPARE(save->text() + ": " + save->toolTip(),
                 QString("<Save>: <Save the data buffer to a file.>"));
        QCOMPARE(panel.windowTitle(), QString("the host's"));
    }

    //! The panel at its smallest, with all optional controls.
    void nothingIsClipped()
    {
        DevicePanel panel(1, {{1, {5}}, {2, {6}}});
        panel.setPositionEnabled(true);
        panel.setSplitEnabled(true);
        panel.setSpectrogramEnabled(true);
        panel.setDerivativeVisible(true);
        panel.SetPlotMode(RVXScope::StripMode);
        panel.control<QAbstractButton>("zeroButton")->click();
        panel.resize(1, 1);
        QTRY_COMPARE(panel.bufferSize(), QString("2 Samples"));
        QCOMPARE(clippedControls(panel), QString());
        panel.choose("averagingCombo", "1000x Avg");
        panel.click("confButton");
        panel.resize(1, 1);
        QCoreApplication::processEvents();
        QVERIFY(panel.control("stateLabel")->isVisible());
        QCOMPARE(clippedControls(panel), QString());
    }

    //! Labels become wider and narrower, and prefixes change, while readings come.
    void axesHaveRoomForTheirTexts_data()
    {
        tableFrom(R"(
            | bool prefix | int timeAxis | int mode
            prefixes, seconds | true | 0 | 0
            prefixes, before the newest reading | true | 1 | 0
            prefixes, local time | true | 2 | 0
            prefixes, UTC | true | 3 | 0
            plain numbers | false | 0 | 0
            sweeps | true | 0 | 1
            bars | true | 0 | 2
            bars without prefixes | false | 0 | 2
        )");
    }
    void axesHaveRoomForTheirTexts()
    {
        const Units::V volt;
        ScopeTestModel model(2);
        model.ownUnits = {{2, &volt}};
        ScopeTestView view(&model);
        view.resize(500, 300);
        view.setSecondAxis(true);
        view.setHysteresis(true);
        view.setSiPrefix(cell<bool>("prefix"));
        view.setTimeAxis(RVXScopePlotView::TimeAxis(cell<int>("timeAxis")));
        view.setSampleSpan(4);
        view.SetPlotMode(cell<int>("mode"));
        double interval = 0.01;
        for (const double size : {5.0, 0.9, 0.085, 123456.7, -2e-7, 0.0, 99.5, 1.00001, 3e9}) {
            for (const int pictures : {1, 60}) { // the axis shrinks after a while
                for (int i = 0; i < pictures; ++i) {
                    model.appendRows(4, interval, [size](int channel, double time) {
                        return size * (channel == 1 ? 1.0 : -1e-3) * (1.0 + 0.01 * std::sin(time));
                    });
                    if (i + 2 < pictures)
                        view.Plot();
                    else
                        view.grab();
                }
                const QString cut = cutAxisTexts(*view.qwtPlot());
                QVERIFY2(cut.isEmpty(), qPrintable(QString("%1: %2").arg(size).arg(cut)));
            }
            interval *= 9.0;
        }
    }

    //! The axes move on with the curves, in the same picture; nothing is painted a second time for them.
    void aPictureIsPaintedOnce()
    {
        ScopeTestModel model(1);
        ScopeTestView view(&model);
        view.setSampleSpan(20);
        const auto feed = [&model, &view](int pictures) {
            for (int i = 0; i < pictures; ++i) {
                model.appendRows(4, 1.0, level);
                view.settle();
            }
        };
        feed(10);
        const PaintCounter canvas(view.qwtPlot()->canvas());
        const PaintCounter times(view.qwtPlot()->axisWidget(QwtPlot::xBottom));
        feed(10);
        QCOMPARE(canvas.count, 10);
        QCOMPARE(times.count, 10);
        view.qwtPlot()->axisWidget(QwtPlot::xBottom)->update(); // which works as ever
        view.settle();
        QCOMPARE(times.count, 11);
    }

    // Opaque widgets on the canvas leave a region with holes.
    void aRegionOfTheCanvasIsCopied()
    {
        ModelView view(2, 300);
        const QImage whole = view.canvas().convertToFormat(QImage::Format_RGB32);
        for (const int holes : {1, 40}) {
            QImage expected = whole;
            QPainter painter(&expected);
            QRegion region(view.qwtPlot()->canvas()->rect());
            for (int i = 0; i < holes; ++i) {
                const QRect hole(7 + 11 * i, 30 + 5 * i, 9, 200);
                region -= hole;
                painter.fillRect(hole, Qt::magenta);
            }
            QImage copy(whole.size(), QImage::Format_RGB32);
            copy.setDevicePixelRatio(whole.devicePixelRatio());
            copy.fill(Qt::magenta);
            view.qwtPlot()->canvas()->render(&copy, QPoint(), region);
            QCOMPARE(copy, expected);
        }
    }

    //! The frame around the canvas is kept from picture to picture, and is that of the present size and colours.
    void keptFrameIsThatOfTheColours()
    {
        const auto picture = [](ModelView &view) {
            view.settle();
            view.qwtPlot()->replot();
            return view.qwtPlot()->canvas()->grab().toImage();
        };
        const std::function<void(ModelView &)> changes[] = {
            [](ModelView &view) { view.resize(view.size() + QSize(10, 20)); },
            [](ModelView &view) { view.setPalette(darkPalette()); },
        };
        for (const auto &change : changes) {
            ModelView used(2, 20), fresh(2, 20);
            const QImage before = picture(used);
            change(used);
            change(fresh);
            QVERIFY(picture(used) != before);
            QCOMPARE(picture(used), picture(fresh));
        }
    }

    //! Without readings, a chart shows the unit of its channels and the time that it will show, and no numbers of earlier ones.
    void zeroedStateIsReadable()
    {
        const auto isGreen = [](const QColor &c) {
            return c.green() > 220 && c.red() < 200 && c.blue() < 200;
        };
        const auto isBlack = [](const QColor &c) { return c.lightness() < 40; };
        for (const bool dark : {false, true}) {
            DevicePanel panel(1, {{1, {5}}, {2, {6}}});
            if (dark)
                panel.setPalette(darkPalette());
            const auto drawn = [&](const char *name, const std::function<bool(QColor)> &matches) {
                return countPixels(panel.control(name)->grab().toImage(), matches);
            };
            QCOMPARE(drawn("clearZeroButton", isGreen), 0);
            panel.click("zeroButton");
            QVERIFY(drawn("clearZeroButton", isGreen) > 100);
            panel.click("confButton");
            QCoreApplication::processEvents();
            QVERIFY(drawn("stateLabel", isGreen) > 300);
            QVERIFY(drawn("stateLabel", isBlack) > 20);
        }
    }

    //! On a white canvas every curve can be told from the ground, and the black one has its own colours again.
    void curvesOnWhite()
    {
        DevicePanel panel(8, {{1, {1, 2, 3, 4, 5, 6, 7, 8}}, {2, {1, 2, 3, 4, 5, 6, 7, 8}}});
        panel.resize(900, 500);
        panel.show();
        RVXScopePlotView &view = *panel.plotView();
        const auto colors = [&] {
            QVector<QColor> found;
            QCoreApplication::processEvents();
            for (const QwtPlotItem *curve : panel.plot()->itemList(QwtPlotItem::Rtti_PlotCurve))
                found << static_cast<const QwtPlotCurve *>(curve)->pen().color();
            return found;
        };
        QTRY_COMPARE(colors().size(), 8);
        const QVector<QColor> onBlack = colors();
        view.setLightCanvas(true);
        QCOMPARE(panel.plot()->canvasBackground().color(), QColor(Qt::white));
        QTRY_VERIFY(colors() != onBlack);
        for (const QColor &color : colors())
            QVERIFY2(contrast(color.rgb(), qRgb(255, 255, 255)) >= 3.0, qPrintable(color.name()));
        view.setLightCanvas(false);
        QTRY_COMPARE(colors(), onBlack);
        QCOMPARE(panel.plot()->canvasBackground().color(), QColor(Qt::black));
    }

    //! What is drawn beside the curves can be seen on white as well: limits and the fits of all statistics items.
    void marksOnWhite()
    {
        HistogramView view(32);
        view.setLightCanvas(true);
        view.showBeam();
        const auto added = [&view](const QImage &before) { // the pixels that were white
            view.qwtPlot()->replot();
            const QImage now = view.canvas();
            QVector<QColor> colors;
            forEachPixel(now, [&](int x, int y) {
                const bool wasWhite = before.pixelColor(x, y) == Qt::white;
                if (wasWhite && now.pixelColor(x, y) != QColor(Qt::white))
                    colors << now.pixelColor(x, y);
            });
            return colors;
        };
        const auto paleOf = [](const QVector<QColor> &colors) {
            return int(std::count_if(colors.begin(), colors.end(), [](const QColor &color) {
                return contrast(color.rgb(), qRgb(255, 255, 255)) < 3.0;
            }));
        };
        view.enableAll(true);
        view.settle();
        const QwtPlotItemList fits = view.qwtPlot()->itemList(QwtPlotItem::Rtti_PlotCurve);
        QVERIFY(fits.size() >= 3);
        for (QwtPlotItem *fit : fits)
            fit->setVisible(false);
        view.qwtPlot()->replot();
        const QImage before = view.canvas();
        int seen = 0;
        for (QwtPlotItem *fit : fits) {
            fit->setVisible(true);
            const QVector<QColor> colors = added(before);
            seen += colors.isEmpty() ? 0 : 1; // a line may lie on bars only
            QCOMPARE(paleOf(colors), 0);
            fit->setVisible(false);
        }
        QVERIFY(seen >= 2);
        ChannelLimits limits;
        limits.highWarning = 1.9e-9;
        limits.highAlarm = 2.9e-9; // neither lies on a line of the grid, which is not white
        view.setChannelLimits(2, limits); // above whose bar the canvas is white
        view.settle();
        const QVector<QColor> lines = added(before);
        for (const QColor &color : lines)
            QVERIFY2(contrast(color.rgb(), qRgb(255, 255, 255)) >= 3.0, qPrintable(color.name()));
        QVERIFY(lines.contains(QColor(255, 80, 70)));
        QVERIFY(lines.size() > lines.count(QColor(255, 80, 70))); // the warning is there as well
    }

    //! A picture has what is asked for, and the panel is as it was.
    void pictures()
    {
        DevicePanel panel(20, {{1, QVector<double>(20, 1.0)}, {2, QVector<double>(20, 2.0)}});
        panel.resize(600, 400);
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        DisplayPicture picture(panel.plotView());
        const auto painted = [&picture](int times = 1) {
            QImage image(picture.size(), QImage::Format_RGB32);
            image.setDotsPerMeterX(image.dotsPerMeterX() * times);
            image.setDotsPerMeterY(image.dotsPerMeterY() * times);
            QPainter painter(&image);
            picture.paint(&painter);
            return image;
        };
        const QImage plain = painted();
        QCOMPARE(plain.size(), panel.plotView()->size());
        picture.setLegendVisible(true);
        picture.setTitle("run 12");
        // The resolution of a printer does not make the texts larger than their places.
        for (const bool above : {true, false}) {
            const QRect lines(0, above ? 0 : picture.size().height() - 14, plain.width(), 14);
            QCOMPARE(painted(10).copy(lines), painted().copy(lines));
        }
        picture.setTitle(QString());
        const int withLegend = picture.size().height();
        QVERIFY(withLegend > plain.height());
        panel.topLevelModel()->setData(panel.topLevelModel()->index(0, 1), 0, Qt::CheckStateRole);
        for (int channel = 2; channel <= 19; ++channel)
            panel.topLevelModel()->setData(panel.topLevelModel()->index(0, channel), 0,
                                           Qt::CheckStateRole);
        QVERIFY(picture.size().height() < withLegend); // only one channel is shown
        picture.setLegendVisible(false);
        picture.setTitle(QString("a long title ").repeated(100));
        picture.setNote("12:00");
        QCOMPARE(picture.size().width(), plain.width());
        picture.setColors(DisplayPicture::Colors::Light);
        QCOMPARE(painted().pixelColor(1, 1).lightness() > 200, true);
        picture.setColors(DisplayPicture::Colors::Dark);
        QCOMPARE(painted().pixelColor(1, 1).lightness() < 80, true);
        QVERIFY(!panel.plotView()->hasLightCanvas());
        panel.plotView()->setLegendVisible(true);
        QTRY_VERIFY(panel.findChild<ScopeLegend *>()->isVisible());
        picture.setColors(DisplayPicture::Colors::Light);
        picture.setTitle(QString());
        picture.setNote(QString());
        const auto *legend = panel.findChild<ScopeLegend *>();
        const QPoint corner = legend->mapTo(panel.plotView(), QPoint());
        const QImage drawn = painted().copy(QRect(corner, legend->size()));
        const QColor ground = drawn.pixelColor(0, 0);
        QVERIFY(countPixels(drawn, [ground](const QColor &color) { return color != ground; }) > 0);
        // One that shows only some of the channels gives its place to the whole legend, here of a single channel.
        QVERIFY(legend->verticalScrollBar()->maximum() > 0);
        picture.setLegendVisible(true);
        QCOMPARE(picture.size().height() < panel.plotView()->height(), true);
        QVERIFY(!panel.plotView()->testAttribute(Qt::WA_SetPalette));
        auto display = std::make_unique<QWidget>();
        const DisplayPicture gone(display.get());
        display.reset();
        QVERIFY(gone.size().isEmpty());
    }

    //! The many digits of a reading without a prefix are not painted over the name of its channel.
    void theLegendKeepsNamesAndReadingsApart()
    {
        const auto nameBeside = [](double reading) {
            ScopeTestModel model(1);
            model.names = QStringList{"left"};
            model.append({{0.0, reading}});
            LegendModel channels;
            channels.setSource(&model);
            const QModelIndex channel = channels.index(0);
            const LegendDelegate delegate;
            QStyleOptionViewItem option;
            option.rect = QRect(QPoint(), delegate.sizeHint(option, channel));
            QImage cell(option.rect.size(), QImage::Format_RGB32);
            cell.fill(Qt::white);
            QPainter painter(&cell);
            delegate.paint(&painter, option, channel);
            const int name = option.fontMetrics.horizontalAdvance("left");
            return cell.copy(0, 0, 38 + name, cell.height()); // with the line of the curve
        };
        QCOMPARE(nameBeside(-1.2345678901234567e-9), nameBeside(1.0));
    }

    //! However narrow the legend is, a number is whole, but for digits that it is rounded by, or it is not there.
    void theLegendShowsWholeNumbers()
    {
        const QFontMetrics metrics((QFont()));
        for (const double reading : {-1.2345678901234567e-4, 0.05, 123456.789, 2.5e-12}) {
            const QString whole = QString::number(reading, 'g', 15) + " nA";
            for (int room = metrics.horizontalAdvance(whole); room >= 0; --room) {
                const QString text = fittedReading(whole, metrics, room);
                QVERIFY2(metrics.horizontalAdvance(text) <= room, qPrintable(text));
                QVERIFY2(text.isEmpty() || text.endsWith(" nA"), qPrintable(text));
                const double shown = text.isEmpty() ? reading : text.chopped(3).toDouble();
                QVERIFY2(std::abs(shown - reading) <= 0.005 * std::abs(reading), qPrintable(text));
            }
        }
        ScopeTestModel model(1);
        LegendModel channels;
        channels.setSource(&model);
        const QString wide = channels.index(0).data(LegendModel::WideValueRole).toString();
        const int usual = metrics.horizontalAdvance(wide);
        QVERIFY(!fittedReading("-0.00012345678", metrics, usual).isEmpty());
    }

    //! A prefix stays as long as it suits the readings, unless prefixes are switched off and on.
    void theLegendBeginsItsPrefixesAnew()
    {
        ModelView view(1, 20);
        view.model.names = QStringList{"left"};
        view.setSiPrefix(true);
        view.setLegendVisible(true);
        view.settle();
        const auto spoken = [legend = view.findChild<ScopeLegend *>()->model()] {
            return legend->index(0, 0).data(Qt::AccessibleTextRole).toString();
        };
        QCOMPARE(spoken(), QString("left, 1.000 A"));
        view.model.show({0.9});
        QCOMPARE(spoken(), QString("left, 0.900 A"));
        view.setSiPrefix(false);
        view.setSiPrefix(true);
        QCOMPARE(spoken(), QString("left, 900 mA"));
    }

    //! The legend shows names and newest values, lifts the curve under the mouse, and hides channels by mouse and keys.
    void theLegendServesTheChannels()
    {
        ModelView view(3, 20);
        view.model.names = QStringList{"left", "right", "sum"};
        view.setSiPrefix(true);
        view.setLegendVisible(true);
        view.settle();
        auto *legend = view.findChild<ScopeLegend *>();
        if (!legend)
            QFAIL("there is no legend");
        QVERIFY(legend->isVisible());
        view.canvas();
        QCOMPARE(runningTimers(*legend), 1);
        QTRY_COMPARE(runningTimers(*legend), 0);
        view.settle(); // the values that it paints now are no picture
        QCOMPARE(runningTimers(*legend), 0);
        const auto row = [legend](int i) { return legend->model()->index(i, 0); };
        QCOMPARE(row(1).data().toString(), QString("right"));
        QCOMPARE(row(1).data(Qt::AccessibleTextRole).toString(), QString("right, 2.000 A"));

        const auto place = [&](int i) { return legend->visualRect(row(i)).center(); };
        for (int i : {0, 1})
            moveMouse(legend->viewport(), place(i));
        QCOMPARE(view.raisedChannel(), 2);
        view.settle();
        const auto curves = view.curves();
        QVERIFY(curves.last()->title().text() == "Channel 1" && curves.last()->pen().width() > 1);

        QTest::mouseClick(legend->viewport(), Qt::LeftButton, Qt::NoModifier, place(1));
        QCOMPARE(view.model.index(0, 2).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        QCOMPARE(view.curves().size(), 2);
        legend->setFocus(Qt::TabFocusReason);
        legend->setCurrentIndex(row(1));
        QTest::keyClick(legend, Qt::Key_Return);
        QCOMPARE(view.curves().size(), 3);
        QTest::keyClick(legend, Qt::Key_Left);
        QCOMPARE(view.raisedChannel(), 1);
        QTest::keyClick(legend, Qt::Key_Space);
        QCOMPARE(view.model.index(0, 1).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));

        // A channel tells how it lies among its limits, also while it is hidden.
        ChannelLimits limits;
        limits.lowWarning = 1.5;
        QSignalSpy repainted(legend->model(), &QAbstractItemModel::dataChanged);
        view.setChannelLimits(1, limits);
        QVERIFY(repainted.last()[0].toModelIndex() == row(0));
        QCOMPARE(row(0).data(Qt::UserRole + 2).toString(), QString("Low warning"));
        QCOMPARE(row(0).data(Qt::AccessibleTextRole).toString(),
                 QString("left, 1.000 A, Low warning"));
        limits.lowAlarm = 1.25;
        view.setChannelLimits(1, limits);
        QCOMPARE(row(0).data(Qt::UserRole + 2).toString(), QString("Low alarm"));
        const QRect item = legend->visualRect(row(0));
        const auto red = [&] {
            view.settle();
            const QImage picture = legend->viewport()->grab(item).toImage();
            int found = 0;
            for (int x = 0; x < picture.width(); ++x)
                found += picture.pixelColor(x, picture.height() / 2 - 6) == QColor(255, 80, 70);
            return found;
        };
        QVERIFY(red() > 5);
        view.setChannelLimits(1, ChannelLimits());
        QCOMPARE(row(0).data(Qt::AccessibleTextRole).toString(), QString("left, 1.000 A"));
        QCOMPARE(red(), 0);

        // Another model, and none.
        ScopeTestModel other(5);
        view.setModel(&other);
        view.settle();
        QCOMPARE(legend->model()->rowCount(), 5);
        QCOMPARE(row(0).data(Qt::UserRole).toString(), QString()); // there is no reading
        view.setModel(nullptr);
        view.settle();
        QCOMPARE(legend->model()->rowCount(), 0);
        legend->setFocus();
    }

    //! Only values that have changed are painted again. A picture of the legend does not change what the screen shows.
    void theLegendPaintsWhatHasChanged()
    {
        ModelView view(3, 20);
        view.setLegendVisible(true);
        view.canvas();
        auto *legend = view.findChild<ScopeLegend *>();
        QVERIFY(legend);
        QTRY_COMPARE(runningTimers(*legend), 0);
        view.settle();
        view.model.append({{100.0, 1.0, 7.0, 3.0}});
        view.canvas();
        legend->grab();
        const PaintCounter repaints(legend->viewport());
        QTRY_COMPARE(runningTimers(*legend), 0);
        const QModelIndex changed = legend->model()->index(1, 0);
        QTRY_COMPARE(repaints.painted, QRegion(legend->visualRect(changed)));
    }

    void theTimeAxisFollowsTheLanguage()
    {
        ModelView view(1, 1000, 1000);
        view.setTimeOrigin(QDateTime(QDate(2026, 3, 29), QTime(0, 45), Qt::UTC));
        const QByteArray zone = qgetenv("TZ");
        qputenv("TZ", "Europe/Berlin");
        view.setTimeAxis(RVXScopePlotView::LocalTime);
        qputenv("TZ", zone);
        QCOMPARE(view.title(QwtPlot::xBottom), QString("Time (local, UTC+1, then UTC+2)"));
        const BracketTranslator translator;
        view.settle();
        QCOMPARE(view.title(QwtPlot::xBottom), QString("<Time (local, <UTC+1, then UTC+2>)>"));
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXScopeAppearance)
#include "tst_RVXScopeAppearance.moc"
