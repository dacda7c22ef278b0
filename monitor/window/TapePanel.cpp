// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/TapePanel.h"

#include "monitor/sources/PlayClock.h"
#include "monitor/tape/Tape.h"
#include "monitor/window/Look.h"
#include "monitor/window/TapeText.h"
#include "monitor/window/TapeTimeline.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace Monitor {

namespace {

QString speedText(double speed)
{
    return speed > 0.0 ? TapePanel::tr("%1 x").arg(speed) : TapePanel::tr("fastest");
}

QPainterPath triangle(double from, double tip)
{
    constexpr double top = 3.0, bottom = 13.0;
    QPainterPath path;
    path.moveTo(from, top);
    path.lineTo(tip, 0.5 * (top + bottom));
    path.lineTo(from, bottom);
    path.closeSubpath();
    return path;
}

QPainterPath bar(double left, double width)
{
    QPainterPath path;
    path.addRect(left, 3.0, width, 10.0);
    return path;
}

QPainterPath bracket(double stem, double tips)
{
    QPainterPath path;
    path.addRect(qMin(stem, tips), 2.0, qAbs(tips - stem) + 2.0, 2.0);
    path.addRect(qMin(stem, tips), 12.0, qAbs(tips - stem) + 2.0, 2.0);
    path.addRect(stem, 2.0, 2.0, 12.0);
    path.setFillRule(Qt::WindingFill);
    return path;
}

} // namespace

QToolBar *TapePanel::toolBarFor(std::unique_ptr<Tape> tape, QWidget *parent)
{
    auto *bar = new QToolBar(tr("Tape"), parent);
    bar->setObjectName(QStringLiteral("tape"));
    bar->setMovable(false);
    bar->addWidget(new TapePanel(std::move(tape)));
    return bar;
}

TapePanel::TapePanel(std::unique_ptr<Tape> tape, QWidget *parent)
    : QWidget(parent)
    , m_deck(std::move(tape))
    , m_timeline(new TapeTimeline(*m_deck, this))
{
    setObjectName(QStringLiteral("tapePanel"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Look::gap / 2, Look::gap / 4, Look::gap / 2, Look::gap / 4);
    layout->setSpacing(Look::gap / 4);
    setLayout(layout);
    const auto add = [&](QToolButton *button, void (Tape::*action)()) {
        connect(button, &QToolButton::clicked, m_deck.get(), action);
    };
    add(addButton("tapeBack", Sign::Back, tr("One reading back (comma)")), &Tape::stepBackwards);
    m_play = addButton("tapePlay", Sign::Play, tr("Play or pause (Enter)"));
    add(m_play, &Tape::toggle);
    add(addButton("tapeForth", Sign::Forth, tr("One reading on (period)")), &Tape::stepForwards);
    m_speed = new QComboBox(this);
    m_speed->setObjectName(QStringLiteral("tapeSpeed"));
    m_speed->setToolTip(tr("How many times as fast as the recording was taken; of readings without "
                           "times, 1 x shows %1 a second")
                            .arg(countedEachSecond));
    m_speed->setAccessibleName(tr("Speed of the tape"));
    for (const double speed : Tape::speeds())
        m_speed->addItem(speedText(speed), speed);
    layout->addWidget(m_speed);
    layout->addWidget(m_timeline, 1);
    add(addButton("tapeLoopBegin", Sign::LoopBegin, tr("Repeat from here ([)")),
        &Tape::beginLoopHere);
    add(addButton("tapeLoopEnd", Sign::LoopEnd, tr("Repeat up to here (])")), &Tape::endLoopHere);
    add(addButton("tapeNoLoop", Sign::NoLoop, tr("Repeat nothing (Backspace)")), &Tape::clearLoop);
    m_position = new QLabel(this);
    m_position->setObjectName(QStringLiteral("tapePosition"));
    m_position->setToolTip(tr("The time of the reading that is shown, as the recording has it; the "
                              "time that passes in a gap; the number of the reading where the "
                              "recording has no times"));
    m_position->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout->addWidget(m_position);
    m_timeline->setToolTip(
        tr("Click or drag to go there, drag with Shift to repeat a stretch. Keys: left and right "
           "(with Shift ten times as far), Home, End, Page Up and Page Down to events and to "
           "where gaps begin and end."));
    m_timeline->setAccessibleDescription(m_timeline->toolTip());
    connect(m_speed, QOverload<int>::of(&QComboBox::activated), this, [this](int row) {
        m_deck->setSpeed(m_speed->itemData(row).toDouble());
    });
    connect(m_deck.get(), &Tape::changed, this, &TapePanel::refresh);
    connect(m_deck.get(), &Tape::moved, this, &TapePanel::showPosition);
    dressButtons();
    refresh();
}

TapePanel::~TapePanel() = default;

QToolButton *TapePanel::addButton(const char *name, Sign sign, const QString &text)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(text);
    button->setAccessibleName(text);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    m_buttons.append({button, sign});
    layout()->addWidget(button);
    return button;
}

//! Draws a sign in the palette's colours, so that it is seen in dark and light ones.
QIcon TapePanel::icon(Sign sign) const
{
    constexpr int side = 16;
    QPainterPath path;
    switch (sign) {
    case Sign::Play:
        path = triangle(4.0, 13.0);
        break;
    case Sign::Pause:
        path = bar(4.0, 3.0) + bar(9.0, 3.0);
        break;
    case Sign::Back:
        path = bar(11.0, 2.0) + triangle(10.0, 3.0);
        break;
    case Sign::Forth:
        path = bar(3.0, 2.0) + triangle(6.0, 13.0);
        break;
    case Sign::LoopBegin:
        path = bracket(5.0, 9.0);
        break;
    case Sign::LoopEnd:
        path = bracket(9.0, 5.0);
        break;
    case Sign::NoLoop:
        path = bracket(2.0, 5.0) + bracket(12.0, 9.0);
        break;
    }
    QIcon icon;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled}) {
        QPixmap picture(QSize(side, side) * devicePixelRatioF());
        picture.setDevicePixelRatio(devicePixelRatioF());
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        const auto group = mode == QIcon::Normal ? QPalette::Active : QPalette::Disabled;
        painter.fillPath(path, palette().color(group, QPalette::ButtonText));
        if (sign == Sign::NoLoop) {
            painter.setPen(QPen(palette().color(group, QPalette::ButtonText), 1.5));
            painter.drawLine(QPointF(5.5, 10.5), QPointF(10.5, 5.5));
        }
        painter.end();
        icon.addPixmap(picture, mode);
    }
    return icon;
}

void TapePanel::dressButtons()
{
    for (const auto &[button, sign] : qAsConst(m_buttons))
        button->setIcon(icon(button == m_play && m_deck->isPlaying() ? Sign::Pause : sign));
}

void TapePanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        dressButtons();
}

//! Shows the speed, also one that the command line asked for.
void TapePanel::showSpeed()
{
    int row = m_speed->findData(m_deck->speed());
    if (row < 0) {
        m_speed->addItem(speedText(m_deck->speed()), m_deck->speed());
        row = m_speed->count() - 1;
    }
    m_speed->setCurrentIndex(row);
}

void TapePanel::refresh()
{
    const bool indexed = m_deck->isIndexed();
    for (const auto &[button, sign] : qAsConst(m_buttons)) {
        const bool needsPlaces =
            sign == Sign::Back || sign == Sign::LoopBegin || sign == Sign::LoopEnd;
        button->setEnabled(sign == Sign::NoLoop ? m_deck->loop().has_value()
                                                : indexed || !needsPlaces);
    }
    m_play->setIcon(icon(m_deck->isPlaying() ? Sign::Pause : Sign::Play));
    m_play->setAccessibleName(m_deck->isPlaying() ? tr("Pause the tape") : tr("Play the tape"));
    showSpeed();
    keepRoomForPositions();
    showPosition();
}

//! Gives positions the room of the longest one, so that the time line keeps its width while the tape plays.
void TapePanel::keepRoomForPositions()
{
    TapeReadout longest = m_deck->readoutAt(m_deck->length());
    longest.isInGap = m_deck->survey().hasGaps();
    const QString last = TapeText::place(longest, m_deck->length());
    const int usual = fontMetrics().horizontalAdvance(QStringLiteral("000:00:00.000  "));
    m_position->setMinimumWidth(
        std::max(usual, fontMetrics().horizontalAdvance(last + last.left(2))));
}

void TapePanel::showPosition()
{
    const TapeReadout here = m_deck->readout();
    QString text = TapeText::place(here, m_deck->length());
    if (here.parts > 1)
        text = tr("%1/%2: ").arg(here.part + 1).arg(here.parts) + text;
    m_position->setText(text);
}

} // namespace Monitor
