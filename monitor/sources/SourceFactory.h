// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/FileSource.h"

#include <memory>
#include <optional>

namespace Monitor {

/*! Makes sources from texts on the command line:

    sim:ic4, sim:strips, sim:pixels, sim:spots (with ?seed=N), file:PATH or a path of a table, of grey images or of a folder of them, - for standard input,
    tcp://HOST:PORT (with ?ask=TEXT&every=100ms), tcp-listen://ADDRESS:PORT, serial:DEVICE (with ?baud=N). The last
    three also take ?silence=30s. Another SCHEME:REST that is not a file is an address that a plugin reads. */
class SourceFactory
{
public:
    //! \a clock must outlive the sources; files are played with \a fileOptions.
    SourceFactory(Clock &clock, const FileSource::Options &fileOptions);

    //! Returns the source; null, with errorString(), if the text does not name one.
    std::unique_ptr<Source> make(const QString &text);
    //! Returns the path of the file that a text names; empty if it names another kind of source.
    static QString filePath(const QString &text);
    //! Returns what is wrong with the text and what would be right.
    QString errorString() const { return m_error; }

private:
    //! What a text begins with that names a source of this kind, and the function that makes one of the whole text.
    struct Kind
    {
        QString scheme;
        std::unique_ptr<Source> (SourceFactory::*make)(const QString &text);
    };

    //! Returns the built-in kind of source that a text names, other than a file or standard input; null for none.
    static const Kind *kindOf(const QString &text);
    std::unique_ptr<Source> simulator(const QString &text);
    std::unique_ptr<Source> tcpClient(const QString &text);
    std::unique_ptr<Source> tcpServer(const QString &text);
    std::unique_ptr<Source> serial(const QString &text);
    std::unique_ptr<Source> ofPlugin(const QString &text);
    std::unique_ptr<Source> failed(const QString &error);

    Clock &m_clock;
    const FileSource::Options m_fileOptions;
    QString m_error;
};

/*! Reads "100ms", "2s", "5min", "1h" or a plain number of seconds. Returns nothing for any other text and for a time
    that is not above 0. */
std::optional<double> secondsFromText(const QString &text);

} // namespace Monitor
