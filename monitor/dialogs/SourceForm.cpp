// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/SourceForm.h"

#include "monitor/dialogs/Explanation.h"
#include "monitor/dialogs/FieldRow.h"
#include "monitor/dialogs/LineForms.h"
#include "monitor/dialogs/LocalForms.h"
#include "monitor/dialogs/PluginForm.h"
#include "monitor/sources/SourcePlugins.h"

#include <QFormLayout>
#include <QLabel>

namespace Monitor {

SourceForm::SourceForm(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QFormLayout(this))
{
    m_layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    m_layout->setRowWrapPolicy(QFormLayout::DontWrapRows);
}

void SourceForm::addField(const QString &label,
                          QWidget *editor,
                          const QString &explanation,
                          QWidget *row)
{
    editor->setToolTip(explanation);
    editor->setAccessibleDescription(explanation);
    addFieldRow(m_layout, label, row ? row : editor, editor);
    m_layout->addRow(QString(), new Explanation(explanation, this));
}

void SourceForm::addText(const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    m_layout->addRow(label);
}

QList<SourceForm *> newSourceForms(QWidget *parent)
{
    QList<SourceForm *> forms = {new SimulatorForm(parent),
                                 new FileForm(parent),
                                 new StandardInputForm(parent),
                                 new TcpClientForm(parent),
                                 new TcpServerForm(parent),
                                 new SerialForm(parent)};
    const SourcePlugins plugins;
    for (const SourcePlugins::Description &plugin : plugins.all())
        forms.append(new PluginForm(plugin, parent));
    return forms;
}

} // namespace Monitor
