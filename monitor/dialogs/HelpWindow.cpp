// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/HelpWindow.h"

#include <corvale_qt/corvale_qt_version.h>

#include <qwt_global.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QSysInfo>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace Monitor {

namespace {

QString builtIn(const QString &name)
{
    QFile file(QStringLiteral(":/monitor/help/") + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

} // namespace Monitor

//! A static library's resources must be named once, outside namespaces, or the linker drops them.
static void initialiseHelpPages()
{
    Q_INIT_RESOURCE(help);
}

namespace Monitor {

HelpWindow::HelpWindow(QWidget *parent)
    : QDialog(parent)
    , m_text(new QTextBrowser(this))
{
    initialiseHelpPages();
    setObjectName(QStringLiteral("help"));
    m_text->setObjectName(QStringLiteral("helpText"));
    m_text->setOpenLinks(false); // there is no network, and the pages lead nowhere else
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    layout->addWidget(buttons);
    constexpr int columns = 90, lines = 30;
    resize(fontMetrics().averageCharWidth() * columns, fontMetrics().height() * lines);
}

void HelpWindow::showPage(Page page)
{
    switch (page) {
    case Page::FirstSteps:
        setWindowTitle(tr("First steps"));
        //: The name of the file with this page: first-steps.de.md in German.
        m_text->setMarkdown(builtIn(tr("first-steps.md")));
        break;
    case Page::Keys:
        setWindowTitle(tr("Keys"));
        m_text->setMarkdown(m_keys);
        break;
    case Page::LineProtocol:
        setWindowTitle(tr("Line protocol"));
        m_text->setMarkdown(builtIn(QStringLiteral("line-protocol.md")));
        break;
    case Page::Licences:
        setWindowTitle(tr("Licences"));
        m_text->setPlainText(builtIn(QStringLiteral("LGPL-2.1-or-later.txt")));
        break;
    }
    m_text->setFocus();
    show();
    raise();
    activateWindow();
}

void showAbout(QWidget *parent)
{
    const QString text =
        HelpWindow::tr(
            "Corvale Monitor %1 shows the readings of instruments that measure beams of charged "
            "particles.\n\nLibrary corvale_qt %2, Qt %3, Qwt %4, %5.\n\nFree software under "
            "LGPL-2.1-or-later, as "
            "are Qt and Qwt (LGPL); Boost: Boost Software License; icons of the panel: Material "
            "Design Icons (OFL, Apache). Help > Licences has the text.")
            .arg(QCoreApplication::applicationVersion(),
                 QString::fromLatin1(Corvale_Qt::libraryVersionString()),
                 QString::fromLatin1(qVersion()),
                 QStringLiteral(QWT_VERSION_STR),
                 QSysInfo::prettyProductName());
    QMessageBox box(QMessageBox::Information,
                    HelpWindow::tr("About Corvale Monitor"),
                    text,
                    QMessageBox::Close,
                    parent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace Monitor
