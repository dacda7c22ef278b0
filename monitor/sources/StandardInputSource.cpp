// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/StandardInputSource.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace Monitor {

StandardInputSource::StandardInputSource(Clock &clock, int descriptor, QObject *parent)
    : LineSource(clock, parent)
    , m_descriptor(descriptor)
    , m_notifier(descriptor, QSocketNotifier::Read)
{
    m_notifier.setEnabled(false);
    connect(&m_notifier, &QSocketNotifier::activated, this, &StandardInputSource::readSome);
    // Standard input cannot be opened again.
    setReconnecting(false);
}

QString StandardInputSource::description() const
{
    return QStringLiteral("standard input"); // as recordings have it, in every language
}

void StandardInputSource::open()
{
    connected();
    m_notifier.setEnabled(true);
}

void StandardInputSource::close()
{
    m_notifier.setEnabled(false);
}

//! Reads once per turn of the event loop, so that a flood of lines leaves time for the window.
void StandardInputSource::readSome()
{
    constexpr int pieceSize = 256 * 1024;
    m_piece.resize(pieceSize);
    const ssize_t size = ::read(m_descriptor, m_piece.data(), pieceSize);
    if (size > 0) {
        takeBytes({m_piece.data(), std::size_t(size)});
        return;
    }
    if (size < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    m_notifier.setEnabled(false);
    if (size == 0)
        ended();
    else
        lost(tr("reading standard input failed: %1")
                 .arg(QString::fromLocal8Bit(std::strerror(errno))));
}

} // namespace Monitor
