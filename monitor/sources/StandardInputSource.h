// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/LineSource.h"

#include <QSocketNotifier>

#include <vector>

namespace Monitor {

//! Lines from an open file descriptor, usually standard input: a pipe, a terminal or a file.
class StandardInputSource : public LineSource
{
    Q_OBJECT

public:
    //! Reads from \a descriptor, which it does not close.
    explicit StandardInputSource(Clock &clock, int descriptor = 0, QObject *parent = nullptr);
    QString description() const override;

protected:
    void open() override;
    void close() override;

private:
    void readSome();

    const int m_descriptor;
    QSocketNotifier m_notifier;
    std::vector<char> m_piece;
};

} // namespace Monitor
