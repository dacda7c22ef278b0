// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace Monitor {

struct CommandLine;

/*! A start that finds the window of its settings open. It brings that window to the front and hands nothing over, so
    whatever else it was asked for is not done. */
class SecondStart
{
public:
    //! \a settings is the file of the open window.
    SecondStart(const CommandLine &commandLine, const QString &settings);

    //! Returns whether everything that was asked for is so already.
    bool isDone() const { return m_closedSources.isEmpty() && m_options.isEmpty(); }
    //! Returns what happened, what was not done, and what would do it.
    QString message() const;

private:
    QStringList m_closedSources; //!< the addresses that the window does not show
    const QStringList m_options;
};

} // namespace Monitor
