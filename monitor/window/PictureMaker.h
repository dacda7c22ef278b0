// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <corvale_qt/scope/DisplayPicture.h>

namespace Monitor {

class DisplayTabs;
class Session;
class WindowSettings;

//! What an operator wants on the pictures of displays.
struct PictureOptions
{
    bool hasTitle = true; //!< the source and the display
    bool hasTime =
        true; //!< when the picture was taken, and what is done to the readings before they are shown
    bool hasLegend = true;
    Corvale_Qt::DisplayPicture::Colors colors = Corvale_Qt::DisplayPicture::Colors::AsShown;
};

//! Makes pictures of displays with title, time and legend. What an operator wants on them is kept in the settings.
class PictureMaker
{
public:
    //! Session, displays and settings must outlive it.
    PictureMaker(Session &session, DisplayTabs &displays, WindowSettings &settings);

    PictureOptions options() const;
    void setOptions(const PictureOptions &options);
    //! Returns the name of the display in use, as it is part of a file's name.
    QString displayName() const;
    //! Returns what is drawn of the display in use: of the scope the plot, without the controls.
    QWidget *widgetInUse() const;
    //! Returns the title of a picture of a display: the source, and what is shown.
    QString title() const;
    //! Gives a picture a title, the present time and a legend, as far as they are wanted.
    void prepare(Corvale_Qt::DisplayPicture &picture, const QString &title) const;

private:
    QString note() const;

    Session &m_session;
    DisplayTabs &m_displays;
    WindowSettings &m_settings;
};

} // namespace Monitor
