// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <QByteArray>
#include <QMap>

#include <memory>

namespace Corvale_Qt {
class RVXApplicationSettings;
} // namespace Corvale_Qt

namespace Monitor {

//! What the window keeps from one start to the next, in a settings file: XML where its suffix is .xui, INI otherwise.
class WindowSettings
{
public:
    explicit WindowSettings(const QString &file);
    ~WindowSettings();

    QString fileName() const { return m_file; }
    bool isXml() const;
    //! Whether an operator has chosen statistics before.
    bool hasStatistics() const;

    bool isHintDismissed() const;
    void dismissHint();

    //! Place and size, and how the docks lie; empty before the first setLayout().
    QByteArray geometry() const;
    QByteArray docks() const;
    void setLayout(const QByteArray &geometry, const QByteArray &docks);

    //! The view that was last shown of readings of that layout; empty for none.
    QString display(StreamKind kind) const;
    void setDisplay(StreamKind kind, const QString &display);

    //! The displays that stood in windows of their own, by name, each with the place and size of its window.
    QMap<QString, QByteArray> windows(StreamKind kind) const;
    void setWindows(StreamKind kind, const QMap<QString, QByteArray> &windows);

private:
    QVariant value(const QString &key) const;
    void setValue(const QString &key, const QVariant &value);

    const QString m_file;
    const std::unique_ptr<Corvale_Qt::RVXApplicationSettings> m_settings;
};

} // namespace Monitor
