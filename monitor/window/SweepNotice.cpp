// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/SweepNotice.h"

#include "monitor/window/Look.h"
#include <corvale_qt/numerics/SweepTrigger.h>
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>

#include <QAbstractItemModel>
#include <QEvent>

namespace Monitor {

using namespace Corvale_Qt;

SweepNotice::SweepNotice(RVXScope &scope)
    : QLabel(scope.plotView())
    , m_scope(scope)
{
    setObjectName(QStringLiteral("sweepNotice"));
    setTextFormat(Qt::PlainText);
    setMargin(Look::gap / 2);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    Look::dress(this, Look::State::Waiting);
    parentWidget()->installEventFilter(this);
    const QAbstractItemModel *model = scope.plotView()->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, &SweepNotice::refresh);
    connect(model, &QAbstractItemModel::modelReset, this, &SweepNotice::refresh);
    connect(&scope, &RVXScope::plotModeChanged, this, &SweepNotice::refresh);
    refresh();
}

bool SweepNotice::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        place();
    return false;
}

void SweepNotice::refresh()
{
    const RVXScopePlotView &view = *m_scope.plotView();
    const int come = view.model()->rowCount() - 1;
    const int needed = view.sweepLength();
    // A trigger says itself what it waits for.
    const bool waits = m_scope.plotMode() == RVXScope::ScopeMode && !view.trigger().isOn()
        && come > 0 && come < needed;
    if (waits) {
        setText(
            tr("The first sweep is shown when it is complete (%1 of %2)").arg(come).arg(needed));
        place();
    }
    setVisible(waits);
}

void SweepNotice::place()
{
    constexpr int aside = 2; // of the room that is left, on each side
    adjustSize();
    move((parentWidget()->width() - width()) / aside,
         (parentWidget()->height() - height()) / aside);
    raise();
}

} // namespace Monitor
