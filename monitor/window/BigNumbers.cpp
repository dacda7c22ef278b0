// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/BigNumbers.h"

#include "monitor/core/Clock.h"
#include "monitor/session/Session.h"
#include "monitor/window/Baseline.h"
#include "monitor/window/BigText.h"
#include "monitor/window/DisplayTabs.h"
#include "monitor/window/LatestValuePanel.h"
#include "monitor/window/Look.h"
#include "monitor/window/ScreenFit.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace Monitor {

using Corvale_Qt::BeamValidity;
using Corvale_Qt::SpectrogramCalc;

namespace {

constexpr double readableInterval = 0.2; // s; faster numbers cannot be read
constexpr QSize bigNumbersSize{1000, 500}; // in which the beam is read from three metres

QString length(double value, const QString &unit)
{
    return value == SpectrogramCalc::invalid
        ? QStringLiteral("-")
        : QStringLiteral("%1 %2").arg(QString::number(value, 'f', 2), unit);
}

} // namespace

BigNumbers::BigNumbers(Session &session,
                       DisplayTabs &displays,
                       LatestValuePanel &values,
                       QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_session(session)
    , m_displays(displays)
    , m_values(values)
    , m_text(new BigText(this))
    , m_choice(new QComboBox(this))
{
    setObjectName(QStringLiteral("bigNumbers"));
    setWindowTitle(tr("Big numbers - Corvale Monitor"));
    auto *label = new QLabel(tr("&Show:"), this);
    label->setBuddy(m_choice);
    auto *below = new QHBoxLayout;
    below->setContentsMargins(Look::gap, 0, Look::gap, Look::gap);
    below->addWidget(label);
    below->addWidget(m_choice, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 1);
    layout->addLayout(below);
    resize(bigNumbersSize);
    connect(&session, &Session::streamStarted, this, &BigNumbers::offerChoices);
    connect(&session, &Session::sourceReplaced, this, &BigNumbers::offerChoices);
    connect(&session.clock(), &Clock::tick, this, &BigNumbers::refreshIfDue);
    connect(m_choice, qOverload<int>(&QComboBox::currentIndexChanged), this, &BigNumbers::refresh);
    offerChoices();
}

QStringList BigNumbers::lines() const
{
    return m_text->lines();
}

//! Offers the beam, if there are profiles, and each channel; keeps the choice where it is there again.
void BigNumbers::offerChoices()
{
    const QString chosen = m_choice->currentText();
    m_choice->clear();
    if (m_displays.offers(QStringLiteral("profile")))
        m_choice->addItem(tr("Beam: position and width"), -1);
    const QVector<Channel> &channels = m_session.model().header().channels;
    for (int row = 0; row < channels.size(); ++row)
        m_choice->addItem(channels.at(row).name, row);
    m_choice->setCurrentIndex(qMax(0, m_choice->findText(chosen)));
    refresh();
}

//! Closes the window with Escape, as a dialog: a screen of numbers may have no frame to close it with.
void BigNumbers::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cancel))
        close();
    else
        QWidget::keyPressEvent(event);
}

void BigNumbers::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    fitToScreen(this);
    refresh();
}

void BigNumbers::refreshIfDue()
{
    if (isVisible() && m_session.clock().seconds() - m_refreshedAt >= readableInterval)
        refresh();
}

void BigNumbers::refresh()
{
    m_refreshedAt = m_session.clock().seconds();
    const QVariant row = m_choice->currentData();
    QStringList lines = !row.isValid() ? QStringList{tr("No readings"), QStringLiteral("-")}
        : row.toInt() < 0              ? beamLines()
                                       : channelLines(row.toInt());
    const QString state = stateText();
    if (!state.isEmpty())
        lines.first() += QStringLiteral("  ") + state;
    m_text->setLines(lines);
    m_text->setFaint(m_session.isStale());
}

QStringList BigNumbers::beamLines() const
{
    using Axis = Corvale_Qt::DetectorLayout::Axis;
    const Corvale_Qt::RVXSpectrogram &profile = *m_displays.profile();
    const SpectrogramCalc calc = profile.getCalc();
    if (!calc.valid)
        return {tr("Beam"), tr("no valid data")};
    const QString x = profile.lengthUnit(Axis::X), y = profile.lengthUnit(Axis::Y);
    const QString line = QStringLiteral("%1 %2\t\u03c3 %3");
    QString title = tr("Beam");
    if (profile.isVerdictEnabled() && profile.verdict().validity != BeamValidity::Valid)
        title += QStringLiteral("  ") + profile.verdict().text();
    return {title,
            line.arg(QStringLiteral("X"), length(calc.meanX, x), length(calc.sigmaX, x)),
            line.arg(QStringLiteral("Y"), length(calc.meanY, y), length(calc.sigmaY, y))};
}

QStringList BigNumbers::channelLines(int row) const
{
    return {m_session.model().header().channels.value(row).name,
            m_values.values()->index(row, 1).data().toString()};
}

QString BigNumbers::stateText() const
{
    QStringList states;
    if (m_session.source().isSimulated())
        states.append(tr("SIMULATED"));
    if (m_session.isPaused())
        states.append(tr("PAUSED"));
    if (m_session.isStale())
        states.append(tr("STALE"));
    if (m_session.source().state() == Source::State::Finished)
        states.append(tr("END"));
    states.append(m_displays.baseline()->text());
    states.removeAll(QString());
    return states.join(QStringLiteral(", "));
}

} // namespace Monitor
