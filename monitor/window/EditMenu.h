// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QMenu>

namespace Monitor {

class DisplayTabs;
class LatestValuePanel;
class PictureActions;

//! The menu "Edit": what is copied, cleared and brought back.
class EditMenu : public QMenu
{
    Q_OBJECT

public:
    //! \a undoClear is an action that brings cleared readings back.
    EditMenu(DisplayTabs &displays,
             LatestValuePanel &values,
             const PictureActions &pictures,
             QAction *undoClear,
             QWidget *window);
};

} // namespace Monitor
