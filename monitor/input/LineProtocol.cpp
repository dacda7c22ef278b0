// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/LineProtocol.h"

#include "monitor/core/Text.h"
#include "monitor/input/CleanText.h"
#include "monitor/input/ColumnPlan.h"
#include "monitor/input/LineNumbers.h"
#include "monitor/input/LineText.h"
#include "monitor/input/MultichannelRowReader.h"

#include <QStringList>

#include <utility>

namespace Monitor {

namespace {

//! This many lines that agree with each other, but not with the lines before, begin a new table.
constexpr int linesOfAnotherShape = 10;
//! If this many first lines of data do not fit the header, it was not a header. One suffices against a header of one word.
constexpr int linesAgainstAHeader = 2;
constexpr std::string_view frameWord = "#frame";
//! Lines with more fields are not looked at: the names of a hostile line would take seconds and much memory.
constexpr std::size_t mostFields = 256 * 256 + 16;

//! Returns whether a line of metadata begins with a word.
bool beginsWith(std::string_view line, std::string_view word)
{
    return line.substr(0, word.size()) == word
        && (line.size() == word.size() || line[word.size()] == ' ' || line[word.size()] == '\t');
}

//! Returns whether a header line has the names of these channels, with their units or without, and nothing else.
bool areNamesOf(const QVector<Channel> &channels, const QStringList &names)
{
    return !channels.isEmpty()
        && std::equal(channels.begin(),
                      channels.end(),
                      names.begin(),
                      names.end(),
                      [](const Channel &channel, const QString &name) {
                          // Names are cut where they are read; with its unit, the name of a column may be longer.
                          return name == channel.name
                              || name
                              == cleanText(channel.name + QLatin1Char('_') + channel.unit,
                                           maxNameLength);
                      });
}

} // namespace

LineProtocol::LineProtocol(StreamSink &sink)
    : m_sink(sink)
    , m_rowHandler([this](double time, const double *values) {
        takeReading(time, values);
    })
{
}

LineProtocol::~LineProtocol() = default;

void LineProtocol::beginStream()
{
    dropOpenFrame(); // the rest of a lost connection
    finish();
    m_order.beginConnection();
    m_mayBeHeader = true;
    m_statesTimes = false;
}

void LineProtocol::beginAcquisition()
{
    finish();
    m_order.beginAcquisition();
    m_mayBeHeader = true;
    m_headerTold = false;
}

void LineProtocol::takeLine(std::string_view line, bool tooLong)
{
    ++m_counts.lines;
    m_line = line;
    if (tooLong || !takeNumbersAhead()) {
        m_line = trimmed(line);
        takeLine(tooLong);
    }
    m_line = {}; // the caller's bytes need not stay
}

//! Takes the numbers of the present line if they were read ahead. Returns false if not.
bool LineProtocol::takeNumbersAhead()
{
    if (!m_ahead || !expectsPlainRow())
        return false;
    const double *numbers = m_ahead->of(m_line, m_rows->numbersOfPlainLine());
    if (!numbers || !m_rows->takePlain(numbers, m_rowHandler))
        return false;
    notePlainRow();
    return true;
}

void LineProtocol::takeLine(bool tooLong)
{
    const bool isRow = m_frames && m_frames->isOpen() && m_line.substr(0, 1) != "#";
    if (tooLong) {
        refuse(currentLine(Refusal::TooLong));
        if (isRow)
            m_frames->spoilRow();
    } else if (m_line.empty())
        return;
    else if (beginsWith(m_line, frameWord))
        beginFrame(m_line.substr(frameWord.size()));
    else if (m_line.front() == '#')
        takeMetadata(m_line);
    else
        takeFields(m_line);
}

void LineProtocol::finish()
{
    refuseOpenFrame();
    // Readings that waited for other channels do not stand on the present line.
    const std::string_view line = std::exchange(m_line, {});
    if (m_rows)
        m_rows->finish(m_rowHandler);
    m_line = line;
    follow(m_order.finish());
}

//! A change of the metadata begins a new acquisition; readings that were held back belong to the former one.
void LineProtocol::takeMetadata(std::string_view line)
{
    Metadata metadata = m_metadata;
    switch (metadata.take(line)) {
    case Metadata::Line::Comment:
        break;
    case Metadata::Line::Stream:
        beginAcquisition();
        m_metadata = metadata;
        m_hasFrames = false;
        forgetShape();
        break;
    case Metadata::Line::Changed:
        beginAcquisition();
        m_metadata = metadata;
        if (!m_hasNamedColumns)
            forgetShape();
        break;
    case Metadata::Line::Event:
        m_sink.eventNoted(metadata.event());
        break;
    case Metadata::Line::Unreadable: {
        RefusedLine refused = currentLine(Refusal::Unreadable);
        refused.reason = metadata.fault();
        refuse(refused);
        break;
    }
    }
}

void LineProtocol::takeFields(std::string_view line)
{
    if (takePlainRow(line))
        return;
    m_statesTimes = false;
    splitFields(line, &m_fields);
    if (m_hasFrames) {
        takeFrameRow();
        return;
    }
    if (m_fields.size() > mostFields) {
        refuse(tooManyValues());
        return;
    }
    if ((!m_rows || m_mayBeHeader) && takeHeader())
        return;
    if (!m_rows && !adoptShape())
        return;
    switch (m_rows->read(m_fields, m_arrivalTime, m_rowHandler)) {
    case RowReader::Outcome::Taken:
        m_otherCountRun = 0;
        break;
    case RowReader::Outcome::WrongCount:
        shapeMismatch(line);
        break;
    case RowReader::Outcome::Unreadable:
        refuse(currentLine(Refusal::Unreadable));
        forgetGuessedShape();
        break;
    }
}

//! Takes a line like those before it, as nearly all are. Returns false if the line needs a closer look.
bool LineProtocol::takePlainRow(std::string_view line)
{
    if (!expectsPlainRow() || !m_rows->readPlain(line, m_rowHandler))
        return false;
    notePlainRow();
    return true;
}

bool LineProtocol::expectsPlainRow() const
{
    return m_rows && !m_mayBeHeader && (!m_hasFrames || isInFrame());
}

void LineProtocol::notePlainRow()
{
    m_otherCountRun = 0;
    m_statesTimes = !m_hasFrames;
}

//! Begins a frame. Another size begins a new acquisition, and so do times where frames were only counted.
void LineProtocol::beginFrame(std::string_view text)
{
    FrameRowReader::Beginning frame;
    RefusedLine line = currentLine(Refusal::Unreadable);
    const bool isReadable = frame.read(text, m_arrivalTime, &line.reason);
    const bool allowed = m_metadata.allowsFrames();
    if (!allowed && !isReadable)
        return; // a comment, as every unknown word
    refuseOpenFrame();
    m_hasFrames = true;
    if (!allowed)
        line.reason = LoggedText::of([] {
            return Text::tr("only a stream that begins with #corvale 2 has frames");
        });
    if (!isReadable || !allowed) {
        refuse(line);
        if (m_frames)
            m_frames->drop();
        return;
    }
    const bool isOfAnotherKind =
        m_frames && m_isArrivalCounted && m_frames->isTimed() != frame.isTimed;
    if (!m_frames || isOfAnotherKind || !m_frames->hasSize(frame.rows, frame.columns)) {
        if (m_rows)
            beginAcquisition();
        auto rows = std::make_unique<FrameRowReader>(frame.rows, frame.columns);
        m_frames = rows.get();
        m_rows = std::move(rows);
        m_hasNamedColumns = false;
        m_headerTold = false;
    }
    m_frameLine = line;
    m_frames->begin(frame);
}

void LineProtocol::takeFrameRow()
{
    RefusedLine line = currentLine(Refusal::WrongCount);
    if (!m_frames || !m_frames->isOpen()) {
        line.reason = LoggedText::of([] {
            return Text::tr("it belongs to no frame");
        });
        refuse(line);
        return;
    }
    const int row = m_frames->rowsTaken() + 1;
    switch (m_frames->read(m_fields, m_arrivalTime, m_rowHandler)) {
    case RowReader::Outcome::Taken:
        return;
    case RowReader::Outcome::WrongCount:
        break;
    case RowReader::Outcome::Unreadable:
        line.refusal = Refusal::Unreadable;
        break;
    }
    line.reason = LoggedText::of([row] {
        return Text::tr("row %1 of a frame, which is dropped").arg(row);
    });
    refuse(line);
}

//! Refuses a frame whose last rows have not come.
void LineProtocol::refuseOpenFrame()
{
    if (!m_frames || !m_frames->isOpen())
        return;
    const bool toldAlready = m_frames->isSpoiled();
    m_frameLine.refusal = Refusal::WrongCount;
    m_frameLine.reason = LoggedText::of([this] {
        return Text::counted("the frame ends after %n row(s)", nullptr, m_frames->rowsTaken());
    });
    m_frames->drop();
    if (!toldAlready)
        refuse(m_frameLine);
}

bool LineProtocol::dropOpenFrame()
{
    const bool open = isInFrame();
    if (open)
        m_frames->drop();
    return open;
}

/*! Takes a line of names before any data. After a reconnection it must name as many channels as before. Returns false
    if the line is not a header. */
bool LineProtocol::takeHeader()
{
    QStringList names;
    for (const std::string_view field : m_fields)
        names.append(cleanText(decodedText(field), maxNameLength));
    const bool isTimed = names.first() == QLatin1String("time_s")
        && names.size() == m_metadata.channels().size() + 1;
    if (isTimed || areNamesOf(m_metadata.channels(), names))
        return true; // "#channels" gave the same names, more exactly
    std::unique_ptr<RowReader> rows = MultichannelRowReader::fromHeader(names);
    if (!rows) {
        const std::optional<ColumnPlan> plan = ColumnPlan::fromHeader(names);
        if (!plan)
            return false;
        rows = std::make_unique<PlannedRowReader>(*plan);
    }
    if (m_rows && m_rows->valuesPerReading() != rows->valuesPerReading())
        return false;
    const bool isOneWord = names.size() == 1;
    if (isOneWord && !mayNameTheOnlyColumn(*rows))
        return false;
    m_hasOneName = isOneWord;
    m_rows = std::move(rows);
    m_frames = nullptr;
    m_headerLine = currentLine(Refusal::Unreadable);
    m_hasNamedColumns = true;
    m_shapeProven = false;
    m_headerTold = false;
    if (const int leftOut = m_rows->leftOutChannels())
        m_sink.eventNoted(Text::countedInEnglish("%n column(s) beyond the first %1 is/are left out",
                                                 nullptr,
                                                 leftOut)
                              .arg(StreamHeader::maxChannels));
    return true;
}

/*! Returns whether a line of one word may be a header. An instrument may say such a word at any time ("busy_V"), so it is none
    where channels are declared, or where the column has another name already. */
bool LineProtocol::mayNameTheOnlyColumn(const RowReader &rows) const
{
    const bool isDeclared = !m_metadata.channels().isEmpty();
    return !isDeclared
        && (!m_rows || m_rows->channels().first().name == rows.channels().first().name);
}

/*! Takes the number of channels from "#channels", else from this first line of data. This line also decides whether
    lines have a time: later, a line with one field less lacks a value. Returns false if the line has too many values.
    */
bool LineProtocol::adoptShape()
{
    QVector<Channel> channels = m_metadata.channels();
    const int fields = int(m_fields.size());
    if (channels.isEmpty()) {
        const int values = fields == 1 ? 1 : fields - 1;
        if (values > StreamHeader::maxChannels)
            return adoptFrames(values);
        channels = StreamHeader::defaultChannels(m_metadata.kind(), values);
    }
    const bool timed = fields != channels.size();
    m_rows = std::make_unique<TimedRowReader>(channels, m_metadata.kind(), timed);
    m_hasNamedColumns = false;
    m_shapeProven = false;
    m_headerTold = false;
    return true;
}

/*! Takes lines of more values than there may be channels as frames, if strips or a matrix of that size are declared. Returns
    false, and refuses the line, otherwise. Each line begins with its time. */
bool LineProtocol::adoptFrames(int values)
{
    const std::optional<Corvale_Qt::DetectorDescription> frames = m_metadata.framesOf(values);
    if (!frames) {
        refuse(tooManyValues());
        return false;
    }
    m_rows = std::make_unique<TimedRowReader>(*frames, true);
    m_hasNamedColumns = false;
    m_shapeProven = false;
    m_headerTold = false;
    return true;
}

/*! Handles a line with a different number of fields. A single such line is damaged. If the lines that follow have the
    same length, the lines before it were wrong: the end of a line that was joined midway, a greeting taken for a
    header, or an instrument that was set up again. */
void LineProtocol::shapeMismatch(std::string_view line)
{
    const bool tooMany = m_fields.size() > std::size_t(StreamHeader::maxChannels) + 1
        && !m_rows->hasFrames() && !m_metadata.framesOf(int(m_fields.size()) - 1);
    m_otherCountRun = m_fields.size() == m_otherCount ? m_otherCountRun + 1 : 1;
    m_otherCount = m_fields.size();

    const int declared = m_hasNamedColumns ? 0 : m_metadata.channels().size();
    const int values = int(m_fields.size());
    const bool undeclared = declared > 0 && values != declared && values != declared + 1;
    const bool held = m_order.holdsFirst();
    const bool firstWasWrong = held && !m_hasNamedColumns && !m_shapeProven;
    const bool headerWasWrong = m_hasNamedColumns && !m_shapeProven && !held
        && (m_hasOneName || m_otherCountRun >= linesAgainstAHeader);
    const bool newTable = m_otherCountRun >= linesOfAnotherShape;
    if (tooMany || undeclared || !(firstWasWrong || headerWasWrong || newTable)) {
        refuse(tooMany ? tooManyValues() : currentLine(Refusal::WrongCount));
        forgetGuessedShape();
        return;
    }
    if (headerWasWrong)
        refuse(m_headerLine);
    for (TimeOrder::Reading &reading : m_order.giveUpHeld()) {
        reading.line.refusal = Refusal::WrongCount;
        refuse(reading.line);
    }
    forgetShape();
    m_mayBeHeader = true;
    takeFields(line);
}

//! Forgets a shape that was guessed from lines of which none was a reading.
void LineProtocol::forgetGuessedShape()
{
    if (!m_shapeProven && !m_hasNamedColumns && !m_order.holdsFirst())
        forgetShape();
}

void LineProtocol::forgetShape()
{
    m_rows.reset();
    m_frames = nullptr;
    m_hasNamedColumns = false;
    m_shapeProven = false;
    m_otherCountRun = 0;
}

void LineProtocol::takeReading(double time, const double *values)
{
    m_mayBeHeader = false;
    if (m_order.follows(time)) {
        deliver(time, values);
        return;
    }
    TimeOrder::Reading reading;
    reading.time = time;
    reading.values.assign(values, values + m_rows->valuesPerReading());
    reading.line = currentLine(Refusal::TimeBackwards);
    if (m_line.empty())
        reading.line.excerpt = QByteArray::number(time, 'g', 15);
    const double lastTime = m_order.lastTime();
    const TimeOrder::Verdict verdict = m_order.weigh(std::move(reading));
    if (verdict.corrected)
        m_sink.eventNoted(
            QStringLiteral("the time went back from %1 s to %2 s and goes on from there: a "
                           "new part begins")
                .arg(QString::number(lastTime, 'g', 15),
                     QString::number(verdict.believed.front().time, 'g', 15)));
    follow(verdict);
}

void LineProtocol::follow(const TimeOrder::Verdict &verdict)
{
    for (const TimeOrder::Reading &reading : verdict.refused)
        refuse(reading.line);
    if (verdict.newPart) {
        m_headerTold = false;
        m_metadata.forgetStartTime(); // it was that of the times before
    }
    for (const TimeOrder::Reading &reading : verdict.believed)
        deliver(reading.time, reading.values.data());
}

void LineProtocol::deliver(double time, const double *values)
{
    if (!m_headerTold) {
        m_headerTold = true;
        StreamHeader header = m_rows->hasFrames()
            ? m_metadata.headerForFrames(m_rows->frames(), m_rows->frameUnit())
            : m_metadata.headerFor(m_rows->channels(), m_rows->kind());
        header.leftOutChannels = m_rows->leftOutChannels();
        header.hasTimes = m_rows->isTimed() || !m_isArrivalCounted;
        if (!header.detectorFault.isEmpty())
            m_sink.eventNoted(
                QStringLiteral("the detector is not used: %1").arg(header.detectorFault.logged()));
        if (!header.limitsFault.isEmpty())
            m_sink.eventNoted(
                QStringLiteral("limits are not used: %1").arg(header.limitsFault.logged()));
        m_sink.streamStarted(header);
    }
    m_shapeProven = true;
    ++m_counts.readings;
    m_sink.reading(time, values);
}

RefusedLine LineProtocol::currentLine(Refusal refusal) const
{
    RefusedLine line;
    line.refusal = refusal;
    line.number = m_counts.lines;
    line.excerpt = escapedExcerpt(trimmed(m_line));
    return line;
}

//! Returns the current line as one of more values than a reading may have, with the number that was declared.
RefusedLine LineProtocol::tooManyValues() const
{
    RefusedLine line = currentLine(Refusal::TooManyValues);
    if (const int declared = m_metadata.declaredReadings())
        line.reason = LoggedText::of([&] {
            return Text::tr("%1 values, but the detector has %2")
                .arg(int(m_fields.size()) - 1)
                .arg(declared);
        });
    return line;
}

void LineProtocol::refuse(const RefusedLine &line)
{
    ++m_counts.refused[std::size_t(line.refusal)];
    m_sink.lineRefused(line);
}

} // namespace Monitor
