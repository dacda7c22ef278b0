// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/CompanionPlotMode_p.h"
#include "corvale_qt/scope/ScopeContext_p.h"
#include "corvale_qt/scope/ScopeSurface_p.h"

namespace Corvale_Qt {

CompanionPlotMode::CompanionPlotMode(ScopeContext &context, QWidget *companion)
    : ScopePlotMode(context)
    , m_companion(companion)
{
}

void CompanionPlotMode::enter()
{
    m_context.histogram.detach();
    m_context.statistics.hide();
    m_context.surface.showScrollBar(false);
    m_context.surface.showOnly(m_companion);
}

void CompanionPlotMode::plot() { }

void CompanionPlotMode::clear() { }

} // namespace Corvale_Qt
