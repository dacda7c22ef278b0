// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QAction>

namespace Monitor {

class Session;

//! "Record" and "Stop recording" in one entry: it asks for a file, and says what goes wrong.
class RecordAction : public QAction
{
    Q_OBJECT

public:
    //! The window is the parent of what it asks with.
    RecordAction(Session &session, QWidget *window);

    //! Records into that file, which is replaced where it exists; false, with a text, where it cannot be had.
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
