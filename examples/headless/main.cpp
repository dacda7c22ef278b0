// SPDX-License-Identifier: LGPL-2.1-or-later
// Computes beam numbers without any window: the frames of a strip pair are read from a file with 128 charges in each line,
// separated by commas, or are made up if no file is given.

#include <corvale_qt/BeamFrame>
#include <corvale_qt/ProfileMoments>
#include <corvale_qt/RegressionResult>
#include <corvale_qt/SignalToNoise>

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

#include <cmath>
#include <random>

using namespace Corvale_Qt;

namespace {

constexpr int strips = 32; // X in readings 0 to 31, Y in 64 to 95
constexpr double pitch = 2.0; // mm

using Frame = QVector<double>;

QVector<Frame> readFrames(QFile &file)
{
    QVector<Frame> frames;
    while (!file.atEnd()) {
        Frame frame;
        for (const QByteArray &field : file.readLine().split(','))
            frame << field.trimmed().toDouble();
        frames << frame;
    }
    return frames;
}

//! Returns five frames of a beam that moves to the right by 2 mm each time, with noise. The last one has no beam.
QVector<Frame> makeFrames()
{
    std::mt19937 random;
    std::normal_distribution<double> noise(0.0, 2e-12);
    QVector<Frame> frames(5, Frame(128, 0.0));
    for (int i = 0; i < frames.size(); ++i) {
        for (int strip = 0; strip < strips; ++strip) {
            const double height = i == frames.size() - 1 ? 0.0 : 1e-9;
            const double x = (strip - 12.0 - i) / 2.5;
            const double y = (strip - 15.5) / 3.5;
            frames[i][strip] = height * std::exp(-x * x / 2) + noise(random);
            frames[i][64 + strip] = height * std::exp(-y * y / 2) + noise(random);
        }
    }
    return frames;
}

void printFrame(QTextStream &out, const Frame &charges)
{
    FrameOptions options;
    options.regression.thresholdFraction = 0.1;
    options.regression.minimumPeak = 1e-11; // coulomb
    const BeamFrame frame =
        computeFrame(ProfileLayout::StripPair, charges.constData(), charges.size(), options);
    if (frame.status != FitStatus::Ok) {
        out << "no beam: status " << int(frame.status) << '\n';
        return;
    }
    out << "mean " << frame.calc.meanX << ", " << frame.calc.meanY << " mm; sigma "
        << frame.calc.sigmaX << ", " << frame.calc.sigmaY << " mm; charge " << frame.calc.integral
        << " C\n";

    const double *x = charges.constData();
    const ProfileMoments moments = momentsAbove(x, strips, 0.1);
    const auto fit = fitLogParabola(x, strips, options.regression);
    const SignalToNoise noise = signalToNoise(x, strips, fit.mean, fit.sigma);
    out << "    X by moments: " << pitch * (moments.mean - (strips - 1) / 2.0) << " mm, sigma "
        << pitch * moments.sigma << " mm; signal to noise " << noise.ratio << '\n';
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QFile file(QCoreApplication::arguments().value(1));
    if (argc > 1 && !file.open(QIODevice::ReadOnly)) {
        QTextStream(stderr) << file.fileName() << ": " << file.errorString() << '\n';
        return 1;
    }
    for (const Frame &frame : argc > 1 ? readFrames(file) : makeFrames()) {
        if (frame.size() >= 128)
            printFrame(out, frame);
        else
            out << "skipped: a frame has 128 charges, not " << frame.size() << '\n';
    }
    return 0;
}
