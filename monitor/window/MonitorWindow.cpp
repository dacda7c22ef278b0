// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/MonitorWindow.h"

#include "monitor/session/Session.h"
#include "monitor/window/EventLog.h"
#include "monitor/window/LatestValuePanel.h"
#include "monitor/window/MonitorStatusBar.h"
#include "monitor/window/PictureExport.h"
#include "monitor/window/ViewTabs.h"
#include <corvale_qt/scope/RVXApplicationSettings.h>
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>
#include <corvale_qt/scope/RVXStatisticsSetupPage.h>

#include <QAction>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QScrollArea>
#include <QSettings>
#include <QToolButton>
#include <QVBoxLayout>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

const char statisticsGroup[] = "StatisticsSetupPage";
const char hintKey[] = "Monitor/hintDismissed";
const char geometryKey[] = "Monitor/geometry";
const char stateKey[] = "Monitor/state";

QString toText(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toBase64());
}

QByteArray fromText(const QVariant &text)
{
    return QByteArray::fromBase64(text.toString().toLatin1());
}

} // namespace

MonitorWindow::MonitorWindow(Session &session, const QString &settingsFile, QWidget *parent)
    : QMainWindow(parent)
    , m_session(session)
    , m_settings(std::make_unique<RVXApplicationSettings>(nullptr,
                                                          settingsFile,
                                                          false,
                                                          QFileInfo(settingsFile).suffix()
                                                              == QLatin1String("xui")))
    , m_settingsFile(settingsFile)
    , m_views(new ViewTabs(session))
    , m_centre(new QWidget(this))
{
    setWindowTitle(tr("%1 - Corvale Monitor").arg(session.source().description()));
    auto *layout = new QVBoxLayout(m_centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_views);
    setCentralWidget(m_centre);
    setStatusBar(new MonitorStatusBar(session, this));
    addActions();
    addDock(new LatestValuePanel(session), "values", tr("Latest values"), Qt::LeftDockWidgetArea);
    addStatisticsPage();
    addDock(new EventLog(session), "log", tr("Log"), Qt::BottomDockWidgetArea);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    resize(1400, 900);
    restoreLayout();
}

MonitorWindow::~MonitorWindow() = default;

void MonitorWindow::addDock(QWidget *widget,
                            const char *name,
                            const QString &title,
                            Qt::DockWidgetArea area)
{
    auto *dock = new QDockWidget(title, this);
    dock->setObjectName(QLatin1String(name));
    dock->setWidget(widget);
    addDockWidget(area, dock);
    menuBar()->findChild<QMenu *>(QStringLiteral("view"))->addAction(dock->toggleViewAction());
}

void MonitorWindow::addStatisticsPage()
{
    auto *page = new RVXStatisticsSetupPage;
    page->addPlotView(m_views->scope()->plotView());
    connect(page,
            &RVXStatisticsSetupPage::RegressionOptions,
            m_views->profile(),
            &RVXSpectrogram::SetRegressionOptions);
    const bool firstTime =
        !m_settings->getSettings()->childGroups().contains(QLatin1String(statisticsGroup));
    page->setApplicationSettings(QFileInfo(m_settingsFile),
                                 false,
                                 QFileInfo(m_settingsFile).suffix() == QLatin1String("xui"));
    // Two profiles in one histogram have a peak each.
    connect(&m_session,
            &Session::streamStarted,
            page,
            [page, firstTime](const StreamHeader &header) {
                if (!firstTime || header.layout != Layout::Strips)
                    return;
                page->set_peaks(2);
                page->enable_regression();
            });
    auto *scroll = new QScrollArea;
    scroll->setWidget(page);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setMinimumWidth(page->minimumSizeHint().width() + 24);
    addDock(scroll, "statistics", tr("Statistics"), Qt::RightDockWidgetArea);
}

void MonitorWindow::addActions()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    QAction *record = file->addAction(
        tr("&Record..."),
        this,
        [this] {
            toggleRecording();
        },
        QKeySequence(Qt::CTRL + Qt::Key_R));
    connect(&m_session, &Session::recordingChanged, record, [this, record] {
        record->setText(m_session.recorder() ? tr("Stop &recording") : tr("&Record..."));
    });
    file->addAction(
        tr("Save &picture..."),
        this,
        [this] {
            savePicture();
        },
        QKeySequence(Qt::CTRL + Qt::Key_P));
    file->addAction(
        tr("&Copy picture"),
        this,
        [this] {
            PictureExport::copy(m_views->currentWidget());
        },
        QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_C));
    file->addSeparator();
    file->addAction(
        tr("&Quit"),
        this,
        [this] {
            close();
        },
        QKeySequence(QKeySequence::Quit));

    QMenu *view = menuBar()->addMenu(tr("&View"));
    view->setObjectName(QStringLiteral("view"));
    QAction *pause = view->addAction(tr("&Pause"));
    pause->setShortcut(QKeySequence(Qt::Key_Space));
    pause->setCheckable(true);
    connect(pause, &QAction::toggled, &m_session, &Session::setPaused);
    connect(&m_session, &Session::pausedChanged, pause, &QAction::setChecked);
    view->addSeparator();
}

void MonitorWindow::showHint(const QString &text)
{
    if (m_settings->getSettings()->value(QLatin1String(hintKey)).toBool())
        return;
    auto *line = new QWidget(m_centre);
    line->setObjectName(QStringLiteral("hint"));
    auto *label = new QLabel(text, line);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    auto *dismiss = new QToolButton(line);
    dismiss->setText(tr("Do not show again"));
    connect(dismiss, &QToolButton::clicked, line, [this, line] {
        const auto settings = m_settings->getSettings();
        settings->setValue(QLatin1String(hintKey), true);
        settings->sync();
        line->deleteLater();
    });
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins(6, 2, 6, 2);
    layout->addWidget(label, 1);
    layout->addWidget(dismiss);
    static_cast<QVBoxLayout *>(m_centre->layout())->insertWidget(0, line);
}

void MonitorWindow::toggleRecording()
{
    if (m_session.recorder()) {
        m_session.stopRecording();
        return;
    }
    Recorder::Options options;
    options.path = QFileDialog::getSaveFileName(this, tr("Record"), QString(), tr("CSV (*.csv)"));
    options.overwrite = true; // the dialog has asked
    QString error;
    if (!options.path.isEmpty() && !m_session.startRecording(options, &error))
        QMessageBox::warning(this, tr("Record"), error);
}

void MonitorWindow::savePicture()
{
    const QString path = QFileDialog::getSaveFileName(this,
                                                      tr("Save picture"),
                                                      QString(),
                                                      PictureExport::fileFilter());
    QString error;
    if (!path.isEmpty() && !PictureExport::save(m_views->currentWidget(), path, &error))
        QMessageBox::warning(this, tr("Save picture"), error);
}

void MonitorWindow::restoreLayout()
{
    const auto settings = m_settings->getSettings();
    restoreGeometry(fromText(settings->value(QLatin1String(geometryKey))));
    restoreState(fromText(settings->value(QLatin1String(stateKey))));
}

void MonitorWindow::saveLayout()
{
    const auto settings = m_settings->getSettings();
    settings->setValue(QLatin1String(geometryKey), toText(saveGeometry()));
    settings->setValue(QLatin1String(stateKey), toText(saveState()));
    settings->sync();
}

void MonitorWindow::closeEvent(QCloseEvent *event)
{
    saveLayout();
    QMainWindow::closeEvent(event);
}

} // namespace Monitor
