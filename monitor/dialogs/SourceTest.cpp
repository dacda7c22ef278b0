// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/SourceTest.h"

#include "monitor/core/Clock.h"
#include "monitor/core/NumberText.h"
#include "monitor/core/RegularFile.h"
#include "monitor/core/Text.h"
#include "monitor/input/LineText.h"
#include "monitor/nexus/NexusFiles.h"
#include "monitor/readings/StreamDetector.h"
#include "monitor/sources/SourceFactory.h"

#include <QFile>
#include <QTimer>

#include <cmath>

namespace Monitor {

namespace {

constexpr int mostBytes = 4096;
constexpr int mostValues = 6;

QString readingText(const StreamHeader &header, double time, const double *values)
{
    QStringList texts;
    for (int i = 0; i < header.channels.size() && i < mostValues; ++i) {
        const Channel &channel = header.channels.at(i);
        const QString number =
            std::isnan(values[i]) ? SourceTest::tr("none") : numberText(values[i], 6);
        texts.append(QStringLiteral("%1 %2 %3").arg(channel.name, number, channel.unit).trimmed());
    }
    if (header.channels.size() > mostValues)
        texts.append(QStringLiteral("..."));
    return QStringLiteral("  t %1 s: %2")
        .arg(time, 0, 'g', 10)
        .arg(texts.join(QStringLiteral(", ")));
}

} // namespace

SourceTest::SourceTest(Clock &clock, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
{
    connect(&clock, &Clock::tick, this, &SourceTest::endIfSilent);
}

SourceTest::~SourceTest() = default;

void SourceTest::start(const QString &text, const FileSource::Options &options)
{
    stop();
    m_bytes.clear();
    m_header = StreamHeader();
    m_readings.clear();
    m_refused.clear();
    m_result = tr("Waiting for the first readings ...");
    FileSource::Options fast = options;
    fast.speed = 0.0;
    fast.loop = false;
    SourceFactory factory(m_clock, fast);
    m_source = factory.make(text);
    if (!m_source) {
        end(factory.errorString());
        return;
    }
    QFile file(text);
    const bool isText = qobject_cast<FileSource *>(m_source.get()) && !isHdf5File(text);
    if (isText && openRegular(file))
        takeLines(file.read(mostBytes));
    connect(m_source.get(), &Source::bytesArrived, this, &SourceTest::takeLines);
    connect(m_source.get(), &Source::streamStarted, this, &SourceTest::takeHeader);
    connect(m_source.get(), &Source::readingsArrived, this, &SourceTest::takeReadings);
    connect(m_source.get(), &Source::stateChanged, this, &SourceTest::takeState);
    connect(m_source.get(), &Source::lineRefused, this, [this](const RefusedLine &line) {
        if (m_refused.isEmpty())
            m_refused = line.phrase();
    });
    m_startedAt = m_clock.seconds();
    m_source->setReconnecting(false); // what it says of its end would promise another try
    m_source->start();
    Q_EMIT changed();
}

void SourceTest::stop()
{
    m_source.reset();
}

void SourceTest::takeLines(const QByteArray &bytes)
{
    const int room = mostBytes - m_bytes.size();
    m_bytes.append(bytes.constData(), qMin(room, bytes.size()));
}

void SourceTest::takeHeader(const StreamHeader &header)
{
    m_header = header;
    Q_EMIT changed();
}

void SourceTest::takeReadings(const ReadingBlock &readings)
{
    for (int row = 0; row < readings.size() && m_readings.size() < mostLines; ++row)
        m_readings.append(readingText(m_header, readings.time(row), readings.values(row)));
    if (m_readings.size() == mostLines)
        end(tr("The source works."));
    else
        Q_EMIT changed();
}

void SourceTest::takeState(Source::State state, const QString &text)
{
    using State = Source::State;
    if (state == State::Failed || state == State::Retrying)
        end(QStringLiteral("%1. %2").arg(text, m_source->remedy()));
    else if (state == State::Finished)
        end(m_readings.isEmpty() ? emptyText(text) : tr("The source works."));
}

//! Returns why the source ended without a reading, or how it \a ended and what to check if it does not say why.
QString SourceTest::emptyText(const QString &ended) const
{
    const QString why = m_source->emptyReason();
    const QString what = ended.isEmpty() ? tr("It contains no readings") : ended;
    return why.isEmpty() ? QStringLiteral("%1. %2").arg(what, m_source->remedy())
                         : tr("It contains no readings: %1.").arg(why);
}

void SourceTest::endIfSilent()
{
    if (!m_source || m_clock.seconds() - m_startedAt < patience)
        return;
    if (m_readings.isEmpty() && !m_bytes.isEmpty())
        end(tr("Something arrived, but nothing of it could be read within %1 s. The source must "
               "send lines of numbers; see Help > Line protocol.")
                .arg(patience));
    else if (m_readings.isEmpty())
        end(tr("Nothing arrived within %1 s. %2").arg(patience).arg(m_source->remedy()));
    else
        end(Text::counted("The source works. It sent only %n reading(s) within %1 s.",
                          nullptr,
                          m_readings.size())
                .arg(patience));
}

//! Ends the test. This is called from a slot of the source, which is therefore deleted later.
void SourceTest::end(const QString &result)
{
    m_result = result;
    if (m_source) {
        m_source->disconnect(this);
        m_source.release()->deleteLater();
    }
    Q_EMIT changed();
}

QString SourceTest::report() const
{
    QStringList lines{m_result};
    if (!m_refused.isEmpty() && !m_readings.isEmpty())
        lines.append(tr("Some lines cannot be used; the first is %1").arg(m_refused));
    if (!m_bytes.isEmpty()) {
        lines.append({QString(), tr("First lines:")});
        const QList<QByteArray> raw = m_bytes.split('\n');
        for (int i = 0; i < raw.size() && i < mostLines; ++i)
            lines.append(QStringLiteral("  ")
                         + QString::fromLatin1(escapedExcerpt(raw.at(i).trimmed().toStdString())));
    }
    if (!m_header.channels.isEmpty()) {
        lines.append(QString());
        lines.append(
            Text::counted("Read as %n channel(s), layout %1:", nullptr, m_header.channels.size())
                .arg(kindText(layoutKind(m_header))));
        lines.append(m_readings);
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace Monitor
