// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/TapeTimeline.h"

#include "monitor/tape/Tape.h"
#include "monitor/window/TapeSketch.h"
#include "monitor/window/TapeText.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

constexpr double smallStep = 0.01, largeStep = 0.1; // of the tape

} // namespace

TapeTimeline::TapeTimeline(Tape &deck, QWidget *parent)
    : QWidget(parent)
    , m_deck(deck)
{
    setObjectName(QStringLiteral("tapeTimeline"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(tr("Time line of the recording"));
    connect(&deck, &Tape::changed, this, &TapeTimeline::forgetPicture);
    connect(&deck, &Tape::moved, this, &TapeTimeline::updateCursor);
}

QSize TapeTimeline::sizeHint() const
{
    constexpr int widthInLetters = 60;
    return {fontMetrics().averageCharWidth() * widthInLetters, minimumSizeHint().height()};
}

QSize TapeTimeline::minimumSizeHint() const
{
    constexpr int letters = 16;
    return {fontMetrics().averageCharWidth() * letters,
            3 * fontMetrics().height() + TapeSketch::flagHeight};
}

QRect TapeTimeline::band() const
{
    return rect().adjusted(TapeSketch::margin,
                           TapeSketch::flagHeight,
                           -TapeSketch::margin,
                           -fontMetrics().height() - 2);
}

double TapeTimeline::positionAt(int x) const
{
    return sketch().positionAt(x);
}

int TapeTimeline::xOf(double position) const
{
    return sketch().xOf(position);
}

TapeSketch TapeTimeline::sketch() const
{
    return TapeSketch(m_deck.survey(), band(), palette(), font());
}

void TapeTimeline::forgetPicture()
{
    m_picture = QPixmap();
    update();
}

void TapeTimeline::resizeEvent(QResizeEvent *)
{
    forgetPicture();
}

void TapeTimeline::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    forgetPicture();
}

//! Repaints where the position was and where it is.
void TapeTimeline::updateCursor()
{
    const int x = xOf(m_deck.position());
    if (x == m_shownX)
        return;
    constexpr int halfWidth = 6;
    update(m_shownX - halfWidth, 0, 2 * halfWidth, height());
    update(x - halfWidth, 0, 2 * halfWidth, height());
    m_shownX = x;
}

void TapeTimeline::paintEvent(QPaintEvent *)
{
    if (m_picture.isNull())
        paintPicture();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_picture);
    if (!m_deck.isIndexed())
        return;
    paintLoop(&painter);
    paintPosition(&painter);
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(band().adjusted(-2, -1, 1, 1));
    }
}

void TapeTimeline::paintPicture()
{
    m_picture = QPixmap(size() * devicePixelRatioF());
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    m_picture.fill(Qt::transparent);
    QPainter painter(&m_picture);
    painter.setFont(font());
    painter.fillRect(band(), palette().color(QPalette::Base));
    if (m_deck.isIndexed()) {
        sketch().paint(&painter);
        return;
    }
    constexpr double percent = 100.0;
    const QString text = m_deck.indexError().isEmpty()
        ? tr("The recording is being looked through: %1 %")
              .arg(int(m_deck.indexProgress() * percent))
        : tr("The recording can be played, but not searched: %1").arg(m_deck.indexError());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(band().adjusted(4, 0, -4, 0),
                     Qt::AlignCenter,
                     fontMetrics().elidedText(text, Qt::ElideRight, band().width() - 8));
}

void TapeTimeline::paintLoop(QPainter *painter) const
{
    if (!m_deck.loop())
        return;
    const QRect band = this->band();
    QColor shade = palette().color(QPalette::Highlight);
    const int from = xOf(m_deck.loop()->from), to = xOf(m_deck.loop()->to);
    constexpr double faint = 0.25;
    shade.setAlphaF(faint);
    painter->fillRect(from, band.top(), to - from + 1, band.height(), shade);
    shade.setAlphaF(1.0);
    painter->fillRect(from - 1, band.top(), 2, band.height(), shade);
    painter->fillRect(to, band.top(), 2, band.height(), shade);
}

void TapeTimeline::paintPosition(QPainter *painter) const
{
    const QRect band = this->band();
    const int x = xOf(m_deck.position());
    const QColor color = palette().color(QPalette::Highlight);
    painter->fillRect(x, band.top(), 2, band.height(), color);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    const double foot = band.bottom() + 1.0;
    const QPointF handle[] = {QPointF(x + 1.0, foot - 6.0),
                              QPointF(x - 4.0, foot),
                              QPointF(x + 6.0, foot)};
    painter->drawPolygon(handle, 3);
}

QString TapeTimeline::toolTipAt(int x) const
{
    constexpr int nearEnough = 5;
    const TapeSurvey &survey = m_deck.survey();
    const TapeReadout there = m_deck.readoutAt(positionAt(x));
    QStringList lines{TapeText::place(there, survey.length)};
    if (there.parts > 1)
        lines.first() += tr(", part %1 of %2").arg(there.part + 1).arg(there.parts);
    if (there.moment.isValid())
        lines.append(there.moment.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz 'UTC'")));
    if (!survey.lanes.isEmpty())
        lines.append(tr("the outline is the sum of %1").arg(survey.lanes.first().name));
    for (const TapeSurvey::Mark &mark : survey.marks) {
        if (std::abs(xOf(mark.position) - x) > nearEnough)
            continue;
        constexpr int mostLines = 8;
        if (lines.size() == mostLines) {
            lines.append(tr("..."));
            break;
        }
        const QString name = mark.name.isEmpty() ? QString() : mark.name + QStringLiteral(": ");
        lines.append(
            name
            + (mark.kind == TapeMark::Kind::Gap
                   ? tr("no readings for %1").arg(TapeText::exactTime(mark.length, m_deck.length()))
                   : mark.text));
    }
    const QString text = lines.join(QLatin1Char('\n'));
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

bool TapeTimeline::isOwnKey(const QKeyEvent &event)
{
    static const QVector<int> keys = {Qt::Key_Left,
                                      Qt::Key_Right,
                                      Qt::Key_Home,
                                      Qt::Key_End,
                                      Qt::Key_PageUp,
                                      Qt::Key_PageDown,
                                      Qt::Key_Comma,
                                      Qt::Key_Period,
                                      Qt::Key_BracketLeft,
                                      Qt::Key_BracketRight,
                                      Qt::Key_Backspace,
                                      Qt::Key_Return,
                                      Qt::Key_Enter};
    return !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier))
        && keys.contains(event.key());
}

bool TapeTimeline::event(QEvent *event)
{
    // The window's own shortcuts are not to take the keys of the time line while it has the focus.
    if (event->type() == QEvent::ShortcutOverride && isOwnKey(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::ToolTip && m_deck.isIndexed()) {
        const auto *help = static_cast<QHelpEvent *>(event);
        QToolTip::showText(help->globalPos(), toolTipAt(help->x()), this);
        return true;
    }
    return QWidget::event(event);
}

void TapeTimeline::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (event->modifiers() & Qt::ShiftModifier)
        m_loopFrom = positionAt(event->x());
    else
        m_deck.seek(positionAt(event->x()));
}

void TapeTimeline::mouseMoveEvent(QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton))
        return;
    const double at = positionAt(event->x());
    if (m_loopFrom < 0.0)
        m_deck.seek(at);
    else
        m_deck.setLoop({std::min(at, m_loopFrom), std::max(at, m_loopFrom)});
}

void TapeTimeline::mouseReleaseEvent(QMouseEvent *)
{
    const bool chosen = m_loopFrom >= 0.0 && m_deck.loop();
    m_loopFrom = -1.0;
    // A stretch that was chosen is to be seen now, not when the tape happens to come there.
    if (chosen
        && (m_deck.position() < m_deck.loop()->from || m_deck.position() > m_deck.loop()->to))
        m_deck.seek(m_deck.loop()->from);
}

void TapeTimeline::keyPressEvent(QKeyEvent *event)
{
    if (!isOwnKey(*event)) {
        QWidget::keyPressEvent(event);
        return;
    }
    const double step =
        m_deck.length() * (event->modifiers() & Qt::ShiftModifier ? largeStep : smallStep);
    switch (event->key()) {
    case Qt::Key_Left:
        return m_deck.seekBy(-step);
    case Qt::Key_Right:
        return m_deck.seekBy(step);
    case Qt::Key_Home:
        return m_deck.seek(0.0);
    case Qt::Key_End:
        return m_deck.seek(m_deck.length());
    case Qt::Key_PageUp:
        return m_deck.seekFormerMark();
    case Qt::Key_PageDown:
        return m_deck.seekNextMark();
    case Qt::Key_Comma:
        return m_deck.stepBackwards();
    case Qt::Key_Period:
        return m_deck.stepForwards();
    case Qt::Key_BracketLeft:
        return m_deck.beginLoopHere();
    case Qt::Key_BracketRight:
        return m_deck.endLoopHere();
    case Qt::Key_Backspace:
        return m_deck.clearLoop();
    default:
        return m_deck.toggle();
    }
}

} // namespace Monitor
