// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/DetectorPresets.h"
#include "monitor/readings/StreamDetector.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/FrameFeeder.h"
#include "monitor/window/SpotLayers.h"
#include "tests/monitor/support/MarkedLanguage.h"
#include "tests/monitor/support/ScriptedSession.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/beam/spots/SpotMapView.h>
#include <corvale_qt/beam/spots/SpotMapWidget.h>
#include <corvale_qt/detector/DetectorFile.h>
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>

#include <qwt_plot.h>
#include <qwt_scale_div.h>

using namespace Monitor;

namespace {

//! A beam at (x, y) mm, as a 12 by 12 matrix of 3.8 mm sees it, row 1 at the smallest y.
std::vector<double> pixelBeam(double x, double y, double sigma = 4.0)
{
    constexpr int side = 12;
    constexpr double pitch = 3.8;
    std::vector<double> values;
    for (int row = 0; row < side; ++row)
        for (int column = 0; column < side; ++column)
            values.push_back(1e3
                             * std::exp(-0.5
                                        * (std::pow((column - 5.5) * pitch - x, 2)
                                           + std::pow((row - 5.5) * pitch - y, 2))
                                        / (sigma * sigma)));
    return values;
}

std::vector<double> stripBeam(double x, double y, double sigma = 6.0)
{
    std::vector<double> values;
    for (const double mean : {x, y})
        for (int i = 0; i < 32; ++i)
            values.push_back(1e3 * std::exp(-0.5 * std::pow(((i - 15.5) * 2.0 - mean) / sigma, 2)));
    return values;
}

Corvale_Qt::DetectorLayout named(const char *preset)
{
    Corvale_Qt::DetectorFault fault;
    return detectorNamed(QLatin1String(preset), &fault);
}

//! The displays of frames on a session that the test moves.
struct FedDisplays : ScriptedSession
{
    Corvale_Qt::RVXSpectrogram profile;
    Corvale_Qt::RVXPositionPlot position;
    FrameFeeder feeder{&session.model(), &profile, &position};
    FedDisplays()
    {
        QObject::connect(&session, &Session::frameShown, &feeder, &FrameFeeder::takeFrame);
    }
};

} // namespace

static StreamHeader spotHeader()
{
    StreamHeader header;
    header.kind = StreamKind::Spots;
    for (const char *name : {"layer", "x", "y", "mu", "sigma_x", "sigma_y"})
        header.channels.append({QLatin1String(name), {}});
    return header;
}

//! A beam moved by some millimetres reads the same millimetres, whatever way its frames take.
class tst_FrameDisplays : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    //! In millimetres of a preset, and in cells of a detector that nobody described.
    void aMovedBeamReadsItsPosition()
    {
        struct Case
        {
            StreamKind kind;
            int channels;
            const char *preset;
            double pitch, middle; // as they are read
            double tolerance;
        };
        const Case cases[] = {
            {StreamKind::Strips, 64, "", 2.0, 16.5, 1e-6},
            {StreamKind::Strips, 64, "preset:strips64", 1.0, 0.0, 1e-6},
            {StreamKind::Pixels, 144, "", 3.8, 6.5, 0.01},
            {StreamKind::Pixels, 144, "preset:pixels144", 1.0, 0.0, 0.1}, // corners are missing
        };
        for (const Case &one : cases) {
            for (const QPointF &place :
                 {QPointF(0, 0), QPointF(3, 0), QPointF(0, 3), QPointF(-2, -4)}) {
                FedDisplays s;
                if (*one.preset)
                    s.session.setDetector(named(one.preset));
                s.source->begin(one.kind, one.channels, "pC");
                QVERIFY(s.feeder.hasProfile());
                const bool pixels = one.kind == StreamKind::Pixels;
                const auto [x, y] = std::pair(place.x(), place.y());
                s.source->give(0.0, pixels ? pixelBeam(x, y) : stripBeam(x, y));
                QTRY_VERIFY(s.feeder.hasShownProfile());
                const Corvale_Qt::SpectrogramCalc calc = s.profile.getCalc();
                const double readX = (calc.meanX - one.middle) * one.pitch;
                const double readY = (calc.meanY - one.middle) * one.pitch;
                QVERIFY2(std::abs(readX - x) < one.tolerance, qPrintable(QString::number(readX)));
                QVERIFY2(std::abs(readY - y) < one.tolerance, qPrintable(QString::number(readY)));
                QCOMPARE(s.profile.lengthUnit(Corvale_Qt::DetectorLayout::Axis::Y),
                         QString(*one.preset ? "mm" : "cells"));
                QCOMPARE(s.profile.intensityUnit(), QString("pC"));
            }
        }
    }

    //! Charge in the corners of a matrix, where the round detector has no pixels.
    void cellsWithoutAWireAreTold()
    {
        for (const bool frames : {false, true}) {
            FedDisplays s;
            s.session.setDetector(named("preset:pixels144"));
            const MarkedLanguage marked;
            QVector<LoggedText> told;
            connect(&s.feeder, &FrameFeeder::leftOutChanged, this,
                    [&](const LoggedText &text) { told.append(text); });
            StreamHeader header;
            header.kind = StreamKind::Pixels;
            header.channels = StreamHeader::pixelChannels(12, 12);
            for (Channel &channel : header.channels)
                channel.unit = "nC";
            if (frames)
                header.setFrames(Corvale_Qt::DetectorLayout::fromDescription(countedMatrix(12, 12)),
                                 "nC");
            s.source->begin(header);
            std::vector<double> values(144, 0.0);
            values[6 * 12 + 5] = values[5 * 12 + 5] = values[5 * 12 + 6] = 5.0;
            s.source->give(0.0, values);
            s.settle();
            QCOMPARE(told.size(), 0);
            values[10] = 100.0; // row 1, column 11
            s.source->give(0.1, values);
            s.settle();
            const QString text = "24 cells are not wired: 100 nC left out";
            QCOMPARE(told.size(), frames ? 0 : 1);
            const auto shown =
                LoggedText::of([&] { return s.session.statistics().leftOut().text(); });
            QCOMPARE((frames ? shown : told.first()).logged(), text);
            QLabel notice((frames ? shown : told.first()).shown());
            QVERIFY2(MarkedLanguage::unmarked(&notice).isEmpty(), qPrintable(notice.text()));
            s.source->begin(StreamKind::Channels, 2);
            QCOMPARE(told.size(), frames ? 0 : 2);
        }
    }

    //! A frame without a beam is drawn, with its verdict.
    void aFrameThatIsNotValidIsShown()
    {
        FedDisplays s;
        s.source->begin(StreamKind::Strips, 64);
        QVERIFY(!s.feeder.hasShownProfile());
        s.source->give(0.0, std::vector<double>(64, 0.0));
        QTRY_VERIFY(s.feeder.hasShownProfile());
        QVERIFY(!s.profile.getCalc().valid);
        QCOMPARE(s.profile.verdict().reasons,
                 QStringList(
                     {"X: no peak above 5 times the noise", "Y: no peak above 5 times the noise"}));
        QTRY_VERIFY(s.position.showsNoBeam());
        s.source->give(1.0, stripBeam(2.0, 0.0));
        s.settle();
        QTRY_VERIFY(!s.position.showsNoBeam());
        s.position.setMinimumSum(1e9);
        s.source->give(2.0, stripBeam(3.0, 0.0));
        s.settle();
        QTRY_VERIFY(s.position.showsNoBeam());
    }

    //! A tick stands at each tenth of the range, which has the detector in its middle.
    void axesOfThePositionAreEasyToRead()
    {
        FedDisplays s;
        StreamHeader header;
        header.setFrames(Corvale_Qt::detectorFromJson(R"({"detector":1,"kind":"matrix",
                "x":{"cells":64,"pitch":1,"unit":"mm"},"y":{"cells":24,"pitch":1,"unit":"mm"}})"),
                         "nC");
        s.source->begin(header);
        const auto ticks = [&s](int axis) {
            return s.position.findChild<QwtPlot *>()->axisScaleDiv(axis).ticks(
                QwtScaleDiv::MajorTick);
        };
        QCOMPARE(ticks(QwtPlot::xBottom),
                 QList<double>({-40, -32, -24, -16, -8, 0, 8, 16, 24, 32, 40}));
        QCOMPARE(ticks(QwtPlot::yLeft),
                 QList<double>({-12.5, -10, -7.5, -5, -2.5, 0, 2.5, 5, 7.5, 10, 12.5}));
    }

    //! "no beam" is shown where there is none, and not for a beam that cannot be measured or lies off the detector.
    void theReasonForNoPositionIsTold()
    {
        FedDisplays s;
        const auto said = [&s](QAccessible::Text kind) {
            auto *plot = s.position.findChild<QwtPlot *>();
            return QAccessible::queryAccessibleInterface(plot)->text(kind);
        };
        StreamHeader header;
        header.setFrames(Corvale_Qt::detectorFromJson(R"({"detector":1,"kind":"matrix",
                "x":{"cells":40,"pitch":0.1,"unit":"cm"},"y":{"cells":24,"pitch":1,"unit":"mm"}})"),
                         "nC");
        s.source->begin(header);
        double time = 0;
        const auto give = [&](const std::function<double(double, double)> &charge) {
            std::vector<double> values;
            for (int row = 0; row < 24; ++row)
                for (int column = 0; column < 40; ++column)
                    values.push_back(charge(column - 19.5, row - 11.5)); // mm
            s.source->give(time += 0.1, values);
            s.settle();
        };
        const auto beamAt = [](double x, double y) {
            return [x, y](double ofX, double ofY) {
                return std::exp(-std::pow((ofX - x) / 3, 2) / 2 - std::pow((ofY - y) / 2, 2) / 2);
            };
        };
        give(beamAt(5, 3));
        QTRY_VERIFY(said(QAccessible::Value).contains("X Position (mm) 5"));
        give(beamAt(22, 3)); // the edge is at 20 mm
        QTRY_VERIFY2(said(QAccessible::Value).contains("X Position (mm) 22"),
                     qPrintable(said(QAccessible::Value)));
        QVERIFY(!s.profile.getCalc().valid);
        // Beside a second spot, the same flank says little of where the first one lies.
        give([&beamAt](double ofX, double ofY) {
            return beamAt(22, 3)(ofX, ofY) + 0.35 * beamAt(-12, 3)(ofX, ofY);
        });
        QTRY_COMPARE(said(QAccessible::Description), QString("position not valid"));
        give([](double ofX, double ofY) {
            return std::abs(ofX) < 12 && std::abs(ofY) < 8 ? 1.0 : 0.0; // a flat field
        });
        QTRY_COMPARE(said(QAccessible::Description), QString("position not valid"));
        QVERIFY(!s.position.showsNoBeam());
        give([](double, double) { return 0.0; });
        QTRY_VERIFY(s.position.showsNoBeam());
        give(beamAt(5, 3));
        QTRY_VERIFY(said(QAccessible::Value).contains("X Position (mm) 5"));
        s.profile.setVerdictLimits([] {
            Corvale_Qt::VerdictLimits limits;
            limits.widestSigma = 0.01;
            return limits;
        }());
        QCOMPARE(said(QAccessible::Description),
                 QString("position not valid")); // without a new frame
    }

    //! One plane has a profile, but no position in a plane.
    void aSinglePlaneHasNoPosition()
    {
        ScriptedSession s;
        Corvale_Qt::DetectorDescription plane;
        plane.kind = Corvale_Qt::DetectorKind::Strips;
        plane.x.cells = 24;
        plane.x.pitch = 2;
        plane.x.unit = QStringLiteral("mm");
        s.session.setDetector(Corvale_Qt::DetectorLayout::fromDescription(plane));
        DisplayTabs displays(s.session);
        s.source->begin(StreamKind::Channels, 24, "nC");
        QVERIFY(displays.offers("profile") && !displays.offers("position"));
        std::vector<double> values;
        values.reserve(24);
        for (int i = 0; i < 24; ++i)
            values.push_back(std::exp(-std::pow(((i - 11.5) * 2 - 4) / 5, 2) / 2));
        s.source->give(0.0, values);
        s.settle();
        QTRY_VERIFY(displays.profile()->getCalc().valid);
        QVERIFY(std::abs(displays.profile()->getCalc().meanX - 4) < 0.01);
        const QString numbers = displays.findChild<QLabel *>("profileNumbers")->text();
        QVERIFY2(!numbers.contains("elongation") && !numbers.contains("rotation")
                     && !numbers.contains('Y'),
                 qPrintable(numbers));
        displays.scope()->plotView()->setValueUnit("pC"); // of all values of the window
        QCOMPARE(displays.profile()->valueUnit(), QString("pC"));
        QVERIFY(displays.findChild<QLabel *>("profileNumbers")->text().contains(QString("pC")));
    }

    void aDescribedDetectorIsShown()
    {
        using Axis = Corvale_Qt::DetectorLayout::Axis;
        Corvale_Qt::DetectorDescription harp;
        harp.kind = Corvale_Qt::DetectorKind::Strips;
        harp.x = Corvale_Qt::DetectorAxis::at({-30, -20, -12, -7, -3, 0, 3, 7, 12, 20, 30},
                                              QStringLiteral("mm"));
        harp.y = harp.x;
        harp.density = true;
        FedDisplays s;
        s.session.setDetector(Corvale_Qt::DetectorLayout::fromDescription(harp));
        s.source->begin(StreamKind::Strips, 22, "nA");
        QVERIFY(s.feeder.hasProfile());
        std::vector<double> frame;
        for (const double mean : {3.0, -2.0})
            for (const double place : harp.x.positions)
                frame.push_back(std::exp(-0.5 * std::pow((place - mean) / 6.0, 2)));
        s.source->give(0.0, frame);
        QTRY_VERIFY(s.profile.getCalc().valid);
        QVERIFY(std::abs(s.profile.getCalc().meanX - 3.0) < 0.02);
        QVERIFY(std::abs(s.profile.getCalc().meanY + 2.0) < 0.02);
        QCOMPARE(s.profile.detectorLayout().cells(Axis::X), 11);
        QTRY_VERIFY(!s.position.showsNoBeam());
        s.source->give(1.0, std::vector<double>(22, 0.0));
        s.settle();
        QTRY_VERIFY(s.position.showsNoBeam());
        QVERIFY(!s.profile.getCalc().valid && s.feeder.hasShownProfile());
    }

    //! A beam on frames of a described matrix reads its place in the profile, in the chart and in the table alike.
    void framesReachTheProfile()
    {
        FedDisplays s;
        StreamHeader header;
        header.setFrames(Corvale_Qt::detectorFromJson(R"({"detector":1,"kind":"matrix",
                "x":{"cells":40,"pitch":0.5,"unit":"mm"},"y":{"cells":30,"pitch":0.5,"unit":"mm"}})"),
                         "nC");
        s.source->begin(header);
        QVERIFY(s.feeder.hasProfile() && s.feeder.hasPosition());
        std::vector<double> values;
        for (int row = 0; row < 30; ++row)
            for (int column = 0; column < 40; ++column)
                values.push_back(std::exp(-std::pow((column - 19.5) * 0.5 - 2.0, 2) / 2
                                          - std::pow((row - 14.5) * 0.5 + 1.0, 2) / 2));
        s.source->give(0.0, values);
        s.settle();
        QTRY_VERIFY(s.feeder.hasShownProfile());
        const Corvale_Qt::SpectrogramCalc calc = s.profile.getCalc();
        const auto number = [&](const char *name) {
            return s.session.model().receivedValue(1, header.indexOf(name));
        };
        for (const double x : {calc.meanX, number("x")})
            QVERIFY2(std::abs(x - 2.0) < 0.01, qPrintable(QString::number(x)));
        for (const double y : {calc.meanY, number("y")})
            QVERIFY2(std::abs(y + 1.0) < 0.01, qPrintable(QString::number(y)));
        QVERIFY(std::abs(calc.sigmaX - 1.0) < 0.03 && std::abs(number("sigma_x") - 1.0) < 0.03);
    }

    void theLastFrameOfABurstStays()
    {
        FedDisplays s;
        s.source->begin(StreamKind::Strips, 64);
        for (int i = 0; i <= 50; ++i)
            s.source->give(0.001 * i, stripBeam(0.1 * i, 0.0));
        s.settle();
        QTRY_VERIFY(std::abs(s.profile.getCalc().meanX - 19.0) < 1e-6);
        s.session.setPaused(true); // frames wait
        for (int i = 1; i < 1000; ++i)
            s.source->give(1.0 + 0.01 * i, stripBeam(2.0, 0.0));
        QVERIFY(std::abs(s.profile.getCalc().meanX - 19.0) < 1e-6);
        s.session.setPaused(false);
        QTRY_VERIFY(std::abs(s.profile.getCalc().meanX - 17.5) < 1e-6);
    }

    void spotLayers()
    {
        ScriptedSession s;
        SpotLayers layers(&s.session.model());
        ModelWatch watch(&layers);
        const auto shown = [&layers] {
            return QString("%1, %2 spots").arg(layers.description()).arg(layers.rowCount());
        };
        const auto step = [&](int steps) {
            layers.step(steps);
            return shown();
        };
        s.source->begin(spotHeader());
        for (int i = 0; i < 9; ++i) {
            const int layer = 1 + i / 4;
            s.source->give(0.02 * i, {double(layer), double(i), 0.0, 1.0, 4.0, 4.0});
        }
        s.settle();
        QCOMPARE(shown(), QString("All 3 layers, 9 spots"));
        QCOMPARE(step(1), QString("Layer 1 of 3, 4 spots"));
        QCOMPARE(step(2), QString("Layer 3 of 3, 1 spots"));
        QCOMPARE(layers.index(0, 2).data(Qt::UserRole).toDouble(), 8.0);
        s.source->give(1.0, {3.0, 9.0, 0.0, 1.0, 4.0, 4.0}); // to the layer that is shown
        s.source->give(1.1, {4.0, 9.0, 0.0, 1.0, 4.0, 4.0}); // to another one
        s.settle();
        QCOMPARE(shown(), QString("Layer 3 of 4, 2 spots"));
        QCOMPARE(step(2), QString("All 4 layers, 11 spots"));
        QCOMPARE(step(-1), QString("Layer 4 of 4, 1 spots"));
        s.source->begin(StreamKind::Channels, 2);
        QCOMPARE(layers.rowCount(), 0);
        // Layers of several beams, and a spot that has neither beam nor layer.
        StreamHeader header = spotHeader();
        header.channels.prepend({"beam", {}});
        s.source->begin(header);
        for (int i = 0; i < 6; ++i) {
            const int layer = 1 + i / 3;
            s.source->give(0.02 * i, {double(layer), 1.0, double(i), 0.0, 1.0, 4.0, 4.0});
        }
        s.source->give(0.2, {std::nan(""), std::nan(""), 9.0, 0.0, 1.0, 4.0, 4.0});
        s.settle();
        QVERIFY(shown().startsWith("All 3 layers"));
        QVERIFY(step(-1).endsWith(", 3 spots"));
        QCOMPARE(layers.index(0, 3).data(Qt::UserRole).toDouble(), 3.0);
        QVERIFY(step(2).endsWith(", 1 spots"));
        QCOMPARE(watch.complaints(), QString());
    }

    void spotsReachTheMap()
    {
        ScriptedSession s;
        SpotLayers layers(&s.session.model());
        Corvale_Qt::SpotMapView map;
        map.setModel(&layers);
        s.source->begin(spotHeader());
        map.setColumnMapper(layers.newColumnMapper());
        s.source->give(0.0, {1.0, -10.0, 20.0, 1.5, 4.0, 3.0});
        s.source->give(0.1, {1.0, 10.0, 0.0, 2.5, 4.0, 3.0});
        s.settle();
        QCOMPARE(map.maxDose(), 2.5F);
        QCOMPARE(map.bounds().center(), QPointF(0.0, 10.0));
        s.source->begin(spotHeader());
        QCOMPARE(map.maxDose(), 0.0F);
    }

    //! The page of position errors and the map get the planned spots, of the layer that is shown.
    void spotsAreComparedWithAPlan()
    {
        ScriptedSession s;
        SpotPlan plan;
        plan.toleranceX = plan.toleranceY = 1.0;
        plan.spots.header = spotHeader();
        plan.spots.readings.clear(6);
        for (const double layer : {1.0, 2.0}) {
            const double spot[] = {layer, 10.0 * layer, 0.0, 2.0, 4.0, 4.0};
            plan.spots.readings.append(layer, spot);
        }
        s.session.setSpotPlan(plan);
        DisplayTabs displays(s.session);
        s.source->begin(spotHeader());
        s.source->give(0.0, {1.0, 12.0, 0.0, 2.0, 4.0, 4.0});
        s.settle();
        QVERIFY(displays.showDisplay("errors"));
        const auto *numbers = displays.findChild<QLabel *>("positionErrors");
        QTRY_VERIFY2(numbers->text().startsWith("1 spot: mean X 2.000, Y 0.000 mm"),
                     qPrintable(numbers->text()));
        QVERIFY(numbers->text().contains("1 outside 1 x 1 mm"));
        auto *map = displays.findChild<Corvale_Qt::SpotMapWidget *>();
        QTRY_COMPARE(map->findChild<QLabel *>("titleLabel")->text(),
                     QString("One layer; 1 missing (2 MU), 0 extra (0 MU)"));
        QCOMPARE(map->spotMapView()->differences().missing, 1);
        // The spot of layer 1 lies 2 mm beside its place, that of layer 2 is missing: the pictures differ.
        displays.resize(800, 700);
        displays.show();
        QVERIFY(displays.showDisplay("spots"));
        QSet<QByteArray> pictures;
        for (const char *name : {"DifferenceButton", "DiffOverlayButton", "DataButton"}) {
            auto *button = map->findChild<QPushButton *>(name);
            QVERIFY2(button->isVisible(), name);
            QTest::mouseClick(button, Qt::LeftButton);
            QVERIFY(button->isChecked());
            const QImage picture = map->spotMapView()->viewport()->grab().toImage();
            pictures.insert(QByteArray(reinterpret_cast<const char *>(picture.constBits()),
                                       int(picture.sizeInBytes())));
        }
        QCOMPARE(pictures.size(), 3);
        s.source->give(0.1, {2.0, 20.0, 0.0, 2.0, 4.0, 4.0});
        s.settle();
        QCOMPARE(map->spotMapView()->differences().missing, 0);
        QTest::keyClick(map, Qt::Key_PageUp);
        QCOMPARE(map->spotMapView()->differences().matched, 1);
        QCOMPARE(map->spotMapView()->differences().missing, 0); // the plan shows the same layer
        s.source->begin(StreamKind::Channels, 2);
        QVERIFY(!displays.showDisplay("errors"));
    }
};

CORVALE_QT_TEST_MAIN(tst_FrameDisplays)
#include "tst_FrameDisplays.moc"
