// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QtTest>

//! What a run of the program left: its exit code, -1 if it did not end by itself, and what it printed.
struct Outcome
{
    int code = -1;
    QByteArray out;
    QByteArray err;
};

//! Runs the program in a folder of its own, which lives as long as this.
class ProgramInFolder
{
protected:
    static constexpr int longest = 100000; // ms

    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    Outcome run(const QStringList &arguments, const QByteArray &input = {}) const
    {
        QProcess process;
        process.setProcessEnvironment(environment());
        process.setWorkingDirectory(m_folder.path());
        process.start(QStringLiteral(CORVALE_MONITOR), arguments);
        process.write(input);
        process.closeWriteChannel();
        if (!process.waitForFinished(longest) || process.exitStatus() != QProcess::NormalExit)
            return {};
        return {process.exitCode(), process.readAllStandardOutput(),
                process.readAllStandardError()};
    }

    static QProcessEnvironment environment()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("QT_SCALE_FACTOR");
        return environment;
    }

    QTemporaryDir m_folder;
};
