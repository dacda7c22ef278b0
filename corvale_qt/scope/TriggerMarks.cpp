// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/TriggerMarks_p.h"

#include <qwt_plot.h>
#include <qwt_text.h>

#include <QCoreApplication>
#include <QFont>
#include <QPen>

namespace Corvale_Qt {

namespace {

constexpr double kZ = 31.0; // above the curves, below the markers

//! Returns the ground of a state, on which it is written in black.
QColor groundOf(TriggerState state)
{
    switch (state) {
    case TriggerState::Triggered:
        return QColor(110, 220, 110);
    case TriggerState::Armed:
        return QColor(255, 190, 60);
    default:
        return QColor(200, 200, 210);
    }
}

void prepare(QwtPlotMarker &marker, QwtPlotMarker::LineStyle style)
{
    marker.setLineStyle(style);
    marker.setZ(kZ);
    marker.setItemAttribute(QwtPlotItem::AutoScale, false);
}

} // namespace

QString triggerStateText(TriggerState state)
{
    const auto tr = [](const char *text) {
        return QCoreApplication::translate("Corvale_Qt", text);
    };
    switch (state) {
    case TriggerState::Armed:
        return tr("Armed");
    case TriggerState::Triggered:
        return tr("Triggered");
    case TriggerState::Automatic:
        return tr("Auto");
    case TriggerState::Off:
        break;
    }
    return {};
}

TriggerMarks::TriggerMarks(QwtPlot *plot)
    : m_plot(plot)
{
    prepare(m_level, QwtPlotMarker::HLine);
    prepare(m_origin, QwtPlotMarker::VLine);
    m_origin.setXValue(0.0);
    m_origin.setLinePen(QColor(120, 120, 130), 1.0, Qt::DotLine);
    m_text.setZ(kZ);
    constexpr int margin = 6;
    m_text.setMargin(margin);
}

void TriggerMarks::show(const SweepTrigger &trigger,
                        TriggerState state,
                        const QColor &colour,
                        int axis)
{
    const bool withLevel = axis == QwtPlot::yLeft || axis == QwtPlot::yRight;
    if (withLevel)
        m_level.setYAxis(axis);
    m_level.setYValue(trigger.level);
    m_level.setLinePen(colour, 1.0, Qt::DotLine);
    m_level.attach(withLevel ? m_plot : nullptr);
    m_origin.attach(m_plot);
    m_text.attach(m_plot);
    if (m_state != state)
        showState(state);
}

void TriggerMarks::showState(TriggerState state)
{
    m_state = state;
    QwtText text(triggerStateText(state), QwtText::PlainText);
    QFont font;
    font.setBold(true);
    text.setFont(font);
    text.setColor(Qt::black);
    text.setBackgroundBrush(groundOf(state));
    text.setBorderRadius(3.0);
    text.setRenderFlags(Qt::AlignRight | Qt::AlignTop);
    m_text.setText(text);
}

void TriggerMarks::hide()
{
    m_level.detach();
    m_origin.detach();
    m_text.detach();
}

} // namespace Corvale_Qt
