// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/LineSource.h"

#include <QSerialPort>

namespace Monitor {

//! Lines from a serial port: 8 data bits, no parity, one stop bit, no flow control.
class SerialSource : public LineSource
{
    Q_OBJECT

public:
    static constexpr int defaultBaudRate = 115200;

    //! \a device is the path of the port, for example /dev/ttyUSB0.

    SerialSource(Clock &clock,
                 const QString &device,
                 int baudRate = defaultBaudRate,
                 QObject *parent = nullptr);
    ~SerialSource() override;
    QString description() const override;
    QString remedy() const override;

protected:
    void open() override;
    void close() override;
    void poll() override;

private:
    void readSome();
    void failed(QSerialPort::SerialPortError error);

    const QString m_device;
    const int m_baudRate;
    QSerialPort m_port;
};

} // namespace Monitor
