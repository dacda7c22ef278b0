// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// One function for each subject; each reports its goals.

void measureStripRepaint();
void measureProxies();
