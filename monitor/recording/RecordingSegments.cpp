// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/RecordingSegments.h"

#include "monitor/core/RegularFile.h"
#include "monitor/core/Text.h"
#include "monitor/input/ZstdFrames.h"
#include "monitor/recording/SegmentForm.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <vector>

namespace Monitor {

namespace {

//! Returns the first bytes of the text of a recording.
QByteArray beginningOf(const QString &path)
{
    QFile file(path);
    if (!openRegular(file))
        return {};
    constexpr int size = 4096;
    return ZstdFrames::begins(file.peek(4)) ? ZstdFrames(file).read(size) : file.read(size);
}

//! The files of a recording: a first one, and others with numbers from 2 behind its name.
class Segments
{
public:
    explicit Segments(const QString &path)
        : m_source(recordedSource(path))
    {
        const QString text = asText(path);
        const QFileInfo info(text);
        m_folder = info.dir();
        m_suffix = info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
        const QRegularExpressionMatch numbered = numberedName().match(info.completeBaseName());
        m_stem = numbered.hasMatch() ? numbered.captured(1) : info.completeBaseName();
    }

    QString name(int number) const
    {
        return number == 1 ? m_stem + m_suffix
                           : QStringLiteral("%1-%2%3").arg(m_stem).arg(number).arg(m_suffix);
    }
    //! Returns the numbers of the files that are there, in their order.
    std::vector<int> numbers() const
    {
        std::vector<int> numbers;
        for (const QString &entry : m_folder.entryList({m_stem + QLatin1Char('*')}, QDir::Files)) {
            const QString base = QFileInfo(asText(entry)).completeBaseName();
            const QRegularExpressionMatch match = numberedName().match(base);
            const bool isNumbered = match.hasMatch() && match.captured(1) == m_stem;
            const int number = isNumbered ? match.captured(2).toInt() : 1;
            if ((isNumbered || base == m_stem) && existsInAnyForm(m_folder.filePath(name(number))))
                numbers.push_back(number);
        }
        std::sort(numbers.begin(), numbers.end());
        numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
        return numbers;
    }
    //! Returns whether a file is of the same source as the one that was asked about. Of an HDF5 file this is taken for granted.
    bool isOfSameSource(int number) const
    {
        const QString path = m_folder.filePath(name(number));
        for (const QString &form : {path, completedPath(path, SegmentForm::Zstd)})
            if (QFileInfo::exists(form))
                return recordedSource(form) == m_source;
        return true;
    }
    bool isRecording() const { return !m_source.isEmpty(); }

private:
    static QString asText(const QString &path)
    {
        const QLatin1String compressed(".zst");
        return path.endsWith(compressed) ? path.left(path.size() - compressed.size()) : path;
    }
    //! Times of day have six digits and dates eight; a number does not begin with a zero.
    static QRegularExpression numberedName()
    {
        return QRegularExpression(QStringLiteral("^(.+)-([1-9][0-9]{0,4})$"));
    }

    QString m_source;
    QDir m_folder;
    QString m_stem;
    QString m_suffix;
};

} // namespace

QString recordedSource(const QString &path)
{
    const QByteArray mark("# source: ");
    for (const QByteArray &line : beginningOf(path).split('\n'))
        if (line.startsWith(mark))
            return QString::fromUtf8(line.mid(mark.size())).trimmed();
    return {};
}

QStringList missingSegments(const QString &path)
{
    constexpr int lastOfFirst = 2; // years and other numbers of people's own begin later
    const Segments segments(path);
    QStringList missing;
    const std::vector<int> numbers = segments.numbers();
    if (!segments.isRecording() || numbers.empty() || numbers.front() > lastOfFirst)
        return missing;
    for (std::size_t i = 1; i < numbers.size(); ++i) {
        const int first = numbers[i - 1] + 1, last = numbers[i] - 1;
        if (first > last || !segments.isOfSameSource(numbers[i - 1])
            || !segments.isOfSameSource(numbers[i]))
            continue;
        missing += first == last
            ? segments.name(first)
            : Text::tr("%1 to %2").arg(segments.name(first), segments.name(last));
    }
    return missing;
}

} // namespace Monitor
