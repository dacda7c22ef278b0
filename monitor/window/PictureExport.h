// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

class QPagedPaintDevice;

namespace Corvale_Qt {
class DisplayPicture;
} // namespace Corvale_Qt

namespace Monitor {

//! Where pictures of a display go: files, pages, the clipboard.
class PictureExport
{
public:
    //! Returns the name filters for a file dialog.
    static QString fileFilter();
    /*! Writes a picture to a PNG, SVG or PDF file; the suffix of the name decides. Returns false, with a text in
        \a error, if the file cannot be written or has another suffix. */
    static bool
    save(const Corvale_Qt::DisplayPicture &picture, const QString &path, QString *error);
    //! Draws a picture as large as it fits on a page. Returns false if the page cannot be drawn on.
    static bool print(const Corvale_Qt::DisplayPicture &picture, QPagedPaintDevice *page);
    //! Copies a picture to the clipboard.
    static void copy(const Corvale_Qt::DisplayPicture &picture);
};

} // namespace Monitor
