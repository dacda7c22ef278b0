// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QByteArray>

#include <memory>

class QFile;

namespace Monitor {

/*! The text of a file that is compressed by zstd, piece by piece. The frames of such a file are independent of each
    other: reading can begin at each of them, and goes on behind a damaged one. Of a frame that says its size, and is not huge, nothing is
    given before its checksum was found right: damage may turn digits into others. */
class ZstdFrames
{
public:
    //! Reads from an open file, which must outlive this object, from its beginning.
    explicit ZstdFrames(QFile &file);
    ~ZstdFrames();

    //! Returns whether a file that begins with these bytes is compressed by zstd.
    static bool begins(const QByteArray &beginning);

    /*! Returns up to \a size further bytes of the text; fewer, or none, at its end and where the file is damaged. */
    QByteArray read(int size);
    //! Goes to that byte of the text. Returns false if the text ends before it or the file is damaged before it.
    bool seek(qint64 offset);
    //! Returns whether the next byte cannot be read because the file is damaged there or ends too early.
    bool isDamaged() const { return m_damaged; }
    //! What is passed over where a file is damaged.
    struct Damage
    {
        qint64 inFile = 0; //!< bytes of the file
        qint64 inText = -1; //!< bytes of the text; -1 if that is not known
        bool isAtEnd = false; //!< no frame follows
    };
    //! Goes on with the next frame after a damaged one, if there is one.
    Damage skipDamage();
    //! Returns the length of the whole text in bytes; -1 if the file does not say it.
    qint64 textSize() const;

private:
    struct Decoder;
    struct Place
    {
        qint64 inFile = 0;
        qint64 inText = 0;
    };
    bool findFrame(qint64 offset, Place *place) const;
    void beginAt(qint64 placeInFile);
    bool refill();
    bool decodeFrame();
    int takeDecoded(char *to, int size);
    void decodePiece(QByteArray *text, int *taken);

    QFile &m_file;
    const std::unique_ptr<Decoder> m_decoder;
    QByteArray m_input;
    std::size_t m_taken = 0; //!< bytes of the input that the decoder has taken
    qint64 m_inputBegin = 0; //!< where in the file the input begins
    qint64 m_frameBegin = 0; //!< where in the file the present frame begins
    QByteArray m_decoded; //!< text of a frame that was checked
    int m_decodedTaken = 0;
    bool m_insideFrame = false;
    bool m_damaged = false;
};

} // namespace Monitor
