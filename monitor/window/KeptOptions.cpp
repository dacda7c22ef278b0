// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/KeptOptions.h"

#include "monitor/window/WindowSettings.h"

#include <QVariant>

#include <cmath>
#include <optional>

namespace Monitor {

namespace {

const QString startKey = QStringLiteral("start-with");
const QString speedKey = QStringLiteral("speed");
const QString lowKey = QStringLiteral("limit-low");
const QString highKey = QStringLiteral("limit-high");
const QString detectorFileKey = QStringLiteral("detector");
const QString minimumSumKey = QStringLiteral("minimum-sum");
const QString folderKey = QStringLiteral("record-folder");
const QString rotateKey = QStringLiteral("record-rotate");
const QString compressKey = QStringLiteral("record-compress");
const QString languageKey = QStringLiteral("language");

const QString yes = QStringLiteral("yes");
const QStringList startNames = {QStringLiteral("simulator"),
                                QStringLiteral("last"),
                                QStringLiteral("nothing")};

//! Writes a number so that it reads back as the same number.
QString exactText(double number)
{
    constexpr int digits = 17;
    return QString::number(number, 'g', digits);
}

//! Returns what complete files become; a value that only a later program knows leaves them as they are.
SegmentForm keptSegments(const QString &text)
{
    if (text == yes) // what programs that knew only one form have kept
        return SegmentForm::Zstd;
    return segmentFormFromName(text).value_or(SegmentForm::Text);
}

QString keptText(SegmentForm segments)
{
    if (segments == SegmentForm::Text)
        return {};
    return segments == SegmentForm::Zstd ? yes : segmentFormName(segments);
}

QString verdictKey(const Corvale_Qt::VerdictLimitField &field)
{
    return QStringLiteral("verdict-") + QLatin1String(field.key);
}

//! Returns a number that is kept; none if there is no finite one.
std::optional<double> keptNumber(const WindowSettings &settings, const QString &key)
{
    bool isNumber = false;
    const double number = settings.text(key).toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

//! Returns the limits of verdicts; a limit that is not kept, or cannot be one, is the usual one.
Corvale_Qt::VerdictLimits keptVerdictLimits(const WindowSettings &settings)
{
    Corvale_Qt::VerdictLimits limits;
    for (const Corvale_Qt::VerdictLimitField &field : Corvale_Qt::verdictLimitFields) {
        const std::optional<double> limit = keptNumber(settings, verdictKey(field));
        if (limit && *limit >= 0.0)
            limits.*field.limit = *limit;
    }
    return limits;
}

} // namespace

MonitorOptions keptOptions(const WindowSettings &settings)
{
    MonitorOptions options;
    options.start = MonitorOptions::Start(qMax(0, startNames.indexOf(settings.text(startKey))));
    const std::optional<double> speed = keptNumber(settings, speedKey);
    if (speed && *speed >= 0.0)
        options.file.speed = *speed;
    options.rangeLow = keptNumber(settings, lowKey).value_or(0.0);
    options.rangeHigh = keptNumber(settings, highKey).value_or(0.0);
    options.detectorFile = settings.text(detectorFileKey);
    options.minimumSum = keptNumber(settings, minimumSumKey).value_or(0.0);
    options.verdictLimits = keptVerdictLimits(settings);
    options.recordFolder = settings.text(folderKey);
    options.rotation = settings.text(rotateKey);
    options.segments = keptSegments(settings.text(compressKey));
    options.language = settings.text(languageKey);
    return options;
}

FitParameters keptFitParameters(const WindowSettings &settings)
{
    FitParameters parameters;
    const auto isOn = [&settings](const char *key) {
        return settings.statisticsValue(QLatin1String(key)).toBool();
    };
    const auto take = [&settings](const char *key, double unit, double &parameter) {
        bool isNumber = false;
        const double kept = settings.statisticsValue(QLatin1String(key)).toDouble(&isNumber);
        if (isNumber && kept >= 0.0 && std::isfinite(kept))
            parameter = kept * unit;
    };
    constexpr double percent = 0.01;
    if (isOn("gaussian-fit-regression")) {
        take("gaussian-fit-regression-threhold", percent, parameters.regression[0]);
        take("gaussian-fit-regression-window", 1.0, parameters.regression[1]);
    }
    if (isOn("center-of-gravity")) {
        parameters.centreOfGravity[0] = isOn("center-of-gravity-window") ? 1.0 : 0.0;
        take("center-of-threshold", percent, parameters.centreOfGravity[1]);
        take("center-of-window", 1.0, parameters.centreOfGravity[2]);
    }
    return parameters;
}

void keepOptions(const MonitorOptions &options, WindowSettings &settings)
{
    settings.setText(startKey, startNames.at(int(options.start)));
    settings.setText(speedKey, exactText(options.file.speed));
    settings.setText(lowKey, exactText(options.rangeLow));
    settings.setText(highKey, exactText(options.rangeHigh));
    settings.setText(detectorFileKey, options.detectorFile);
    settings.setText(minimumSumKey, exactText(options.minimumSum));
    for (const Corvale_Qt::VerdictLimitField &field : Corvale_Qt::verdictLimitFields)
        settings.setText(verdictKey(field), exactText(options.verdictLimits.*field.limit));
    settings.setText(folderKey, options.recordFolder);
    settings.setText(rotateKey, options.rotation);
    settings.setText(compressKey, keptText(options.segments));
    settings.setText(languageKey, options.language);
}

} // namespace Monitor
