// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/RVXPositionErrorPlot.h"

#include "corvale_qt/beam/spots/HighlightRecentDot_p.h"
#include "corvale_qt/beam/spots/PositionErrorList_p.h"
#include "corvale_qt/beam/spots/PositionErrorWords_p.h"
#include "corvale_qt/beam/spots/QueuedNotice_p.h"
#include "corvale_qt/models/StructureWatcher_p.h"
#include "corvale_qt/plot/GridLines_p.h"
#include "corvale_qt/plot/PlotAxis_p.h"

#include "ui_RVXPositionErrorPlot.h"

#include <qwt_plot_shapeitem.h>
#include <qwt_scale_map.h>
#include <qwt_text.h>
#include <qwt_text_label.h>

#include <QEvent>
#include <QMetaMethod>
#include <QPolygonF>

#include <cmath>
#include <iterator>
#include <optional>

namespace Corvale_Qt {

namespace {

//! The columns of the fields of PositionErrorSpot, in the order of the fields.
constexpr int columns[] = {3, 4, 5, 6, 2, 1};
//! The smallest plot with its axes, in pixels.
constexpr QSize smallestPlot(200, 200);
//! The grid has a line every millimetre. With more lines than this the whole canvas would look grey.
constexpr int mostGridLines = 80;

//! An axis has a tick every millimetre. Drawing it for a larger tolerance would take too long.
constexpr float largestTolerance = 1000.0F;
//! How far from a dot the mouse finds it, and half the side of its rectangle, in pixels.
constexpr int reach = 6;
//! The size hint in pixels.
constexpr QSize usualSize(480, 440);

//! Returns NaN if the cell holds no number: a missing error is not an error of 0.
double numberAt(const QModelIndex &index)
{
    bool isNumber = false;
    const double value = index.data(Qt::UserRole).toDouble(&isNumber);
    return isNumber ? value : qQNaN();
}

bool isTolerance(float tolerance)
{
    return tolerance > 0.0F && tolerance <= largestTolerance;
}

} // namespace

class RVXPositionErrorPlotPrivate
{
public:
    using PositionErrorSpot = RVXPositionErrorPlot::PositionErrorSpot;

    explicit RVXPositionErrorPlotPrivate(RVXPositionErrorPlot *view);

    //! Makes the number fields wide enough for their numbers in the current font.
    void fitFields();
    void showTolerance();
    void setErrorMap(const QVector<PositionErrorSpot> &spots);

    PositionErrorSpot dataForRow(const QModelIndex &parent, int row) const;
    QVector<PositionErrorSpot> dataForRows(const QModelIndex &parent, int first, int last) const;
    void loadModel();
    void spotsChanged();
    PositionErrorStatistics statistics() const;
    //! Forgets the statistics, and has statisticsChanged() emitted later if anybody listens.
    void statisticsAreOld();
    //! Hands the spots to the curve if they have changed since the last call.
    void plot();
    QPointF pixelOf(int row) const;

    Ui::RVXPositionErrorPlot ui{};
    HighlightRecentDot *dots = nullptr;
    PositionErrorList spots;
    float xTolerance = 0.0F;
    float yTolerance = 0.0F;
    bool plotPending = false;
    mutable std::optional<PositionErrorStatistics> knownStatistics;
    QueuedNotice statisticsNotice;
    StructureWatcher structureWatcher;

private:
    void setUpPlot();
    void setUpFonts();

    QwtPlotGrid *grid = nullptr;
    QwtPlotShapeItem *toleranceFrame = nullptr;

    RVXPositionErrorPlot *const q_ptr;
    Q_DECLARE_PUBLIC(RVXPositionErrorPlot)
};

RVXPositionErrorPlotPrivate::RVXPositionErrorPlotPrivate(RVXPositionErrorPlot *view)
    : q_ptr(view)
{
    ui.setupUi(view->viewport());
    setUpPlot();
    setUpFonts();
    fitFields();
    spotsChanged();
}

void RVXPositionErrorPlotPrivate::setUpPlot()
{
    Q_Q(RVXPositionErrorPlot);
    ui.qwtPlot->setTitle(RVXPositionErrorPlot::tr("Spot Position Error"));
    ui.qwtPlot->setAxisTitle(QwtPlot::xBottom, RVXPositionErrorPlot::tr("X Error (mm)"));
    ui.qwtPlot->setAxisTitle(QwtPlot::yLeft, RVXPositionErrorPlot::tr("Y Error (mm)"));
    // The canvas is white with every palette, since the tolerance frame is black.
    ui.qwtPlot->setCanvasBackground(Qt::white);
    ui.qwtPlot->setMinimumSize(smallestPlot); // Qwt's hint has room for the label of every tick
    for (const int axis : {QwtPlot::xBottom, QwtPlot::yLeft}) {
        ui.qwtPlot->setAxisScaleDraw(axis, new ThinnedScaleDraw);
        followData(ui.qwtPlot, axis);
    }

    // The plot deletes the items that are attached to it.
    grid = new GridLines;
    grid->setPen(QColor(215, 215, 215), 1.0);
    grid->attach(ui.qwtPlot);
    toleranceFrame = new QwtPlotShapeItem;
    toleranceFrame->setZ(20.0);
    toleranceFrame->attach(ui.qwtPlot);
    dots = new HighlightRecentDot;
    dots->setZ(30.0);
    dots->setHighlightColor(q->palette().color(QPalette::Highlight));
    dots->attach(ui.qwtPlot);
    ui.qwtPlot->replot(); // gives the axes the labels for which the layout needs room
}

void RVXPositionErrorPlotPrivate::setUpFonts()
{
    QFont font("Consolas", 9);
    font.setStyleHint(QFont::Monospace);
    for (const int axis : {QwtPlot::xBottom, QwtPlot::yLeft}) {
        ui.qwtPlot->setAxisFont(axis, font);
        QwtText title = ui.qwtPlot->axisTitle(axis);
        title.setFont(font);
        ui.qwtPlot->setAxisTitle(axis, title);
    }
    font.setPointSize(11);
    ui.qwtPlot->titleLabel()->setFont(font);
}

void RVXPositionErrorPlotPrivate::showTolerance()
{
    const int xEnd = static_cast<int>(std::ceil(1.2F * xTolerance));
    const int yEnd = static_cast<int>(std::ceil(1.2F * yTolerance));
    ui.qwtPlot->setAxisScale(QwtPlot::xBottom, -xEnd, xEnd, 1.0);
    ui.qwtPlot->setAxisScale(QwtPlot::yLeft, -yEnd, yEnd, 1.0);
    grid->enableX(2 * xEnd <= mostGridLines);
    grid->enableY(2 * yEnd <= mostGridLines);
    toleranceFrame->setPen(Qt::black, 1.0);
    toleranceFrame->setRect(QRectF(-xTolerance, -yTolerance, 2.0 * xTolerance, 2.0 * yTolerance));
    ui.qwtPlot->replot();
}

void RVXPositionErrorPlotPrivate::fitFields()
{
    for (QLineEdit *field :
         {ui.doubleSpinBox_xmean, ui.doubleSpinBox_ymean, ui.doubleSpinBox_Energy}) {
        // Room for the widest number and the frame.
        const int text = field->fontMetrics().horizontalAdvance("-00.000");
        field->setMinimumWidth(text + 2 * field->fontMetrics().averageCharWidth());
    }
}

void RVXPositionErrorPlotPrivate::setErrorMap(const QVector<PositionErrorSpot> &newSpots)
{
    if (spots.setErrorMap(newSpots))
        spotsChanged();
}

RVXPositionErrorPlot::PositionErrorSpot
RVXPositionErrorPlotPrivate::dataForRow(const QModelIndex &parent, int row) const
{
    Q_Q(const RVXPositionErrorPlot);
    double fields[std::size(columns)];
    for (std::size_t i = 0; i < std::size(columns); ++i)
        fields[i] = numberAt(q->model()->index(row, columns[i], parent));
    return {fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]};
}

QVector<RVXPositionErrorPlot::PositionErrorSpot>
RVXPositionErrorPlotPrivate::dataForRows(const QModelIndex &parent, int first, int last) const
{
    QVector<PositionErrorSpot> rows;
    rows.reserve(qMax(0, last - first + 1));
    for (int row = first; row <= last; ++row)
        rows.append(dataForRow(parent, row));
    return rows;
}

void RVXPositionErrorPlotPrivate::loadModel()
{
    Q_Q(RVXPositionErrorPlot);
    const int rows = q->model() ? q->model()->rowCount(q->rootIndex()) : 0;
    setErrorMap(dataForRows(q->rootIndex(), 0, rows - 1));
}

void RVXPositionErrorPlotPrivate::spotsChanged()
{
    Q_Q(RVXPositionErrorPlot);
    const QPointF mean = spots.meanError();
    ui.doubleSpinBox_xmean->setText(positionErrorText(mean.x(), 3));
    ui.doubleSpinBox_ymean->setText(positionErrorText(mean.y(), 3));
    ui.doubleSpinBox_Energy->setText(positionErrorText(spots.energy(), 1));
    plotPending = true;
    q->viewport()->update();
    statisticsAreOld();
}

PositionErrorStatistics RVXPositionErrorPlotPrivate::statistics() const
{
    if (!knownStatistics) {
        QVector<double> x;
        QVector<double> y;
        for (int row = 0; row < spots.size(); ++row) {
            x.append(spots.at(row).xError);
            y.append(spots.at(row).yError);
        }
        knownStatistics = positionErrorStatistics(x.constData(),
                                                  y.constData(),
                                                  spots.size(),
                                                  double(xTolerance),
                                                  double(yTolerance));
    }
    return *knownStatistics;
}

void RVXPositionErrorPlotPrivate::statisticsAreOld()
{
    Q_Q(RVXPositionErrorPlot);
    static const QMetaMethod signal =
        QMetaMethod::fromSignal(&RVXPositionErrorPlot::statisticsChanged);
    knownStatistics.reset();
    if (q->isSignalConnected(signal))
        statisticsNotice.post(q, &RVXPositionErrorPlot::statisticsChanged);
}

void RVXPositionErrorPlotPrivate::plot()
{
    if (!plotPending)
        return;
    plotPending = false;
    QPolygonF points;
    points.reserve(spots.size());
    for (int row = 0; row < spots.size(); ++row)
        points << QPointF(spots.at(row).xError, spots.at(row).yError);
    dots->setSamples(points);
    ui.qwtPlot->replot();
}

QPointF RVXPositionErrorPlotPrivate::pixelOf(int row) const
{
    Q_Q(const RVXPositionErrorPlot);
    const QPointF canvasPoint(
        ui.qwtPlot->canvasMap(QwtPlot::xBottom).transform(spots.at(row).xError),
        ui.qwtPlot->canvasMap(QwtPlot::yLeft).transform(spots.at(row).yError));
    return canvasPoint + ui.qwtPlot->canvas()->mapTo(q->viewport(), QPoint());
}

RVXPositionErrorPlot::RVXPositionErrorPlot(QWidget *parent)
    : QAbstractItemView(parent)
    , d_ptr(std::make_unique<RVXPositionErrorPlotPrivate>(this))
{
    setFrameShape(NoFrame);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::Window);
    setAccessibleName(tr("Spot Position Error"));
    describeChart(this, [this] {
        return positionErrorWords(statistics());
    });
}

RVXPositionErrorPlot::~RVXPositionErrorPlot() = default;

void RVXPositionErrorPlot::setSamples(const QPolygonF &samples)
{
    Q_D(RVXPositionErrorPlot);
    d->plotPending = false;
    d->dots->setSamples(samples);
    d->ui.qwtPlot->replot();
}

void RVXPositionErrorPlot::setTolerance(float tx, float ty)
{
    Q_D(RVXPositionErrorPlot);
    if (!isTolerance(tx) || !isTolerance(ty))
        return;
    d->xTolerance = tx;
    d->yTolerance = ty;
    d->statisticsAreOld();
    d->showTolerance();
}

PositionErrorStatistics RVXPositionErrorPlot::statistics() const
{
    Q_D(const RVXPositionErrorPlot);
    return d->statistics();
}

void RVXPositionErrorPlot::clearSpotData()
{
    Q_D(RVXPositionErrorPlot);
    d->setErrorMap({});
}

void RVXPositionErrorPlot::setModel(QAbstractItemModel *model)
{
    Q_D(RVXPositionErrorPlot);
    // This calls reset(), which reads the rows.
    QAbstractItemView::setModel(model);
    d->structureWatcher.watch(this->model(), this, [d] {
        d->loadModel();
    });
}

QSize RVXPositionErrorPlot::minimumSizeHint() const
{
    // The hint of a scroll area would let its contents be cut off.
    const QMargins frame(frameWidth(), frameWidth(), frameWidth(), frameWidth());
    return viewport()->minimumSizeHint().grownBy(frame);
}

QSize RVXPositionErrorPlot::sizeHint() const
{
    // Qwt's hint has room for the label of every millimetre, which is too much.
    return minimumSizeHint().expandedTo(usualSize);
}

void RVXPositionErrorPlot::setRootIndex(const QModelIndex &index)
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::setRootIndex(index);
    d->loadModel();
}

void RVXPositionErrorPlot::reset()
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::reset();
    d->loadModel();
}

void RVXPositionErrorPlot::rowsInserted(const QModelIndex &parent, int start, int end)
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::rowsInserted(parent, start, end);
    if (parent != rootIndex())
        return;
    if (start <= d->spots.size())
        d->spots.insert(start, d->dataForRows(parent, start, end));
    if (d->spots.size() == model()->rowCount(parent))
        d->spotsChanged();
    else
        d->loadModel();
}

void RVXPositionErrorPlot::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::rowsAboutToBeRemoved(parent, start, end);
    const int count = qMin(end + 1, d->spots.size()) - start;
    if (parent != rootIndex() || count <= 0)
        return;
    d->spots.remove(start, count);
    d->spotsChanged();
}

void RVXPositionErrorPlot::dataChanged(const QModelIndex &topLeft,
                                       const QModelIndex &bottomRight,
                                       const QVector<int> &roles)
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::dataChanged(topLeft, bottomRight, roles);
    const int last = qMin(bottomRight.row(), d->spots.size() - 1);
    if (topLeft.parent() != rootIndex() || topLeft.row() < 0 || topLeft.row() > last)
        return;
    d->spots.updateErrorSpots(topLeft.row(), d->dataForRows(topLeft.parent(), topLeft.row(), last));
    d->spotsChanged();
}

void RVXPositionErrorPlot::paintEvent(QPaintEvent *event)
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::paintEvent(event);
    d->plot();
}

QRect RVXPositionErrorPlot::visualRect(const QModelIndex &index) const
{
    Q_D(const RVXPositionErrorPlot);
    if (!index.isValid() || index.parent() != rootIndex() || index.row() >= d->spots.size())
        return QRect();
    const QPointF point = d->pixelOf(index.row());
    const QRectF viewportRect = viewport()->rect();
    // This is false too if the error is NaN.
    if (!viewportRect.contains(point))
        return QRect();
    QRect rect(0, 0, 2 * reach + 1, 2 * reach + 1);
    rect.moveCenter(point.toPoint());
    return rect;
}

QModelIndex RVXPositionErrorPlot::indexAt(const QPoint &point) const
{
    Q_D(const RVXPositionErrorPlot);
    int found = -1;
    double smallest = reach;
    for (int row = 0; row < d->spots.size(); ++row) {
        const QPointF offset = d->pixelOf(row) - point;
        const double distance = std::hypot(offset.x(), offset.y());
        if (distance <= smallest) {
            found = row;
            smallest = distance;
        }
    }
    return found < 0 ? QModelIndex() : model()->index(found, 0, rootIndex());
}

void RVXPositionErrorPlot::scrollTo(const QModelIndex &, ScrollHint)
{
    // The whole plot is always visible.
}

QRegion RVXPositionErrorPlot::visualRegionForSelection(const QItemSelection &selection) const
{
    QRegion region;
    for (const QModelIndex &index : selection.indexes())
        region += visualRect(index);
    return region;
}

bool RVXPositionErrorPlot::isIndexHidden(const QModelIndex &) const
{
    return false;
}

int RVXPositionErrorPlot::horizontalOffset() const
{
    return 0;
}

int RVXPositionErrorPlot::verticalOffset() const
{
    return 0;
}

QModelIndex RVXPositionErrorPlot::moveCursor(CursorAction, Qt::KeyboardModifiers)
{
    return currentIndex();
}

void RVXPositionErrorPlot::setSelection(const QRect &, QItemSelectionModel::SelectionFlags)
{
    // Dots cannot be selected.
}

void RVXPositionErrorPlot::changeEvent(QEvent *event)
{
    Q_D(RVXPositionErrorPlot);
    QAbstractItemView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        d->dots->setHighlightColor(palette().color(QPalette::Highlight));
        d->ui.qwtPlot->replot();
    } else if (event->type() == QEvent::FontChange) {
        d->fitFields();
    }
}

} // namespace Corvale_Qt
