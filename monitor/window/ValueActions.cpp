// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ValueActions.h"

#include "monitor/readings/LimitTexts.h"
#include "monitor/session/Session.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/ValueAxisDialog.h"
#include "monitor/window/WindowSettings.h"
#include <corvale_qt/models/RVXPlotColors.h>
#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>

#include <QAction>
#include <QActionGroup>
#include <QMenu>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

const QString rangeKey = QStringLiteral("value-range");

//! The texts that a typed range is kept as, in this order.
enum RangeText {
    RangeSourceText,
    RangeUnitText,
    RangeMinimumText,
    RangeMaximumText,
    RangeTexts,
};

} // namespace

ValueActions::ValueActions(Session &session,
                           DisplayTabs &displays,
                           WindowSettings &settings,
                           QMenu *menu,
                           QWidget *window)
    : QObject(window)
    , m_session(session)
    , m_displays(displays)
    , m_settings(settings)
    , m_dialog(new ValueAxisDialog(*displays.scope(), window))
{
    QAction *axis = menu->addAction(tr("&Value axis..."), m_dialog, [this] {
        m_dialog->show();
        m_dialog->raise();
        m_dialog->activateWindow();
    });
    axis->setObjectName(QStringLiteral("valueAxis"));
    axis->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_Y));
    axis->setShortcutContext(Qt::ApplicationShortcut);
    RVXScopePlotView *view = displays.scope()->plotView();
    view->setValueUnit(settings.valueUnit());
    connect(view, &RVXScopePlotView::valueUnitChanged, this, [this](const QString &symbol) {
        m_settings.setValueUnit(symbol);
    });
    connect(m_dialog, &ValueAxisDialog::rangeTyped, this, &ValueActions::keepRange);
    connect(m_dialog, &ValueAxisDialog::automaticChosen, this, [this] {
        m_settings.setList(rangeKey, {});
    });
    connect(&session, &Session::streamStarted, this, &ValueActions::restoreRange);
    addLegend(menu);
    addBarNames(menu);
    addColours(menu);
}

//! Returns the unit of the left axis: that of the first channel that is shown.
QString ValueActions::leftUnit(const StreamHeader &header) const
{
    const QAbstractItemModel &model = m_session.model();
    for (int i = 0; i < header.channels.size(); ++i) {
        if (model.index(0, i + 1).data(Qt::CheckStateRole).toInt() != Qt::Unchecked)
            return header.channels[i].unit;
    }
    return QString();
}

void ValueActions::keepRange(double minimum, double maximum)
{
    m_settings.setList(rangeKey,
                       {m_session.source().description(),
                        leftUnit(m_session.model().header()),
                        limitText(minimum),
                        limitText(maximum)});
}

//! Sets the range that was typed for the same source and unit, which counts more than that of the stream.
void ValueActions::restoreRange(const StreamHeader &header)
{
    const QStringList kept = m_settings.list(rangeKey);
    if (kept.size() != RangeTexts || kept[RangeSourceText] != m_session.source().description()
        || kept[RangeUnitText] != leftUnit(header))
        return;
    const auto minimum = limitFromText(kept[RangeMinimumText]);
    const auto maximum = limitFromText(kept[RangeMaximumText]);
    if (minimum && maximum && *minimum < *maximum)
        m_displays.scope()->SetRange(*minimum, *maximum);
}

void ValueActions::addLegend(QMenu *menu)
{
    RVXScopePlotView *view = m_displays.scope()->plotView();
    QAction *legend = menu->addAction(tr("&Legend"));
    legend->setObjectName(QStringLiteral("legend"));
    legend->setCheckable(true);
    legend->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_G));
    legend->setShortcutContext(Qt::ApplicationShortcut);
    view->setLegendVisible(m_settings.showsLegend());
    legend->setChecked(view->isLegendVisible());
    connect(legend, &QAction::toggled, this, [this, view](bool on) {
        view->setLegendVisible(on);
        m_settings.setShowsLegend(on);
    });
}

void ValueActions::addBarNames(QMenu *menu)
{
    RVXScopePlotView *view = m_displays.scope()->plotView();
    QAction *names = menu->addAction(tr("Channel &names under bars"));
    names->setObjectName(QStringLiteral("barNames"));
    names->setCheckable(true);
    view->setBarNames(m_settings.showsBarNames());
    names->setChecked(view->hasBarNames());
    connect(names, &QAction::toggled, this, [this, view](bool on) {
        view->setBarNames(on);
        m_settings.setShowsBarNames(on);
    });
}

void ValueActions::addColours(QMenu *menu)
{
    QMenu *colours = menu->addMenu(tr("&Colours"));
    auto *group = new QActionGroup(colours);
    const auto add = [&](const QString &text, RVXPlotColors::Palette palette) {
        QAction *action = colours->addAction(text);
        action->setCheckable(true);
        action->setData(int(palette));
        action->setChecked(palette == m_settings.palette());
        group->addAction(action);
    };
    add(tr("&Eight colours"), RVXPlotColors::EightColors);
    add(tr("&Many colours, with dashes"), RVXPlotColors::ManyColors);
    add(tr("&Safe for colour-blind eyes, with dashes"), RVXPlotColors::ColorBlindSafe);
    m_session.model().setPalette(RVXPlotColors::Palette(m_settings.palette()));
    connect(group, &QActionGroup::triggered, this, [this](const QAction *action) {
        m_session.model().setPalette(RVXPlotColors::Palette(action->data().toInt()));
        m_settings.setPalette(action->data().toInt());
    });
}

} // namespace Monitor
