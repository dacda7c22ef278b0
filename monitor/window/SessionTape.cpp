// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/SessionTape.h"

#include "monitor/session/Companions.h"
#include "monitor/tape/CommonTape.h"
#include "monitor/tape/TapeDeck.h"

namespace Monitor {

std::unique_ptr<Tape> tapeOf(const Companions &members)
{
    std::vector<CommonTape::Recording> recordings;
    for (const Companions::Member &member : members.members())
        if (auto *source = qobject_cast<FileSource *>(&member.session->source()))
            recordings.push_back({member.name, source});
    const Session &lead = *members.members().front().session;
    if (recordings.empty() || recordings.front().source != &lead.source())
        return nullptr;
    if (recordings.size() == 1)
        return std::make_unique<TapeDeck>(*recordings.front().source, lead.clock());
    return std::make_unique<CommonTape>(recordings,
                                        CommonTape::optionsOf(*recordings.front().source),
                                        lead.clock());
}

} // namespace Monitor
