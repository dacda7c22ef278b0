// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/SourceBeside.h"

#include "monitor/core/Text.h"
#include "monitor/session/Companions.h"
#include "monitor/sources/SourceFactory.h"
#include "monitor/window/SourceDetector.h"

namespace Monitor {

namespace {

//! What may be shown together: what is measured now, or what was recorded.
enum class Time {
    Present,
    Past,
    None
};

Time timeOf(const Source &source)
{
    if (source.isLive())
        return Time::Present;
    return qobject_cast<const FileSource *>(&source) ? Time::Past : Time::None;
}

} // namespace

std::unique_ptr<Source> sourceBeside(const Session &lead,
                                     const QString &address,
                                     const ImportOptions &import,
                                     QString *error)
{
    FileSource::Options options;
    options.import = import;
    SourceFactory factory(lead.clock(), options);
    std::unique_ptr<Source> source = factory.make(address);
    *error = factory.errorString();
    if (!source)
        return nullptr;
    const Time time = timeOf(*source), leadTime = timeOf(lead.source());
    if (time == leadTime && time != Time::None)
        return source;
    if (time == Time::None || leadTime == Time::None)
        *error =
            Text::tr("%1 is shown alone: its images have no times. Open it with File > Open..., "
                     "or in a window with another --settings FILE")
                .arg(time == Time::None ? address : lead.source().description());
    else
        *error =
            Text::tr(
                "%1 is a recording, and %2 is an instrument: they are not shown together, since "
                "their readings were taken at different times. Open one of them in a window "
                "with another --settings FILE")
                .arg(time == Time::Past ? address : lead.source().description(),
                     time == Time::Past ? lead.source().description() : address);
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
