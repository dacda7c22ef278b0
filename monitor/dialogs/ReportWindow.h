// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDialog>

namespace Monitor {

//! Shows a text file as it is: the report of a crash, to be read, copied and sent.
class ReportWindow : public QDialog
{
    Q_OBJECT

public:
    //! The window is deleted when it is closed.
    ReportWindow(const QString &path, QWidget *parent);
};

} // namespace Monitor
