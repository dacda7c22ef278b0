// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/SpanControl.h"

#include "monitor/window/Look.h"
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/widgets/TimeSpanBox.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace Monitor {

using namespace Corvale_Qt;

SpanControl::SpanControl(RVXScope &scope, QWidget *parent)
    : QWidget(parent)
    , m_scope(scope)
    , m_box(new TimeSpanBox(this))
{
    auto *label = new QLabel(tr("Time &span:"), this);
    label->setBuddy(m_box);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, Look::gap / 4); // the page begins below
    layout->addWidget(label);
    layout->addWidget(m_box);

    m_box->setObjectName(QStringLiteral("timeSpan"));
    m_box->setSpan(usualSpan);
    m_box->setToolTip(
        tr("Time that the strip chart shows (Ctrl+T): choose one, or type 90 s, 2 h, "
           "1.5 min or all. Readings older than the newest 100000 are shown as the range "
           "of blocks, for a week; while they are averaged, they are not shown."));
    connect(m_box, &TimeSpanBox::spanChanged, this, &SpanControl::apply);
    // The keys of the chart and of the window are to work again.
    connect(m_box, &TimeSpanBox::entryFinished, this, [this] {
        m_scope.setFocus();
    });
    apply();
}

void SpanControl::setTimed(bool timed)
{
    m_timed = timed;
    apply();
}

bool SpanControl::applies() const
{
    return m_timed && m_scope.plotMode() == RVXScope::StripMode;
}

void SpanControl::edit()
{
    window()->activateWindow();
    m_box->setFocus(Qt::ShortcutFocusReason);
    m_box->lineEdit()->selectAll();
}

void SpanControl::apply()
{
    m_scope.setTimeSpan(m_timed ? m_box->span() : 0.0);
}

} // namespace Monitor
