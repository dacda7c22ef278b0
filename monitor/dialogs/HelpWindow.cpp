// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/HelpWindow.h"

#include <corvale_qt/corvale_qt_version.h>

#include <qwt_global.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QSysInfo>
#include <QTextBrowser>
#include <QTextTable>
#include <QVBoxLayout>

namespace Monitor {

namespace {

QString builtIn(const QString &name)
{
    QFile file(QStringLiteral(":/monitor/help/") + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

//! Draws the tables of a page without a grid, which would be louder than their text.
void quietTables(QTextDocument &document, const QPalette &palette)
{
    constexpr qreal padding = 4.0; // pixels
    for (QTextFrame *frame : document.rootFrame()->childFrames()) {
        auto *table = qobject_cast<QTextTable *>(frame);
        if (!table)
            continue;
        QTextTableFormat format = table->format();
        format.setBorder(0.0);
        format.setCellSpacing(0.0);
        format.setCellPadding(padding);
        table->setFormat(format);
        for (int column = 0; column < table->columns(); ++column) {
            QTextTableCell cell = table->cellAt(0, column);
            QTextCharFormat head = cell.format();
            head.setBackground(palette.alternateBase());
            cell.setFormat(head);
        }
    }
}

QString row(const QString &part, const QString &version, const QString &licence)
{
    return QStringLiteral("| %1 | %2 | %3 |\n").arg(part, version, licence);
}

//! Returns what the program is made of; licences have their usual short names.
QString aboutPage()
{
    QString page =
        HelpWindow::tr("# Corvale Monitor %1\n\nShows the readings of instruments that measure "
                       "beams of charged particles.\n\nFree software under LGPL-2.1-or-later; "
                       "*Help > Licences* has the text. It runs on %2.")
            .arg(QCoreApplication::applicationVersion(), QSysInfo::prettyProductName());
    page +=
        QStringLiteral("\n\n") + HelpWindow::tr("| part | version | licence |\n|---|---|---|\n");
    const auto part = [&page](const char *name, const char *licence, const QString &version = {}) {
        page += row(QLatin1String(name), version, QLatin1String(licence));
    };
    part("corvale_qt",
         "LGPL-2.1-or-later",
         QString::fromLatin1(Corvale_Qt::libraryVersionString()));
    part("Qt", "LGPL-3.0", QString::fromLatin1(qVersion()));
    part("Qwt", "Qwt License 1.0 (LGPL-2.1)", QStringLiteral(QWT_VERSION_STR));
    part("KDE Frameworks: ItemModels, GuiAddons", "LGPL-2.0-or-later");
    part("Boost", "BSL-1.0");
    part("Eigen", "MPL-2.0, Minpack");
    part("muParser", "BSD-2-Clause");
    part("Zstandard, HDF5", "BSD-3-Clause");
    part("Material Design Icons", "OFL-1.1, CC-BY-4.0");
    // The licence of Minpack asks for this sentence.
    page += QStringLiteral("\nThis product includes software developed by the University of "
                           "Chicago, as Operator of Argonne National Laboratory.\n");
    return page;
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
        //: The name of the file with this page: first-steps.de.md in German.
        setPage(tr("First steps"), builtIn(tr("first-steps.md")));
        break;
    case Page::Keys:
        setPage(tr("Keys"), m_keys);
        break;
    case Page::LineProtocol:
        setPage(tr("Line protocol"), builtIn(QStringLiteral("line-protocol.md")));
        break;
    case Page::Licences:
        setWindowTitle(tr("Licences"));
        m_text->setPlainText(builtIn(QStringLiteral("LGPL-2.1-or-later.txt")));
        break;
    case Page::About:
        setPage(tr("About Corvale Monitor"), aboutPage());
        break;
    }
    m_text->setFocus();
    show();
    raise();
    activateWindow();
}

void HelpWindow::setPage(const QString &title, const QString &markdown)
{
    setWindowTitle(title);
    m_text->setMarkdown(markdown);
    quietTables(*m_text->document(), palette());
}

} // namespace Monitor
