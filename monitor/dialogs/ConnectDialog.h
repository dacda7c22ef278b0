// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/dialogs/SourceTest.h"

#include <QDialog>
#include <QVector>

class QComboBox;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace Monitor {

class SourceForm;

//! Asks for a source, field by field. It can be tried before, and kept under a name.
class ConnectDialog : public QDialog
{
    Q_OBJECT

public:
    //! A source under a name.
    struct Kept
    {
        QString name;
        QString source;
    };

    //! \a clock must outlive the dialog; files are tried as \a options say.
    ConnectDialog(Clock &clock, const FileSource::Options &options, QWidget *parent = nullptr);

    //! Shows a source in its form; a text that no form knows is ignored.
    void setSource(const QString &text);
    //! Returns the source that the fields describe; empty while a field is missing.
    QString source() const;
    /*! Sets the source that is open in the window. Unless it is a file or a simulator, it is not tested: a test would take
        its readings or find it busy. */
    void setOpenSource(const QString &text) { m_openSource = text; }

    void setKept(const QVector<Kept> &kept);
    QVector<Kept> kept() const { return m_kept; }

    void accept() override;

private:
    QWidget *newForms();
    QLayout *newKeptRow();
    SourceForm *form() const;
    void showKept();
    void takeKept(int index);
    void keep();
    void forget();
    void test();
    void refresh();

    const FileSource::Options m_options;
    QString m_openSource;
    QString m_described; //!< the source that the fields described last
    QVector<Kept> m_kept;
    SourceTest m_test;
    // In the order in which Tab goes through them.
    QComboBox *m_names;
    QPushButton *m_keepButton;
    QPushButton *m_forgetButton;
    QListWidget *m_kinds;
    const QList<SourceForm *> m_forms;
    QWidget *m_pages; //!< a form for each kind, of which one is visible
    QLabel *m_text;
    QPlainTextEdit *m_report;
    QPushButton *m_testButton;
    QPushButton *m_connectButton = nullptr;
};

} // namespace Monitor
