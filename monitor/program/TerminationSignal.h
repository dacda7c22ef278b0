// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace Monitor {

//! Turns SIGINT and SIGTERM into a Qt signal while it exists; a second one ends the program at once.
class TerminationSignal : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignal(QObject *parent = nullptr);
    ~TerminationSignal() override;

Q_SIGNALS:
    //! Emitted when the program is asked to end.
    void raised();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Monitor
