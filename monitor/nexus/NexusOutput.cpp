// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/NexusOutput.h"

#include "monitor/core/Text.h"
#include "monitor/nexus/NexusFiles.h"

#include <QFileInfo>

namespace Monitor {

NexusOutput::NexusOutput(const QString &path)
    : m_path(path)
    , m_draft(path)
{
}

bool NexusOutput::fail(const QString &why)
{
    m_error = Text::tr("%1 cannot be written: %2").arg(m_path, why);
    return false;
}

bool NexusOutput::start(const QString &source, bool overwrite, unsigned mode)
{
    m_overwrites = overwrite;
    if (!nexusMissing().isEmpty())
        return fail(nexusMissing());
    const QFileInfo existing(m_path);
    if (existing.exists() && !overwrite) {
        m_error = Text::tr("%1 exists already; choose another name, or allow overwriting "
                           "(--overwrite)")
                      .arg(m_path);
        return false;
    }
    if (existing.exists() && !existing.isFile())
        return fail(Text::tr("it is not a regular file"));
    if (!m_draft.create(mode))
        return fail(m_draft.errorString());
    // Who may read the former file may read the new one.
    if (existing.exists())
        m_draft.file().setPermissions(existing.permissions());
    return m_writer.open(m_draft.path(), source) || fail(m_writer.errorString());
}

bool NexusOutput::finish()
{
    const bool isWritten = m_writer.finish() || fail(m_writer.errorString());
    if (!isWritten)
        m_draft.discard();
    return isWritten && (m_draft.commit(m_overwrites) || fail(m_draft.errorString()));
}

void NexusOutput::discard()
{
    m_writer.finish();
    m_draft.discard();
}

} // namespace Monitor
