// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/Source.h"

namespace Monitor {

//! Stands for no source: it never delivers anything.
class NoSource : public Source
{
    Q_OBJECT

public:
    explicit NoSource(Clock &clock, QObject *parent = nullptr);
    void start() override;
    QString description() const override;
    QString remedy() const override;
    bool isNone() const override { return true; }
};

} // namespace Monitor
