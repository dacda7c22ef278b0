// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/dialogs/ConnectDialog.h"

namespace Monitor {

class WindowSettings;

//! Returns the connections that were kept under names.
QVector<ConnectDialog::Kept> keptConnections(const WindowSettings &settings);
void keepConnections(const QVector<ConnectDialog::Kept> &kept, WindowSettings &settings);

} // namespace Monitor
