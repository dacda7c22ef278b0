// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/RVXPositionErrorPlot_p.h"
#include "corvale_qt/plot/PlotAxis_p.h"

#include <qwt_scale_map.h>
#include <qwt_text.h>
#include <qwt_text_label.h>

#include <QPolygonF>

#include <cmath>
#include <iterator>

namespace Corvale_Qt {

namespace {

//! The columns of PositionErrorSpot's fields, in their order.
constexpr int columns[] = {3, 4, 5, 6, 2, 1};
//! With its axes, in pixels.
constexpr QSize smallestPlot(200, 200);
//! There is a line every millimetre: with more of them the canvas would be grey all over.
constexpr int mostGridLines = 80;

//! NaN for what is no number: a missing error is not an error of 0.
double numberAt(const QModelIndex &index)
{
    bool isNumber = false;
    const double value = index.data(Qt::UserRole).toDouble(&isNumber);
    return isNumber ? value : qQNaN();
}

QString textOf(double value, int decimals)
{
    if (!qIsFinite(value))
        return RVXPositionErrorPlot::tr("N/A");
    const QString text = QString::number(value, 'f', decimals);
    // What rounds to nothing has no sign.
    return text.toDouble() == 0.0 ? QString::number(0.0, 'f', decimals) : text;
}

} // namespace

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
    // Light in every palette, since the tolerance is black.
    ui.qwtPlot->setCanvasBackground(Qt::white);
    ui.qwtPlot->setMinimumSize(smallestPlot); // Qwt's own hint leaves room for every tick
    for (const int axis : {QwtPlot::xBottom, QwtPlot::yLeft}) {
        ui.qwtPlot->setAxisScaleDraw(axis, new ThinnedScaleDraw);
        followData(ui.qwtPlot, axis);
    }

    // The plot deletes what is attached to it.
    grid = new QwtPlotGrid;
    grid->setPen(QColor(215, 215, 215), 1.0);
    grid->attach(ui.qwtPlot);
    toleranceFrame = new QwtPlotShapeItem;
    toleranceFrame->setZ(20.0);
    toleranceFrame->attach(ui.qwtPlot);
    dots = new HighlightRecentDot;
    dots->setZ(30.0);
    dots->setHighlightColor(q->palette().color(QPalette::Highlight));
    dots->attach(ui.qwtPlot);
    ui.qwtPlot->replot(); // only this gives the axes their labels, for which there must be room
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
        // The widest number that a beam can bring, and the frame.
        const int text = field->fontMetrics().horizontalAdvance("-00.000");
        field->setMinimumWidth(text + 2 * field->fontMetrics().averageCharWidth());
    }
}

void RVXPositionErrorPlotPrivate::setEnergy(const QString &energy)
{
    ui.doubleSpinBox_Energy->setText(energy);
}

void RVXPositionErrorPlotPrivate::setMeanError(const QString &x, const QString &y)
{
    ui.doubleSpinBox_xmean->setText(x);
    ui.doubleSpinBox_ymean->setText(y);
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
    setMeanError(textOf(mean.x(), 3), textOf(mean.y(), 3));
    setEnergy(textOf(spots.energy(), 1));
    plotPending = true;
    q->viewport()->update();
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

} // namespace Corvale_Qt
