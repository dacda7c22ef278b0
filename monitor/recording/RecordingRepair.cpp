// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/RecordingRepair.h"

#include "monitor/core/Text.h"
#include "monitor/input/CsvReader.h"
#include "monitor/recording/RecordingRows.h"
#include "monitor/recording/RecordingSegments.h"
#include "monitor/recording/RecordingWriter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>
#include <utility>

namespace Monitor {

namespace {

//! Notes what is lost while a recording is read, and writes what is not if there is a file for it.
class DamageSink : public StreamSink
{
public:
    DamageSink(RecordingDamage *damage, QIODevice *copy, const QString &source)
        : m_damage(damage)
        , m_copy(copy)
        , m_source(source)
    {
    }

    void streamStarted(const StreamHeader &header) override
    {
        endDamage(Text::tr("before another part begins"));
        endLoss(Text::tr("before another part begins"));
        m_header = header;
        m_any = false;
        if (m_copy)
            m_text += recordingHeader(header, m_source);
    }
    void reading(double time, const double *values) override
    {
        if (m_lost > 0 || !m_damageText.isEmpty()) {
            const QString until = Text::tr("before %1 s").arg(time, 0, 'g', 15);
            endDamage(until);
            endLoss(until);
        }
        m_any = true;
        m_lastTime = time;
        ++m_damage->readings;
        if (m_copy)
            appendRecordingReading(&m_text, readingShape(m_header), time, values);
        writeIfMuch();
    }
    void eventNoted(const QString &text) override
    {
        // What the reader tells of the damage is written with its place already.
        if (m_copy && text != m_damageTold)
            appendRecordingEvent(&m_text, text);
        m_damageTold.clear();
    }
    void lineRefused(const RefusedLine &line) override
    {
        // Readings that were held back are refused together, also those of an earlier line.
        if (m_lost == 0) {
            m_firstLine = line.number;
            m_why = line.reason.isEmpty() ? refusalText(line.refusal) : line.reason.logged();
        }
        m_firstLine = qMin(m_firstLine, line.number);
        m_lastLine = qMax(m_lastLine, line.number);
        ++m_lost;
    }

    //! Notes a damage that no line tells of; the reader tells it as an event, too.
    void noteDamage(const QString &text)
    {
        endDamage({});
        m_damageText = Text::tr("lost: %1, %2").arg(text, whereAfter());
        m_isDamagedInside = m_any;
        m_damageTold = text;
    }
    //! Adds a damage, and what follows it; \a until is empty if nothing does.
    void endDamage(const QString &until)
    {
        if (m_damageText.isEmpty())
            return;
        const QString text = std::exchange(m_damageText, {});
        addLoss(until.isEmpty() || !m_isDamagedInside ? text : Text::tr("%1, %2").arg(text, until));
    }
    void endLoss(const QString &until)
    {
        if (m_lost == 0)
            return;
        const QString numbers = m_lost == 1 ? QString::number(m_firstLine)
                                            : Text::tr("%1 to %2").arg(m_firstLine).arg(m_lastLine);
        const QString lines =
            Text::countedInEnglish("%n line(s) (%1)", nullptr, m_lost).arg(numbers);
        const QString where = m_any ? Text::tr("%1, %2").arg(whereAfter(), until) : until;
        addLoss(Text::tr("lost: %1, %2: %3").arg(lines, where, m_why));
        m_damage->lostLines += m_lost;
        m_damage->isInside = true;
        m_lost = 0;
        m_lastLine = 0;
    }
    bool write()
    {
        m_isWritten = m_isWritten && (!m_copy || m_copy->write(m_text) == m_text.size());
        m_text.clear();
        return m_isWritten;
    }

private:
    void addLoss(const QString &text)
    {
        if (m_damage->places.size() < RecordingDamage::maxPlaces)
            m_damage->places.append(text);
        else
            ++m_damage->placesLeftOut;
        if (m_copy)
            appendRecordingEvent(&m_text, text);
    }
    QString whereAfter() const
    {
        return m_any ? Text::tr("after %1 s").arg(m_lastTime, 0, 'g', 15)
                     : Text::tr("before the first reading");
    }
    void writeIfMuch()
    {
        if (m_text.size() >= recordingPiece)
            write();
    }

    RecordingDamage *const m_damage;
    QIODevice *const m_copy;
    const QString m_source;
    QByteArray m_text;
    bool m_isWritten = true;
    StreamHeader m_header;
    bool m_any = false;
    double m_lastTime = 0.0;
    qint64 m_lost = 0;
    qint64 m_firstLine = 0;
    qint64 m_lastLine = 0;
    QString m_why;
    QString m_damageText; // of a damage behind which nothing was read yet
    bool m_isDamagedInside = false; // there are readings before it
    QString m_damageTold;
};

bool read(const QString &path,
          const ImportOptions &import,
          QIODevice *copy,
          RecordingDamage *damage,
          QString *error)
{
    *damage = {};
    const QString source = recordedSource(path);
    const QString repaired = Text::tr("repaired from %1").arg(QFileInfo(path).fileName());
    DamageSink sink(damage, copy, source.isEmpty() ? repaired : source + Text::tr("; ") + repaired);
    CsvReader reader(sink);
    reader.setImport(import);
    reader.setPassingDamage(true);
    reader.setDamageHandler([&](CsvReader::Damage kind, const QString &text) {
        damage->isInside = damage->isInside || kind == CsvReader::Damage::Inside;
        sink.noteDamage(text);
    });
    if (!reader.open(path)) {
        *error =
            Text::tr("%1 cannot be opened: %2. Check the path and whether this user may read it")
                .arg(path, reader.errorString());
        return false;
    }
    while (reader.read(recordingPiece)) { }
    sink.endDamage({});
    sink.endLoss(Text::tr("before the end of the file"));
    if (reader.hasFailed())
        *error = Text::tr("reading %1 failed: %2").arg(path, reader.errorString());
    else if (!sink.write())
        *error = Text::tr("writing the copy of %1 failed: %2; make room on the disk")
                     .arg(path, copy->errorString());
    return error->isEmpty();
}

//! Returns the path of a copy: with "-repaired" in its name, without the suffix of a compressed file.
QString copyPath(const QString &path, int number)
{
    QFileInfo info(path);
    if (info.suffix() == QLatin1String("zst"))
        info.setFile(path.left(path.size() - 4));
    const QString suffix = info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
    const QString more = number > 1 ? QStringLiteral("-%1").arg(number) : QString();
    return info.dir().filePath(info.completeBaseName() + QLatin1String("-repaired") + more
                               + suffix);
}

} // namespace

bool examineRecording(const QString &path,
                      const ImportOptions &import,
                      RecordingDamage *damage,
                      QString *error)
{
    return read(path, import, nullptr, damage, error);
}

bool repairRecording(const QString &path, QString *copy, RecordingDamage *damage, QString *error)
{
    int number = 1;
    while (QFileInfo::exists(copyPath(path, number)))
        ++number;
    QFile file(copyPath(path, number));
    if (!QFileInfo(path).isFile()) {
        *error = QFileInfo::exists(path)
            ? Text::tr("%1 cannot be read: it is not a regular file. Check the path").arg(path)
            : Text::tr("there is no file %1. Check the path").arg(path);
        return false;
    }
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        *error = Text::tr("%1 cannot be written: %2. Copy the recording to a folder in which this "
                          "user may write")
                     .arg(file.fileName(), file.errorString());
        return false;
    }
    file.setPermissions(QFileInfo(path).permissions()); // the same people may read it
    if (read(path, {}, &file, damage, error) && !(file.flush() && ::fsync(file.handle()) == 0))
        *error = Text::tr("writing %1 failed: %2; make room on the disk")
                     .arg(file.fileName(), file.errorString());
    if (error->isEmpty() && damage->readings == 0)
        *error = Text::tr("nothing of %1 can be read; is it a recording?").arg(path);
    if (!error->isEmpty()) {
        file.remove();
        return false;
    }
    *copy = file.fileName();
    return true;
}

} // namespace Monitor
