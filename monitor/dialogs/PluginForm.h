// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/dialogs/SourceForm.h"
#include "monitor/sources/SourcePlugins.h"

class QLineEdit;

namespace Monitor {

//! A source that a plugin reads: its address, as on the command line.
class PluginForm : public SourceForm
{
    Q_OBJECT

public:
    PluginForm(const SourcePlugins::Description &plugin, QWidget *parent);
    QString title() const override;
    QString source() const override;
    bool setSource(const QString &text) override;

private:
    const SourcePlugins::Description m_plugin;
    QLineEdit *m_address;
};

} // namespace Monitor
