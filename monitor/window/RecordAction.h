// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QAction>

namespace Monitor {

class Session;

//! The menu entry "Record" or "Stop recording". It asks for a file and reports errors.
class RecordAction : public QAction
{
    Q_OBJECT

public:
    //! \a window is the parent of the dialogs.
    RecordAction(Session &session, QWidget *window);

    //! Records to a file and replaces an existing one. Returns false, with a text in \a error, if it cannot be opened.
    bool recordTo(const QString &path, QString *error);

private:
    void toggle();
    void refresh();
    QString suggestedPath() const;

    Session &m_session;
    QWidget *m_window;
    QString m_folder;
};

} // namespace Monitor
