// SPDX-License-Identifier: LGPL-2.1-or-later
#include "designer/DesignerPlugin.h"

#include "designer/DesignerWidget.h"

DesignerPlugin::DesignerPlugin(QObject *parent)
    : QObject(parent)
{
    for (const WidgetDescription &description : widgetTable())
        m_widgets << new DesignerWidget(description, this);
}

QList<QDesignerCustomWidgetInterface *> DesignerPlugin::customWidgets() const
{
    return m_widgets;
}
