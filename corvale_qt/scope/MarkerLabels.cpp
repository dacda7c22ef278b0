// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/scope/BlockStatistics_p.h"
#include "corvale_qt/scope/MarkerLabels_p.h"
#include "corvale_qt/scope/MarkerStatistics_p.h"
#include "corvale_qt/scope/ScopeModel_p.h"
#include "corvale_qt/scope/ScopeTimeAxis_p.h"
#include "corvale_qt/scope/SpanIntegral_p.h"
#include "corvale_qt/units/SiPrefix.h"

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

QString readingText(const ScopeModel &model, const MarkedSample &sample)
{
    if (std::isnan(sample.value))
        return QCoreApplication::translate("Corvale_Qt::RVXScopePlotView", "no reading");
    if (model.hasSiPrefix())
        return model.readingWithPrefix(sample.channel, sample.value, sample.noise);
    return QString::number(sample.value, 'g', QLocale::FloatingPointShortest);
}

QString number(double value)
{
    return QString::number(value, 'g', 12);
}

QString notAvailable()
{
    return QStringLiteral("N/A");
}

//! Writes the statistics of samples in a unit.
class StatisticsText
{
public:
    StatisticsText(const ScopeModel &model, int channel, const MarkerStatistics &statistics)
        : m_model(model)
        , m_channel(channel)
        , m_statistics(statistics)
    {
    }

    // The standard errors are those of independent samples.
    QString sum() const { return text(m_statistics.sum(), deviation() * root()); }
    QString mean() const { return text(m_statistics.mean(), deviation() / root()); }
    QString rms() const { return text(m_statistics.rms(), deviation() / root()); }
    QString standardDeviation() const
    {
        return text(deviation(), deviation() / (std::sqrt(2.0) * root()));
    }

private:
    double deviation() const { return m_statistics.standardDeviation(); }
    double root() const { return std::sqrt(double(std::max(m_statistics.count(), 1))); }
    //! Returns the text of a number with a standard error, or "N/A" if all samples are missing.
    QString text(double value, double error) const
    {
        if (m_statistics.count() < 1)
            return notAvailable();
        return m_model.hasSiPrefix() ? m_model.numberWithPrefix(m_channel, value, error)
                                     : number(value);
    }

    const ScopeModel &m_model;
    const int m_channel;
    const MarkerStatistics &m_statistics;
};

//! Writes what is known of the readings of a block in the unit of their channel.
class BlockTexts
{
public:
    BlockTexts(const ScopeModel &model, int channel, const RVXPlotHistory::Block &block)
        : m_model(model)
        , m_channel(channel)
        , m_block(block)
    {
    }
    QString mean() const { return text(m_block.mean); }
    QString least() const { return text(m_block.least); }
    QString greatest() const { return text(m_block.greatest); }

private:
    QString text(double value) const
    {
        if (m_block.count < 1)
            return notAvailable();
        constexpr double sixDigits = 1e-5;
        return m_model.hasSiPrefix()
            ? m_model.numberWithPrefix(m_channel, value, sixDigits * std::abs(value))
            : number(value);
    }

    const ScopeModel &m_model;
    const int m_channel;
    const RVXPlotHistory::Block &m_block;
};

//! Returns a time or a frequency with a prefix and six digits, or as a plain number.
QString periodText(const ScopeModel &model, double value, const QString &unit)
{
    constexpr double sixDigits = 1e-5;
    return model.hasSiPrefix() ? Units::SiPrefix::text(value, unit, sixDigits * value)
                               : number(value);
}

QString frequencyText(const ScopeModel &model, double period)
{
    if (!(period > 0.0))
        return notAvailable();
    const bool isOfSeconds = model.xUnitName() == QLatin1String("s");
    return periodText(model, 1.0 / period, isOfSeconds ? QStringLiteral("Hz") : QString());
}

QString missingText(const MarkerStatistics &statistics)
{
    return statistics.missing() > 0 ? QStringLiteral("\n  Missing: %1").arg(statistics.missing())
                                    : QString();
}

/*! Returns the text that the unit gives if it differs for x and x + resolution, else x with enough digits to differ. Where
    values have prefixes, x has no exponent. */
QString xText(const ScopeModel &model, double x, double resolution)
{
    if (model.hasSiPrefix() && resolution > 0.0)
        return QString::number(x, 'f', std::clamp(int(std::ceil(-std::log10(resolution))), 0, 9));
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
QString sampleText(const ScopeModel &model, const MarkedSample &sample)
{
    return QStringLiteral("%1\nChannel %2\n%3")
        .arg(timeText(model, sample.x, sample.resolution),
             model.name(sample.channel),
             readingText(model, sample));
}

QString blockText(const ScopeModel &model, int channel, const RVXPlotHistory::Block &block)
{
    const BlockTexts texts(model, channel, block);
    return QStringLiteral("\nChannel %1\nmean %2\n%3 to %4\nreadings: %5")
        .arg(model.name(channel),
             texts.mean(),
             texts.least(),
             texts.greatest(),
             QString::number(block.count));
}

QString blocksText(const ScopeModel &model,
                   int channel,
                   const BlockStatistics &statistics,
                   double period,
                   double resolution)
{
    const BlockTexts texts(model, channel, statistics.readings());
    QString text =
        QStringLiteral(
            "\n   Period: %1\n Readings: %2\n     From: %3\n       To: %4\n     Mean: %5\n"
            "  Minimum: %6\n  Maximum: %7\nRMS, Std. Dev, integral:\nnot known of blocks")
            .arg(periodText(model, period, model.xUnitName()),
                 QString::number(statistics.readings().count),
                 placeText(model, statistics.first(), resolution),
                 placeText(model, statistics.last(), resolution),
                 texts.mean(),
                 texts.least(),
                 texts.greatest());
    if (statistics.missing() > 0)
        text += QStringLiteral("\n  Missing: %1").arg(statistics.missing());
    return text;
}

QString timeText(const ScopeModel &model, double x, double resolution)
{
    if (const ScopeTimeAxis *axis = model.translatedTime())
        return axis->text(x, resolution);
    return QStringLiteral("%1: %2").arg(model.xUnitName(), xText(model, x, resolution));
}

QString placeText(const ScopeModel &model, double x, double resolution)
{
    if (const ScopeTimeAxis *axis = model.translatedTime())
        return axis->text(x, resolution);
    constexpr double most = 9.0;
    const double decimals = resolution > 0.0 ? std::ceil(-std::log10(resolution)) : 3.0;
    const QString text = std::abs(x) < 1e15
        ? QString::number(x, 'f', int(std::clamp(decimals, 0.0, most)))
        : QString::number(x, 'g', 15);
    const QString unit = model.xUnitName();
    return unit.isEmpty() ? text : text + QLatin1Char(' ') + unit;
}

QString hoverText(const ScopeModel &model, const MarkedSample &sample)
{
    if (model.hasSiPrefix() || std::isnan(sample.value))
        return readingText(model, sample);
    const QString text = QString::number(sample.value, 'g', 6);
    const QString unit = model.unitName(sample.channel);
    return unit.isEmpty() ? text : text + QLatin1Char(' ') + unit;
}

QString spanText(const ScopeModel &model,
                 const MarkedSample &sample,
                 double period,
                 const MarkerStatistics &statistics)
{
    const StatisticsText texts(model, sample.channel, statistics);
    return QStringLiteral("%1\n   Period: %2\nFrequency: %3\n      Sum: %4\n     Mean: %5\n"
                          "      RMS: %6\n Std. Dev: %7")
               .arg(sampleText(model, sample),
                    periodText(model, period, model.xUnitName()),
                    frequencyText(model, period),
                    texts.sum(),
                    texts.mean(),
                    texts.rms(),
                    texts.standardDeviation())
        + missingText(statistics);
}

QString spanText(const ScopeModel &model,
                 int channel,
                 const QString &bar,
                 const MarkerStatistics &statistics)
{
    const StatisticsText texts(model, channel, statistics);
    return QStringLiteral("%1\n      Sum: %2\n     Mean: %3\n      RMS: %4\n Std. Dev: %5")
               .arg(bar, texts.sum(), texts.mean(), texts.rms(), texts.standardDeviation())
        + missingText(statistics);
}

QString integralText(const ScopeModel &model, int channel, const SpanIntegral &span, double period)
{
    const QString x = model.xUnitName();
    Units::SiPrefix prefix(model.unitName(channel));
    prefix.fix(model.fixedUnit());
    const QString unit =
        model.hasSiPrefix() ? QStringLiteral(" %1 %2").arg(prefix.symbol(), x) : QString();
    const auto text = [&model](double value) {
        constexpr int digits = 6;
        return model.hasSiPrefix() ? QString::number(value, 'g', digits) : number(value);
    };
    const double integral = model.hasSiPrefix() ? prefix.shown(span.integral) : span.integral;
    return QStringLiteral("\n Integral: %1%2\n  Covered: %3 of %4 %5")
        .arg(text(integral), unit, text(span.covered), text(period), x);
}

QString detailText(const ScopeModel &model,
                   int channel,
                   double difference,
                   const MarkerStatistics &statistics)
{
    const auto text = [&](double value, const QString &ofTime) {
        if (std::isnan(value))
            return notAvailable();
        if (!model.hasSiPrefix())
            return number(value);
        constexpr double sixDigits = 1e-5;
        return model.numberWithPrefix(channel, value, sixDigits * std::abs(value)) + ofTime;
    };
    const QString xUnit = model.xUnitName();
    return QStringLiteral("\n    Delta: %1\n  Minimum: %2\n  Maximum: %3\n    Slope: %4")
        .arg(text(difference, QString()),
             text(statistics.minimum(), QString()),
             text(statistics.maximum(), QString()),
             text(statistics.slope(), QLatin1Char('/') + xUnit));
}

void prepareMarker(QwtPlotMarker &marker)
{
    marker.setLineStyle(QwtPlotMarker::VLine);
    setMarkerLine(marker, Qt::NoBrush);
}

void setMarkerLabel(QwtPlotMarker &marker, const QString &text, bool selected)
{
    QwtText label(text, QwtText::PlainText);
    static const QFont monospace("Monospace", 9); // finding a font takes longer than the rest
    label.setFont(monospace);
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
    if (marker.symbol() && marker.linePen() == pen)
        return; // a new symbol would be painted anew
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
