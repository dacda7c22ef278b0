// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/PanelState_p.h"
#include "corvale_qt/scope/PlotModes_p.h"
#include "corvale_qt/scope/YRanges_p.h"

#include <QDataStream>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Corvale_Qt {

namespace {

constexpr quint32 kMagic = 0x52565853; // "RVXS"
constexpr quint16 kFieldsOnly = 1; // of 2.0
constexpr quint16 kFormat = 2; // the fields, and then the choices of the view by their names

constexpr int kAllTabs = (1 << kPlotModes) - 1; // a bit for each mode
constexpr int kPeriods[] = {0, 100, 1000, 10000};
constexpr int kAveragingLengths[] = {1, 10, 100, 1000};

template<int Count>
int entryOf(const int (&values)[Count], int value)
{
    const auto *const found = std::find(std::begin(values), std::end(values), value);
    return found == std::end(values) ? -1 : int(found - std::begin(values));
}

bool isSpan(double span)
{
    return span >= 0.0; // infinity shows all samples
}

//! Calls \a visit, which reads or writes, for each field that is kept, in the order of the bytes.
template<typename State, typename Visit>
void visitFields(State &state, Visit visit)
{
    visit(state.plotMode);
    visit(state.tabs);
    visit(state.yScaleMode);
    visit(state.yScaleIndex);
    visit(state.range.first);
    visit(state.range.second);
    visit(state.positiveOnly);
    visit(state.averaging);
    visit(state.period);
    visit(state.timeSpan);
    visit(state.sampleSpan);
    visit(state.markersEnabled);
    visit(state.controlsVisible);
}

quint16 checksum(const QByteArray &bytes, int size)
{
    return qChecksum(bytes.constData(), uint(size));
}

//! Returns the sum that the last bytes hold.
quint16 sumOf(const QByteArray &bytes)
{
    return qFromBigEndian<quint16>(bytes.constEnd() - sizeof(quint16));
}

} // namespace

QByteArray PanelState::toBytes(int version) const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_12);
    stream << kMagic << kFormat << qint32(version);
    visitFields(*this, [&stream](auto value) {
        stream << value;
    });
    stream << view.toNamed();
    stream << checksum(bytes, bytes.size());
    return bytes;
}

std::optional<PanelState> PanelState::fromBytes(const QByteArray &bytes, int version)
{
    constexpr int mostBytes =
        100000; // newer versions may keep more, but no panel has so many choices
    constexpr int sumSize = sizeof(quint16);
    if (bytes.size() <= sumSize || bytes.size() > mostBytes
        || checksum(bytes, bytes.size() - sumSize) != sumOf(bytes))
        return std::nullopt;
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_12);
    quint32 magic = 0;
    quint16 format = 0;
    qint32 hostVersion = 0;
    stream >> magic >> format >> hostVersion;
    PanelState state;
    visitFields(state, [&stream](auto &value) {
        stream >> value;
    });
    ViewChoices::Named choices;
    if (format == kFormat)
        stream >> choices;
    state.view = ViewChoices::fromNamed(choices);
    const bool isKnown = format == kFieldsOnly || format == kFormat;
    const bool isWhole = stream.status() == QDataStream::Ok && magic == kMagic && isKnown
        && hostVersion == version && stream.device()->pos() == bytes.size() - sumSize;
    return isWhole && state.isPossible() ? std::optional(state) : std::nullopt;
}

bool PanelState::isPossible() const
{
    return isPlotMode(plotMode) && (tabs & ~kAllTabs) == 0 && yScaleMode >= RVXScope::PercentRanges
        && yScaleMode <= RVXScope::AbsolutePositiveRanges && yScaleIndex >= 0
        && yScaleIndex < yRangeTexts(yScaleMode).size() && std::isfinite(range.first)
        && std::isfinite(range.second) && averagingEntry(averaging) >= 0 && periodEntry(period) >= 0
        && isSpan(timeSpan) && sampleSpan >= 0;
}

int averagingEntry(int length)
{
    return entryOf(kAveragingLengths, length);
}

int periodEntry(int milliseconds)
{
    return entryOf(kPeriods, milliseconds);
}

int periodInMilliseconds(int entry)
{
    return entry >= 0 && entry < int(std::size(kPeriods)) ? kPeriods[entry] : 0;
}

} // namespace Corvale_Qt
