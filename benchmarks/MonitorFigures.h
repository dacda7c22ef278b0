// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QElapsedTimer>
#include <QTemporaryDir>

//! What the figures of one run share.
struct Figures
{
    QElapsedTimer sinceStart; //!< began with main()
    QTemporaryDir folder;

    QString file(const char *name) const { return folder.filePath(QLatin1String(name)); }
    //! Returns the settings file of the windows.
    QString settings() const { return file("figures.xui"); }
};

// Each measures one subject, and prints a line for each figure.
void measureStart(const Figures &figures);
void measureRows(const Figures &figures);
void measureRecording(const Figures &figures);
void measureDelay(const Figures &figures);
void measureMemory(const Figures &figures);
void measureParser(const Figures &figures);
void measureReplay(const Figures &figures);
void measureOutline(const Figures &figures);
