// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

class QPagedPaintDevice;
class QWidget;

namespace Monitor {

//! Pictures of a widget as it is shown.
class PictureExport
{
public:
    //! Returns the name filters for a file dialog.
    static QString fileFilter();
    /*! Draws the widget into a PNG, SVG or PDF file; the suffix of the name decides. Returns false, with a text in
        \a error, if the file cannot be written or has another suffix. */
    static bool save(QWidget *widget, const QString &path, QString *error);
    //! Draws the widget as large as it fits on a page. Returns false if the page cannot be drawn on.
    static bool print(QWidget *widget, QPagedPaintDevice *page);
    //! Copies the widget as a pixmap to the clipboard.
    static void copy(QWidget *widget);
};

} // namespace Monitor
