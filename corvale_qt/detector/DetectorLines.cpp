// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/DetectorLines.h"

#include "corvale_qt/detector/DetectorFile.h"
#include "corvale_qt/units/LibraryTexts_p.h"

#include <QCoreApplication>
#include <QHash>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace Corvale_Qt {

//! What the lines say.
struct StatedDetector
{
    //! What is stated of one axis. Lengths of one axis must have one unit.
    struct Axis
    {
        DetectorAxis stated;
        bool named = false; //!< whether a line was for this axis alone
    };

    bool any = false;
    bool complete = false; //!< whether "#detector" gave the kind and the cells
    bool sized = false; //!< whether "#layout" gave them
    DetectorDescription description; //!< all but axes and channels
    Axis x;
    Axis y;
    QVector<double> gains, pedestals, saturations;
    QVector<int> dead; //!< from 1
    bool deadStated = false;
};

class DetectorLinesData : public QSharedData
{
public:
    StatedDetector stated;
    DetectorFault fault;
};

namespace {

using Data = StatedDetector;

constexpr int kMostNumbers = 65536;

QStringList words(const QString &text)
{
    static const QRegularExpression separators(QStringLiteral("[\\s,]+"));
    return text.split(separators, Qt::SkipEmptyParts);
}

bool takeNumber(const QString &word, double &number)
{
    bool ok = false;
    const double read = word.toDouble(&ok);
    if (ok && std::isfinite(read))
        number = read;
    return ok && std::isfinite(read);
}

bool takeNumbers(const QStringList &list, QVector<double> &numbers, QString &wrong)
{
    QVector<double> read(std::min(list.size(), kMostNumbers));
    for (int i = 0; i < list.size(); ++i) {
        if (i < kMostNumbers && takeNumber(list[i], read[i]))
            continue;
        wrong = tr("number %1, \"%2\", is not a number").arg(i + 1).arg(list[i].left(20));
        return false;
    }
    numbers = read;
    if (read.isEmpty())
        wrong = tr("the numbers are missing");
    return !read.isEmpty();
}

//! The words of a line behind an optional axis, the axes that it is for, and its unit.
struct AxisLine
{
    Q_DECLARE_TR_FUNCTIONS(Corvale_Qt::AxisLine)

public:
    QStringList words;
    QVector<Data::Axis *> axes;
    QString unit;

    AxisLine(const QString &value, Data &data, bool withUnit)
        : words(Corvale_Qt::words(value))
    {
        const QString axis = words.value(0);
        if (axis == QLatin1String("x") || axis == QLatin1String("y")) {
            axes = {axis == QLatin1String("x") ? &data.x : &data.y};
            axes.first()->named = true;
            words.removeFirst();
        } else {
            axes = {&data.x, &data.y};
        }
        double number = 0;
        if (withUnit && !words.isEmpty() && !takeNumber(words.last(), number))
            unit = words.takeLast();
    }

    //! All lengths of an axis have the same unit.
    bool takeUnit(QString &wrong) const
    {
        if (unit.isEmpty())
            wrong = tr("the unit is missing");
        for (Data::Axis *axis : axes) {
            if (!axis->stated.unit.isEmpty() && axis->stated.unit != unit && wrong.isEmpty())
                wrong = tr("the unit is %1, but %2 before").arg(unit, axis->stated.unit);
            axis->stated.unit = unit;
        }
        return wrong.isEmpty();
    }
};

using Take = bool (*)(const QString &value, Data &data, QString &wrong);

bool takePitch(const QString &value, Data &data, QString &wrong)
{
    const AxisLine line(value, data, true);
    double pitch = 0;
    if (line.words.size() != 1 || !takeNumber(line.words.first(), pitch) || !(pitch > 0)) {
        wrong = tr("the pitch is not a number above 0");
        return false;
    }
    for (Data::Axis *axis : line.axes) {
        axis->stated.pitch = pitch;
        axis->stated.positions.clear();
    }
    return line.takeUnit(wrong);
}

bool takePositions(const QString &value, Data &data, QString &wrong)
{
    const AxisLine line(value, data, true);
    QVector<double> positions;
    if (!takeNumbers(line.words, positions, wrong))
        return false;
    for (Data::Axis *axis : line.axes) {
        axis->stated.positions = positions;
        axis->stated.pitch = std::numeric_limits<double>::quiet_NaN();
    }
    return line.takeUnit(wrong);
}

bool takeWidths(const QString &value, Data &data, QString &wrong)
{
    const AxisLine line(value, data, true);
    QVector<double> widths;
    if (!takeNumbers(line.words, widths, wrong))
        return false;
    for (Data::Axis *axis : line.axes)
        axis->stated.widths = widths;
    return line.takeUnit(wrong);
}

bool takeOffset(const QString &value, Data &data, QString &wrong)
{
    const AxisLine line(value, data, true);
    double offset = 0;
    if (line.words.size() != 1 || !takeNumber(line.words.first(), offset)) {
        wrong = tr("the offset is not a number");
        return false;
    }
    for (Data::Axis *axis : line.axes)
        axis->stated.offset = offset;
    return line.takeUnit(wrong);
}

bool takeDirection(const QString &value, Data &data, QString &wrong)
{
    const AxisLine line(value, data, false);
    const QString word = line.words.value(0);
    if (word != QLatin1String("forward") && word != QLatin1String("reverse"))
        wrong = tr("the direction is neither forward nor reverse");
    for (Data::Axis *axis : line.axes)
        axis->stated.reversed = word == QLatin1String("reverse");
    return wrong.isEmpty();
}

bool takeLayout(const QString &value, Data &data, QString &wrong)
{
    const QStringList list = words(value);
    const bool strips = list.value(0) == QLatin1String("strips");
    const bool matrix =
        list.value(0) == QLatin1String("matrix") || list.value(0) == QLatin1String("pixels");
    bool first = false, second = false;
    const int one = list.value(1).toInt(&first), two = list.value(2).toInt(&second);
    if ((!strips && !matrix) || list.size() != 3 || !first || !second) {
        wrong = tr("two numbers of cells must follow strips or matrix");
        return false;
    }
    data.description.kind = strips ? DetectorKind::Strips : DetectorKind::Matrix;
    // A matrix is stated as rows and columns.
    data.x.stated.cells = strips ? one : two;
    data.y.stated.cells = strips ? two : one;
    data.description.wiring.clear();
    data.description.readings = 0;
    data.complete = false;
    data.sized = true;
    return true;
}

bool takeGain(const QString &value, Data &data, QString &wrong)
{
    return takeNumbers(words(value), data.gains, wrong);
}

bool takePedestal(const QString &value, Data &data, QString &wrong)
{
    return takeNumbers(words(value), data.pedestals, wrong);
}

bool takeSaturation(const QString &value, Data &data, QString &wrong)
{
    return takeNumbers(words(value), data.saturations, wrong);
}

bool takeDead(const QString &value, Data &data, QString &wrong)
{
    QVector<double> numbers;
    if (!value.isEmpty() && !takeNumbers(words(value), numbers, wrong))
        return false;
    data.dead.clear();
    data.deadStated = true;
    for (double number : qAsConst(numbers)) {
        if (!(number >= 1 && number <= kMostNumbers) || number != std::floor(number)) {
            wrong = tr("there is no channel %1; channels are counted from 1").arg(number);
            return false;
        }
        data.dead.append(int(number));
    }
    return true;
}

bool takeNoise(const QString &value, Data &data, QString &wrong)
{
    double noise = 0;
    if (!takeNumber(value, noise) || !(noise > 0))
        wrong = tr("the noise is not a number above 0");
    data.description.noise = noise;
    return wrong.isEmpty();
}

bool takeDensity(const QString &value, Data &data, QString &wrong)
{
    if (!value.isEmpty())
        wrong = tr("nothing may follow");
    data.description.density = true;
    return wrong.isEmpty();
}

bool takeJson(const QString &value, Data &data, QString &wrong)
{
    DetectorFault fault;
    const DetectorLayout layout = detectorFromJson(value.toUtf8(), &fault);
    fault.line = 0; // the lines of the JSON text are not those of the stream
    wrong = fault.message();
    if (!fault.isEmpty())
        return false;
    data = Data();
    data.complete = true;
    data.description = layout.description();
    data.x.stated = data.description.x;
    data.y.stated = data.description.y;
    return true;
}

const QHash<QString, Take> &takers()
{
    static const QHash<QString, Take> all = {
        {QStringLiteral("#detector"), takeJson},
        {QStringLiteral("#layout"), takeLayout},
        {QStringLiteral("#pitch"), takePitch},
        {QStringLiteral("#positions"), takePositions},
        {QStringLiteral("#widths"), takeWidths},
        {QStringLiteral("#offset"), takeOffset},
        {QStringLiteral("#direction"), takeDirection},
        {QStringLiteral("#gain"), takeGain},
        {QStringLiteral("#pedestal"), takePedestal},
        {QStringLiteral("#saturation"), takeSaturation},
        {QStringLiteral("#dead"), takeDead},
        {QStringLiteral("#noise"), takeNoise},
        {QStringLiteral("#density"), takeDensity},
    };
    return all;
}

/*! Shares the readings between the planes: by the numbers of stated positions, otherwise evenly. A stream of channels for which
    lines name one axis only is a single plane. */
void shareStrips(const Data &data, const DetectorDescription &stream, DetectorDescription &result)
{
    const int ofX = data.x.stated.positions.size(), ofY = data.y.stated.positions.size();
    const bool onePlane = stream.kind == DetectorKind::Channels && data.x.named != data.y.named;
    int x = (stream.readings + 1) / 2;
    if (onePlane)
        x = data.x.named ? stream.readings : 0;
    else if (ofX > 0)
        x = ofX;
    else if (ofY > 0)
        x = std::max(stream.readings - ofY, 0);
    const bool onlyX = onePlane && data.x.named;
    result.x.cells = x;
    result.y.cells = ofY > 0 && !onlyX ? ofY : std::max(stream.readings - x, 0);
}

//! Returns the number of cells that "#layout" states, or one more than there may be.
int sizedReadings(const DetectorDescription &result)
{
    const qint64 x = result.x.cells, y = result.y.cells;
    const qint64 cells = result.kind == DetectorKind::Strips ? x + y : x * y;
    return int(std::clamp<qint64>(cells, 0, DetectorLayout::maxReadings + 1));
}

//! Adds the kind and the cells that the stream or the number of stated positions tells.
void takeShape(const Data &data, const DetectorDescription &stream, DetectorDescription &result)
{
    if (data.sized)
        result.readings = sizedReadings(result);
    if (result.readings == 0)
        result.readings = stream.readings;
    if (data.complete || data.sized)
        return;
    const bool planes = data.x.named || data.y.named;
    result.kind =
        stream.kind == DetectorKind::Channels && planes ? DetectorKind::Strips : stream.kind;
    if (result.kind == DetectorKind::Strips)
        shareStrips(data, stream, result);
    if (result.kind != DetectorKind::Matrix)
        return;
    result.x.cells = stream.x.cells;
    result.y.cells = stream.y.cells;
}

template<typename Set>
DetectorFault spread(const QVector<double> &numbers,
                     const char *word,
                     QVector<DetectorChannel> &channels,
                     const Set &set)
{
    if (numbers.size() > 1 && numbers.size() != channels.size())
        return {QLatin1String(word),
                tr("has %1 for %2")
                    .arg(tr("%n number(s)", nullptr, numbers.size()),
                         tr("%n reading(s)", nullptr, channels.size()))};
    for (int i = 0; !numbers.isEmpty() && i < channels.size(); ++i)
        set(channels[i], numbers.size() == 1 ? numbers.first() : numbers[i]);
    return {};
}

DetectorFault takeChannels(const Data &data, DetectorDescription &result)
{
    QVector<DetectorChannel> &channels = result.channels;
    channels.resize(result.readings);
    const DetectorFault faults[] = {spread(data.gains,
                                           "#gain",
                                           channels,
                                           [](DetectorChannel &channel, double number) {
                                               channel.gain = number;
                                           }),
                                    spread(data.pedestals,
                                           "#pedestal",
                                           channels,
                                           [](DetectorChannel &channel, double number) {
                                               channel.pedestal = number;
                                           }),
                                    spread(data.saturations,
                                           "#saturation",
                                           channels,
                                           [](DetectorChannel &channel, double number) {
                                               channel.saturation = number;
                                           })};
    for (const DetectorFault &fault : faults)
        if (!fault.isEmpty())
            return fault;
    for (DetectorChannel &channel : channels)
        channel.dead = channel.dead && !data.deadStated;
    for (int number : data.dead) {
        if (number > channels.size())
            return {QStringLiteral("#dead"), tr("there is no channel %1").arg(number)};
        channels[number - 1].dead = true;
    }
    return {};
}

} // namespace

DetectorLines::DetectorLines()
    : d(new DetectorLinesData)
{
}

DetectorLines::DetectorLines(const DetectorLines &other) = default;
DetectorLines &DetectorLines::operator=(const DetectorLines &other) = default;
DetectorLines::~DetectorLines() = default;

DetectorLines::Line DetectorLines::take(const QString &line)
{
    const QString text = line.trimmed();
    const QString word = text.section(QLatin1Char(' '), 0, 0);
    const auto taker = takers().constFind(word);
    if (taker == takers().constEnd())
        return Line::Other;
    StatedDetector changed = d->stated; // a line that is wrong changes nothing
    QString wrong;
    if (!(*taker)(text.mid(word.size()).trimmed(), changed, wrong)) {
        d->fault = {word, wrong};
        return Line::Wrong;
    }
    changed.any = true;
    d->stated = changed;
    d->fault = {};
    return Line::Taken;
}

const DetectorFault &DetectorLines::fault() const
{
    return d->fault;
}

bool DetectorLines::isEmpty() const
{
    return !d->stated.any;
}

DetectorLayout DetectorLines::layout(const DetectorDescription &stream, DetectorFault *fault) const
{
    DetectorFault found;
    DetectorLayout layout;
    if (!isEmpty()) {
        DetectorDescription result = d->stated.description;
        result.x = d->stated.x.stated;
        result.y = d->stated.y.stated;
        takeShape(d->stated, stream, result);
        // An axis without cells has no lengths either.
        for (DetectorAxis *axis : {&result.x, &result.y})
            if (axis->cells == 0)
                *axis = DetectorAxis();
        const bool otherCount = stream.readings > 0 && result.readings != stream.readings;
        if (otherCount)
            found = {QStringLiteral("readings"),
                     Corvale_Qt::tr("the detector has %n reading(s), the stream %1",
                                    nullptr,
                                    result.readings)
                         .arg(stream.readings)};
        else if (result.readings > 0 && result.readings <= DetectorLayout::maxReadings)
            found = takeChannels(d->stated, result);
        if (found.isEmpty())
            layout = DetectorLayout::fromDescription(result, &found);
    }
    if (fault)
        *fault = found;
    return layout;
}

} // namespace Corvale_Qt
