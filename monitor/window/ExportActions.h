// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QString>

class QMenu;
class QWidget;

namespace Corvale_Qt {
class PlotDataExport;
} // namespace Corvale_Qt

namespace Monitor {

class DisplayTabs;
class Session;

/*! Menu entries that save readings as CSV: those that the chart shows, or those between its markers, of the channels that are
    shown, averaged and zeroed as they are. Readings go on meanwhile; what takes long shows its progress and can be canceled. */
class ExportActions : public QObject
{
    Q_OBJECT

public:
    //! Adds the entries to \a menu; \a window is the parent of the dialogs.
    ExportActions(Session &session, DisplayTabs &displays, QMenu *menu, QWidget *window);

    //! Begins to save the readings from \a left to \a right to \a path; says in the log what came of it.
    void save(const QString &path, double left, double right);

Q_SIGNALS:
    //! The export that save() began has ended.
    void finished();

private:
    void saveShown();
    void saveBetweenMarkers();
    void ask(double left, double right);
    void showProgress(Corvale_Qt::PlotDataExport *running);

    Session &m_session;
    DisplayTabs &m_displays;
    QWidget *m_window;
    QString m_folder;
};

} // namespace Monitor
