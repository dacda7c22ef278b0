// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/sources/PgmSource.h"

#include "monitor/core/Clock.h"
#include "monitor/core/RegularFile.h"
#include "monitor/input/LineText.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace Monitor {

namespace {

//! The number of frames that are read ahead of those that are due.
constexpr std::size_t enough = 20;
//! The most pieces that are read in one go, because many images may be unreadable.
constexpr int mostPieces = 64;

//! Returns a text by which names are sorted as a person would: image2 comes before image10.
QString inOrder(const QString &name)
{
    constexpr int digits = 20;
    static const QRegularExpression number(QStringLiteral("\\d+"));
    QString text;
    int end = 0;
    for (auto runs = number.globalMatch(name); runs.hasNext();) {
        const QRegularExpressionMatch run = runs.next();
        text += name.midRef(end, run.capturedStart() - end)
            + run.captured().rightJustified(digits, QLatin1Char('0'));
        end = run.capturedEnd();
    }
    return text.toLower() + name.midRef(end).toString().toLower();
}

QStringList imagesIn(const QString &path)
{
    if (!QFileInfo(path).isDir())
        return {path};
    const QDir folder(path);
    QStringList names = folder.entryList({QStringLiteral("*.pgm")}, QDir::Files);
    std::sort(names.begin(), names.end(), [](const QString &one, const QString &other) {
        return inOrder(one) < inOrder(other);
    });
    for (QString &name : names)
        name = folder.filePath(name);
    return names;
}

QByteArray excerptOf(const QString &path)
{
    const QByteArray name = QFileInfo(path).fileName().toUtf8();
    return escapedExcerpt({name.constData(), std::size_t(name.size())});
}

} // namespace

bool PgmSource::suits(const QString &path)
{
    const QFileInfo info(path);
    if (info.isDir())
        return true;
    QFile file(path);
    if (!openRegular(file))
        return false;
    constexpr int enoughToTell = 64;
    const QByteArray begin = file.read(enoughToTell);
    const bool isImage =
        PgmReader::suits({begin.constData(), std::size_t(begin.size())}).value_or(false);
    return isImage || info.suffix().compare(QLatin1String("pgm"), Qt::CaseInsensitive) == 0;
}

PgmSource::PgmSource(Clock &clock,
                     const QString &path,
                     const FileSource::Options &options,
                     QObject *parent)
    : Source(clock, parent)
    , m_path(path)
    , m_options(options)
    , m_images(*this)
    , m_reader(
          [this](const PgmImage &image) {
              take(image);
          },
          [this](const LoggedText &fault) {
              refuse(fault);
          })
    , m_play(options.speed)
{
    if (options.speed > 0.0)
        connect(&clock, &Clock::tick, this, &PgmSource::play);
    else
        connect(&m_unpaced, &QTimer::timeout, this, &PgmSource::play);
}

QString PgmSource::remedy() const
{
    return tr(
        "Check the path and whether this user may read it; a folder needs files called *.pgm, "
        "with grey images of at most 256 x 256 pixels.");
}

bool PgmSource::readsFrom(const QString &path) const
{
    const QString file = QFileInfo(path).canonicalFilePath();
    return !file.isEmpty()
        && std::any_of(m_files.begin(), m_files.end(), [&](const QString &image) {
               return QFileInfo(image).canonicalFilePath() == file;
           });
}

void PgmSource::start()
{
    m_files = imagesIn(m_path);
    if (!openNext()) {
        const LoggedText why = LoggedText::ofSystem(m_error);
        setState(State::Failed, LoggedText::of([&] {
                     return m_files.isEmpty()
                         ? tr("%1 has no files called *.pgm").arg(m_path)
                         : tr("%1 cannot be opened: %2").arg(m_path, why.now());
                 }));
        return;
    }
    setState(State::Running, m_path);
    if (m_options.speed == 0.0)
        m_unpaced.start(0);
}

//! Opens the next file. Returns false if there is none, or if it cannot be read, which ends the source.
bool PgmSource::openNext()
{
    m_file.close();
    if (m_nextFile >= m_files.size())
        return false;
    m_file.setFileName(m_files[m_nextFile++]);
    if (m_file.open(QIODevice::ReadOnly))
        return true;
    m_error = m_file.errorString();
    return false;
}

void PgmSource::play()
{
    if (state() != State::Running)
        return;
    clock().stayAwake();
    for (int piece = 0; piece < mostPieces && m_waiting.size() < enough && !m_atEnd; ++piece)
        readOn();
    playDue();
    finishWhenPlayed();
}

//! Plays the frames that are due. Those after a change from times to numbers, or back, begin at once.
void PgmSource::playDue()
{
    const double now = clock().seconds();
    for (; !m_waiting.empty(); m_waiting.pop_front()) {
        const Frame &frame = m_waiting.front();
        const bool hasTime = frame.image.time.has_value();
        if (m_playsTimes != hasTime) {
            m_playsTimes = hasTime;
            m_play.setPace(PlayClock::paceOf(hasTime));
            m_play.moveTo(now, frame.time);
        }
        if (frame.time > m_play.due(now))
            return;
        m_images.show(frame.time, hasTime, frame.image);
    }
}

void PgmSource::readOn()
{
    const QByteArray piece = m_file.read(pieceSize);
    m_reader.feed({piece.constData(), std::size_t(piece.size())});
    if (m_file.error() != QFileDevice::NoError)
        m_error = m_file.errorString();
    if (!m_reader.isLost() && !piece.isEmpty() && m_error.isEmpty())
        return;
    m_reader.finish();
    if (m_error.isEmpty() && openNext())
        return;
    m_atEnd = !m_error.isEmpty() || !startLoop();
}

//! Begins the next round, whose times continue those of this one. Returns false if there is none.
bool PgmSource::startLoop()
{
    if (!m_options.loop || !std::exchange(m_anyInRound, false))
        return false;
    m_number = 0;
    m_nextFile = 0;
    return openNext();
}

void PgmSource::take(const PgmImage &image)
{
    const double time = image.time ? *image.time : double(++m_number);
    if (time >= m_options.from && time <= m_options.to)
        takeWanted(time, image);
    else
        m_images.count();
}

//! Takes an image of the times that are to be played. The first one of a further round follows the last one before.
void PgmSource::takeWanted(double time, const PgmImage &image)
{
    const bool hasTime = image.time.has_value();
    if (std::exchange(m_haveTimes, hasTime) != hasTime) {
        m_lastTime.reset();
        m_lastStep = 1.0;
    }
    if (!m_lastTime)
        m_offset = 0.0;
    else if (!m_anyInRound)
        m_offset = *m_lastTime + m_lastStep - time;
    const double shown = time + m_offset;
    if (m_lastTime && shown < *m_lastTime) {
        refuse({}, Refusal::TimeBackwards);
        return;
    }
    m_images.count();
    if (m_lastTime && shown > *m_lastTime)
        m_lastStep = shown - *m_lastTime;
    m_lastTime = shown;
    m_anyInRound = true;
    m_waiting.push_back({shown, image});
}

void PgmSource::refuse(const LoggedText &fault, Refusal refusal)
{
    m_images.refuse(refusal, fault, excerptOf(m_file.fileName()));
}

void PgmSource::finishWhenPlayed()
{
    if (!m_atEnd || !m_waiting.empty())
        return;
    m_unpaced.stop();
    const LoggedText why = LoggedText::ofSystem(m_error);
    setState(m_error.isEmpty() ? State::Finished : State::Failed, LoggedText::of([&] {
                 return m_error.isEmpty()
                     ? tr("reached the end of %1").arg(m_path)
                     : tr("reading %1 failed: %2").arg(m_file.fileName(), why.now());
             }));
}

} // namespace Monitor
