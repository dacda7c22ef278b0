// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/program/HeadlessRun.h"
#include "monitor/program/QuietMessages.h"
#include "monitor/program/WindowRun.h"
#include "tests/monitor/support/ProgramInFolder.h"

#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

//! Leads one of the standard streams of this process to a file while it lives.
class TurnedStream
{
public:
    TurnedStream(int stream, int file)
        : m_stream(stream)
    {
        std::fflush(nullptr);
        m_former = dup(stream);
        dup2(file, stream);
    }
    ~TurnedStream()
    {
        std::fflush(nullptr);
        dup2(m_former, m_stream);
        close(m_former);
    }
    TurnedStream(const TurnedStream &) = delete;
    TurnedStream &operator=(const TurnedStream &) = delete;

private:
    int m_stream;
    int m_former;
};

//! A file for what comes out of a standard stream.
class CaughtStream
{
public:
    explicit CaughtStream(int stream)
        : m_turned(stream, (m_file.open(), m_file.handle()))
    {
    }
    QByteArray text()
    {
        std::fflush(nullptr);
        m_file.seek(0);
        return m_file.readAll();
    }

private:
    QTemporaryFile m_file;
    TurnedStream m_turned;
};

//! Does the tasks of the program that show no window in this process, which takes a fraction of the time of a start.
class TaskInFolder : protected ProgramInFolder
{
protected:
    //! Runs a task, or starts the program where there is none, as where it cannot understand its arguments.
    Outcome run(const QStringList &arguments, const QByteArray &input = {}) const
    {
        using Task = Monitor::CommandLine::Task;
        Monitor::CommandLine line;
        QString error;
        const bool isUnderstood = line.parse(QStringList("corvale-monitor") + arguments, &error);
        const bool isTask = line.task == Task::Statistics || line.task == Task::Check
            || line.task == Task::Convert || line.task == Task::Screenshot;
        const bool fits = input.size() <= roomOfAPipe;
        return isUnderstood && isTask && fits ? done(line, input)
                                              : ProgramInFolder::run(arguments, input);
    }

private:
    static constexpr int roomOfAPipe = 65536; // bytes, on Linux

    Outcome done(const Monitor::CommandLine &line, const QByteArray &input) const
    {
        const QString before = QDir::currentPath();
        QDir::setCurrent(m_folder.path());
        int ends[2];
        if (pipe(ends) != 0 || write(ends[1], input.constData(), size_t(input.size())) < 0)
            qFatal("no pipe");
        close(ends[1]);
        Outcome outcome;
        {
            const TurnedStream in(STDIN_FILENO, ends[0]);
            CaughtStream out(STDOUT_FILENO), err(STDERR_FILENO);
            const auto former = qInstallMessageHandler(nullptr);
            Monitor::installQuietMessages();
            outcome.code = codeOf(line);
            qInstallMessageHandler(former);
            outcome.out = out.text();
            outcome.err = err.text();
        }
        close(ends[0]);
        QDir::setCurrent(before);
        return outcome;
    }

    static int codeOf(const Monitor::CommandLine &line)
    {
        if (line.task != Monitor::CommandLine::Task::Screenshot)
            return Monitor::HeadlessRun(line).run();
        Monitor::WindowRun picture(line);
        picture.prepare();
        return picture.run();
    }
};
