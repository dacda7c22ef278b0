// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/scope/MarkerLabels_p.h"
#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"

#include <qwt_plot_marker.h>
#include <qwt_symbol.h>
#include <qwt_text.h>

#include <QCoreApplication>
#include <QFont>
#include <QLocale>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

QString readingText(double value)
{
    return std::isnan(value)
        ? QCoreApplication::translate("Corvale_Qt::RVXScopePlotView", "no reading")
        : QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QString number(double value)
{
    return QString::number(value, 'g', 12);
}

QString notAvailable()
{
    return QStringLiteral("N/A");
}

//! Returns the text of a statistic, or "N/A" if all samples between the markers are missing.
QString number(const MarkerStatistics &statistics, double value)
{
    return statistics.count() > 0 ? number(value) : notAvailable();
}

QString missingText(const MarkerStatistics &statistics)
{
    return statistics.missing() > 0 ? QStringLiteral("\n  Missing: %1").arg(statistics.missing())
                                    : QString();
}

//! Returns the text that the unit gives if it differs for x and x + resolution, else x with enough digits to differ.
QString xText(const ScopeModel &model, double x, double resolution)
{
    QString ofUnit = model.formatX(x);
    bool isNumber = false;
    ofUnit.toDouble(&isNumber);
    if (!isNumber || !(resolution > 0.0) || ofUnit != model.formatX(x + resolution))
        return ofUnit;
    constexpr int most = 15;
    const double steps = std::abs(x) / resolution;
    const int digits = steps > 1.0 ? int(std::ceil(std::log10(steps))) + 1 : 1;
    return QString::number(x, 'g', std::min(digits, most));
}

} // namespace

// Here and below, one call of arg() inserts all texts: the name of a channel may contain place markers like %1.
QString sampleText(const ScopeModel &model, double x, int channel, double value, double resolution)
{
    return QStringLiteral("%1: %2\nChannel %3\n%4")
        .arg(model.xUnitName(),
             xText(model, x, resolution),
             model.name(channel),
             readingText(value));
}

QString timeText(const ScopeModel &model, double x, double resolution)
{
    return QStringLiteral("%1: %2").arg(model.xUnitName(), xText(model, x, resolution));
}

QString spanText(const QString &sample, double period, const MarkerStatistics &statistics)
{
    return QStringLiteral("%1\n   Period: %2\nFrequency: %3\n      Sum: %4\n     Mean: %5\n"
                          "      RMS: %6\n Std. Dev: %7")
               .arg(sample,
                    number(period),
                    period > 0.0 ? number(1.0 / period) : notAvailable(),
                    number(statistics, statistics.sum()),
                    number(statistics, statistics.mean()),
                    number(statistics, statistics.rms()),
                    number(statistics, statistics.standardDeviation()))
        + missingText(statistics);
}

QString spanText(const QString &bar, const MarkerStatistics &statistics)
{
    return QStringLiteral("%1\n      Sum: %2\n     Mean: %3\n      RMS: %4\n Std. Dev: %5")
               .arg(bar,
                    number(statistics, statistics.sum()),
                    number(statistics, statistics.mean()),
                    number(statistics, statistics.rms()),
                    number(statistics, statistics.standardDeviation()))
        + missingText(statistics);
}

void prepareMarker(QwtPlotMarker &marker)
{
    marker.setLineStyle(QwtPlotMarker::VLine);
    setMarkerLine(marker, Qt::NoBrush);
}

void setMarkerLabel(QwtPlotMarker &marker, const QString &text, bool selected)
{
    QwtText label(text, QwtText::PlainText);
    label.setFont(QFont("Monospace", 9));
    label.setColor(RVXPlotColors::labelTextColor());
    label.setBackgroundBrush(RVXPlotColors::labelBackgroundColor());
    label.setBorderPen(selected ? QPen(RVXPlotColors::labelTextColor()) : QPen(Qt::NoPen));
    // In a language that is written from right to left, the sign would appear behind the number.
    label.setRenderFlags(Qt::AlignLeft | Qt::AlignTop | Qt::TextForceLeftToRight);
    marker.setLabel(label);
}

void setMarkerLine(QwtPlotMarker &marker, const QBrush &brush)
{
    const bool hasColour = brush.style() != Qt::NoBrush;
    const QPen pen(hasColour ? brush : QBrush(RVXPlotColors::labelTextColor()),
                   1.0,
                   Qt::SolidLine,
                   Qt::SquareCap,
                   Qt::BevelJoin);
    marker.setLinePen(pen);
    marker.setSymbol(new QwtSymbol(QwtSymbol::Ellipse, Qt::NoBrush, pen, QSize(7, 7)));
}

void alignMarkerLabel(QwtPlotMarker &marker, Qt::AlignmentFlag side)
{
    marker.setLabelAlignment(side | Qt::AlignTop);
}

void keepLabelsApart(QwtPlotMarker &a, QwtPlotMarker &b, double width)
{
    if (!(std::abs(a.xValue() - b.xValue()) < 0.25 * width))
        return;
    const bool aIsLeft = a.xValue() <= b.xValue();
    alignMarkerLabel(a, aIsLeft ? Qt::AlignLeft : Qt::AlignRight);
    alignMarkerLabel(b, aIsLeft ? Qt::AlignRight : Qt::AlignLeft);
}

} // namespace Corvale_Qt
