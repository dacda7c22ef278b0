// SPDX-License-Identifier: LGPL-2.1-or-later
// Feeds frames of a real beam screen to the display, and compares its numbers with those of another program and with
// sums over the cells of the file.
#include "corvale_qt/widgets/QScienceSpinBox.h"
#include "tests/beam/profile/BeamDisplay.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

//! Reads the rows below the header line of a comma-separated file.
QVector<QVector<double>> readNumbers(const QString &name)
{
    QFile file(QDir(QStringLiteral(CORVALE_QT_DATA_DIR)).filePath("lcls-otr-frames/" + name));
    QVector<QVector<double>> rows;
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return rows;
    file.readLine();
    while (!file.atEnd()) {
        QVector<double> row;
        for (const QByteArray &field : file.readLine().trimmed().split(','))
            row << field.toDouble();
        rows << row;
    }
    return rows;
}

double meanOf(const QVector<double> &values)
{
    return std::accumulate(values.begin(), values.end(), 0.0) / values.size();
}

//! Subtracts from 32 strips the mean of the four outermost ones on either side, which the beam does not reach.
QVector<double> withoutBackground(const QVector<double> &strips)
{
    const double background = meanOf(strips.mid(0, 4) + strips.mid(28, 4));
    QVector<double> corrected;
    for (double strip : strips)
        corrected << strip - background;
    return corrected;
}

//! Centroid and root mean square of the cells that have a pixel. The centre of the first cell is at 1, and row 1 is the lowest.
struct Moments
{
    Moments(const QVector<double> &cells, double background)
    {
        double s[5] = {}; // weighted sums of 1, column, row, column^2, row^2
        for (int cell = 0; cell < 144; ++cell) {
            const int y = cell / 12 + 1;
            const int x = cell % 12 + 1;
            if (std::hypot(y - 6.5, x - 6.5) > 6.2) // the round area: 120 of the cells
                continue;
            const int terms[] = {1, x, y, x * x, y * y};
            for (int k = 0; k < 5; ++k)
                s[k] += (cells[cell] - background) * terms[k];
        }
        column = s[1] / s[0];
        row = s[2] / s[0];
        sigmaColumn = std::sqrt(s[3] / s[0] - column * column);
        sigmaRow = std::sqrt(s[4] / s[0] - row * row);
    }
    double column, row, sigmaColumn, sigmaRow;
};

} // namespace

class tst_RVXSpectrogramRealFrames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void strips()
    {
        const auto frames = readNumbers("strips_32x32.csv");
        const auto references = readNumbers("reference.csv");
        if (frames.isEmpty() || references.isEmpty())
            QSKIP("the real frames are not there");
        QCOMPARE(frames.size(), references.size());

        // Strip i is the sum of camera pixels 121 + 4 i to 124 + 4 i (x), 82 + 4 i to 85 + 4 i (y):
        // its centre lies 1.5 pixels further. The references were fitted to 32 strips with a
        // sloping background, ours to the strips above a fifth of the peak with a level one; the
        // frames are not Gaussian. The two agree to 0.6 pixels (0.15 strips) in place and 15 % in
        // width; the whole beam moves by 10 pixels, and its width changes by a factor of 2.7, in
        // these ten frames.
        constexpr double xOrigin = 121 + 1.5;
        constexpr double yOrigin = 82 + 1.5;
        BeamDisplay display(Detector::Strips);
        display.widget.SetRegressionOptions(true, {0.2, 1024, 1e-15, 0, 2}, 1);
        for (int i = 0; i < frames.size(); ++i) {
            QVector<double> readings(128, 0.0);
            const auto x = withoutBackground(frames[i].mid(2, 32));
            const auto y = withoutBackground(frames[i].mid(34, 32));
            std::copy(x.begin(), x.end(), readings.begin());
            std::copy(y.begin(), y.end(), readings.begin() + 64);
            const SpectrogramCalc calc = display.feed(readings);
            QVERIFY2(calc.valid, qPrintable(QString::number(i)));
            const auto pixels = [](double millimetres) {
                return 4 * (millimetres / 2 + 15.5);
            };
            QVERIFY(near(xOrigin + pixels(calc.meanX), references[i][6], 0.6));
            QVERIFY(near(2 * calc.sigmaX / references[i][7], 1, 0.15));
            QVERIFY(near(yOrigin + pixels(calc.meanY), references[i][8], 0.6));
            QVERIFY(near(2 * calc.sigmaY / references[i][9], 1, 0.15));
            QVERIFY(calc.integral > 0);
        }
    }

    void pixels()
    {
        const auto frames = readNumbers("pixels_12x12.csv");
        const auto references = readNumbers("pixels_reference.csv");
        if (frames.isEmpty() || references.isEmpty())
            QSKIP("the real frames are not there");
        QCOMPARE(frames.size(), references.size());

        BeamDisplay display(Detector::Pixels);
        // Keeps noise below zero: without it, the noise above zero far from the beam would widen the beam.
        display.control<QScienceSpinBox>("discriminator_QScienceSpinBox")->setValue(-1e9);
        for (int i = 0; i < frames.size(); ++i) {
            // The background is that of the 24 cells in the corners, where the detector has no
            // pixel.
            QVector<double> corners;
            for (int cell = 0; cell < 144; ++cell) {
                if (PixelWiring::readingAt(cell / 12, cell % 12) < 0)
                    corners << frames[i][2 + cell];
            }
            const double background = meanOf(corners);
            QVector<double> readings(128, 0.0);
            for (int row = 0; row < 12; ++row) {
                for (int column = 0; column < 12; ++column) {
                    // Row 1 of the file is the lowest of the display.
                    const int reading = PixelWiring::readingAt(11 - row, column);
                    if (reading >= 0)
                        readings[reading] = frames[i][2 + row * 12 + column] - background;
                }
            }
            const SpectrogramCalc calc = display.feed(readings);
            QVERIFY2(calc.valid, qPrintable(QString::number(i)));
            // Sums over the rows and columns of the file give the same numbers.
            const Moments sums(frames[i].mid(2), background);
            QVERIFY(near(6.5 + calc.meanX / 3.8, sums.column, 1e-6));
            QVERIFY(near(6.5 + calc.meanY / 3.8, sums.row, 1e-6));
            QVERIFY(near(calc.sigmaX / 3.8, sums.sigmaColumn, 1e-6));
            QVERIFY(near(calc.sigmaY / 3.8, sums.sigmaRow, 1e-6));
            QVERIFY(near(calc.max, references[i][2] - background, 1e-6));
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXSpectrogramRealFrames)
#include "tst_RVXSpectrogramRealFrames.moc"
