// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/SourceBeside.h"

#include "monitor/core/Text.h"
#include "monitor/session/Companions.h"
#include "monitor/sources/SourceFactory.h"
#include "monitor/window/SourceDetector.h"

namespace Monitor {

std::unique_ptr<Source> sourceBeside(const Session &lead, const QString &address, QString *error)
{
    SourceFactory factory(lead.clock(), FileSource::Options());
    std::unique_ptr<Source> source = factory.make(address);
    *error = factory.errorString();
    if (!source)
        return nullptr;
    const bool isLive = source->isLive();
    if (isLive && lead.source().isLive())
        return source;
    *error =
        Text::tr(
            "%1 is not an instrument: a recording is shown alone, since its readings were taken at "
            "another time. Open it with File > Open..., or in a window with another "
            "--settings FILE")
            .arg(isLive ? lead.source().description() : address);
    return nullptr;
}

void addBeside(Companions &companions,
               const NamedAddress &address,
               std::unique_ptr<Source> source,
               const WindowSettings &settings)
{
    Session &session = companions.add(address, std::move(source));
    const SourceDetector detector = keptDetector(address.address, QString(), settings);
    session.setDetector(detector.layout);
    if (!detector.note.isEmpty())
        Q_EMIT session.noted(detector.note);
    session.start();
}

} // namespace Monitor
