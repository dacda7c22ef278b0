// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/DetectorPresets.h"

#include "monitor/core/Text.h"
#include <corvale_qt/detector/DetectorFile.h>
#include <corvale_qt/numerics/RoundPixelDetector.h>

#include <algorithm>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

const QString prefix = QStringLiteral("preset:");

DetectorLayout strips64()
{
    DetectorDescription strips;
    strips.kind = DetectorKind::Strips;
    strips.x = DetectorAxis::uniform(32, 2.0, QStringLiteral("mm"));
    strips.y = strips.x;
    return DetectorLayout::fromDescription(strips);
}

//! The matrix of 120 pixels, for streams that have all cells of the square around it, row 1 at the smallest y.
DetectorLayout pixels144()
{
    constexpr int side = RoundPixelDetector::kSide;
    DetectorDescription matrix;
    matrix.kind = DetectorKind::Matrix;
    matrix.x = DetectorAxis::uniform(side, 3.8, QStringLiteral("mm"));
    matrix.y = matrix.x;
    matrix.readings = side * side;
    for (int cell = 0; cell < side * side; ++cell) {
        const int rowFromTop = side - 1 - cell / side;
        const bool wired = RoundPixelDetector::readingAt(rowFromTop, cell % side) >= 0;
        matrix.wiring.append(wired ? cell : -1);
    }
    return DetectorLayout::fromDescription(matrix);
}

struct Preset
{
    const char *name;
    const char *text;
    DetectorLayout (*layout)();
};

const Preset presets[] = {
    {"strips64", QT_TRANSLATE_NOOP("Monitor::Text", "32 + 32 strips of 2 mm"), strips64},
    {"strips128",
     QT_TRANSLATE_NOOP("Monitor::Text",
                       "32 + 32 strips of 2 mm, x in channels 1 to 32 and y in 65 to 96 of 128"),
     DetectorLayout::stripPair},
    {"pixels144",
     QT_TRANSLATE_NOOP("Monitor::Text",
                       "120 pixels of 3.8 mm in 12 rows of 12, without the corners"),
     pixels144},
    {"pixels128",
     QT_TRANSLATE_NOOP("Monitor::Text", "120 pixels of 3.8 mm, as they are wired to 128 channels"),
     DetectorLayout::pixelMatrix},
};

const Preset *presetNamed(const QString &name)
{
    const auto found = std::find_if(std::begin(presets), std::end(presets), [&](const Preset &one) {
        return prefix + QLatin1String(one.name) == name;
    });
    return found != std::end(presets) ? found : nullptr;
}

} // namespace

QStringList detectorPresets()
{
    QStringList names;
    for (const Preset &preset : presets)
        names.append(prefix + QLatin1String(preset.name));
    return names;
}

QString presetText(const QString &name)
{
    const Preset *preset = presetNamed(name);
    return preset ? Text::tr(preset->text) : QString();
}

bool isPresetName(const QString &name)
{
    return name.startsWith(prefix);
}

DetectorLayout detectorNamed(const QString &presetOrFile, DetectorFault *fault)
{
    if (!isPresetName(presetOrFile))
        return detectorFromFile(presetOrFile, fault);
    if (const Preset *preset = presetNamed(presetOrFile))
        return preset->layout();
    *fault = {{}, Text::tr("there are %1").arg(detectorPresets().join(QStringLiteral(", ")))};
    return {};
}

} // namespace Monitor
