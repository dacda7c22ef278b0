// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ExportActions.h"

#include "monitor/core/LoggedText.h"
#include "monitor/core/Text.h"
#include "monitor/session/Session.h"
#include "monitor/window/DisplayTabs.h"
#include <corvale_qt/models/RVXAbstractPlotDataModel.h>
#include <corvale_qt/proxies/PlotDataExport.h>
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>
#include <corvale_qt/scope/ScopeMarkerStatistics.h>

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QProgressDialog>

#include <algorithm>
#include <cmath>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

//! Times above this are counted from 1970: an acquisition of 30 years is less likely.
constexpr double likelyEpoch = 1e9;

//! Returns the moment at which the times of a stream were 0; invalid if it is not known.
QDateTime startOf(const StreamHeader &header, double newest)
{
    if (header.startTime.isValid())
        return header.startTime;
    return newest > likelyEpoch ? QDateTime::fromSecsSinceEpoch(0, Qt::UTC) : QDateTime();
}

} // namespace

ExportActions::ExportActions(Session &session, DisplayTabs &displays, QMenu *menu, QWidget *window)
    : QObject(window)
    , m_session(session)
    , m_displays(displays)
    , m_window(window)
    , m_folder(QDir::homePath())
{
    QAction *shown =
        menu->addAction(tr("Save rea&dings shown..."), this, &ExportActions::saveShown);
    shown->setObjectName(QStringLiteral("saveShown"));
    shown->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_E));
    shown->setShortcutContext(Qt::ApplicationShortcut);
    QAction *between = menu->addAction(tr("Save readings between &markers..."),
                                       this,
                                       &ExportActions::saveBetweenMarkers);
    between->setObjectName(QStringLiteral("saveBetweenMarkers"));
    between->setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_E));
    between->setShortcutContext(Qt::ApplicationShortcut);
}

void ExportActions::saveShown()
{
    const auto [left, right] = m_displays.scope()->plotView()->shownTimes();
    if (std::isnan(left))
        QMessageBox::information(m_window,
                                 tr("Save readings"),
                                 tr("Only the strip chart and the scope show readings over time. "
                                    "Choose one of them first."));
    else
        ask(left, right);
}

void ExportActions::saveBetweenMarkers()
{
    const ScopeMarkerStatistics markers = m_displays.scope()->plotView()->markerStatistics();
    const auto [left, right] = std::minmax(markers.first.time, markers.second.time);
    if (markers.hasSpan())
        ask(left, right);
    else
        QMessageBox::information(
            m_window,
            tr("Save readings"),
            tr("Set both markers in the chart first: switch them on (Ctrl+M), then click with the "
               "left and with the right button, or press 1 and 2."));
}

void ExportActions::ask(double left, double right)
{
    const QString suggested = QDir(m_folder).filePath(QStringLiteral("readings.csv"));
    const QString path =
        QFileDialog::getSaveFileName(m_window, tr("Save readings"), suggested, tr("CSV (*.csv)"));
    if (path.isEmpty())
        return;
    m_folder = QFileInfo(path).absolutePath();
    save(path, left, right);
}

void ExportActions::save(const QString &path, double left, double right)
{
    QAbstractItemModel *const shown = m_displays.scope()->plotView()->model();
    const auto *plot = dynamic_cast<RVXAbstractPlotDataModel *>(shown);
    auto *running = new PlotDataExport(shown, this);
    running->setTimes(left, right);
    running->setShownOnly(true);
    const int newest = plot && shown ? shown->rowCount() - 1 : 0;
    if (newest > 0)
        running->setStartTime(startOf(m_session.model().header(), plot->doubleData(newest, 0)));
    const bool hasOlder = newest >= m_session.model().capacity() && left < plot->doubleData(1, 0);
    connect(running, &PlotDataExport::finished, this, [=](bool complete) {
        if (complete)
            Q_EMIT m_session.noted(Text::countedInEnglish("%n reading(s) was/were saved to %1",
                                                          nullptr,
                                                          running->rows())
                                       .arg(path));
        else if (!running->errorString().isEmpty())
            Q_EMIT m_session.noted(
                QStringLiteral("ERROR %1 was not saved: %2. Save to another disk, or make room")
                    .arg(path, LoggedText::ofSystem(running->errorString()).logged()));
        else
            Q_EMIT m_session.noted(
                QStringLiteral("%1 was not saved, because it was cancelled").arg(path));
        if (complete && hasOlder)
            Q_EMIT m_session.noted(
                QStringLiteral("WARNING readings older than the buffer are not in %1: only "
                               "the range of their blocks is known")
                    .arg(path));
        running->deleteLater();
        Q_EMIT finished();
    });
    if (running->start(path)) {
        showProgress(running);
        return;
    }
    QMessageBox::warning(m_window,
                         tr("Save readings"),
                         tr("%1 cannot be written: %2. Choose another file.")
                             .arg(path, LoggedText::ofSystem(running->errorString()).shown()));
    running->deleteLater();
}

void ExportActions::showProgress(PlotDataExport *running)
{
    auto *progress =
        new QProgressDialog(tr("Saving readings"), tr("Cancel"), 0, running->rows(), m_window);
    progress->setAttribute(Qt::WA_DeleteOnClose);
    progress->setWindowTitle(tr("Save readings"));
    progress->setValue(0); // it shows itself only if the rest takes long
    connect(running, &PlotDataExport::progressed, progress, &QProgressDialog::setValue);
    connect(running, &PlotDataExport::finished, progress, &QObject::deleteLater);
    connect(progress, &QProgressDialog::canceled, running, &PlotDataExport::cancel);
}

} // namespace Monitor
