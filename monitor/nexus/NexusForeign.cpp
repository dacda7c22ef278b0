// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/Text.h"
#include "monitor/input/CleanText.h"
#include "monitor/input/StatedMoment.h"
#include "monitor/nexus/NexusEntry.h"
#include "monitor/nexus/NexusNames.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

using Corvale_Qt::DetectorAxis;
using Corvale_Qt::DetectorDescription;
using Corvale_Qt::DetectorKind;
using Corvale_Qt::DetectorLayout;

//! Returns how many seconds a unit of time has; 0 for another unit.
double secondsOf(const QString &unit)
{
    static const QVector<QPair<QStringList, double>> units = {
        {{"s", "sec", "second", "seconds"}, 1.0},
        {{"ms", "millisecond", "milliseconds"}, 1e-3},
        {{"us",
          QStringLiteral("\u00b5s"),
          QStringLiteral("\u03bcs"),
          "microsecond",
          "microseconds"},
         1e-6},
        {{"ns", "nanosecond", "nanoseconds"}, 1e-9},
        {{"min", "minute", "minutes"}, 60.0},
        {{"h", "hour", "hours"}, 3600.0}};
    for (const auto &[names, seconds] : units)
        if (names.contains(unit))
            return seconds;
    return 0.0;
}

//! Returns the moment that a text states; an invalid one if it states none. Without a zone it is UTC.
QDateTime momentOf(const QString &text)
{
    return statedMoment(text.trimmed(), Qt::UTC).moment;
}

//! Makes an entry of an NXdata, step by step; the first thing that is wrong ends it.
class ForeignData
{
public:
    ForeignData(hid_t data, hid_t group)
        : m_data(data)
        , m_group(group)
    {
    }

    std::unique_ptr<NexusEntry> read(QString *error)
    {
        if (readSignal() && readAxes() && readTime() && readMoment())
            describe();
        *error = m_error;
        return m_error.isEmpty() ? std::move(m_entry) : nullptr;
    }

private:
    bool fail(const QString &error)
    {
        m_error = error;
        return false;
    }
    bool readSignal();
    bool readAxes();
    bool readTime();
    bool readMoment();
    void describe();
    void describeChannels();
    void describeProfiles();
    void describeImages();
    void addField(const QString &name, Hdf5Object data);
    DetectorAxis axisAt(std::size_t dimension);
    NexusEntry::Scale scaleOf(const QString &name, hid_t dataset);
    double numberOf(const QString &name, double otherwise) const;
    void notice(const QString &text);

    const hid_t m_data;
    const hid_t m_group;
    std::unique_ptr<NexusEntry> m_entry = std::make_unique<NexusEntry>();
    QString m_signalName;
    Hdf5Object m_signal;
    Hdf5Sizes m_sizes;
    QStringList m_axes;
    QString m_error;
};

void ForeignData::notice(const QString &text)
{
    m_entry->notice += (m_entry->notice.isEmpty() ? QString() : QStringLiteral("; ")) + text;
}

//! Returns the number that a data set beside the signal holds.
double ForeignData::numberOf(const QString &name, double otherwise) const
{
    const Hdf5Object data = openObject(m_data, name, H5I_DATASET);
    if (!data.isOpen())
        return otherwise;
    const Hdf5Object space(H5Dget_space(data.id())), plan(H5Dget_create_plist(data.id()));
    const H5T_class_t kind = H5Tget_class(Hdf5Object(H5Dget_type(data.id())).id());
    const bool isScalar = H5Sget_simple_extent_ndims(space.id()) == 0
        && (kind == H5T_INTEGER || kind == H5T_FLOAT) && H5Pget_external_count(plan.id()) == 0;
    const bool isListOfOne =
        faultOfNumbers(data.id()).isEmpty() && sizesOf(data.id()) == Hdf5Sizes{1};
    const bool isNumber = isScalar || isListOfOne;
    double number = otherwise;
    const bool isRead = isNumber
        && H5Dread(data.id(), H5T_NATIVE_DOUBLE, H5S_ALL, H5S_ALL, H5P_DEFAULT, &number) >= 0;
    return isRead && std::isfinite(number) ? number : otherwise;
}

/*! Returns how the values of a data set follow from those that are stored, and says so. NXdata has a factor and an offset beside the
    data, (stored + offset) x factor, which belong to the signal if they name no data set (NXdata of the NeXus base classes). Other
    programs write the attributes of the CF conventions: stored x scale_factor + add_offset. */
NexusEntry::Scale ForeignData::scaleOf(const QString &name, hid_t dataset)
{
    const bool isSignal = name == m_signalName;
    const auto beside = [&](const QString &what, double otherwise) {
        return numberOf(name + QLatin1Char('_') + what,
                        isSignal ? numberOf(what, otherwise) : otherwise);
    };
    const double factor = beside(QStringLiteral("scaling_factor"), 1.0);
    const double offset = beside(QStringLiteral("offset"), 0.0);
    const double ofAttribute = attributeNumber(dataset, "scale_factor", 1.0);
    const double added = attributeNumber(dataset, "add_offset", 0.0);
    NexusEntry::Scale scale{factor * ofAttribute, factor * (added + offset)};
    if (!std::isfinite(scale.factor) || !std::isfinite(scale.constant))
        scale = NexusEntry::Scale();
    if (!scale.isIdentity())
        notice(QStringLiteral("%1 is stored in scaled form and is shown as %2 x stored + %3")
                   .arg(name, QString::number(scale.factor), QString::number(scale.constant)));
    return scale;
}

bool ForeignData::readSignal()
{
    m_signalName = attributeText(m_data, "signal");
    if (m_signalName.isEmpty())
        return fail(Text::tr("it does not say which of its data is the signal"));
    m_signal = openObject(m_data, m_signalName, H5I_DATASET);
    if (!m_signal.isOpen())
        return fail(Text::tr("its signal %1 is missing").arg(m_signalName));
    const QString fault = faultOfNumbers(m_signal.id());
    if (!fault.isEmpty())
        return fail(Text::tr("its data %1 cannot be read: %2").arg(m_signalName, fault));
    m_sizes = sizesOf(m_signal.id()).value_or(Hdf5Sizes());
    if (m_sizes.empty() || m_sizes.size() > 3)
        return fail(
            Text::tr("its signal has %1 dimensions; 1, 2 and 3 can be shown").arg(m_sizes.size()));
    return true;
}

bool ForeignData::readAxes()
{
    m_axes = attributeTexts(m_data, "axes");
    if (m_axes.isEmpty())
        m_axes = attributeTexts(m_signal.id(), "axes");
    if (m_axes.size() == 1) // the older way to write a list
        m_axes = m_axes.first().split(QRegularExpression(QStringLiteral("[:,]")));
    if (m_axes.value(0).isEmpty() || m_axes.first() == QLatin1String("."))
        return fail(Text::tr("its signal %1 has no time axis").arg(m_signalName));
    return true;
}

bool ForeignData::readTime()
{
    const QString name = m_axes.first();
    m_entry->time = openObject(m_data, name, H5I_DATASET);
    if (!m_entry->time.isOpen())
        return fail(Text::tr("its axis %1 is missing").arg(name));
    const QString fault = faultOfNumbers(m_entry->time.id());
    if (!fault.isEmpty())
        return fail(Text::tr("its data %1 cannot be read: %2").arg(name, fault));
    if (sizesOf(m_entry->time.id()) != Hdf5Sizes{m_sizes.front()})
        return fail(
            Text::tr("its axis %1 is not as long as its signal %2").arg(name, m_signalName));
    m_entry->rows = qint64(m_sizes.front());
    return true;
}

//! Finds out what the times mean: their unit, and the moment from which they count.
bool ForeignData::readMoment()
{
    const QString stated = attributeText(m_entry->time.id(), NexusNames::units);
    const QString since = QStringLiteral(" since ");
    const QString unit = stated.section(since, 0, 0).trimmed();
    const double seconds = unit.isEmpty() ? 1.0 : secondsOf(unit);
    if (seconds == 0.0)
        return fail(Text::tr("the axis %1 of its signal %2 is in %3, which is not a unit of time")
                        .arg(m_axes.first(), m_signalName, cleanText(unit, maxNameLength)));
    const NexusEntry::Scale stored = scaleOf(m_axes.first(), m_entry->time.id());
    m_entry->timeScale = {seconds * stored.factor, seconds * stored.constant};
    if (unit.isEmpty())
        notice(QStringLiteral("the axis %1 states no unit and is taken as seconds")
                   .arg(m_axes.first()));
    QDateTime start = momentOf(attributeText(m_entry->time.id(), NexusNames::start));
    if (!start.isValid() && stated.contains(since))
        start = momentOf(stated.section(since, 1));
    const Hdf5Object ofEntry = openObject(m_group, QStringLiteral("start_time"), H5I_DATASET);
    constexpr std::size_t longest = 1000;
    if (!start.isValid() && ofEntry.isOpen())
        start = momentOf(dataTexts(ofEntry.id(), 0, 1, longest).value_or(QStringList()).value(0));
    m_entry->header.startTime = start;
    return true;
}

void ForeignData::describe()
{
    if (m_sizes.size() == 1)
        describeChannels();
    else if (m_sizes.size() == 2)
        describeProfiles();
    else
        describeImages();
}

//! Adds a channel of one data set.
void ForeignData::addField(const QString &name, Hdf5Object data)
{
    QVector<Channel> &channels = m_entry->header.channels;
    const QString given = attributeText(data.id(), NexusNames::givenName);
    channels.append({cleanText(given.isEmpty() ? name : given, maxNameLength),
                     cleanText(attributeText(data.id(), NexusNames::units), maxNameLength)});
    const NexusEntry::Scale scale = scaleOf(name, data.id());
    m_entry->fields.push_back({std::move(data), channels.size() - 1, 1, scale});
}

void ForeignData::describeChannels()
{
    addField(m_signalName, std::move(m_signal));
    for (const QString &name : attributeTexts(m_data, "auxiliary_signals")) {
        Hdf5Object data = openObject(m_data, name, H5I_DATASET);
        const bool fits =
            data.isOpen() && faultOfNumbers(data.id()).isEmpty() && sizesOf(data.id()) == m_sizes;
        if (fits && m_entry->header.channels.size() < StreamHeader::maxChannels)
            addField(name, std::move(data));
        else
            ++m_entry->header.leftOutChannels;
    }
}

//! Returns the cells along a dimension of the signal: at the places of its axis, or counted if it has none that rises or falls.
DetectorAxis ForeignData::axisAt(std::size_t dimension)
{
    const auto cells = int(m_sizes[dimension]);
    const Hdf5Object axis = openObject(m_data, m_axes.value(int(dimension)), H5I_DATASET);
    const QString unit = cleanText(attributeText(axis.id(), NexusNames::units), maxNameLength);
    const bool fits = axis.isOpen() && !unit.isEmpty() && faultOfNumbers(axis.id()).isEmpty()
        && sizesOf(axis.id()) == Hdf5Sizes{m_sizes[dimension]};
    QVector<double> places(cells);
    if (!fits || !readRows(axis.id(), H5T_NATIVE_DOUBLE, 0, hsize_t(cells), places.data()))
        return DetectorAxis::counted(cells);
    scaleOf(m_axes.value(int(dimension)), axis.id()).apply(places.data(), cells);
    DetectorDescription alone;
    alone.kind = DetectorKind::Strips;
    alone.x = DetectorAxis::at(places, unit);
    return DetectorLayout::fromDescription(alone).isEmpty() ? DetectorAxis::counted(cells)
                                                            : alone.x;
}

//! Takes the second dimension as the cells of one plane of strips.
void ForeignData::describeProfiles()
{
    const hsize_t cells = m_sizes[1];
    if (cells == 0 || cells > hsize_t(DetectorLayout::maxStrips)) {
        m_error = Text::tr("its signal %1 has %2 values for each time; up to %3 can be shown")
                      .arg(m_signalName)
                      .arg(cells)
                      .arg(DetectorLayout::maxStrips);
        return;
    }
    DetectorDescription strips;
    strips.kind = DetectorKind::Strips;
    strips.x = axisAt(1);
    const DetectorLayout layout = DetectorLayout::fromDescription(strips);
    StreamHeader &header = m_entry->header;
    const QString unit = cleanText(attributeText(m_signal.id(), NexusNames::units), maxNameLength);
    if (cells > hsize_t(StreamHeader::maxChannels)) {
        header.setFrames(layout, unit);
    } else {
        const QStringList names = attributeTexts(m_signal.id(), "channel_names");
        header.channels = StreamHeader::defaultChannels(StreamKind::Channels, int(cells));
        for (int i = 0; i < header.channels.size(); ++i) {
            header.channels[i].unit = unit;
            if (names.size() == header.channels.size())
                header.channels[i].name = cleanText(names[i], maxNameLength);
        }
        header.setDetector(layout);
    }
    const NexusEntry::Scale scale = scaleOf(m_signalName, m_signal.id());
    m_entry->fields.push_back({std::move(m_signal), 0, int(cells), scale});
}

void ForeignData::describeImages()
{
    const hsize_t rows = m_sizes[1], columns = m_sizes[2];
    constexpr hsize_t side = DetectorLayout::maxSide;
    if (rows == 0 || columns == 0 || rows > side || columns > side) {
        m_error = Text::tr("its signal %1 has images of %2 x %3; up to %4 x %4 can be shown")
                      .arg(m_signalName)
                      .arg(rows)
                      .arg(columns)
                      .arg(side);
        return;
    }
    DetectorDescription matrix;
    matrix.kind = DetectorKind::Matrix;
    matrix.y = axisAt(1);
    matrix.x = axisAt(2);
    m_entry->header.setFrames(
        DetectorLayout::fromDescription(matrix),
        cleanText(attributeText(m_signal.id(), NexusNames::units), maxNameLength));
    const NexusEntry::Scale scale = scaleOf(m_signalName, m_signal.id());
    m_entry->fields.push_back({std::move(m_signal), 0, int(rows * columns), scale});
}

} // namespace

std::unique_ptr<NexusEntry> NexusEntry::ofOthers(hid_t data, hid_t entry, QString *error)
{
    return ForeignData(data, entry).read(error);
}

} // namespace Monitor
