// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QString>

class QColor;

//! Converts colours to fragments of Qt style sheets.
namespace resource {

//! Returns "rgb( 255,128,0)". The space after the parenthesis stays as it is in existing style sheets of hosts.
CORVALE_QT_EXPORT QString rgbStyleSheetFromColor(const QColor &color);
//! Returns "color: rgb( 255,128,0);".
CORVALE_QT_EXPORT QString colorRgbStyleSheetFromColor(const QColor &color);

} // namespace resource
