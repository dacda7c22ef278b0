// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ProfileEstimators.h"
#include "tests/support/RealReadings.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

/*! Fits of ten frames of an electron beam, against fits that another program made of them (reference.csv). Those have a
    linear background and take the value in the middle of a cell, which widens the beam: its sigma is
    sqrt(sigma^2 + width^2 / 12). The digits of the first frame are published ones. */
class tst_RealProfiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void projections_data() { frames(); }
    void projections()
    {
        QFETCH(QStringList, reference);
        QFETCH(int, frame);
        if (reference.isEmpty())
            QSKIP("There are no real readings in CORVALE_QT_DATA_DIR.");
        for (const auto &[axis, column] : {std::pair('x', 2), std::pair('y', 4)}) {
            const BeamProfile pixels =
                profile("lcls-otr-frames/projections_350x262.csv", frame, axis, 1, 0);
            const double mean = reference[column].toDouble();
            const double sigma = reference[column + 1].toDouble();
            const BeamEstimate linear = leastSquaresGaussian(pixels, FitBackground::Linear);
            QVERIFY(linear.isOk());
            QVERIFY(std::abs(linear.position.value - mean) < 0.002);
            QVERIFY(std::abs(widened(linear, 1) / sigma - 1) < 0.001);
            // The slope of the background moves a fit without one, by less than half of its standard error.
            const BeamEstimate constant = leastSquaresGaussian(pixels);
            QVERIFY(std::abs(constant.position.value - mean) < 0.12);
            QVERIFY(std::abs(constant.position.value - mean) < 0.5 * constant.position.error);
            QVERIFY(std::abs(widened(constant, 1) / sigma - 1) < 0.02);
        }
    }

    void strips_data() { frames(); }
    //! The first strip of x covers pixels 121 to 124, that of y 82 to 85.
    void strips()
    {
        QFETCH(QStringList, reference);
        QFETCH(int, frame);
        if (reference.isEmpty())
            QSKIP("There are no real readings in CORVALE_QT_DATA_DIR.");
        for (const auto &[axis, column, first] :
             {std::tuple('x', 6, 122.5), std::tuple('y', 8, 83.5)}) {
            const BeamProfile strips =
                profile("lcls-otr-frames/strips_32x32.csv", frame, axis, 4, first);
            const BeamEstimate fit = leastSquaresGaussian(strips, FitBackground::Linear);
            QVERIFY(fit.isOk());
            QVERIFY(std::abs(fit.position.value - reference[column].toDouble()) < 0.005);
            QVERIFY(std::abs(widened(fit, 4) / reference[column + 1].toDouble() - 1) < 0.002);
        }
    }

private:
    static void frames()
    {
        columns<QStringList, int>("reference", "frame");
        const auto reference = realReadings("lcls-otr-frames/reference.csv");
        for (int frame = 1; frame < reference.size(); ++frame)
            QTest::addRow("frame %s", qPrintable(reference[frame][0])) << reference[frame] << frame;
        if (reference.isEmpty())
            QTest::newRow("none") << QStringList() << 0;
    }

    //! The profile of one axis in a file whose columns are named after their axis.
    static BeamProfile profile(const char *file, int frame, QChar axis, double pitch, double first)
    {
        const auto lines = realReadings(file);
        QVector<double> readings;
        for (int i = 2; i < lines.value(0).size(); ++i)
            if (lines[0][i].startsWith(axis))
                readings << lines[frame][i].toDouble();
        return BeamProfile::uniform(readings, pitch, first);
    }

    static double widened(const BeamEstimate &fit, double width)
    {
        return std::sqrt(std::pow(fit.sigma.value, 2) + width * width / 12);
    }
};

CORVALE_QT_TEST_MAIN(tst_RealProfiles)
#include "tst_RealProfiles.moc"
