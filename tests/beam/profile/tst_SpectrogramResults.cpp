// SPDX-License-Identifier: LGPL-2.1-or-later
// The numbers of frames apart from the picture.
#include "corvale_qt/beam/profile/BeamFrame.h"
#include "tests/beam/profile/BeamDisplay.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

//! Records "frame at its time: mean X" of every result that a display announces.
class ResultLog
{
public:
    explicit ResultLog(RVXSpectrogram &display)
        : m_spy(&display, &RVXSpectrogram::frameCalculated)
    {
    }
    QString take()
    {
        QStringList lines;
        for (const QList<QVariant> &call : qAsConst(m_spy)) {
            const auto result = call.first().value<SpectrogramResult>();
            lines << QStringLiteral("%1 at %2 s: %3 mm")
                         .arg(result.frame)
                         .arg(result.time)
                         .arg(qRound(result.calc.meanX));
        }
        m_spy.clear();
        return lines.join(", ");
    }

private:
    QSignalSpy m_spy;
};

} // namespace

class tst_SpectrogramResults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFrameIsAnnounced_data()
    {
        QTest::addColumn<bool>("sidebar");
        QTest::newRow("with the side bar") << true;
        QTest::newRow("without it") << false;
    }
    //! A beam that moves by one strip, 2 mm, from frame to frame, although the display shows only the last frame.
    void everyFrameIsAnnounced()
    {
        BeamDisplay display(Detector::Strips);
        display.widget.sidebarEnabled(cell<bool>("sidebar"));
        ResultLog log(display.widget);
        for (double x : {13.5, 14.5, 15.5, 16.5})
            display.feedBetweenTicks(Frames::strips(x, 2, 15.5, 2));
        QCOMPARE(log.take(),
                 QString("1 at 1 s: -4 mm, 2 at 2 s: -2 mm, 3 at 3 s: 0 mm, "
                         "4 at 4 s: 2 mm"));
        QCOMPARE(display.widget.shownResult().status, FitStatus::NotComputed);
        display.tick();
        QTRY_COMPARE(display.widget.shownResult().frame, qint64(4));
        QCOMPARE(display.widget.shownResult().calc.meanX, display.widget.getCalc().meanX);
        display.tick();
        QCOMPARE(log.take(), QString()); // showing a frame does not announce it again
    }

    void ignoredFramesLeaveAGap()
    {
        BeamDisplay display;
        ResultLog log(display.widget);
        const QVector<double> frame = Frames::strips(15.5, 2, 15.5, 2);
        display.widget.setData(frame, 1); // without a layout
        display.choose(Detector::Strips);
        display.widget.setData(frame, 2);
        display.widget.setData(frame, 2);
        display.widget.setData(frame, qQNaN());
        display.widget.setData(QVector<double>(128, 0.0), 3);
        QCOMPARE(display.widget.result().frame, qint64(2));
        display.widget.setData(frame, 4);
        QCOMPARE(log.take(), QString("2 at 2 s: 0 mm, 6 at 4 s: 0 mm"));
    }

    void notComputedIsToldFromAFailure()
    {
        BeamDisplay display(Detector::Strips);
        const auto statuses = [&display] {
            return QStringLiteral("%1 %2")
                .arg(int(display.widget.result().status))
                .arg(int(display.widget.shownResult().status));
        };
        QCOMPARE(statuses(), QString("-9 -9"));
        QVERIFY(std::isnan(display.widget.result().time));
        display.feed(Frames::strips(15.5, 2, 31, 2));
        QCOMPARE(statuses(), QString("-3 -3")); // the peak of Y is on the edge
        display.feedBetweenTicks(Frames::strips(15.5, 2, 15.5, 2));
        QCOMPARE(statuses(), QString("0 -3"));
        display.choose(Detector::Pixels);
        QCOMPARE(statuses(), QString("-9 -9"));
        display.feed(QVector<double>(128, 0.0));
        QCOMPARE(statuses(), QString("-4 -4"));
        display.feed(QVector<double>(128, 1e307));
        QCOMPARE(statuses(), QString("-8 -8"));
    }

    //! Nobody listens and nothing is shown, so the numbers are computed when they are asked for.
    void newestFrameOnDemand()
    {
        BeamDisplay display(Detector::Pixels);
        display.widget.sidebarEnabled(false);
        display.feedBetweenTicks(Frames::pixels(4, -6, 3, 3, 0));
        display.feedBetweenTicks(Frames::pixels(5, -6, 3, 3, 0));
        QVERIFY(near(display.widget.result().calc.meanX, 5, 0.02));
        QCOMPARE(display.widget.result().frame, qint64(2));
        QVERIFY(!display.widget.getCalc().valid);
        display.check("checkBox_invertX", true);
        QVERIFY(near(display.widget.result().calc.meanX, -5, 0.02));
        QVERIFY(!display.widget.result().isCurrent);
        const double charge = display.widget.result().calc.integral;
        display.widget.setSampleRate(1000);
        display.widget.currentEnabled(true);
        QVERIFY(display.widget.result().isCurrent);
        QVERIFY(near(display.widget.result().calc.integral / charge, 1000, 1e-9));
        display.widget.setSampleRate(500);
        QVERIFY(near(display.widget.result().calc.integral / charge, 500, 1e-9));
    }

    //! The minimum peak is a charge, whatever is shown.
    void sameFitsInCoulombAndAmpere()
    {
        BeamDisplay display(Detector::Strips);
        display.widget.setSampleRate(1000);
        for (bool current : {false, true, false}) {
            display.widget.currentEnabled(current);
            for (const auto &[limit, status] : {std::pair(2e-9, -2), std::pair(0.5e-9, 0)}) {
                display.widget.SetRegressionOptions(true, {0, 1024, limit, 0}, 1);
                QVERIFY(display.feed(Frames::strips(15, 2, 15, 2, 1e-9)).valid == (status == 0));
                QCOMPARE(int(display.widget.result().status), status);
            }
        }
    }

    void displayMayBeDeletedByASlot()
    {
        for (bool deletedByShown : {false, true}) {
            QPointer<RVXSpectrogram> display = new RVXSpectrogram;
            display->setPixelated(true);
            display->sidebarEnabled(false);
            QMetaObject::invokeMethod(display, "update");
            const auto remove = [&display] {
                delete display;
            };
            int announced = 0;
            if (deletedByShown)
                connect(display, &RVXSpectrogram::calcUpdate, this, remove);
            connect(display, &RVXSpectrogram::frameCalculated, this, [&] {
                ++announced;
                remove();
            });
            display->setData(Frames::pixels(0, 0, 3, 3, 0), 1);
            QVERIFY(!display);
            QCOMPARE(announced, deletedByShown ? 0 : 1);
        }
    }

    void framesWithoutADisplay()
    {
        const QVector<double> pixels = Frames::pixels(4, -6, 3.5, 3, 0);
        FrameOptions options;
        BeamFrame frame =
            computeFrame(ProfileLayout::PixelMatrix, pixels.constData(), pixels.size(), options);
        QCOMPARE(frame.status, FitStatus::Ok);
        QVERIFY(near(frame.calc.meanX, 4, 0.02) && near(frame.calc.meanY, -6, 0.02));
        QVERIFY(near(frame.calc.sigmaX, 3.5, 0.05) && near(frame.calc.sigmaY, 3, 0.05));
        QCOMPARE(frame.raster.size(), 144);
        options.invertY = true;
        frame = computeFrame(ProfileLayout::PixelMatrix, pixels.constData(), 128, options);
        QVERIFY(near(frame.calc.meanY, 6, 0.02));

        const QVector<double> strips = Frames::strips(20.5, 2, 12.5, 3) + QVector<double>(100, 7.0);
        frame = computeFrame(ProfileLayout::StripPair, strips.constData(), strips.size());
        QVERIFY(near(frame.calc.meanX, 10, 1e-9) && near(frame.calc.meanY, -6, 1e-9));
        QVERIFY(near(frame.calc.sigmaX, 4, 1e-9) && near(frame.calc.sigmaY, 6, 1e-9));
        // Without the readings of Y there is nothing to fit.
        frame = computeFrame(ProfileLayout::StripPair, strips.constData(), 32);
        QCOMPARE(frame.status, FitStatus::PeakOnEdge);
        QVERIFY(near(frame.calc.meanX, 10, 1e-9));
        QCOMPARE(frame.calc.meanY, SpectrogramCalc::invalid);
        QCOMPARE(computeFrame(ProfileLayout::None, nullptr, 0).status, FitStatus::NotComputed);
    }
};

CORVALE_QT_TEST_MAIN(tst_SpectrogramResults)
#include "tst_SpectrogramResults.moc"
