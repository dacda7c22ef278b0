// SPDX-License-Identifier: LGPL-2.1-or-later
// Reads eight channels a thousand times per second in a thread of its own, and shows them on a scope.

#include "../common/RunExample.h"
#include <corvale_qt/RVXMultichannelDeviceModel>
#include <corvale_qt/RVXScope>
#include <corvale_qt/units/Units.h>

#include <QApplication>
#include <QThread>

#include <cmath>

using namespace Corvale_Qt;

namespace {

constexpr int channels = 8;
constexpr double rate = 1000.0; // rows per second

// Stands for the driver of an instrument: it blocks until the next block of rows is there. Values are in ampere.
class Electrometer : public QThread
{
    Q_OBJECT

public:
    ~Electrometer() override
    {
        requestInterruption();
        wait();
    }

Q_SIGNALS:
    // One time for each row, and the values of the row's channels, row after row.
    void blockReady(const QVector<double> &times, const QVector<double> &values);

protected:
    void run() override
    {
        qint64 row = 0;
        while (!isInterruptionRequested()) {
            constexpr int rows = 40;
            msleep(ulong(1000 * rows / rate));
            QVector<double> times;
            QVector<double> values;
            for (int i = 0; i < rows; ++i) {
                const double now =
                    double(++row) / rate; // begins after 0, which would clear the model
                times.append(now);
                for (int channel = 0; channel < channels; ++channel)
                    values.append(1e-9 * (channel + std::sin(6.28 * now + channel)));
            }
            Q_EMIT blockReady(times, values);
        }
    }
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const Units::nA nA;
    RVXMultichannelDeviceModel model(channels);
    model.SetUnits(&nA);
    model.setPlotWidthHint(10.0); // seconds
    for (int column = 1; column <= channels; ++column)
        model.setChannelName(column, QStringLiteral("plate %1").arg(column));

    RVXScope window;
    window.setModel(&model);
    window.resize(1100, 600);

    // The model lives in this thread, so the connection is queued: the block is copied in here, as one insertion of rows.
    Electrometer electrometer;
    using Append =
        void (RVXMultichannelDeviceModel::*)(const QVector<double> &, const QVector<double> &);
    const Append append = &RVXMultichannelDeviceModel::appendRows;
    QObject::connect(&electrometer, &Electrometer::blockReady, &model, append);
    electrometer.start();
    return runExample(window);
}

#include "main.moc"
