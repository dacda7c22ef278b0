// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/CsvReader.h"

#include "monitor/core/LoggedText.h"
#include "monitor/core/Text.h"
#include "monitor/input/ImportGuess.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace Monitor {

namespace {

//! More describing lines than this are not kept; no description of an instrument is so long.
constexpr int longestContext = 1024 * 1024;

} // namespace

CsvReader::CsvReader(StreamSink &sink)
    : m_sink(sink)
{
    beginProtocol();
}

CsvReader::~CsvReader() = default;

void CsvReader::setImport(const ImportOptions &options)
{
    m_options = options;
    m_import = options.isUsual() ? nullptr : std::make_unique<TableImport>(options);
    m_rowInterval = std::max(options.interval, 0.0);
    beginProtocol();
}

void CsvReader::beginProtocol()
{
    m_protocol = std::make_unique<LineProtocol>(m_sink);
    m_protocol->setArrivalCounted(isCounting());
}

bool CsvReader::open(const QString &path)
{
    m_file.setFileName(path);
    const QFileInfo info(path);
    m_failed = true;
    if (info.exists() && !info.isFile()) {
        m_error = Text::tr("it is not a regular file");
        return false;
    }
    if (!m_file.open(QIODevice::ReadOnly))
        return false;
    constexpr int magicSize = 4;
    if (ZstdFrames::begins(m_file.peek(magicSize)))
        m_frames = std::make_unique<ZstdFrames>(m_file);
    QByteArray sample;
    readPiece(ImportGuess::sampleSize, &sample);
    m_error = ImportGuess::of(sample, m_options).refusal();
    m_failed = !m_error.isEmpty() || !(m_frames ? m_frames->seek(0) : m_file.seek(0));
    return !m_failed;
}

bool CsvReader::read(int bytes)
{
    Piece piece = nextPiece(bytes);
    m_offset += piece.text.size();
    m_protocol->setNumbersAhead(&piece.numbers);
    m_splitter.feed({piece.text.constData(), std::size_t(piece.text.size())},
                    [this](std::string_view line, bool tooLong) {
                        takeLine(line, tooLong);
                    });
    m_protocol->setNumbersAhead(nullptr);
    if (m_frames && m_frames->isDamaged() && m_passesDamage)
        return passDamage();
    m_failed = piece.hasFailed || (m_frames && m_frames->isDamaged());
    if (m_failed && m_frames && m_frames->isDamaged())
        m_error =
            Text::tr("the compressed file is damaged; --check says what is lost, and --repair "
                     "saves what can be read");
    const bool isOver = piece.text.isEmpty() || piece.isLast || m_failed;
    m_spare = std::move(piece);
    if (isOver)
        finish();
    return !isOver;
}

//! Returns the next piece of the text, whose numbers may have been read ahead.
CsvReader::Piece CsvReader::nextPiece(int bytes)
{
    constexpr int mostAhead = 2;
    const bool isPossible = m_isReadingAhead && !m_frames && !m_import;
    if (!isPossible && !(m_ahead && m_ahead->pending() > 0))
        return pieceAtPlace(bytes);
    if (!m_ahead)
        m_ahead = std::make_unique<OrderedWorker<Piece>>([](Piece &piece) {
            piece.numbers.read({piece.text.constData(), std::size_t(piece.text.size())},
                               piece.numbersOfLine);
        });
    while (m_ahead->pending() < mostAhead && !m_isLastAhead) {
        Piece piece = pieceAtPlace(bytes);
        m_isLastAhead = piece.isLast || piece.hasFailed;
        m_ahead->add(std::move(piece));
    }
    return m_ahead->pending() > 0 ? m_ahead->take() : pieceAtPlace(bytes);
}

//! Reads the piece at the present place of the file.
CsvReader::Piece CsvReader::pieceAtPlace(int bytes)
{
    Piece piece = std::exchange(m_spare, {});
    readPiece(bytes, &piece.text);
    piece.numbers.clear();
    piece.isLast = m_frames ? piece.text.isEmpty() : m_file.atEnd();
    piece.hasFailed = m_file.error() != QFileDevice::NoError;
    piece.numbersOfLine = m_protocol->numbersOfPlainLine();
    return piece;
}

//! Reads bytes of the text, as many as there are.
void CsvReader::readPiece(int bytes, QByteArray *text)
{
    if (m_frames) {
        *text = m_frames->read(bytes);
        return;
    }
    text->resize(bytes);
    text->resize(int(std::max<qint64>(m_file.read(text->data(), bytes), 0)));
}

//! Goes on behind a damaged part. The line that it cut is lost with it. Returns false if nothing follows.
bool CsvReader::passDamage()
{
    const ZstdFrames::Damage damage = m_frames->skipDamage();
    m_splitter.clear();
    const QString lost = damage.inText < 0
        ? QStringLiteral("what was in them is lost")
        : Text::countedInEnglish("%n byte(s) of text is/are lost", nullptr, damage.inText);
    const QString where = damage.isAtEnd
        ? Text::countedInEnglish("the last %n byte(s) of the compressed file",
                                 nullptr,
                                 damage.inFile)
        : Text::countedInEnglish("%n byte(s) of the compressed file", nullptr, damage.inFile);
    noteDamage(Damage::Inside, QStringLiteral("%1 cannot be decoded; %2").arg(where, lost));
    if (damage.isAtEnd)
        finish();
    return !damage.isAtEnd;
}

void CsvReader::noteDamage(Damage damage, const QString &text)
{
    if (m_damageHandler)
        m_damageHandler(damage, text);
    m_sink.eventNoted(text);
}

void CsvReader::startOver(qint64 offset)
{
    beginProtocol();
    m_ahead.reset();
    m_isLastAhead = false;
    m_context.clear();
    m_contextTooLong = false;
    m_offset = offset;
    m_splitter.beginAt(offset);
}

bool CsvReader::rewind()
{
    m_countsBefore += m_protocol->counts();
    startOver(0);
    m_isRecording = false;
    m_row = 0;
    if (m_import)
        m_import->startOver();
    m_file.unsetError();
    m_failed = m_frames ? !m_frames->seek(0) : !m_file.seek(0);
    return !m_failed;
}

bool CsvReader::resume(const ReadPoint &point)
{
    startOver(point.offset);
    m_countsBefore = {};
    if (point.offset <= 0)
        return rewind();
    for (const QByteArray &line : point.context.split('\n'))
        takeProtocolLine({line.constData(), std::size_t(line.size())}, false);
    m_protocol->setCounts(point.counts);
    m_row = point.row;
    m_file.unsetError();
    m_failed = m_frames ? !m_frames->seek(m_offset) : !m_file.seek(m_offset);
    return !m_failed;
}

ReadPoint CsvReader::readPoint() const
{
    ReadPoint point = m_protocol->isInFrame() ? m_frame : pointAtLine();
    point.context = m_context;
    point.isContextKept = !m_contextTooLong;
    point.isEntry = point.isEntry && point.isContextKept;
    return point;
}

//! Returns the place at which the present line begins, without its context.
ReadPoint CsvReader::pointAtLine() const
{
    ReadPoint point;
    point.offset = m_splitter.lineBegin();
    point.row = m_row;
    point.counts = counts();
    point.isEntry = !m_splitter.isInsideLineEnd();
    return point;
}

qint64 CsvReader::textSize() const
{
    return m_frames ? m_frames->textSize() : m_file.size();
}

QString CsvReader::errorString() const
{
    return m_error.isEmpty() ? LoggedText::ofSystem(m_file.errorString()).now() : m_error;
}

LineCounts CsvReader::counts() const
{
    LineCounts counts = m_countsBefore;
    counts += m_protocol->counts();
    return counts;
}

double CsvReader::progress() const
{
    return m_file.size() > 0 ? double(m_file.pos()) / double(m_file.size()) : 1.0;
}

void CsvReader::takeLine(std::string_view line, bool tooLong)
{
    // A byte order mark is not part of the first name.
    if (m_protocol->counts().lines == 0 && line.substr(0, 3) == "\xef\xbb\xbf")
        line.remove_prefix(3);
    if (!m_import) {
        takeProtocolLine(line, tooLong);
        return;
    }
    const qint64 before = m_protocol->counts().lines;
    for (const std::string &translated : m_import->translate(line))
        takeProtocolLine(translated, tooLong);
    // A line of the file is one line, whatever it became.
    LineCounts counts = m_protocol->counts();
    counts.lines = before + 1;
    m_protocol->setCounts(counts);
}

void CsvReader::takeProtocolLine(std::string_view line, bool tooLong)
{
    const bool isMetadata = line.empty() || line.front() == '#';
    if (isMetadata && line.substr(0, 8) == "#corvale")
        m_isRecording = true;
    const bool beginsFrame = isMetadata && line.substr(0, 6) == "#frame";
    const bool wasInFrame = m_protocol->isInFrame();
    // A row that cannot be read leaves a gap in times, and none in a list. The same holds for a frame.
    if (beginsFrame && wasInFrame && !isCounting())
        ++m_row;
    if (beginsFrame)
        m_frame = pointAtLine();
    m_protocol->setArrivalTime(isCounting() ? double(m_row + 1) : double(m_row) * m_rowInterval);
    const qint64 badBefore = m_protocol->counts().bad();
    m_protocol->takeLine(line, tooLong);
    if (beginsFrame) { // the one before may have been refused just now
        m_frame.counts.refused = counts().refused;
        m_badAtFrame = m_protocol->counts().bad();
    }
    if (isMetadata || m_protocol->isAtHeader())
        noteContext(line);
    else if (wasInFrame)
        m_row += isFrameOver() ? 1 : 0;
    else if (m_protocol->hasColumns() && isCounted(badBefore))
        ++m_row;
}

//! Returns whether what was read since there were so many bad lines has a number.
bool CsvReader::isCounted(qint64 badBefore) const
{
    return !isCounting() || m_protocol->counts().bad() == badBefore;
}

//! Returns whether the present frame has all of its rows, and a number.
bool CsvReader::isFrameOver() const
{
    return !m_protocol->isInFrame() && isCounted(m_badAtFrame);
}

//! Keeps the lines that a reader must know to go on from here.
void CsvReader::noteContext(std::string_view line)
{
    const bool describes = line.size() > 1 && line[1] != ' ' && line.substr(0, 6) != "#event"
        && line.substr(0, 6) != "#frame";
    if (!describes)
        return;
    if (line.substr(0, 8) == "#corvale")
        m_context.clear();
    m_contextTooLong = m_contextTooLong || m_context.size() > longestContext;
    if (m_contextTooLong)
        return;
    if (!m_context.isEmpty())
        m_context += '\n';
    m_context.append(line.data(), int(line.size()));
}

void CsvReader::finish()
{
    // Every line of a recording has a line end. A last line without one was cut off while it was written, and a
    // number in it may have lost digits.
    if (m_isRecording && m_splitter.hasRest()) {
        noteDamage(Damage::UnfinishedEnd,
                   QStringLiteral("the recording's last line is incomplete and was left out"));
        m_splitter.clear();
    }
    m_splitter.finish([this](std::string_view line, bool tooLong) {
        takeLine(line, tooLong);
    });
    if (m_isRecording && m_protocol->dropOpenFrame())
        noteDamage(Damage::UnfinishedEnd,
                   QStringLiteral("the recording's last frame is incomplete and was left out"));
    m_protocol->finish();
}

} // namespace Monitor
