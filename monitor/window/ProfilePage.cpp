// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ProfilePage.h"

#include <corvale_qt/beam/profile/RVXSpectrogram.h>

#include <QLabel>
#include <QVBoxLayout>

namespace Monitor {

using Corvale_Qt::RVXSpectrogram;
using Corvale_Qt::SpectrogramCalc;

namespace {

//! The width of the page, in characters, from which the side bar leaves enough room for the picture.
constexpr int charactersForSideBar = 120;

QString length(double value)
{
    return value == SpectrogramCalc::invalid ? QStringLiteral("-")
                                             : QStringLiteral("%1 mm").arg(value, 0, 'f', 2);
}

} // namespace

ProfilePage::ProfilePage(QWidget *parent)
    : QWidget(parent)
    , m_display(new RVXSpectrogram(this))
    , m_numbers(new QLabel(this))
{
    m_numbers->setObjectName(QStringLiteral("profileNumbers"));
    m_numbers->setTextFormat(Qt::PlainText);
    m_numbers->setWordWrap(true);
    m_numbers->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_numbers->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 4);
    layout->setSpacing(0);
    layout->addWidget(m_display, 1);
    layout->addWidget(m_numbers);
    // The display emits its numbers while it does not show them itself.
    connect(m_display, &RVXSpectrogram::calcUpdate, this, &ProfilePage::showNumbers);
}

void ProfilePage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const bool roomy = width() >= charactersForSideBar * fontMetrics().averageCharWidth();
    m_display->sidebarEnabled(roomy);
    m_numbers->setVisible(!roomy);
    showNumbers();
}

void ProfilePage::showNumbers()
{
    const SpectrogramCalc calc = m_display->getCalc();
    if (!calc.valid) {
        m_numbers->setText(tr("DATA NOT VALID"));
        return;
    }
    const QStringList numbers = {tr("mean X %1").arg(length(calc.meanX)),
                                 tr("mean Y %1").arg(length(calc.meanY)),
                                 tr("\u03c3 X %1").arg(length(calc.sigmaX)),
                                 tr("\u03c3 Y %1").arg(length(calc.sigmaY)),
                                 tr("rotation %1\u00b0").arg(calc.rotation, 0, 'f', 1),
                                 tr("elongation %1").arg(calc.elongation, 0, 'f', 2),
                                 tr("integral %1").arg(calc.integral, 0, 'g', 4),
                                 tr("max %1").arg(calc.max, 0, 'g', 4)};
    // A line may only break between two numbers.
    QString text = numbers.join(QLatin1Char('\n'));
    text.replace(QLatin1Char(' '), QChar(QChar::Nbsp));
    m_numbers->setText(text.replace(QLatin1Char('\n'), QStringLiteral("   ")));
}

} // namespace Monitor
