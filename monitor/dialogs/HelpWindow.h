// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDialog>

class QTextBrowser;

namespace Monitor {

//! The pages that are built into the program; they need no network.
class HelpWindow : public QDialog
{
    Q_OBJECT

public:
    enum class Page {
        FirstSteps,
        Keys,
        LineProtocol,
        Licences,
        About,
    };

    explicit HelpWindow(QWidget *parent = nullptr);
    //! Sets the text of the page of keys, as Markdown: what the menus of the window have.
    void setKeys(const QString &markdown) { m_keys = markdown; }
    //! Shows a page and brings the window to the front.
    void showPage(Page page);

private:
    void setPage(const QString &title, const QString &markdown);

    QTextBrowser *m_text;
    QString m_keys;
};

} // namespace Monitor
