// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/scope/ScopePlotMode_p.h"

class QWidget;

namespace Corvale_Qt {

//! Shows a companion widget in place of the plot. The host gives that widget its data.
class CompanionPlotMode : public ScopePlotMode
{
public:
    //! The view owns \a companion.
    CompanionPlotMode(ScopeContext &context, QWidget *companion);
    void enter() override;
    void plot() override;
    void clear() override;

private:
    QWidget *m_companion;
};

} // namespace Corvale_Qt
