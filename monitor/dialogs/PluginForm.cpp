// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/PluginForm.h"

#include <QLineEdit>

namespace Monitor {

PluginForm::PluginForm(const SourcePlugins::Description &plugin, QWidget *parent)
    : SourceForm(parent)
    , m_plugin(plugin)
    , m_address(new QLineEdit(this))
{
    m_address->setObjectName(QStringLiteral("address"));
    m_address->setPlaceholderText(plugin.address);
    addField(tr("&Address:"),
             m_address,
             tr("As on the command line, for example %1. The plugin %2 reads it.")
                 .arg(plugin.address, plugin.file));
    connect(m_address, &QLineEdit::textChanged, this, &SourceForm::edited);
}

QString PluginForm::title() const
{
    return m_plugin.title;
}

//! Returns the address; one that was typed without its scheme gets the first of the plugin.
QString PluginForm::source() const
{
    QString text = m_address->text().trimmed();
    if (text.isEmpty() || m_plugin.schemes.contains(SourcePlugins::schemeOf(text)))
        return text;
    return m_plugin.schemes.first() + QLatin1Char(':') + text;
}

bool PluginForm::setSource(const QString &text)
{
    if (!m_plugin.schemes.contains(SourcePlugins::schemeOf(text)))
        return false;
    m_address->setText(text);
    return true;
}

} // namespace Monitor
