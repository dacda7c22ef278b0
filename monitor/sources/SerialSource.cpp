// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/SerialSource.h"

#include <QFileInfo>

namespace Monitor {

SerialSource::SerialSource(Clock &clock, const QString &device, int baudRate, QObject *parent)
    : LineSource(clock, parent)
    , m_device(device)
    , m_baudRate(baudRate)
{
    connect(&m_port, &QSerialPort::readyRead, this, &SerialSource::readSome);
    connect(&m_port,
            &QSerialPort::errorOccurred,
            this,
            &SerialSource::failed,
            Qt::QueuedConnection);
}

SerialSource::~SerialSource()
{
    m_port.disconnect(this);
}

QString SerialSource::description() const
{
    return QStringLiteral("serial:%1?baud=%2").arg(m_device, QString::number(m_baudRate));
}

QString SerialSource::remedy() const
{
    return tr("Check that the device is plugged in, that this user may open it (group dialout), "
              "and the baud rate.");
}

void SerialSource::open()
{
    close();
    m_port.clearError();
    m_port.setPortName(m_device);
    m_port.setBaudRate(m_baudRate);
    if (m_port.open(QIODevice::ReadOnly))
        connected();
    else
        lostBecause(LoggedText::ofSystem(m_port.errorString()));
}

void SerialSource::close()
{
    m_port.close();
}

//! Detects a device that was pulled out: the port does not always report an error, but its device file is gone.
void SerialSource::poll()
{
    if (m_port.isOpen() && !QFileInfo::exists(m_device))
        failed(QSerialPort::ResourceError);
}

void SerialSource::readSome()
{
    const QByteArray bytes = m_port.readAll();
    takeBytes({bytes.constData(), std::size_t(bytes.size())});
}

void SerialSource::failed(QSerialPort::SerialPortError error)
{
    // Other errors concern settings that the device does not have; a virtual port, for example, has no baud rate.
    const bool isGone = error == QSerialPort::ResourceError || error == QSerialPort::ReadError;
    if (!isGone || !m_port.isOpen())
        return;
    const QString came = m_port.errorString();
    m_port.close();
    lostBecause(LoggedText::ofSystem(came));
}

} // namespace Monitor
