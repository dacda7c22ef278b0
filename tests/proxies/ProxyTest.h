// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// What nearly every test of a proxy needs: models, proxies to put on them, and ways to see what they announce and show.
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXLatestPlotDataProxyModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/BufferModel.h"
#include "tests/support/ModelLog.h"
#include "tests/support/ModelText.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/RowAccount.h"
#include "tests/support/TableMirror.h"
#include "tests/support/TestMain.h"

#include <optional>
