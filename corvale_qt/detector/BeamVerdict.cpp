// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/BeamVerdict.h"

#include "corvale_qt/numerics/CellScreening.h"
#include "corvale_qt/numerics/FlatField.h"
#include "corvale_qt/units/LibraryTexts_p.h"

#include <QCoreApplication>
#include <QDebug>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

namespace {

QString percent(double share)
{
    if (share > 1)
        return tr("more than 100 %");
    return QString::number(100 * share, 'f', share < 0.0995 ? 1 : 0) + QStringLiteral(" %");
}

void count(const BeamProfile &profile, BeamVerdict &verdict)
{
    for (int i = 0; i < profile.count(); ++i) {
        verdict.deadCells += profile.has(i, CellFlag::Dead);
        verdict.saturatedCells += profile.has(i, CellFlag::Saturated);
        verdict.hotCells += profile.has(i, CellFlag::Hot);
    }
}

/*! Returns the share of the charge in flagged cells. The charge that a dead cell should have is interpolated; the others
    count as they are read. */
double flaggedShare(const BeamProfile &profile, const BeamEstimate &estimate)
{
    const BeamProfile filled = profile.withoutHoles();
    double flagged = 0, all = 0;
    for (int i = 0; i < profile.count(); ++i) {
        const bool dead = profile.has(i, CellFlag::Dead);
        const double background = estimate.backgroundAt(profile.positions[i]);
        const double density = (dead ? filled : profile).density(i) - background;
        const double charge = std::max(density, 0.0) * profile.intervals[i];
        all += charge;
        if (profile.has(i, CellFlag::Dead | CellFlag::Hot | CellFlag::Saturated))
            flagged += charge;
    }
    return all > 0 ? flagged / all : 0.0;
}

//! Returns the noise of a reading: the known one, otherwise an estimate.
double noiseOf(const BeamProfile &profile)
{
    return profile.noise > 0 ? profile.noise : estimatedNoise(profile);
}

//! Returns the largest density above the background in noises. Dead and hot cells do not make a peak.
double peakInNoise(const BeamProfile &profile)
{
    const BeamProfile filled = profile.withoutHoles();
    std::vector<double> densities;
    int peak = -1;
    for (int i = 0; i < profile.count(); ++i) {
        densities.push_back(filled.density(i));
        if (peak < 0 || filled.density(i) > filled.density(peak))
            peak = i;
    }
    if (peak < 0)
        return 0;
    // A tenth of the cells of a beam that fills the detector are background at the most.
    const auto low = densities.begin() + std::ptrdiff_t(densities.size() / 10);
    std::nth_element(densities.begin(), low, densities.end());
    const double height = filled.density(peak) - *low;
    if (!(height > 0))
        return 0;
    return height * profile.scales[peak] / noiseOf(profile); // infinite without noise
}

double shareOutside(const BeamProfile &profile, const BeamEstimate &estimate)
{
    const double unit = estimate.sigma.value * M_SQRT2;
    const double below = std::erfc((estimate.position.value - profile.lowerEdge()) / unit) / 2;
    const double above = std::erfc((profile.upperEdge() - estimate.position.value) / unit) / 2;
    return below + above;
}

//! Collects reasons; the worst of them decides.
class Judgement
{
public:
    explicit Judgement(BeamVerdict &verdict)
        : m_verdict(verdict)
    {
        m_verdict.validity = BeamValidity::Valid;
    }

    void add(bool holds, BeamValidity validity, const QString &reason)
    {
        if (!holds)
            return;
        m_verdict.validity = std::max(m_verdict.validity, validity);
        m_verdict.reasons.append(reason);
    }

private:
    BeamVerdict &m_verdict;
};

//! Returns whether there is something, and as much as the limit, which may be 0.
bool reaches(double share, double limit)
{
    return share > 0 && share >= limit;
}

//! Returns whether all the charge lies in hot cells among zeros, as in readings whose noise is suppressed.
bool isAllInHotCells(const BeamProfile &profile, const BeamVerdict &verdict)
{
    const bool mayBe = verdict.hotCells > 0 || profile.shareOfHoles > 0;
    if (!mayBe || verdict.flaggedShare < 1 || verdict.deadCells > 0)
        return false;
    for (int i = 0; i < profile.count(); ++i)
        if (!profile.has(i, CellFlag::Hot) && profile.density(i) != 0)
            return false;
    return true;
}

void judgeSignal(const BeamEstimate &estimate,
                 const VerdictLimits &limits,
                 BeamVerdict &verdict,
                 Judgement &judgement)
{
    // Without a peak, or without readings, all else follows from that: one reason says it.
    const bool isUsable = estimate.status != EstimateStatus::NotUsable;
    const bool hasPeak = verdict.peakInNoise > limits.peakInNoise;
    judgement.add(isUsable && !hasPeak,
                  BeamValidity::NotValid,
                  tr("no peak above %1 times the noise").arg(limits.peakInNoise));
    judgement.add(!estimate.isOk() && (hasPeak || !isUsable),
                  BeamValidity::NotValid,
                  estimateStatusText(estimate.status));
    judgement.add(reaches(verdict.flaggedShare, limits.flaggedShare),
                  BeamValidity::FitPoor,
                  tr("%1 of the charge lies in dead, hot or saturated cells")
                      .arg(percent(verdict.flaggedShare)));
}

//! Returns the median; the mean of the middle two if the count is even.
double medianOf(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return values.size() % 2 == 1 ? *middle
                                  : (*middle + *std::max_element(values.begin(), middle)) / 2;
}

/*! Returns how much density the outermost cells have that the estimate's Gaussian does not explain, over the Gaussian's height: their
    median, or 0 if noise alone may be that large. An estimate with a background has explained it. */
double unexplainedBackground(const BeamProfile &profile, const BeamEstimate &estimate)
{
    const int ends = std::min(std::max(profile.count() / 20, 2), profile.count());
    if (!std::isnan(estimate.background.value) || !(estimate.height.value > 0))
        return 0;
    std::vector<double> densities;
    const double ofReading = noiseOf(profile);
    double ofDensities = 0; // the sum of their noises
    for (int i = 0; i < profile.count(); ++i) {
        const bool outer = i < ends || i >= profile.count() - ends;
        if (!outer || profile.has(i, CellFlag::Dead | CellFlag::Hot))
            continue;
        const double inSigma =
            (profile.positions[i] - estimate.position.value) / estimate.sigma.value;
        densities.push_back(profile.density(i)
                            - estimate.height.value * std::exp(-0.5 * inSigma * inSigma));
        ofDensities += ofReading / profile.scales[i];
    }
    if (densities.empty())
        return 0;
    constexpr double medianOfNoise = 1.2533; // standard error of a median, in those of a mean
    constexpr double sure = 3;
    const auto count = double(densities.size());
    const double wiggle = sure * medianOfNoise * (ofDensities / count) / std::sqrt(count);
    const double median = medianOf(std::move(densities));
    return median > wiggle ? median / estimate.height.value : 0.0;
}

void judgeShape(const BeamProfile &profile,
                const BeamEstimate &estimate,
                const VerdictLimits &limits,
                Judgement &judgement)
{
    const double length = profile.upperEdge() - profile.lowerEdge();
    const double position = estimate.position.value;
    judgement.add(!(position >= profile.lowerEdge() && position <= profile.upperEdge()),
                  BeamValidity::NotValid,
                  tr("the position lies outside of the detector"));
    judgement.add(!(estimate.sigma.value <= limits.widestSigma * length),
                  BeamValidity::NotValid,
                  tr("sigma does not fit on the detector"));
    const double rms = estimate.quality.residualRms;
    judgement.add(std::isnan(rms) || std::isnan(estimate.quality.rSquared),
                  BeamValidity::NotValid,
                  tr("no cell shows whether a Gaussian describes the readings"));
    judgement.add(rms > limits.residualRms,
                  rms > limits.worstResidualRms ? BeamValidity::NotValid : BeamValidity::FitPoor,
                  tr("the residuals are %1 of the peak").arg(percent(rms)));
    judgement.add(estimate.quality.rSquared < limits.rSquared,
                  BeamValidity::FitPoor,
                  tr("R2 is %1").arg(estimate.quality.rSquared, 0, 'f', 2));
    const double background = unexplainedBackground(profile, estimate);
    judgement.add(reaches(background, limits.background),
                  BeamValidity::FitPoor,
                  tr("a background of %1 of the peak is not subtracted, and widens sigma")
                      .arg(percent(background)));
}

void takeNotes(const BeamEstimate &estimate, BeamVerdict &verdict)
{
    constexpr double worthTelling = 0.005;
    if (verdict.atEdge)
        verdict.notes.append(tr("the beam is at the edge of the detector"));
    if (verdict.shareOutside >= worthTelling)
        verdict.notes.append(
            tr("%1 of the charge lies outside of the detector").arg(percent(verdict.shareOutside)));
    if (estimate.clipped)
        verdict.notes.append(tr("the area of integration was cut at the edge of the detector"));
}

} // namespace

QString BeamVerdict::text() const
{
    switch (validity) {
    case BeamValidity::Valid:
        return QCoreApplication::translate("Corvale_Qt", "DATA VALID");
    case BeamValidity::FitPoor:
        return QCoreApplication::translate("Corvale_Qt", "DATA VALID, FIT POOR");
    case BeamValidity::NotValid:
        break;
    }
    return QCoreApplication::translate("Corvale_Qt", "DATA NOT VALID");
}

QString validityName(BeamValidity validity)
{
    switch (validity) {
    case BeamValidity::Valid:
        return QStringLiteral("valid");
    case BeamValidity::FitPoor:
        return QStringLiteral("poor");
    case BeamValidity::NotValid:
        break;
    }
    return QStringLiteral("invalid");
}

QString estimateStatusText(EstimateStatus status)
{
    switch (status) {
    case EstimateStatus::Ok:
        break;
    case EstimateStatus::NotUsable:
        return tr("the readings or their positions are not usable");
    case EstimateStatus::NotEnoughCells:
        return tr("there are not enough cells");
    case EstimateStatus::NoSignal:
        return tr("there is no charge above the background");
    case EstimateStatus::PeakOnEdge:
        return tr("the peak lies at the edge of the detector");
    case EstimateStatus::NoRealWidth:
        return tr("the width is not a real number");
    case EstimateStatus::NotConverged:
        return tr("the iteration did not converge");
    }
    return {};
}

bool VerdictLimits::operator==(const VerdictLimits &other) const
{
    return std::all_of(verdictLimitFields.begin(),
                       verdictLimitFields.end(),
                       [&](const VerdictLimitField &field) {
                           return this->*field.limit == other.*field.limit;
                       });
}

BeamVerdict
judgeEstimate(const BeamProfile &profile, const BeamEstimate &estimate, const VerdictLimits &limits)
{
    BeamVerdict verdict;
    Judgement judgement(verdict);
    if (!profile.isUsable()) {
        judgement.add(true, BeamValidity::NotValid, estimateStatusText(EstimateStatus::NotUsable));
        return verdict;
    }
    count(profile, verdict);
    verdict.flaggedShare = flaggedShare(profile, estimate) + profile.shareOfHoles;
    verdict.peakInNoise = peakInNoise(profile);
    judgeSignal(estimate, limits, verdict, judgement);
    // Its shape does not tell such a cell from a narrow beam, so both are told.
    judgement.add(isAllInHotCells(profile, verdict),
                  BeamValidity::NotValid,
                  tr("all other cells read 0: hot, or a beam narrower than a cell"));
    if (!estimate.isOk())
        return verdict;
    judgeShape(profile, estimate, limits, judgement);
    if (verdict.validity != BeamValidity::Valid && flatField(profile).isFlatTopped())
        verdict.reasons.append(tr("no Gaussian: the beam is flat-topped"));
    const double sigma = estimate.sigma.value;
    verdict.atEdge = estimate.position.value - sigma < profile.lowerEdge()
        || estimate.position.value + sigma > profile.upperEdge();
    verdict.shareOutside = shareOutside(profile, estimate);
    takeNotes(estimate, verdict);
    return verdict;
}

QDebug operator<<(QDebug debug, const BeamVerdict &verdict)
{
    const QDebugStateSaver saver(debug);
    debug.nospace().noquote() << "BeamVerdict(" << verdict.text();
    for (const QString &reason : verdict.reasons)
        debug << ", " << reason;
    return debug << ')';
}

} // namespace Corvale_Qt
