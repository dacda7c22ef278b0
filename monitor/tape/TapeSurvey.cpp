// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/tape/TapeSurvey.h"

#include <algorithm>

namespace Monitor {

bool TapeSurvey::hasGaps() const
{
    return std::any_of(marks.begin(), marks.end(), [](const Mark &mark) {
        return mark.kind == TapeMark::Kind::Gap;
    });
}

bool TapeSurvey::isInGap(double position) const
{
    const auto isSilent = [&](const QString &recording) {
        return std::any_of(marks.begin(), marks.end(), [&](const Mark &mark) {
            return mark.kind == TapeMark::Kind::Gap && mark.name == recording
                && position > mark.position && position < mark.position + mark.length;
        });
    };
    const auto lies = [&](const Lane &lane) {
        return std::any_of(lane.covered.begin(), lane.covered.end(), [&](const Stretch &stretch) {
            return position >= stretch.position && position <= stretch.position + stretch.length;
        });
    };
    if (lanes.isEmpty())
        return isSilent(QString());
    return std::none_of(lanes.begin(), lanes.end(), [&](const Lane &lane) {
        return lies(lane) && !isSilent(lane.name);
    });
}

} // namespace Monitor
