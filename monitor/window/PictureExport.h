// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

class QWidget;

namespace Monitor {

//! Pictures of a widget as it is seen.
class PictureExport
{
public:
    //! Filters for a file dialog.
    static QString fileFilter();
    /*! Draws into a PNG, SVG or PDF file, by the name's suffix. False, with a text, where the file cannot be written or
        has another suffix. */
    static bool save(QWidget *widget, const QString &path, QString *error);
    static void copy(QWidget *widget);
};

} // namespace Monitor
