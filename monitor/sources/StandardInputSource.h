// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/ImageSink.h"
#include "monitor/sources/LineSource.h"

#include <QSocketNotifier>

#include <string>
#include <vector>

namespace Monitor {

/*! Lines from an open file descriptor, usually standard input: a pipe, a terminal or a file. If it begins like a grey image (PGM),
    it is images, one after the other, instead; those that do not say their time get that of their arrival. */
class StandardInputSource : public LineSource
{
    Q_OBJECT

public:
    //! Reads from \a descriptor, which it does not close.
    explicit StandardInputSource(Clock &clock, int descriptor = 0, QObject *parent = nullptr);
    QString description() const override;
    LineCounts counts() const override;

protected:
    void open() override;
    void close() override;
    void poll() override;

private:
    //! What arrives on standard input, which is not known before its first bytes.
    enum class Content {
        Unknown,
        Lines,
        Images
    };

    void readSome();
    void restUntilTick();
    bool readPiece();
    void takePiece(std::size_t size);
    void take(std::string_view bytes);
    void takeImages(std::string_view bytes);
    void takeImage(const PgmImage &image);
    void endInput();

    const int m_descriptor;
    Content m_content = Content::Unknown;
    std::string m_begin; //!< what came while that was not known
    ImageSink m_images;
    PgmReader m_reader;
    double m_lastTime; //!< of an image
    QSocketNotifier m_notifier;
    std::size_t m_roomOfPipe = 0; //!< in bytes; 0 of anything but a pipe
    std::size_t m_cameNow = 0; //!< bytes that were read in this turn of the event loop
    bool m_isResting = false; //!< whether the notifier is off until the next tick
    std::vector<char> m_piece;
};

} // namespace Monitor
