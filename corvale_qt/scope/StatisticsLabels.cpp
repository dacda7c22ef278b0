// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/ProfileFit.h"
#include "corvale_qt/scope/RVX_FitHistogramItem.h"
#include "corvale_qt/scope/StatisticsLabels_p.h"
#include "corvale_qt/units/Units.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace Corvale_Qt {

namespace {

const QLatin1String kOpen("<pre>");
const QLatin1String kClose("\n</pre>");

QString translated(const char *text)
{
    return QCoreApplication::translate("Corvale_Qt::StatisticsLabels", text);
}

QString unitName()
{
    static const QString name = Units::Strips().name();
    return name;
}

QString number(double value)
{
    return QString::number(value, 'g', 4);
}

QString length(double value)
{
    return QString::number(value, 'f', 2);
}

QString notAvailable()
{
    return translated("N/A");
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
    return item.hasSignalToNoise() ? number(item.noiseDeviation()) : notAvailable();
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
    return withAlignedColons(translated("<pre>Position (%3): <b>%1</b>\nStd. Dev (%4): %2\n</pre>")
                                 .arg(length(item.position()),
                                      length(double(item.fit().sigma)),
                                      unitName(),
                                      unitName()));
}

QString moments(const RVX_StatisticsHistogramItem &item)
{
    return withAlignedColons(translated("<pre>Position (%5): <b>%1</b>\nStd. Dev (%6): %2\n"
                                        "    Skewness: %3\n    Kurtosis: %4\n</pre>")
                                 .arg(length(item.position()),
                                      length(double(item.fit().sigma)),
                                      number(double(item.fit().skewness)),
                                      number(double(item.fit().kurtosis)),
                                      unitName(),
                                      unitName()));
}

QString fit(const RVX_FitHistogramItem &item)
{
    const ProfileFit &fit = item.fit();
    return withAlignedColons(
        translated("<pre>      Position (%7): <b>%1</b>\n      Std. Dev (%8): %2\n"
                   "              Peak: %3\n          Integral: %4\n               SNR: %5\n"
                   "Noise Std. Dev (%8): %6\n                %9%10: %11%\n</pre>")
            .arg(length(item.position()),
                 length(double(fit.sigma)),
                 number(double(fit.at(fit.mean))),
                 number(double(fit.amplitude)),
                 signalToNoise(item),
                 noiseDeviation(item),
                 unitName(),
                 unitName(),
                 chi())
            .arg(squared(), number(item.residualNoise() * 100.0)));
}

QString deviceFit(const RVX_FitHistogramItem &item)
{
    return withAlignedColons(
        translated(
            "<pre>      Position (%5): <b>%1</b>\n      Std. Dev (%6): %2\n"
            "               SNR: %3\nNoise Std. Dev (%6): %4\n                %7%8: %9%\n</pre>")
            .arg(length(item.position()),
                 length(double(item.fit().sigma)),
                 signalToNoise(item),
                 noiseDeviation(item),
                 unitName(),
                 unitName(),
                 chi(),
                 squared(),
                 number(item.residualNoise() * 100.0)));
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
