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
    bool hasTitle = true; //!< the source, or what the operator wrote instead
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
    //! Returns the display that the operator works with: to be asked before a dialog is the active window.
    QWidget *displayInUse() const;
    //! Returns what is drawn of a display: of the scope the plot, without the controls.
    QWidget *drawnPart(QWidget *display) const;
    //! Returns the usual title of a picture: the source.
    QString title() const;
    /*! Gives a picture of a display a title, the present time and a legend, as far as they are wanted: to be called when it is
        drawn. */
    void prepare(Corvale_Qt::DisplayPicture &picture,
                 const QWidget *display,
                 const QString &title) const;

private:
    QString note(const QWidget *display) const;

    Session &m_session;
    DisplayTabs &m_displays;
    WindowSettings &m_settings;
};

} // namespace Monitor
