// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/SourceNames.h"

namespace Monitor {

class WindowSettings;

//! Returns what was read beside \a lead, the address of a first source, when a window last showed it.
QVector<NamedAddress> keptCompanions(const QString &lead, const WindowSettings &settings);
//! Returns the addresses that the open window with these settings reads beside its first source.
QStringList openCompanions(const WindowSettings &settings);
//! Notes that the window opens another first source, beside which nothing is read yet.
void noteNoCompanions(WindowSettings &settings);
//! Keeps what is read beside \a lead for the next start, in place of what was kept.
void keepCompanions(const QString &lead,
                    const QVector<NamedAddress> &companions,
                    WindowSettings &settings);

} // namespace Monitor
