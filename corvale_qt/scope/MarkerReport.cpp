// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/MarkerReport_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/ScopeMarkerStatistics.h"
#include "corvale_qt/scope/ScopeModel_p.h"
#include "corvale_qt/scope/ScopeTimeAxis_p.h"

#include <QStringList>

#include <cmath>

namespace Corvale_Qt {

namespace {

//! Collects the lines of a report.
class Report
{
public:
    explicit Report(const ScopeModel &model)
        : m_model(model)
    {
    }

    void addMarker(const QString &title, const ScopeMarkerStatistics::Marker &marker)
    {
        if (!marker.isSet)
            return;
        const QString none = marker.row > 0 ? RVXScopePlotView::tr("no reading")
                                            : RVXScopePlotView::tr("kept in a block only");
        const QString reading = std::isnan(marker.reading) ? none : number(marker.reading);
        m_lines << QStringList{title,
                               time(marker.time),
                               m_model.name(marker.channel),
                               reading,
                               unit(marker.channel)}
                       .join(QLatin1Char('\t'));
    }
    void add(const QString &title, double value, const QString &unit)
    {
        if (!std::isnan(value))
            m_lines << QStringList{title, number(value), unit}.join(QLatin1Char('\t'));
    }
    void addTime(const QString &title, double x)
    {
        if (!std::isnan(x))
            m_lines << title + QLatin1Char('\t') + time(x);
    }
    //! Says that a number is not known, because older readings are kept in blocks.
    void addUnknown(const QString &title)
    {
        m_lines << title + QLatin1Char('\t')
                + RVXScopePlotView::tr("not known: older readings are kept in blocks");
    }
    QString unit(int channel) const { return m_model.unitName(channel); }
    QString xUnit() const { return m_model.xUnitName(); }
    QString text() const { return m_lines.join(QLatin1Char('\n')); }

private:
    static QString number(double value) { return QString::number(value, 'g', 12); }
    QString time(double x) const
    {
        constexpr double finest = 1e-6;
        if (const ScopeTimeAxis *axis = m_model.translatedTime())
            return axis->text(x, finest);
        return QString::number(x, 'g', 16) + QLatin1Char(' ') + xUnit();
    }

    const ScopeModel &m_model;
    QStringList m_lines;
};

QString joined(const QString &unit, const QString &sign, const QString &other)
{
    return unit.isEmpty() || other.isEmpty() ? QString() : unit + sign + other;
}

} // namespace

QString markerReport(const ScopeMarkerStatistics &statistics, const ScopeModel &model)
{
    Report report(model);
    report.addMarker(RVXScopePlotView::tr("Marker 1"), statistics.first);
    report.addMarker(RVXScopePlotView::tr("Marker 2"), statistics.second);
    if (!statistics.hasSpan())
        return report.text();
    const QString unit = report.unit(statistics.second.channel);
    const QString xUnit = report.xUnit();
    report.add(RVXScopePlotView::tr("Period"), statistics.period, xUnit);
    report.add(RVXScopePlotView::tr("Frequency"),
               statistics.frequency,
               joined(QStringLiteral("1"), QStringLiteral("/"), xUnit));
    report.add(RVXScopePlotView::tr("Delta"), statistics.difference, unit);
    const bool hasBlocks = !std::isnan(statistics.blocksBegin);
    report.addTime(RVXScopePlotView::tr("From"), statistics.blocksBegin);
    report.addTime(RVXScopePlotView::tr("To"), statistics.blocksEnd);
    report.add(RVXScopePlotView::tr("Readings"), statistics.count, QString());
    report.add(RVXScopePlotView::tr("Missing"), statistics.missing, QString());
    report.add(RVXScopePlotView::tr("Sum"), statistics.sum, unit);
    report.add(RVXScopePlotView::tr("Mean"), statistics.mean, unit);
    report.add(RVXScopePlotView::tr("RMS"), statistics.rms, unit);
    report.add(RVXScopePlotView::tr("Std. Dev"), statistics.standardDeviation, unit);
    report.add(RVXScopePlotView::tr("Minimum"), statistics.minimum, unit);
    report.add(RVXScopePlotView::tr("Maximum"), statistics.maximum, unit);
    report.add(RVXScopePlotView::tr("Integral"),
               statistics.integral,
               joined(unit, QStringLiteral(" "), xUnit));
    report.add(RVXScopePlotView::tr("Covered"), statistics.coveredTime, xUnit);
    report.add(RVXScopePlotView::tr("Slope"),
               statistics.slope,
               joined(unit, QStringLiteral("/"), xUnit));
    if (hasBlocks) {
        for (const QString &title : {RVXScopePlotView::tr("RMS"),
                                     RVXScopePlotView::tr("Std. Dev"),
                                     RVXScopePlotView::tr("Integral"),
                                     RVXScopePlotView::tr("Slope")})
            report.addUnknown(title);
    }
    return report.text();
}

} // namespace Corvale_Qt
