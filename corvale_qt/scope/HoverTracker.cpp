// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/plot/KeptText_p.h"
#include "corvale_qt/plot/TextWidths_p.h"
#include "corvale_qt/scope/HoverReading_p.h"
#include "corvale_qt/scope/HoverTracker_p.h"
#include "corvale_qt/scope/RVXScopePlotView_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>

#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <vector>

namespace Corvale_Qt {

/*! A box that lists the readings at the pointer, and a vertical line at their sample. The box is an opaque widget on the canvas:
    when its readings change, the plot below it is not made anew. */
class HoverCursor : public QWidget
{
    Q_OBJECT

public:
    explicit HoverCursor(QWidget *canvas);
    ~HoverCursor() override;

    //! Shows a reading, with its line at pixel \a x of the canvas.
    void showReading(const HoverReading &reading, int x);
    void hideReading();
    //! Returns what the box says, a line for each channel; empty while it is hidden.
    Q_INVOKABLE QString text() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    struct Column
    {
        int first;
        int count;
        int nameWidth;
        int valueWidth;
    };

    QSize arrange();
    void place(const QSize &size, int x);

    HoverReading m_reading;
    QVector<Column> m_columns;
    TextWidths m_nameWidths; //!< to measure a text takes longer than to compare it, and names stay
    QVector<int> m_valueWidths; //!< of the channels in the columns
    std::vector<KeptText> m_names = std::vector<KeptText>(ScopeModel::maximumChannels);
    int m_left = 0; //!< channels for which the box has no room
    QPointer<QWidget> m_line; //!< the canvas owns it
};

namespace {

constexpr int kMargin = 5;
constexpr int kDistance = 12; // of the box from the line
constexpr int kSwatch = 12; // a square in the colour of the channel, with the gap behind it
constexpr int kGap = 10; // between name and value, and between columns

//! Hides a widget on the canvas, and makes it invisible to the mouse.
void prepare(QWidget *widget)
{
    widget->setAttribute(Qt::WA_TransparentForMouseEvents);
    widget->setFocusPolicy(Qt::NoFocus);
    widget->hide();
    widget->lower(); // marks on the canvas stay on top
}

/*! The line at the sample. It is not opaque: around an opaque line, the canvas would be copied in two narrower parts, which takes
    longer than to copy the pixels below the line as well. */
class HoverLine : public QWidget
{
    Q_OBJECT

public:
    explicit HoverLine(QWidget *canvas)
        : QWidget(canvas)
    {
        setObjectName(QStringLiteral("hoverLine"));
        prepare(this);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).fillRect(rect(), QColor(140, 140, 140)); // seen on black and on white
    }
};

} // namespace

HoverCursor::HoverCursor(QWidget *canvas)
    : QWidget(canvas)
    , m_line(new HoverLine(canvas))
{
    setObjectName(QStringLiteral("hoverCursor"));
    setFont(QFont(QStringLiteral("Monospace"), 9)); // as the labels of the markers
    QColor background = RVXPlotColors::labelBackgroundColor();
    background.setAlpha(255);
    prepare(this);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, background);
    setPalette(colours);
    setAutoFillBackground(true);
}

HoverCursor::~HoverCursor()
{
    delete m_line;
}

void HoverCursor::showReading(const HoverReading &reading, int x)
{
    const bool isOther = !isVisible() || !(reading == m_reading);
    m_reading = reading;
    if (isOther)
        place(arrange(), x);
    else
        place(size(), x);
    if (m_line)
        m_line->setGeometry(x, 0, 1, parentWidget()->height());
    if (m_line && !m_line->isVisible())
        m_line->show();
    if (!isVisible())
        show();
    else if (isOther)
        update();
}

void HoverCursor::hideReading()
{
    hide();
    if (m_line)
        m_line->hide();
}

QString HoverCursor::text() const
{
    if (!isVisible())
        return QString();
    QStringList lines{m_reading.place};
    for (const HoverReading::Channel &channel : m_reading.channels)
        lines << channel.name + QStringLiteral(": ") + channel.value;
    return lines.join(QLatin1Char('\n'));
}

//! Puts the channels into as many columns as the height of the canvas asks for. Returns the size of the box.
QSize HoverCursor::arrange()
{
    const QFontMetrics metrics(font());
    const QSize canvas = parentWidget()->size();
    const int line = metrics.lineSpacing();
    const int rows = std::max((canvas.height() - 4 * kMargin) / line - 2, 1);
    m_nameWidths.setFont(font(), *this);
    m_columns.clear();
    m_valueWidths.resize(0);
    m_left = 0;
    int width = 0;
    for (int first = 0; first < m_reading.channels.size(); first += rows) {
        Column column{first, std::min(rows, m_reading.channels.size() - first), 0, 0};
        for (int i = first; i < first + column.count; ++i) {
            const HoverReading::Channel &channel = m_reading.channels[i];
            const int nameWidth = qRound(m_nameWidths.of(channel.name));
            column.nameWidth = std::max(column.nameWidth, nameWidth);
            m_valueWidths.append(metrics.horizontalAdvance(channel.value));
            column.valueWidth = std::max(column.valueWidth, m_valueWidths.last());
        }
        const int with =
            width + (width > 0 ? kGap : 0) + kSwatch + column.nameWidth + kGap + column.valueWidth;
        if (first > 0 && with + 2 * kMargin > canvas.width()) {
            m_left = m_reading.channels.size() - first;
            break;
        }
        width = with;
        m_columns.append(column);
    }
    const int tallest = m_columns.isEmpty() ? 0 : m_columns.first().count;
    const int lines = 1 + tallest + (m_left > 0 ? 1 : 0);
    return QSize(std::max(width, metrics.horizontalAdvance(m_reading.place)) + 2 * kMargin,
                 lines * line + 2 * kMargin);
}

//! Puts the box beside the line, in the middle of the height: the labels of the markers are at the top.
void HoverCursor::place(const QSize &size, int x)
{
    const QSize canvas = parentWidget()->size();
    const bool fitsRight = x + kDistance + size.width() <= canvas.width();
    const int left = fitsRight ? x + kDistance : x - kDistance - size.width();
    const int inside = std::max(std::min(left, canvas.width() - size.width()), 0);
    setGeometry(QRect(QPoint(inside, std::max((canvas.height() - size.height()) / 2, 0)), size));
}

void HoverCursor::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setLayoutDirection(Qt::LeftToRight); // the sign stands in front of the number
    painter.setPen(RVXPlotColors::labelTextColor());
    const QFontMetrics metrics(font());
    const int line = metrics.lineSpacing();
    const int top = kMargin + metrics.ascent();
    painter.drawText(kMargin, top, m_reading.place);
    int left = kMargin;
    for (const Column &column : qAsConst(m_columns)) {
        const int right = left + kSwatch + column.nameWidth + kGap + column.valueWidth;
        for (int i = 0; i < column.count; ++i) {
            const int shown = column.first + i;
            const HoverReading::Channel &channel = m_reading.channels[shown];
            const int baseline = top + (i + 1) * line;
            const int side = kSwatch - 4;
            painter.fillRect(left, baseline - side, side, side, channel.colour);
            m_names[size_t(shown)].drawLine(painter,
                                            QPointF(left + kSwatch, baseline),
                                            channel.name);
            const int width = m_valueWidths[shown];
            painter.drawText(right - width, baseline, channel.value);
        }
        left = right + kGap;
    }
    if (m_left > 0) {
        const int lines = m_columns.isEmpty() ? 1 : m_columns.first().count + 1;
        painter.drawText(kMargin, top + lines * line, tr("and %n more", nullptr, m_left));
    }
}

namespace {

constexpr int kRefreshInterval = 100; // milliseconds
constexpr double kSamePlace =
    2.0; // pixels; a line this close to the pointer is put under it and rests

} // namespace

HoverTracker::HoverTracker(RVXScopePlotViewPrivate &view)
    : d(view)
    , m_cursor(new HoverCursor(view.canvas))
    , m_trackedBefore(view.canvas->hasMouseTracking())
{
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(kRefreshInterval);
    connect(&m_refresh, &QTimer::timeout, this, &HoverTracker::refresh);
    d.canvas->setMouseTracking(true);
    d.canvas->installEventFilter(this);
}

HoverTracker::~HoverTracker()
{
    d.canvas->setMouseTracking(m_trackedBefore);
    delete m_cursor;
}

void HoverTracker::plotted()
{
    if (m_isInside && !m_refresh.isActive())
        m_refresh.start();
}

void HoverTracker::refresh()
{
    if (!m_cursor)
        return;
    HoverReading reading;
    if (m_isInside && d.q_ptr->model())
        reading = d.currentMode().readingAt(d.plot->invTransform(QwtPlot::xBottom, m_pointer.x()));
    double x = d.plot->transform(QwtPlot::xBottom, reading.x);
    const bool isVisible = x >= 0.0 && x <= d.canvas->width();
    if (reading.place.isEmpty() || !isVisible) {
        m_cursor->hideReading();
        return;
    }
    if (std::abs(x - m_pointer.x()) < kSamePlace)
        x = m_pointer.x();
    m_cursor->showReading(reading, int(std::lround(x)));
}

bool HoverTracker::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::MouseMove) {
        m_isInside = true;
        m_pointer = static_cast<QMouseEvent *>(event)->pos();
        refresh();
    } else if (event->type() == QEvent::Leave) {
        m_isInside = false;
        refresh();
    }
    return false;
}

} // namespace Corvale_Qt

#include "HoverTracker.moc"
