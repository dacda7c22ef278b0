// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/FileSource.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace Monitor {

/*! Opens a source for a moment and reports its first lines and what they are read as. It ends after a few readings, when the
    source fails, or after some seconds. */
class SourceTest : public QObject
{
    Q_OBJECT

public:
    static constexpr int mostLines = 5;
    static constexpr double patience = 5.0; // s

    //! \a clock must outlive the test.
    explicit SourceTest(Clock &clock, QObject *parent = nullptr);
    ~SourceTest() override;

    //! Begins with another source, opened as \a options say.
    void start(const QString &source, const FileSource::Options &options);
    //! Closes the source.
    void stop();
    Clock &clock() const { return m_clock; }
    //! Returns what is known so far, as lines of text for a person.
    QString report() const;

Q_SIGNALS:
    //! Emitted when the report has changed.
    void changed();

private:
    void takeLines(const QByteArray &bytes);
    void takeHeader(const StreamHeader &header);
    void takeReadings(const ReadingBlock &readings);
    void takeState(Source::State state, const QString &text);
    QString emptyText(const QString &ended) const;
    void endIfSilent();
    void end(const QString &result);

    Clock &m_clock;
    std::unique_ptr<Source> m_source;
    double m_startedAt = 0.0;
    QByteArray m_bytes;
    StreamHeader m_header;
    QStringList m_readings;
    QString m_refused;
    QString m_result;
};

} // namespace Monitor
