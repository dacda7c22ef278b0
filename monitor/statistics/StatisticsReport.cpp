// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/statistics/StatisticsReport.h"

#include "monitor/core/NumberText.h"
#include "monitor/readings/SpotReport.h"
#include "monitor/readings/StreamDetector.h"
#include "monitor/readings/UnitSymbols.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Monitor {

namespace {

constexpr int numberWidth = 18;

QString number(double value)
{
    return numberText(value, 10);
}

//! Returns whether the values of a channel add up to something: doses, charges and counts.
bool isAmount(const Channel &channel)
{
    if (channel.unit.isEmpty())
        return channel.name.startsWith(QLatin1String("mu"), Qt::CaseInsensitive)
            || channel.name.startsWith(QLatin1String("count"), Qt::CaseInsensitive);
    const auto unit = unitFromSymbol(channel.unit);
    const QStringList amounts{"C", "counts", "MU", "Gy"};
    return unit && std::any_of(amounts.begin(), amounts.end(), [&](const QString &amount) {
               return sameQuantity(*unit, *unitFromSymbol(amount));
           });
}

QJsonValue jsonNumber(double value)
{
    return std::isfinite(value) ? QJsonValue(value) : QJsonValue(QJsonValue::Null);
}

void writeRow(QTextStream &out, const QString &name, int nameWidth, const QStringList &cells)
{
    out << name.leftJustified(nameWidth);
    for (const QString &cell : cells)
        out << "  " << cell.rightJustified(numberWidth);
    out << "\n";
}

int widestName(const StreamHeader &header)
{
    int width = 7;
    for (const Channel &channel : header.channels)
        width = std::max(width, channel.name.size());
    return width;
}

void writeChannels(QTextStream &out, const StreamStatistics &statistics)
{
    const StreamHeader &header = statistics.header();
    const bool isList = header.isList();
    const int width = widestName(header);
    QStringList titles{"unit", "n", "mean", "sigma", "min", "max"};
    // The spots of a list have no times over which something could be integrated.
    titles += isList ? QStringList{"sum"} : QStringList{"integral", "without gaps", "over s"};
    writeRow(out, QStringLiteral("channel"), width, titles);
    for (int i = 0; i < header.channels.size(); ++i) {
        const RunningStatistics &channel = statistics.channel(i);
        const QString unit = header.channels[i].unit;
        QStringList cells{unit.isEmpty() ? QStringLiteral("-") : unit,
                          QString::number(channel.count()),
                          number(channel.mean()),
                          number(channel.sigma()),
                          number(channel.minimum()),
                          number(channel.maximum())};
        if (isList)
            cells << (isAmount(header.channels[i]) ? number(channel.sum()) : QStringLiteral("-"));
        else
            cells << number(channel.integral()) << number(channel.coveredIntegral())
                  << number(channel.coveredTime());
        writeRow(out, header.channels[i].name, width, cells);
    }
}

void writeFrames(QTextStream &out, const StreamStatistics &statistics)
{
    constexpr std::size_t shown = 100;
    const auto &frames = statistics.frames();
    if (frames.empty())
        return;
    const std::size_t first = frames.size() - std::min(shown, frames.size());
    out << "\nMoments of " << (first > 0 ? "the last 100 frames" : "the frames")
        << ", in cells (1 is the centre of the first cell)\n";
    writeRow(out,
             QStringLiteral("time"),
             12,
             {"total",
              "max",
              "max row",
              "max column",
              "centroid column",
              "centroid row",
              "rms column",
              "rms row"});
    for (std::size_t i = first; i < frames.size(); ++i) {
        const FrameMoments &moments = frames[i].moments;
        writeRow(out,
                 number(frames[i].time),
                 12,
                 {number(moments.total),
                  number(moments.maximum),
                  QString::number(moments.maximumRow),
                  QString::number(moments.maximumColumn),
                  number(moments.centroidColumn),
                  number(moments.centroidRow),
                  number(moments.rmsColumn),
                  number(moments.rmsRow)});
    }
}

//! Says why there are no fits where somebody may look for them.
void writeNoFits(QTextStream &out, const StreamHeader &header)
{
    constexpr int fewestOfADetector = 16;
    if (header.kind == StreamKind::Channels && header.channels.size() >= fewestOfADetector)
        out << "\nNo Gaussian is fitted: nothing says that these channels are neighbours.\n"
               "--detector FILE says where they lie, --fit-channels takes them in their order.\n";
}

//! Writes the fits in channels. Where there are estimates, they have the same fits at the places of the channels.
void writeFits(QTextStream &out,
               const StreamHeader &header,
               const std::vector<ProfileFitResult> &fits,
               const LastEstimates &estimates)
{
    if (!estimates.planes.empty())
        return;
    if (fits.empty()) {
        writeNoFits(out, header);
        return;
    }
    out << "\nGaussian fit of the last reading, in channels (1 is the centre of the first)\n";
    writeRow(out, QStringLiteral("profile"), 7, {"position", "sigma", "peak", "integral"});
    for (const ProfileFitResult &fit : fits) {
        if (fit.valid)
            writeRow(
                out,
                fit.profile,
                7,
                {number(fit.position), number(fit.sigma), number(fit.peak), number(fit.integral)});
        else
            out << fit.profile.leftJustified(7) << "  " << fit.message << "\n";
    }
}

QString sideText(Corvale_Qt::LimitState state)
{
    return QString(isHigh(state) ? QStringLiteral("high ") : QStringLiteral("low "))
        + (isAlarm(state) ? QStringLiteral("alarm") : QStringLiteral("warning"));
}

void writeExcursions(QTextStream &out, const StreamStatistics &statistics)
{
    const StreamHeader &header = statistics.header();
    const int width = widestName(header);
    bool isFirst = true;
    const QStringList places = header.hasTimes ? QStringList{"began s", "ended s"}
                                               : QStringList{"began at no.", "ended at no."};
    for (int i = 0; i < header.channels.size(); ++i) {
        for (const Corvale_Qt::LimitExcursion &excursion : statistics.limitLog().excursions(i)) {
            if (std::exchange(isFirst, false)) {
                out << "\nExcursions beyond the limits\n";
                writeRow(out,
                         QStringLiteral("channel"),
                         width,
                         QStringList{"limit"} + places + QStringList{"worst", "unit"});
            }
            writeRow(out,
                     header.channels[i].name,
                     width,
                     {sideText(excursion.state),
                      number(excursion.began),
                      excursion.lasts() ? QStringLiteral("lasts") : number(excursion.ended),
                      number(excursion.worst),
                      header.channels[i].unit});
        }
    }
}

QJsonValue jsonLimits(const Corvale_Qt::ChannelLimits &limits)
{
    if (limits.isEmpty())
        return QJsonValue::Null;
    return QJsonObject{{"low_alarm", jsonNumber(limits.lowAlarm)},
                       {"low_warning", jsonNumber(limits.lowWarning)},
                       {"high_warning", jsonNumber(limits.highWarning)},
                       {"high_alarm", jsonNumber(limits.highAlarm)}};
}

QJsonArray jsonExcursions(const LimitLog &log, int channel)
{
    QJsonArray excursions;
    for (const Corvale_Qt::LimitExcursion &excursion : log.excursions(channel))
        excursions.append(QJsonObject{{"state", sideText(excursion.state)},
                                      {"limit", jsonNumber(excursion.limit)},
                                      {"began", jsonNumber(excursion.began)},
                                      {"ended", jsonNumber(excursion.ended)},
                                      {"worst", jsonNumber(excursion.worst)}});
    return excursions;
}

QJsonArray jsonChannels(const StreamStatistics &statistics)
{
    QJsonArray channels;
    for (int i = 0; i < statistics.header().channels.size(); ++i) {
        const RunningStatistics &channel = statistics.channel(i);
        const bool isList = statistics.header().isList();
        const auto ofTime = [isList](double value) {
            return isList ? QJsonValue() : jsonNumber(value);
        };
        channels.append(QJsonObject{
            {"name", statistics.header().channels[i].name},
            {"unit", statistics.header().channels[i].unit},
            {"n", double(channel.count())},
            {"mean", jsonNumber(channel.mean())},
            {"sigma", jsonNumber(channel.sigma())},
            {"sigma_population", jsonNumber(channel.populationSigma())},
            {"min", jsonNumber(channel.minimum())},
            {"max", jsonNumber(channel.maximum())},
            {"integral", ofTime(channel.integral())},
            {"covered_integral", ofTime(channel.coveredIntegral())},
            {"covered_time", ofTime(channel.coveredTime())},
            {"sum",
             isList && isAmount(statistics.header().channels[i]) ? jsonNumber(channel.sum())
                                                                 : QJsonValue()},
            {"limits", jsonLimits(statistics.header().limitsOf(i))},
            {"excursion_count", double(statistics.limitLog().excursionCount(i))},
            {"excursions", jsonExcursions(statistics.limitLog(), i)},
        });
    }
    return channels;
}

QJsonArray jsonFrames(const StreamStatistics &statistics)
{
    QJsonArray frames;
    for (const StreamStatistics::Frame &frame : statistics.frames())
        frames.append(QJsonObject{
            {"time", jsonNumber(frame.time)},
            {"total", jsonNumber(frame.moments.total)},
            {"max", jsonNumber(frame.moments.maximum)},
            {"max_row", frame.moments.maximumRow},
            {"max_col", frame.moments.maximumColumn},
            {"centroid_col", jsonNumber(frame.moments.centroidColumn)},
            {"centroid_row", jsonNumber(frame.moments.centroidRow)},
            {"rms_col", jsonNumber(frame.moments.rmsColumn)},
            {"rms_row", jsonNumber(frame.moments.rmsRow)},
        });
    return frames;
}

QJsonArray jsonFits(const std::vector<ProfileFitResult> &fits)
{
    QJsonArray array;
    for (const ProfileFitResult &fit : fits) {
        QJsonObject object{{"profile", fit.profile}, {"unit", "channels"}, {"valid", fit.valid}};
        if (fit.valid) {
            object.insert("position", jsonNumber(fit.position));
            object.insert("sigma", jsonNumber(fit.sigma));
            object.insert("peak", jsonNumber(fit.peak));
            object.insert("integral", jsonNumber(fit.integral));
        } else {
            object.insert("message", fit.message);
        }
        array.append(object);
    }
    return array;
}

QJsonArray jsonEstimates(const LastEstimates &last)
{
    QJsonArray array;
    for (const PlaneEstimate &plane : last.planes) {
        const Corvale_Qt::BeamEstimate &estimate = plane.estimate;
        array.append(QJsonObject{
            {"plane", plane.plane},
            {"estimator", plane.estimator},
            {"position", jsonNumber(estimate.position.value)},
            {"position_error", jsonNumber(estimate.position.error)},
            {"sigma", jsonNumber(estimate.sigma.value)},
            {"sigma_error", jsonNumber(estimate.sigma.error)},
            {"integral", jsonNumber(integralOf(estimate))},
            {"unit", plane.unit},
            {"verdict", plane.verdict.text()},
            {"validity", Corvale_Qt::validityName(plane.verdict.validity)},
            {"reasons", QJsonArray::fromStringList(plane.verdict.reasons)},
            {"notes", QJsonArray::fromStringList(plane.verdict.notes)},
            {"r_squared", jsonNumber(estimate.quality.rSquared)},
            {"residual_rms", jsonNumber(estimate.quality.residualRms)},
            {"reduced_chi_square", jsonNumber(estimate.quality.reducedChiSquare)},
        });
    }
    return array;
}

QJsonObject jsonVerdictLimits(const Corvale_Qt::VerdictLimits &limits)
{
    QJsonObject object;
    for (const Corvale_Qt::VerdictLimitField &field : Corvale_Qt::verdictLimitFields)
        object.insert(QLatin1String(field.key), limits.*field.limit);
    return object;
}

QJsonObject jsonDetector(const StatisticsReport &report)
{
    const StreamHeader &header = report.statistics->header();
    return {{"description", header.detector.summary()},
            {"fault", header.detectorFault.logged()},
            {"unwired_cells", header.detector.unwiredCells()},
            {"left_out_channels", header.leftOutChannels},
            {"left_out_readings", report.estimates.leftOut.count},
            {"left_out_sum", jsonNumber(report.estimates.leftOut.sum)},
            {"frames_with_left_out", double(report.leftOut.count())},
            {"worst_left_out_sum", jsonNumber(report.leftOut.worst().sum)},
            {"worst_left_out_time",
             report.leftOut.count() > 0 ? jsonNumber(report.leftOut.worstTime()) : QJsonValue()}};
}

//! The second moments of the last frame of a matrix; null for other streams.
QJsonValue jsonImage(const LastEstimates &last)
{
    const Corvale_Qt::ImageMoments &image = last.image;
    if (!image.isOk())
        return QJsonValue::Null;
    constexpr double degrees = 180.0 / M_PI;
    return QJsonObject{{"total", jsonNumber(image.total)},
                       {"max", jsonNumber(image.max)},
                       {"mean_x", jsonNumber(image.meanX)},
                       {"mean_y", jsonNumber(image.meanY)},
                       {"sigma_x", jsonNumber(image.sigmaX)},
                       {"sigma_y", jsonNumber(image.sigmaY)},
                       {"sigma_major", jsonNumber(image.sigmaMajor)},
                       {"sigma_minor", jsonNumber(image.sigmaMinor)},
                       {"rotation_degrees", jsonNumber(image.rotation * degrees)},
                       {"background", jsonNumber(image.background)},
                       {"unit", last.unit},
                       {"clipped", image.clipped}};
}

void writeImage(QTextStream &out, const LastEstimates &last)
{
    const Corvale_Qt::ImageMoments &image = last.image;
    if (!image.isOk())
        return;
    out << "\nSecond moments of the last frame, less the background of its corners, in "
        << last.unit << "\n";
    constexpr int totalWidth = 18;
    writeRow(out,
             QStringLiteral("total"),
             totalWidth,
             {"mean x", "mean y", "sigma x", "sigma y", "sigma major", "sigma minor"});
    writeRow(out,
             number(image.total),
             totalWidth,
             {number(image.meanX),
              number(image.meanY),
              number(image.sigmaX),
              number(image.sigmaY),
              number(image.sigmaMajor),
              number(image.sigmaMinor)});
}

//! Says what the numbers do not cover.
void writeLeftOut(QTextStream &out, const StatisticsReport &report)
{
    const StreamHeader &header = report.statistics->header();
    if (header.leftOutChannels > 0)
        out << "WARNING   " << header.leftOutChannels << " columns beyond the first "
            << StreamHeader::maxChannels << " are left out\n";
    if (!header.detectorFault.isEmpty())
        out << "WARNING   the detector is not used: " << header.detectorFault.logged() << "\n";
    if (report.leftOut.count() > 0)
        out << "WARNING   " << report.leftOut.text() << "\n";
}

void writeEstimates(QTextStream &out, const LastEstimates &last)
{
    if (last.planes.empty())
        return;
    constexpr int planeWidth = 5;
    out << "\nEstimates of the last reading";
    const Corvale_Qt::VerdictLimits usual;
    for (const Corvale_Qt::VerdictLimitField &field : Corvale_Qt::verdictLimitFields)
        if (last.limits.*field.limit != usual.*field.limit)
            out << ", " << field.key << " " << number(last.limits.*field.limit);
    out << "\n";
    writeRow(out,
             QStringLiteral("plane"),
             planeWidth,
             {"estimator", "position", "+-", "sigma", "+-", "unit"});
    for (const PlaneEstimate &plane : last.planes) {
        writeRow(out,
                 plane.plane,
                 planeWidth,
                 {plane.estimator,
                  number(plane.estimate.position.value),
                  number(plane.estimate.position.error),
                  number(plane.estimate.sigma.value),
                  number(plane.estimate.sigma.error),
                  plane.unit});
        const QStringList told = plane.verdict.reasons + plane.verdict.notes;
        out << QString(planeWidth + 2, QLatin1Char(' ')) << plane.verdict.text()
            << (told.isEmpty() ? "" : ": ") << told.join(QStringLiteral("; ")) << "\n";
    }
}

} // namespace

QByteArray StatisticsReport::text() const
{
    QByteArray bytes;
    QTextStream out(&bytes);
    out.setCodec("UTF-8");
    const StreamStatistics &stream = *statistics;
    out << "source    " << source << "\n";
    out << "layout    " << layoutName(stream.header()) << "\n";
    out << "detector  " << stream.header().detector.summary() << "\n";
    if (stream.header().kind == StreamKind::Spots)
        out << "spots     " << stream.readings() << "\n";
    else if (!stream.header().hasTimes)
        out << "readings  " << stream.readings() << ", without times\n";
    else
        out << "readings  " << stream.readings() << " from " << number(stream.firstTime())
            << " s to " << number(stream.lastTime()) << " s\n"
            << "gaps      " << stream.gaps() << "\n";
    out << "bad lines " << counts.bad() << "\n";
    writeLeftOut(out, *this);
    out << "\n";
    writeChannels(out, stream);
    writeExcursions(out, stream);
    writeFrames(out, stream);
    writeFits(out, stream.header(), fits, estimates);
    if (spotErrors) {
        const SpotReport spots{*spotErrors, toleranceX, toleranceY};
        out << "\nPosition errors  " << spots.positions() << "\n";
        out << "Differences      " << spots.doses() << "\n";
    }
    writeImage(out, estimates);
    writeEstimates(out, estimates);
    out.flush();
    return bytes;
}

QByteArray StatisticsReport::json() const
{
    return QJsonDocument(object()).toJson();
}

QJsonObject StatisticsReport::object() const
{
    const StreamStatistics &stream = *statistics;
    const bool isList = stream.header().isList();
    QJsonObject report{
        {"source", source},
        {"layout", layoutName(stream.header())},
        {"readings", double(stream.readings())},
        {"first_time", isList ? QJsonValue() : jsonNumber(stream.firstTime())},
        {"last_time", isList ? QJsonValue() : jsonNumber(stream.lastTime())},
        {"gaps", double(stream.gaps())},
        {"bad_lines", double(counts.bad())},
        {"channels", jsonChannels(stream)},
        {"frames", jsonFrames(stream)},
        {"fits", jsonFits(fits)},
        {"detector", jsonDetector(*this)},
        {"estimates", jsonEstimates(estimates)},
        {"verdict_limits", jsonVerdictLimits(estimates.limits)},
        {"image", jsonImage(estimates)},
    };
    if (spotErrors)
        report.insert(QStringLiteral("position_errors"),
                      SpotReport{*spotErrors, toleranceX, toleranceY}.json());
    return report;
}

} // namespace Monitor
