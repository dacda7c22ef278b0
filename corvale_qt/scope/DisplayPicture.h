// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QSize>
#include <QString>

#include <memory>

class QPainter;
class QWidget;

namespace Corvale_Qt {

class DisplayPicturePrivate;

/*! A picture of a display for a logbook or a report: the widget as it is shown, a title and a note above it, the legend below
    it, in the colours of the screen, on white or on dark.

    The display may be any widget. The scope plot views in it get a white canvas in a light picture. Their legend lists all
    channels that are shown, also those that the legend on the screen has no room for. What is on the screen stays as it is.

    \code
    DisplayPicture picture(&view);
    picture.setTitle("Dose chamber, run 12");
    picture.setColors(DisplayPicture::Colors::Light);
    QImage image(picture.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    picture.paint(&painter);
    \endcode */
class CORVALE_QT_EXPORT DisplayPicture
{
public:
    //! The colours of a picture.
    enum class Colors {
        AsShown = 0,
        Light = 1, //!< for paper
        Dark = 2,
    };

    //! Makes a picture of a display, which is not owned. At first it has the display and nothing else.
    explicit DisplayPicture(QWidget *display);
    ~DisplayPicture();
    DisplayPicture(const DisplayPicture &) = delete;
    DisplayPicture &operator=(const DisplayPicture &) = delete;

    //! Sets the title, which stands above the display in bold; empty for none. A long one is shortened in the middle.
    void setTitle(const QString &title);
    //! Sets a text that stands at the right of the title, such as the time; empty for none.
    void setNote(const QString &note);
    //! Sets whether the channels of scope plot views are listed below the display, unless a legend on it lists all of them.
    void setLegendVisible(bool visible);
    //! Sets the colours of the picture.
    void setColors(Colors colors);

    //! Returns the size of the picture in pixels of the screen; empty after the display was deleted.
    QSize size() const;
    //! Paints the picture at the origin of a painter. Paints nothing after the display was deleted.
    void paint(QPainter *painter) const;

private:
    const std::unique_ptr<DisplayPicturePrivate> d;
};

} // namespace Corvale_Qt
