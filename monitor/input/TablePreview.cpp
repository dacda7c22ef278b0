// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/TablePreview.h"

#include "monitor/core/RegularFile.h"
#include "monitor/input/CsvReader.h"

#include <QFileInfo>

#include <cmath>

namespace Monitor {

namespace {

constexpr int mostColumns = 32;

class PreviewSink : public StreamSink
{
public:
    explicit PreviewSink(TablePreview *preview)
        : m_preview(preview)
    {
    }
    void streamStarted(const StreamHeader &header) override
    {
        m_channels = qMin(header.channels.size(), mostColumns);
        if (!m_preview->names.isEmpty())
            return;
        m_preview->names = QStringList(QStringLiteral("t (s)"));
        for (int i = 0; i < m_channels; ++i) {
            const Channel &channel = header.channels[i];
            m_preview->names += channel.unit.isEmpty()
                ? channel.name
                : QStringLiteral("%1 (%2)").arg(channel.name, channel.unit);
        }
        if (header.startTime.isValid())
            m_preview->startTime = header.startTime.toUTC().toString(Qt::ISODateWithMs);
    }
    void reading(double time, const double *values) override
    {
        if (m_preview->rows.size() >= TablePreview::mostRows)
            return;
        QStringList row(QString::number(time, 'g', 10));
        for (int i = 0; i < m_channels; ++i)
            row += std::isnan(values[i]) ? QString() : QString::number(values[i], 'g', 8);
        m_preview->rows += row;
    }
    void eventNoted(const QString &) override { }
    void lineRefused(const RefusedLine &line) override
    {
        if (m_preview->refused++ == 0)
            m_preview->firstRefused = line.phrase();
    }

private:
    TablePreview *const m_preview;
    int m_channels = 0;
};

} // namespace

TablePreview TablePreview::of(const QString &path, const ImportOptions &options)
{
    TablePreview preview;
    PreviewSink sink(&preview);
    CsvReader reader(sink);
    reader.setImport(options);
    if (!reader.open(path))
        preview.error = reader.errorString();
    else
        reader.read(ImportGuess::sampleSize);
    return preview;
}

QByteArray sampleOf(const QString &path)
{
    QFile file(path);
    if (!openRegular(file))
        return {};
    constexpr int magicSize = 4;
    return ZstdFrames::begins(file.peek(magicSize)) ? ZstdFrames(file).read(ImportGuess::sampleSize)
                                                    : file.read(ImportGuess::sampleSize);
}

} // namespace Monitor
