// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/SourceDetector.h"

#include "monitor/readings/DetectorPresets.h"
#include "monitor/window/SourceSwitch.h"
#include "monitor/window/WindowSettings.h"

#include <QFileInfo>

namespace Monitor {

SourceDetector
keptDetector(const QString &source, const QString &usualFile, const WindowSettings &settings)
{
    QString kept = settings.detectorFile(SourceSwitch::completed(source));
    if (kept.isEmpty())
        kept = settings.detectorFile(source);
    const QString file = kept.isEmpty() ? usualFile : kept;
    SourceDetector detector;
    if (file.isEmpty())
        return detector;
    Corvale_Qt::DetectorFault fault;
    detector.layout = detectorNamed(file, &fault);
    if (!fault.isEmpty()) {
        detector.fault = LoggedText::of([&] {
            detectorNamed(file, &fault);
            return fault.message();
        });
        detector.note =
            QStringLiteral("ERROR the detector of %1 is not used: %2. Choose another one in "
                           "File > Settings... or with --detector FILE")
                .arg(file, detector.fault.logged());
    } else if (!kept.isEmpty())
        detector.note =
            QStringLiteral("the detector is that of %1, as before; --detector none forgets it")
                .arg(file);
    return detector;
}

void keepDetector(const QString &source, const QString &file, WindowSettings &settings)
{
    const bool isName = file.isEmpty() || isPresetName(file);
    const QString path = isName ? file : QFileInfo(file).absoluteFilePath();
    settings.setDetectorFile(SourceSwitch::completed(source), path);
    if (path.isEmpty())
        settings.setDetectorFile(source, path); // as a former version may have kept it
}

} // namespace Monitor
