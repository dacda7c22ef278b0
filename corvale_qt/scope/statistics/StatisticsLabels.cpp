// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/scope/statistics/RVX_FitHistogramItem.h"
#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem_p.h"
#include "corvale_qt/scope/statistics/StatisticsLabels_p.h"
#include "corvale_qt/units/SiPrefix.h"
#include "corvale_qt/units/Units.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

const QLatin1String kOpen("<pre>");
const QLatin1String kClose("\n</pre>");

QString translated(const char *text)
{
    return QCoreApplication::translate("Corvale_Qt::StatisticsLabels", text);
}

const std::optional<PlacedFit> &placedFit(const RVX_StatisticsHistogramItem &item)
{
    return RVX_StatisticsHistogramItemPrivate::upToDate(item).placed;
}

//! Returns the unit of lengths, escaped: a description of a detector may come from anywhere.
QString unitName(const RVX_StatisticsHistogramItem &item)
{
    static const QString name = Units::Strips().name();
    return placedFit(item) ? placedFit(item)->unit.toHtmlEscaped() : name;
}

double position(const RVX_StatisticsHistogramItem &item)
{
    return placedFit(item) ? placedFit(item)->estimate.position.value : item.position();
}

double sigma(const RVX_StatisticsHistogramItem &item)
{
    return placedFit(item) ? placedFit(item)->estimate.sigma.value : double(item.fit().sigma);
}

double peak(const RVX_StatisticsHistogramItem &item)
{
    return placedFit(item) ? placedFit(item)->readingAt(position(item))
                           : double(item.fit().at(item.fit().mean));
}

//! Returns the area of the Gaussian: a charge, or with places the integral of the density over them.
double area(const RVX_StatisticsHistogramItem &item)
{
    constexpr double perSigma = 2.5066282746310002; // sqrt(2 pi)
    return placedFit(item) ? placedFit(item)->estimate.height.value * sigma(item) * perSigma
                           : double(item.fit().amplitude);
}

//! Returns a number that is known in channels only.
double ofChannels(const RVX_StatisticsHistogramItem &item, double value)
{
    return placedFit(item) ? std::nan("") : value;
}

QString notAvailable()
{
    return translated("N/A");
}

//! Returns the number with its suffix, or "N/A" if the value is not finite.
QString number(double value, const QString &suffix = QString())
{
    return std::isfinite(value) ? QString::number(value, 'g', 4) + suffix : notAvailable();
}

QString percent(double share)
{
    return number(share * 100.0, QStringLiteral("%"));
}

QString length(double value)
{
    return std::isfinite(value) ? QString::number(value, 'f', 2) : notAvailable();
}

//! Returns the unit escaped: it comes from the model, which may belong to the host, and must not act as markup.
QString valueUnit(const RVX_StatisticsHistogramItem &item)
{
    return item.valueUnit().toHtmlEscaped();
}

bool hasSiPrefix(const RVX_StatisticsHistogramItem &item)
{
    return RVX_StatisticsHistogramItemPrivate::of(item).hasSiPrefix;
}

//! Returns a value in the unit that is fixed, or with the prefix that suits it.
QString prefixed(double value, const RVX_StatisticsHistogramItem &item)
{
    if (!std::isfinite(value))
        return notAvailable();
    Units::SiPrefix prefix(item.valueUnit());
    prefix.follow(value);
    prefix.fix(RVX_StatisticsHistogramItemPrivate::of(item).fixedUnit);
    return prefix.text(value).toHtmlEscaped();
}

QString quantity(double value, const RVX_StatisticsHistogramItem &item)
{
    if (hasSiPrefix(item))
        return prefixed(value, item);
    const QString unit = valueUnit(item);
    return number(value, unit.isEmpty() ? unit : QLatin1Char(' ') + unit);
}

//! Returns the unit of a number without one.
QString unitInBrackets(const RVX_StatisticsHistogramItem &item)
{
    if (hasSiPrefix(item))
        return QString();
    const QString unit = valueUnit(item);
    return unit.isEmpty() ? unit : QStringLiteral(" (%1)").arg(unit);
}

QString chi()
{
    return QString(QChar(0x03A7));
}

QString squared()
{
    return QString(QChar(0x00B2));
}

QString signalToNoise(const RVX_StatisticsHistogramItem &item)
{
    return item.hasSignalToNoise() ? number(item.signalToNoise()) : notAvailable();
}

QString noiseDeviation(const RVX_StatisticsHistogramItem &item)
{
    if (!item.hasSignalToNoise())
        return notAvailable();
    return hasSiPrefix(item) ? prefixed(item.noiseDeviation(), item)
                             : number(item.noiseDeviation());
}

QString padding(int lines)
{
    return QString(std::max(lines - 1, 0), QLatin1Char('\n'));
}

} // namespace

namespace StatisticsLabels {

QString empty(int lines)
{
    return QStringLiteral("<pre>N/A\n%1</pre>").arg(padding(lines));
}

QString error(const QString &message, int lines)
{
    return translated("<pre>Error: %1\n%2</pre>").arg(message, padding(lines));
}

QString fitError(const QString &message, int lines)
{
    return translated("<pre>Fit error: %1\n%2</pre>").arg(message, padding(lines));
}

QString shortForm(const RVX_StatisticsHistogramItem &item)
{
    return withAlignedColons(
        translated("<pre>Position (%3): <b>%1</b>\nStd. Dev (%4): %2\n</pre>")
            .arg(length(position(item)), length(sigma(item)), unitName(item), unitName(item)));
}

QString moments(const RVX_StatisticsHistogramItem &item)
{
    return withAlignedColons(translated("<pre>Position (%5): <b>%1</b>\nStd. Dev (%6): %2\n"
                                        "    Skewness: %3\n    Kurtosis: %4\n</pre>")
                                 .arg(length(position(item)),
                                      length(sigma(item)),
                                      number(ofChannels(item, double(item.fit().skewness))),
                                      number(ofChannels(item, double(item.fit().kurtosis))),
                                      unitName(item),
                                      unitName(item)));
}

QString fit(const RVX_FitHistogramItem &item)
{
    return withAlignedColons(
        translated("<pre>      Position (%3): <b>%1</b>\n      Std. Dev (%4): %2\n"
                   "              Peak: %10\n          Integral: %11\n               SNR: %5\n"
                   "Noise Std. Dev%12: %6\n                %7%8: %9\n</pre>")
            .arg(length(position(item)),
                 length(sigma(item)),
                 unitName(item),
                 unitName(item),
                 signalToNoise(item),
                 noiseDeviation(item),
                 chi(),
                 squared(),
                 percent(ofChannels(item, item.residualNoise())))
            // These come last because a unit may contain place markers.
            .arg(quantity(peak(item), item), quantity(area(item), item), unitInBrackets(item)));
}

QString deviceFit(const RVX_FitHistogramItem &item)
{
    return withAlignedColons(
        translated("<pre>      Position (%5): <b>%1</b>\n      Std. Dev (%5): %2\n"
                   "               SNR: %3\nNoise Std. Dev%9: %4\n                %6%7: %8\n</pre>")
            .arg(length(position(item)),
                 length(sigma(item)),
                 signalToNoise(item),
                 noiseDeviation(item),
                 unitName(item),
                 chi(),
                 squared(),
                 percent(ofChannels(item, item.residualNoise())),
                 unitInBrackets(item)));
}

QString withVerdict(const QString &label, const RVX_StatisticsHistogramItem &item)
{
    if (!placedFit(item))
        return label;
    const BeamVerdict &verdict = placedFit(item)->verdict;
    const QString line = QStringLiteral("\n<b>%1</b>").arg(verdict.text().toHtmlEscaped());
    const QString why = verdict.reasons.value(0).toHtmlEscaped();
    return label.left(label.size() - kClose.size()) + line + QLatin1Char('\n') + why
        + kClose; // the line of the reason is kept, so that the plot does not move
}

QString withEnergy(const QString &label, const QString &energy)
{
    const QString line = translated("\nEnergy (MeV):") + QLatin1Char(' ') + energy;
    return withAlignedColons(label.left(label.size() - kClose.size()) + line + kClose);
}

QString withAlignedColons(const QString &label)
{
    QStringList lines = label.mid(kOpen.size(), label.size() - kOpen.size() - kClose.size())
                            .split(QLatin1Char('\n'));
    int column = 0;
    for (const QString &line : qAsConst(lines))
        column = std::max(column, line.indexOf(QLatin1Char(':')));
    for (QString &line : lines) {
        const int colon = line.indexOf(QLatin1Char(':'));
        if (colon >= 0)
            line.prepend(QString(column - colon, QLatin1Char(' ')));
    }
    return kOpen + lines.join(QLatin1Char('\n')) + kClose;
}

} // namespace StatisticsLabels
} // namespace Corvale_Qt
