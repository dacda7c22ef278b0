// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/StyleSheetColors.h"

#include <QColor>

namespace resource {

QString rgbStyleSheetFromColor(const QColor &color)
{
    return QStringLiteral("rgb( %1,%2,%3)").arg(color.red()).arg(color.green()).arg(color.blue());
}

QString colorRgbStyleSheetFromColor(const QColor &color)
{
    return QStringLiteral("color: %1;").arg(rgbStyleSheetFromColor(color));
}

} // namespace resource
