// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "designer/WidgetTable.h"

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

//! Describes one widget of the library to Qt Designer, and creates it.
class DesignerWidget : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    DesignerWidget(const WidgetDescription &description, QObject *parent);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QString domXml() const override;
    bool isInitialized() const override;
    //! Called by Designer but not by programs that load forms, so only Designer shows preview data.
    void initialize(QDesignerFormEditorInterface *core) override;
    QWidget *createWidget(QWidget *parent) override;

private:
    const WidgetDescription &m_description;
    bool m_isInDesigner = false;
};
