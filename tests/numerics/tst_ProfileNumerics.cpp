// SPDX-License-Identifier: LGPL-2.1-or-later
// The numbers of a profile, through the headers and the library that hosts get.
#include "corvale_qt/numerics/ProfileEstimators.h"
#include "tests/support/Profiles.h"
#include "tests/support/RealReadings.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/Peak>
#include <corvale_qt/PixelMoments>
#include <corvale_qt/ProfileMoments>
#include <corvale_qt/SignalToNoise>
#include <corvale_qt/ThreePointFit>

using namespace Corvale_Qt;

namespace {

using Values = QVector<double>;

constexpr double inf = std::numeric_limits<double>::infinity();

template<typename T>
ProfileMoments momentsOf(const QVector<T> &values, T fraction = T(0))
{
    return momentsAbove(values.constData(), values.size(), fraction);
}

QVector<float> single(const Values &values)
{
    QVector<float> rounded;
    for (double value : values)
        rounded << float(value);
    return rounded;
}

bool near(double actual, double expected, double tolerance)
{
    if (std::abs(actual - expected) <= tolerance)
        return true;
    qWarning("%.15g, not %.15g", actual, expected);
    return false;
}

//! Returns sum (i - centre)^order v, one bin after another, in the widest precision there is.
long double sumAbout(const Values &values, IndexRange range, long double centre, int order)
{
    long double sum = 0;
    for (int i = range.first; i <= range.last; ++i)
        sum += std::pow((long double)i - centre, order) * (long double)values[i];
    return sum;
}

} // namespace

class tst_ProfileNumerics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowsStayTheirLength()
    {
        const auto window = [](int peak, int halfWidth) {
            const IndexRange range = windowAround(peak, halfWidth, 32);
            return QString("%1..%2").arg(range.first).arg(range.last);
        };
        QCOMPARE(window(10, 3), QString("7..13"));
        QCOMPARE(window(1, 3), QString("0..6"));
        QCOMPARE(window(30, 3), QString("25..31"));
        QCOMPARE(window(5, 16), QString("0..31"));
        QCOMPARE(window(-1, 2), QString("0..4"));
        QCOMPARE(window(3, std::numeric_limits<int>::max()), QString("0..31"));
    }

    void momentsOfKnownShapes_data()
    {
        columns<Values, double, double, double, double>("values", "mean", "variance", "skewness",
                                                        "kurtosis");
        // Uniform over n: (n^2 - 1) / 12 and 3 - 6/5 (n^2 + 1) / (n^2 - 1).
        QTest::newRow("uniform") << Values(9, 2e-9) << 4.0 << 80.0 / 12 << 0.0
                                 << 3 - 1.2 * 82.0 / 80;
        // Binomial: n p, n p q, (q - p) / sqrt(n p q), 3 + (1 - 6 p q) / (n p q).
        QTest::newRow("binomial, 4 and 1/4")
            << Values{81, 108, 54, 12, 1} << 1.0 << 0.75 << 0.5 / std::sqrt(0.75)
            << 3 + (1 - 6 * 0.1875) / 0.75;
        QTest::newRow("Gaussian") << Profiles::gaussian<double>(128, 61.3, 5, 4e-12) << 61.3 << 25.0
                                  << 0.0 << 3.0;
    }
    void momentsOfKnownShapes()
    {
        QFETCH(Values, values);
        QFETCH(double, mean);
        QFETCH(double, variance);
        QFETCH(double, skewness);
        QFETCH(double, kurtosis);
        const auto agrees = [&](const ProfileMoments &moments, double tolerance) {
            return moments.status == FitStatus::Ok && near(moments.mean, mean, tolerance)
                && near(moments.variance, variance, 10 * tolerance)
                && near(moments.sigma, std::sqrt(variance), tolerance)
                && near(moments.skewness, skewness, tolerance)
                && near(moments.kurtosis, kurtosis, 10 * tolerance);
        };
        QVERIFY(agrees(momentsOf(values), 1e-9));
        QVERIFY(agrees(momentsOf(single(values)), 1e-4));
        QVERIFY(agrees(momentsInWindow(values.constData(), values.size(), 1000), 1e-9));
    }

    void momentsEqualABruteForceSum()
    {
        std::mt19937 random(3);
        for (int halfWidth : {1, 4, 11, 40}) {
            Values values(48);
            for (double &value : values)
                value = double(random()) / double(std::mt19937::max());
            const ProfileMoments moments =
                momentsInWindow(values.constData(), values.size(), halfWidth);
            QCOMPARE(moments.status, FitStatus::Ok);
            QCOMPARE(moments.peak.index,
                     int(std::max_element(values.begin(), values.end()) - values.begin()));
            QCOMPARE(moments.range.size(), std::min(48, 2 * halfWidth + 1));
            const long double sum = sumAbout(values, moments.range, 0, 0);
            const long double mean = sumAbout(values, moments.range, 0, 1) / sum;
            const auto central = [&](int order) {
                return sumAbout(values, moments.range, mean, order) / sum;
            };
            QVERIFY(near(moments.sum, double(sum), 1e-12));
            QVERIFY(near(moments.mean, double(mean), 1e-12));
            QVERIFY(near(moments.variance, double(central(2)), 1e-10));
            QVERIFY(near(moments.skewness, double(central(3) / std::pow(central(2), 1.5L)), 1e-9));
            QVERIFY(near(moments.kurtosis, double(central(4) / std::pow(central(2), 2)), 1e-9));
        }
        // Two of ten are above a half of the largest.
        QCOMPARE(momentsOf<double>({1, 5, 6, 10, 2}, 0.5).sum, 16.0);
    }

    void gaussianThroughThreePoints()
    {
        for (const auto &[mean, sigma] : {std::pair(20.3, 0.7), {100.4, 8.0}, {3.0, 1.0}}) {
            const Values values = Profiles::gaussian<double>(128, mean, sigma, 3e-9);
            const ThreePointFit fit = fitThreePoints(values.constData(), values.size());
            QCOMPARE(fit.status, FitStatus::Ok);
            QVERIFY(near(fit.mean, mean, 1e-9) && near(fit.sigma / sigma, 1, 1e-9));
            QVERIFY(near(fit.height / 3e-9, 1, 1e-9));
            const QVector<float> rounded = single(values);
            QVERIFY(near(fitThreePoints(rounded.constData(), rounded.size()).mean, mean, 1e-3));
            QCOMPARE(fitThreePoints(values.constData(), values.size(), 4e-9).status,
                     FitStatus::PeakBelowThreshold);
        }
    }

    void failuresGiveAStatusAndNoNumber()
    {
        const auto outcome = [](const Values &values) {
            const ProfileMoments moments = momentsOf(values, 0.1);
            const ThreePointFit fit = fitThreePoints(values.constData(), values.size());
            const bool consistent =
                std::isfinite(moments.sigma) == (moments.status == FitStatus::Ok)
                && std::isfinite(fit.sigma) == (fit.status == FitStatus::Ok)
                && std::isfinite(fit.mean) == (fit.status == FitStatus::Ok);
            return QStringLiteral("%1 %2%3")
                .arg(int(moments.status))
                .arg(int(fit.status))
                .arg(consistent ? "" : ", inconsistent");
        };
        QCOMPARE(outcome({}), QString("-1 -1"));
        QCOMPARE(outcome({1}), QString("-1 -1"));
        QCOMPARE(outcome({1, 2}), QString("0 -1"));
        QCOMPARE(outcome({0, 0, 0}), QString("-4 -3"));
        QCOMPARE(outcome({-1, -2, -1}), QString("-4 -3"));
        QCOMPARE(outcome({0, 5, 0}), QString("-8 0"));
        QCOMPARE(outcome({3, 2, 1}), QString("0 -3"));
        QCOMPARE(outcome({5, inf, 5}), QString("-4 -8"));
        QCOMPARE(outcome({1e308, 1.7e308, 1e308}), QString("-3 0")); // the sum overflows
        QCOMPARE(outcome(Values(5, qQNaN())), QString("-4 -3"));
        QCOMPARE(ProfileMoments().status, FitStatus::NotComputed);
        QCOMPARE(findPeak<double>(nullptr, 0, 0).index, -1);
    }

    void noiseBesideTheBeam()
    {
        // Bins 7 to 13 are signal; of the others, eight read 3 and six read 1: their mean is 15 / 7.
        Values values(21);
        for (int i = 0; i < 21; ++i)
            values[i] = i >= 7 && i <= 13 ? 100 : i % 2 ? 1 : 3;
        const double sigma = std::sqrt((8 * 36.0 + 6 * 64.0) / 49 / 13);
        const SignalToNoise noise = signalToNoise(values.constData(), 21, 10.0, 1.0);
        QVERIFY(noise.computed);
        QCOMPARE(noise.signalCount, 7);
        QVERIFY(near(double(noise.noiseMean), 15.0 / 7, 1e-6));
        QVERIFY(near(double(noise.noiseSigma), sigma, 1e-6));
        QVERIFY(near(double(noise.ratio), 700 / (std::sqrt(7) * sigma), 1e-3));
        QVERIFY(!signalToNoise(values.constData(), 21, 10.0, 5.0).computed);
        QVERIFY(!signalToNoise(values.constData(), 21, qQNaN(), 1.0).computed);
    }

    void pixelFramesMayBeShort()
    {
        // Two pixels at the same height above the middle, one beside and one three pixels right of it.
        Values readings(128, 0.0);
        readings[6] = 2;
        readings[8] = 2;
        PixelMoments moments = computePixelMoments(readings.constData(), readings.size(), 0);
        QCOMPARE(moments.status, FitStatus::Ok);
        QCOMPARE(moments.meanX, 7.5);
        QCOMPARE(moments.sigmaX, 1.0);
        moments = computePixelMoments(readings.constData(), 7, 0);
        QCOMPARE(moments.meanX, 6.5);
        QCOMPARE(computePixelMoments(nullptr, 0, 0).status, FitStatus::SignalBelowThreshold);
        QCOMPARE(computePixelMoments(readings.constData(), 128, 0, 3).status,
                 FitStatus::NotComputed);
        readings[6] = 1e308;
        readings[8] = 1e308;
        QCOMPARE(computePixelMoments(readings.constData(), 128, 0).status, FitStatus::NoRealWidth);
    }

    /*! Fits of ten frames of an electron beam, against fits that another program made of them (reference.csv). Those have a
        linear background and take the value in the middle of a cell, which widens the beam: its sigma is
        sqrt(sigma^2 + width^2 / 12). The digits of the first frame are published ones. */
    void projections_data() { frames(); }
    void projections()
    {
        QFETCH(QStringList, reference);
        if (reference.isEmpty())
            QSKIP("There are no real readings in CORVALE_QT_DATA_DIR.");
        for (const auto &[axis, column] : {std::pair('x', 2), std::pair('y', 4)}) {
            const BeamProfile pixels =
                profile("lcls-otr-frames/projections_350x262.csv", cell<int>("frame"), axis, 1, 0);
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
        if (reference.isEmpty())
            QSKIP("There are no real readings in CORVALE_QT_DATA_DIR.");
        for (const auto &[axis, column, first] :
             {std::tuple('x', 6, 122.5), std::tuple('y', 8, 83.5)}) {
            const BeamProfile strips =
                profile("lcls-otr-frames/strips_32x32.csv", cell<int>("frame"), axis, 4, first);
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

CORVALE_QT_TEST_MAIN(tst_ProfileNumerics)
#include "tst_ProfileNumerics.moc"
