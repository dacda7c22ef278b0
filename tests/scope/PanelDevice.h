// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "tests/scope/Panel.h"
#include "tests/support/BufferModel.h"

#include <QTimer>

#include <functional>

//! A device whose acquisition period and saving can be watched by a test.
class PanelDevice : public BufferModel
{
public:
    explicit PanelDevice(int channels = 1)
        : BufferModel(channels)
    {
    }

    //! Returns the period in milliseconds, or "none" while every reading counts.
    QString period() const
    {
        const auto *timer = findChild<QTimer *>();
        return timer->isActive() ? QString::number(timer->interval()) : QString("none");
    }
    bool SaveDataToFile(const QString &fileName) const override { return onSave(fileName); }

    //! Called when the samples are saved; returns whether that succeeds.
    std::function<bool(const QString &)> onSave = [](const QString &) { return true; };
};

//! A visible panel that shows a device.
class DevicePanel : public Panel
{
public:
    explicit DevicePanel(int channels = 1, const QVector<PanelDevice::Sample> &samples = {})
        : device(channels)
    {
        if (!samples.isEmpty())
            device.append(samples);
        setModel(&device);
        show();
    }

    PanelDevice device;
};
