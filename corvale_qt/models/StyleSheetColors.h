// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QString>

class QColor;

//! Colours as fragments of Qt style sheets.
namespace resource {

//! "rgb( 255,128,0)": the space after the parenthesis and none after the commas, as style sheets of hosts have it.
CORVALE_QT_EXPORT QString rgbStyleSheetFromColor(const QColor &color);
//! "color: rgb( 255,128,0);"
CORVALE_QT_EXPORT QString colorRgbStyleSheetFromColor(const QColor &color);

} // namespace resource
