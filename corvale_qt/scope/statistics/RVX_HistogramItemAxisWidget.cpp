// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/statistics/RVX_HistogramItemAxisWidget.h"

#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"

#include <qwt_plot.h>
#include <qwt_scale_div.h>
#include <qwt_scale_map.h>

#include <QEvent>
#include <QFont>
#include <QLabel>
#include <QPointer>

#include <algorithm>
#include <vector>

namespace Corvale_Qt {

namespace {

constexpr int kTickHeight = 14;
constexpr int kIndent = 4; // from the left and upper edge of a label to its text
constexpr int kLabelPoints = 8; // four full labels fit beside each other into 1000 pixels

/*! Returns the text with its white space kept by a style instead of <pre>, so that it appears in the label's own
    fixed-width font. For <pre>, Qt looks up a system font for each text, which takes longer than the rest of a plot and
    fails. */
QString inLabelFont(const QString &richText)
{
    QString text = richText;
    text.replace(QLatin1String("<pre>"), QLatin1String("<div style=\"white-space:pre;\">"));
    return text.replace(QLatin1String("</pre>"), QLatin1String("</div>"));
}

void prepareLabel(QLabel &label, const QColor &background)
{
    label.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label.setIndent(kIndent);
    label.setStyleSheet(
        QStringLiteral("background-color: rgb(%1,%2,%3);margin: 0px;padding: 0px;border: none;")
            .arg(background.red())
            .arg(background.green())
            .arg(background.blue()));
    // All backgrounds are light, so the text must be dark in every palette.
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, Qt::black);
    palette.setColor(QPalette::Text, Qt::black);
    label.setPalette(palette);
}

} // namespace

class RVX_HistogramItemAxisWidgetPrivate
{
public:
    struct Entry
    {
        const RVX_StatisticsHistogramItem *item;
        QLabel *label;
        QString richText;
        QwtScaleDiv ticks;
    };

    Entry *find(const RVX_StatisticsHistogramItem *item);
    QwtScaleDiv allTicks() const;
    void measureLabels();
    int rows(int width) const;
    /*! Returns the upper left corner of the labels: beside the name, or below it if the labels would need another row
        beside it. */
    QPoint labelsCorner(int width) const;
    int height(int width) const;
    void placeLabels(int width);

    QPointer<QwtPlot> plot;
    QLabel *estimator = nullptr;
    std::vector<Entry> entries;
    QSize cell; //!< size of the largest label so far
    bool layingOut = false;
};

RVX_HistogramItemAxisWidgetPrivate::Entry *
RVX_HistogramItemAxisWidgetPrivate::find(const RVX_StatisticsHistogramItem *item)
{
    const auto found = std::find_if(entries.begin(), entries.end(), [item](const Entry &entry) {
        return entry.item == item;
    });
    return found == entries.end() ? nullptr : &*found;
}

QwtScaleDiv RVX_HistogramItemAxisWidgetPrivate::allTicks() const
{
    double upper = 0.0;
    double lower = entries.empty() ? 0.0 : entries.front().ticks.lowerBound();
    QList<double> ticks[QwtScaleDiv::NTickTypes];
    for (const Entry &entry : entries) {
        upper = std::max(upper, entry.ticks.upperBound());
        lower = std::min(lower, entry.ticks.lowerBound());
        for (int type = 0; type < QwtScaleDiv::NTickTypes; ++type)
            ticks[type] += entry.ticks.ticks(type);
    }
    return QwtScaleDiv(lower, upper, ticks);
}

void RVX_HistogramItemAxisWidgetPrivate::measureLabels()
{
    // The cell never shrinks: rows must not come and go with the digits of a number.
    for (const Entry &entry : entries)
        cell = cell.expandedTo(entry.label->sizeHint());
}

int RVX_HistogramItemAxisWidgetPrivate::rows(int width) const
{
    const int count = int(entries.size());
    if (count == 0 || cell.width() <= 0)
        return 0;
    const int columns = std::clamp(width / cell.width(), 1, count);
    return (count + columns - 1) / columns;
}

QPoint RVX_HistogramItemAxisWidgetPrivate::labelsCorner(int width) const
{
    const QSize name = estimator->sizeHint();
    const int left = name.width() + kIndent;
    const int beside = width - left;
    if (beside >= cell.width() && rows(beside) == rows(width))
        return QPoint(left, 0);
    return QPoint(0, name.height());
}

int RVX_HistogramItemAxisWidgetPrivate::height(int width) const
{
    return labelsCorner(width).y() + rows(width) * cell.height() + kTickHeight;
}

//! Gives every row the same number of labels, so that the labels of all rows form columns.
void RVX_HistogramItemAxisWidgetPrivate::placeLabels(int width)
{
    const int count = int(entries.size());
    const int lines = rows(width);
    const QPoint corner = labelsCorner(width);
    const bool isBeside = corner.x() > 0;
    estimator->setGeometry(0,
                           0,
                           isBeside ? corner.x() : width,
                           isBeside ? lines * cell.height() : corner.y());
    if (lines == 0)
        return;
    const int columns = (count + lines - 1) / lines;
    const int room = width - corner.x();
    for (int i = 0; i < count; ++i) {
        const int left = corner.x() + i % columns * room / columns;
        const int right = corner.x() + (i % columns + 1) * room / columns;
        entries[size_t(i)].label->setGeometry(left,
                                              corner.y() + i / columns * cell.height(),
                                              right - left,
                                              cell.height());
    }
}

RVX_HistogramItemAxisWidget::RVX_HistogramItemAxisWidget(QWidget *parent)
    : QwtScaleWidget(QwtScaleDraw::BottomScale, parent)
    , d_ptr(new RVX_HistogramItemAxisWidgetPrivate)
{
    Q_D(RVX_HistogramItemAxisWidget);
    d->estimator = new QLabel(this);
    d->estimator->setObjectName(QStringLiteral("estimator"));
    d->estimator->setTextFormat(Qt::PlainText);
    d->estimator->setFont(QFont(font().family(), kLabelPoints, QFont::Bold));
    setScaleDraw(new RVX_StatisticsHistogramItem::ScaleDraw);
    setMargin(0);
    setSpacing(0);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    connect(this, SIGNAL(scaleDivChanged()), this, SLOT(updateLayout()));
}

RVX_HistogramItemAxisWidget::~RVX_HistogramItemAxisWidget() = default;

void RVX_HistogramItemAxisWidget::alignTo(QwtPlot *plot)
{
    Q_D(RVX_HistogramItemAxisWidget);
    d->plot = plot;
    plot->canvas()->installEventFilter(this);
    connect(plot->axisWidget(QwtPlot::xBottom), SIGNAL(scaleDivChanged()), SLOT(updateLayout()));
}

void RVX_HistogramItemAxisWidget::setEstimator(const QString &name)
{
    Q_D(RVX_HistogramItemAxisWidget);
    if (d->estimator->text() == name)
        return;
    d->estimator->setText(name);
    setAccessibleName(name);
    updateLayout();
}

void RVX_HistogramItemAxisWidget::add(const RVX_StatisticsHistogramItem *item, const QColor &color)
{
    Q_D(RVX_HistogramItemAxisWidget);
    auto *label = new QLabel(this);
    label->setTextFormat(Qt::RichText);
    prepareLabel(*label, color);
    prepareLabel(*d->estimator, color);
    label->setFont(QFont("Monospace", kLabelPoints));
    label->show();
    d->entries.push_back({item, label, QString(), QwtScaleDiv()});
    d->cell = QSize();
}

void RVX_HistogramItemAxisWidget::remove(const RVX_StatisticsHistogramItem *item)
{
    Q_D(RVX_HistogramItemAxisWidget);
    if (const auto *entry = d->find(item)) {
        delete entry->label;
        d->entries.erase(d->entries.begin() + (entry - d->entries.data()));
        d->cell = QSize();
        setScaleDiv(d->allTicks());
        updateLayout();
    }
}

void RVX_HistogramItemAxisWidget::setTicks(const RVX_StatisticsHistogramItem *item,
                                           const QwtScaleDiv &ticks)
{
    Q_D(RVX_HistogramItemAxisWidget);
    if (auto *entry = d->find(item)) {
        entry->ticks = ticks;
        setScaleDiv(d->allTicks());
    }
}

void RVX_HistogramItemAxisWidget::setLabel(const RVX_StatisticsHistogramItem *item,
                                           const QString &richText)
{
    Q_D(RVX_HistogramItemAxisWidget);
    auto *entry = d->find(item);
    if (!entry || entry->richText == richText)
        return;
    entry->richText = richText;
    entry->label->setText(inLabelFont(richText));
    updateLayout();
}

QSize RVX_HistogramItemAxisWidget::sizeHint() const
{
    Q_D(const RVX_HistogramItemAxisWidget);
    return QSize(d->cell.width(), d->height(width()));
}

QSize RVX_HistogramItemAxisWidget::minimumSizeHint() const
{
    Q_D(const RVX_HistogramItemAxisWidget);
    return QSize(0, d->height(width()));
}

bool RVX_HistogramItemAxisWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        updateLayout();
    return QwtScaleWidget::eventFilter(watched, event);
}

void RVX_HistogramItemAxisWidget::resizeEvent(QResizeEvent *event)
{
    QwtScaleWidget::resizeEvent(event);
    updateLayout();
}

void RVX_HistogramItemAxisWidget::showEvent(QShowEvent *event)
{
    QwtScaleWidget::showEvent(event);
    updateLayout();
}

void RVX_HistogramItemAxisWidget::updateLayout()
{
    Q_D(RVX_HistogramItemAxisWidget);
    if (d->layingOut)
        return;
    d->layingOut = true;
    d->measureLabels();
    d->placeLabels(width());
    const int wanted = d->height(width());
    if (wanted != minimumHeight() || wanted != maximumHeight())
        setFixedHeight(wanted);

    // The base class fits the scale into this widget, but it must be in line with the plot's axis.
    if (d->plot) {
        const QwtScaleMap map = d->plot->canvasMap(QwtPlot::xBottom);
        const QPoint canvas = mapFromGlobal(d->plot->canvas()->mapToGlobal(QPoint(0, 0)));
        const double left = canvas.x() + map.transform(scaleDraw()->scaleDiv().lowerBound());
        const double right = canvas.x() + map.transform(scaleDraw()->scaleDiv().upperBound());
        scaleDraw()->move(left, wanted - kTickHeight);
        scaleDraw()->setLength(right - left);
    }
    update();
    d->layingOut = false;
}

} // namespace Corvale_Qt
