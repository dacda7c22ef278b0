// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QSize>

#include <vector>

class QWidget;

//! What Designer has to know of a widget.
struct WidgetDescription
{
    //! Without its namespace; also the name of its header and of its icon.
    const char *className;
    //! In Designer's widget box.
    const char *displayName;
    //! Of a new one on a form.
    const char *objectName;
    const char *toolTip;
    //! Of a new one on a form.
    QSize size;
    QWidget *(*create)(QWidget *parent);
    //! Fills a widget on a form in Designer, where there is no data; null where it shows enough by itself.
    void (*preview)(QWidget *widget) = nullptr;
    bool isContainer = false;
    //! Children of a new one, as XML of forms.
    const char *contents = "";
};

/*! All widgets of the library that lie on forms. A new one is one entry, and an icon of its name in icons/ and
    designer.qrc. */
const std::vector<WidgetDescription> &widgetTable();
