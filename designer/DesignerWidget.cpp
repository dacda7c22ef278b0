// SPDX-License-Identifier: LGPL-2.1-or-later
#include "designer/DesignerWidget.h"

#include <QIcon>

DesignerWidget::DesignerWidget(const WidgetDescription &description, QObject *parent)
    : QObject(parent)
    , m_description(description)
{
}

QString DesignerWidget::name() const
{
    return QString("Corvale_Qt::") + m_description.className;
}

QString DesignerWidget::group() const
{
    return "Corvale";
}

QString DesignerWidget::toolTip() const
{
    return tr(m_description.toolTip);
}

QString DesignerWidget::whatsThis() const
{
    return toolTip();
}

QString DesignerWidget::includeFile() const
{
    return QString("corvale_qt/") + m_description.className;
}

QIcon DesignerWidget::icon() const
{
    return QIcon(QString(":/corvale_qt/designer/icons/%1.svg").arg(m_description.className));
}

bool DesignerWidget::isContainer() const
{
    return m_description.isContainer;
}

QString DesignerWidget::domXml() const
{
    const QString form = R"(<ui language="c++" displayname="%1">
 <widget class="%2" name="%3">
  <property name="geometry"><rect><x>0</x><y>0</y><width>%4</width><height>%5</height></rect></property>
%6 </widget>
</ui>)";
    return form.arg(m_description.displayName)
        .arg(name())
        .arg(m_description.objectName)
        .arg(m_description.size.width())
        .arg(m_description.size.height())
        .arg(m_description.contents);
}

bool DesignerWidget::isInitialized() const
{
    return m_isInDesigner;
}

void DesignerWidget::initialize(QDesignerFormEditorInterface *core)
{
    m_isInDesigner = core != nullptr;
}

QWidget *DesignerWidget::createWidget(QWidget *parent)
{
    QWidget *widget = m_description.create(parent);
    if (m_isInDesigner && m_description.preview)
        m_description.preview(widget);
    return widget;
}
