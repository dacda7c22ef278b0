// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ProfilePage.h"

#include "monitor/window/Look.h"
#include <corvale_qt/beam/profile/RVXSpectrogram.h>
#include <corvale_qt/detector/BeamVerdict.h>
#include <corvale_qt/units/SiPrefix.h>

#include <QLabel>
#include <QVBoxLayout>

namespace Monitor {

using Corvale_Qt::RVXSpectrogram;
using Corvale_Qt::SpectrogramCalc;

namespace {

//! The width of the page, in characters, from which the side bar leaves enough room for the picture.
constexpr int charactersForSideBar = 120;

const QString framePadding =
    QStringLiteral("padding: 2px;"); // always the same: no verdict moves the picture

//! Returns the colours of a verdict: the text says the same.
QString styleOf(Corvale_Qt::BeamValidity validity)
{
    switch (validity) {
    case Corvale_Qt::BeamValidity::Valid:
        return framePadding;
    case Corvale_Qt::BeamValidity::FitPoor:
        return Look::styleSheet(Look::State::Waiting) + framePadding;
    case Corvale_Qt::BeamValidity::NotValid:
        break;
    }
    return Look::styleSheet(Look::State::Trouble) + framePadding;
}

} // namespace

ProfilePage::ProfilePage(QWidget *parent)
    : QWidget(parent)
    , m_display(new RVXSpectrogram(this))
    , m_numbers(new QLabel(this))
{
    m_display->setVerdictEnabled(true);
    m_display->setSiPrefix(true);
    m_numbers->setObjectName(QStringLiteral("profileNumbers"));
    m_numbers->setTextFormat(Qt::PlainText);
    m_numbers->setWordWrap(true);
    m_numbers->setStyleSheet(framePadding);
    m_numbers->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_numbers->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, Look::gap / 2);
    layout->setSpacing(0);
    layout->addWidget(m_display, 1);
    layout->addWidget(m_numbers);
    // The display emits its numbers while it does not show them itself.
    connect(m_display, &RVXSpectrogram::calcUpdate, this, &ProfilePage::showNumbers);
}

//! Leaves the side bar out of account, so that a page that shows it can become narrow and hide it.
QSize ProfilePage::minimumSizeHint() const
{
    constexpr int characters = 44;
    return {characters * fontMetrics().averageCharWidth(), QWidget::minimumSizeHint().height()};
}

void ProfilePage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const bool roomy = width() >= charactersForSideBar * fontMetrics().averageCharWidth();
    m_display->sidebarEnabled(roomy);
    m_numbers->setVisible(!roomy);
    showNumbers();
}

void ProfilePage::showFrame(const Corvale_Qt::DetectorFrame &frame, double time)
{
    m_display->setFrame(frame, time);
}

QString ProfilePage::length(double value, bool alongX) const
{
    using Axis = Corvale_Qt::DetectorLayout::Axis;
    return value == SpectrogramCalc::invalid
        ? QStringLiteral("-")
        : QStringLiteral("%1 %2")
              .arg(value, 0, 'f', 2)
              .arg(m_display->lengthUnit(alongX ? Axis::X : Axis::Y));
}

//! Returns a sum of readings with their unit.
QString ProfilePage::amount(double value) const
{
    Corvale_Qt::Units::SiPrefix prefix(m_display->intensityUnit());
    prefix.fix(m_display->valueUnit());
    prefix.follow(value);
    return prefix.text(value);
}

void ProfilePage::setValueUnit(const QString &symbol)
{
    m_display->setValueUnit(symbol);
    showNumbers();
}

QStringList ProfilePage::numbers() const
{
    using Axis = Corvale_Qt::DetectorLayout::Axis;
    const SpectrogramCalc calc = m_display->getCalc();
    const Corvale_Qt::DetectorLayout layout = m_display->detectorLayout();
    const bool hasX = layout.cells(Axis::X) > 0, hasY = layout.cells(Axis::Y) > 0;
    QStringList texts;
    if (hasX)
        texts << tr("mean X %1").arg(length(calc.meanX, true));
    if (hasY)
        texts << tr("mean Y %1").arg(length(calc.meanY, false));
    if (hasX)
        texts << tr("\u03c3 X %1").arg(length(calc.sigmaX, true));
    if (hasY)
        texts << tr("\u03c3 Y %1").arg(length(calc.sigmaY, false));
    if (hasX && hasY)
        texts << tr("rotation %1\u00b0").arg(calc.rotation, 0, 'f', 1)
              << tr("elongation %1").arg(calc.elongation, 0, 'f', 2);
    texts << tr("integral %1").arg(amount(calc.integral)) << tr("max %1").arg(amount(calc.max));
    return texts;
}

void ProfilePage::showNumbers()
{
    const Corvale_Qt::BeamVerdict verdict = m_display->verdict();
    const bool hasFrame = m_display->shownResult().frame > 0;
    m_numbers->setStyleSheet(hasFrame ? styleOf(verdict.validity) : framePadding);
    QString text;
    if (m_display->getCalc().valid) {
        // A line may only break between two numbers.
        text = numbers().join(QLatin1Char('\n'));
        text.replace(QLatin1Char(' '), QChar(QChar::Nbsp));
        text.replace(QLatin1Char('\n'), QStringLiteral("   "));
    }
    const QStringList why = QStringList(verdict.text()) + verdict.reasons;
    m_numbers->setText(why.join(QStringLiteral("; "))
                       + (text.isEmpty() ? text : QLatin1Char('\n') + text));
}

} // namespace Monitor
