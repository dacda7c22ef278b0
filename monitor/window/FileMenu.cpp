// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/FileMenu.h"

#include "monitor/dialogs/ConnectDialog.h"
#include "monitor/dialogs/SettingsDialog.h"
#include "monitor/session/Session.h"
#include "monitor/window/ExportActions.h"
#include "monitor/window/KeptConnections.h"
#include "monitor/window/KeptOptions.h"
#include "monitor/window/PictureActions.h"
#include "monitor/window/RecordAction.h"
#include "monitor/window/ScreenFit.h"
#include "monitor/window/SourceSwitch.h"
#include "monitor/window/Symbols.h"
#include "monitor/window/WindowSettings.h"

#include <QFileDialog>
#include <QFileInfo>

namespace Monitor {

namespace {

//! Returns a text as a menu shows it: without what a file's name would turn into a mnemonic.
QString menuText(QString text)
{
    constexpr int longest = 60;
    if (text.size() > longest)
        text = QStringLiteral("...") + text.right(longest);
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

FileMenu::FileMenu(Session &session,
                   SourceSwitch &sources,
                   DisplayTabs &displays,
                   WindowSettings &settings,
                   const PictureActions &pictures,
                   QWidget *window)
    : QMenu(tr("&File"), window)
    , m_session(session)
    , m_sources(sources)
    , m_settings(settings)
    , m_window(window)
{
    QAction *open =
        addAction(symbol(QStringLiteral("open")), tr("&Open..."), this, &FileMenu::openFile);
    open->setShortcut(QKeySequence::Open);
    open->setObjectName(QStringLiteral("open"));
    m_recent = addMenu(tr("Open recen&t"));
    m_recent->setObjectName(QStringLiteral("recent"));
    m_readAgain = addAction(symbol(QStringLiteral("again")),
                            tr("Read a&gain as..."),
                            &sources,
                            &SourceSwitch::readAgain);
    m_readAgain->setObjectName(QStringLiteral("readAgain"));
    QAction *connection = addAction(symbol(QStringLiteral("connect")),
                                    tr("&Connect..."),
                                    this,
                                    &FileMenu::connectSource);
    connection->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_N));
    connection->setObjectName(QStringLiteral("connect"));
    m_close = addAction(symbol(QStringLiteral("close")),
                        tr("C&lose source"),
                        &sources,
                        &SourceSwitch::close);
    m_close->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_W));
    m_close->setObjectName(QStringLiteral("closeSource"));
    addSeparator();
    auto *record = new RecordAction(session, window);
    record->setIcon(symbol(QStringLiteral("record")));
    addAction(record);
    new ExportActions(session, displays, this, window);
    addSeparator();
    addActions({pictures.saveAction(), pictures.printAction()});
    addSeparator();
    QAction *edit = addAction(symbol(QStringLiteral("settings")),
                              tr("&Settings..."),
                              this,
                              &FileMenu::editSettings);
    edit->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_Comma));
    edit->setObjectName(QStringLiteral("settings"));
    QAction *quit = addAction(symbol(QStringLiteral("quit")), tr("&Quit"), window, &QWidget::close);
    quit->setObjectName(QStringLiteral("quit"));
    // The standard key is none where no desktop says what it is.
    quit->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_Q));
    connect(m_recent, &QMenu::aboutToShow, this, &FileMenu::listRecent);
    connect(&sources, &SourceSwitch::currentChanged, this, &FileMenu::refresh);
    refresh();
}

void FileMenu::refresh()
{
    m_close->setEnabled(!m_session.source().isNone());
    m_readAgain->setEnabled(m_sources.isTable());
    m_recent->setEnabled(!m_sources.recent().isEmpty());
    listRecent();
}

void FileMenu::openFile()
{
    const QFileInfo last(m_sources.current());
    const QString path = QFileDialog::getOpenFileName(
        m_window,
        tr("Open a recording"),
        last.isFile() ? last.absolutePath() : QString(),
        tr("Recordings and tables (*.csv *.txt *.dat *.zst *.h5 *.hdf5 *.nxs);;All files (*)"));
    if (!path.isEmpty())
        m_sources.open(path);
}

void FileMenu::listRecent()
{
    constexpr int mostDigits = 9;
    m_recent->clear();
    const QStringList texts = m_sources.recent();
    for (int i = 0; i < texts.size(); ++i) {
        const QString number = i < mostDigits ? QStringLiteral("&%1  ").arg(i + 1) : QString();
        QAction *action = m_recent->addAction(number + menuText(texts.at(i)));
        const QString &text = texts.at(i);
        connect(action, &QAction::triggered, this, [this, text] {
            m_sources.open(text);
        });
    }
    m_recent->addSeparator();
    m_recent->addAction(tr("&Forget these"), this, [this] {
        m_sources.forgetRecent();
        refresh();
    });
}

void FileMenu::connectSource()
{
    ConnectDialog dialog(m_session.clock(), m_sources.options().file, m_window);
    dialog.setOpenSource(m_sources.current());
    dialog.setKept(keptConnections(m_settings));
    dialog.setSource(m_sources.current());
    fitToScreen(&dialog);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    keepConnections(dialog.kept(), m_settings);
    if (accepted)
        m_sources.open(dialog.source());
}

void FileMenu::editSettings()
{
    SettingsDialog dialog(m_sources.options(), m_settings.fileName(), m_window);
    fitToScreen(&dialog);
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_sources.setOptions(dialog.options());
    keepOptions(dialog.options(), m_settings);
}

} // namespace Monitor
