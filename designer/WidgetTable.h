// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QSize>

#include <vector>

class QWidget;

//! What Designer needs to know about a widget.
struct WidgetDescription
{
    //! The class name without its namespace, which is also the name of its header and icon.
    const char *className = "";
    //! The name in Designer's widget box.
    const char *displayName = "";
    //! The object name of a new widget on a form.
    const char *objectName = "";
    const char *toolTip = "";
    //! The size of a new widget on a form, in pixels.
    QSize size;
    //! Creates a widget of this class.
    QWidget *(*create)(QWidget *parent) = nullptr;
    //! Fills a widget with data on a form in Designer; null if it shows enough without.
    void (*preview)(QWidget *widget) = nullptr;
    bool isContainer = false;
    //! The children of a new widget, as XML of a form.
    const char *contents = "";
};

/*! Returns the widgets of the library that can be put on forms. To add one, add an entry here, and an icon of the
    same name to icons/ and designer.qrc. */
const std::vector<WidgetDescription> &widgetTable();
