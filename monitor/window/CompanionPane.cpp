// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/CompanionPane.h"

#include "monitor/window/DisplayTabs.h"
#include "monitor/window/LatestValuePanel.h"
#include "monitor/window/LimitActions.h"
#include "monitor/window/MemberNotices.h"
#include "monitor/window/Symbols.h"
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>

#include <QHBoxLayout>
#include <QRegularExpression>
#include <QSplitter>
#include <QToolButton>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

//! Returns a text without the ampersand that marks its key.
QString withoutKey(QString text)
{
    static const QRegularExpression mark(QStringLiteral("&(?!&)(?<!&&)"));
    return text.remove(mark);
}

/*! Takes the keys away from the controls of a pane. Each pane has the same controls as the window, and where two have a key it
    only moves the focus, so that the keys of the first source would no longer work. */
void removeKeys(const QWidget &pane)
{
    for (QAbstractButton *button : pane.findChildren<QAbstractButton *>())
        button->setText(withoutKey(button->text()));
    for (QLabel *label : pane.findChildren<QLabel *>())
        if (label->buddy())
            label->setText(withoutKey(label->text()));
}

} // namespace

CompanionPane::CompanionPane(const Companions::Member &companion, QWidget *parent)
    : QWidget(parent)
    , m_companion(companion)
    , m_displays(new DisplayTabs(*companion.session))
    , m_state(new StatusField(tr("The state of this source"), this))
{
    setObjectName(QStringLiteral("companion"));
    m_displays->scope()->setControlsVisible(
        false); // a button brings them back; the chart needs the room
    auto *values = new LatestValuePanel(*companion.session);
    values->follow(m_displays->baseline());
    connect(m_displays->scope()->plotView(),
            &RVXScopePlotView::valueUnitChanged,
            values,
            &LatestValuePanel::setValueUnit);
    auto *parts = new QSplitter(this);
    parts->addWidget(values);
    parts->addWidget(m_displays);
    parts->setStretchFactor(1, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Look::gap / 2);
    layout->addWidget(newHeading());
    layout->addWidget(parts, 1);

    const auto drawLimits = [this] {
        LimitActions::drawLimits(m_companion.session->statistics().header(), *m_displays->scope());
    };
    connect(companion.session, &Session::streamStarted, this, drawLimits);
    connect(companion.session, &Session::limitsChanged, this, drawLimits);
    connect(m_displays->scope(), &RVXScope::zeroedChanged, this, drawLimits);
    removeKeys(*this);
    refresh();
}

CompanionPane::~CompanionPane() = default;

QWidget *CompanionPane::newHeading()
{
    auto *heading = new QWidget(this);
    auto *name = new QLabel(m_companion.name, heading);
    name->setTextFormat(Qt::PlainText);
    name->setObjectName(QStringLiteral("name"));
    name->setToolTip(QStringLiteral("<qt>%1</qt>")
                         .arg(m_companion.session->source().description().toHtmlEscaped()));
    QFont bold = name->font();
    bold.setBold(true);
    name->setFont(bold);
    m_state->setObjectName(QStringLiteral("state"));
    m_state->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *close = new QToolButton(heading);
    close->setObjectName(QStringLiteral("close"));
    close->setIcon(symbol(QStringLiteral("close")));
    close->setAutoRaise(true);
    close->setAccessibleName(tr("Close %1").arg(m_companion.name));
    close->setToolTip(tr("Close this source; its recording ends"));
    connect(close, &QToolButton::clicked, this, &CompanionPane::closeAsked);
    auto *layout = new QHBoxLayout(heading);
    layout->setContentsMargins(Look::gap / 2, 0, 0, 0);
    layout->addWidget(name);
    layout->addWidget(m_state, 1);
    layout->addWidget(close);
    return heading;
}

void CompanionPane::refresh()
{
    m_state->tell(memberNotices(m_companion));
}

} // namespace Monitor
