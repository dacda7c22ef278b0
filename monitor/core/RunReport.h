// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QVector>

namespace Monitor {

/*! A file of notes about the present run, which is there while the program runs, for the run after it if this one does not
    end properly; a crash is written to its end. It is locked, so that others see that the run goes on, and only its
    owner may read it. */
class RunReport
{
public:
    /*! Begins the report of a run with the settings file \a window, empty for one without a window. Where the folder cannot
        be written to, there is none. */
    explicit RunReport(const QString &window);
    //! Removes the file: the run has ended properly.
    ~RunReport();
    RunReport(const RunReport &) = delete;
    RunReport &operator=(const RunReport &) = delete;

    /*! Returns the folder of all reports, Corvale/runs in the user's folder for the state of programs; empty for a user
        without a home. */
    static QString folder();

    //! Returns whether there is a file.
    bool isOpen() const { return m_descriptor >= 0; }
    //! Keeps a note under a name; an empty text removes it. A text with line ends cannot be kept and is left out.
    void note(const QString &name, const QString &text);

private:
    void write();

    QString m_path;
    int m_descriptor = -1;
    QByteArray m_title;
    QMap<QString, QString> m_notes;
};

//! A run that did not end properly.
struct FormerRun
{
    //! How many reports of crashes are kept.
    static constexpr int mostReports = 5;

    QDateTime began;
    QDateTime crashed; //!< null if it left no word, as after a power cut or kill -9
    QString reason; //!< the signal of the crash, as "signal 11 (SIGSEGV) ..."
    QString report; //!< the path of the report of the crash; empty if there is none
    QMap<QString, QString> notes;

    /*! Returns the runs with this settings file that did not end properly and have not been told of yet, the newest
        last. Each is returned once, to one process. Of older reports only a few stay. */
    static QVector<FormerRun> take(const QString &window);
};

} // namespace Monitor
