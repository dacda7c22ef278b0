// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LoggedText.h"

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace Monitor {

//! A grey image as a frame: row after row, the lowest row of the picture first, since rows count upwards.
struct PgmImage
{
    int rows = 0;
    int columns = 0;
    std::vector<double> values;
    std::optional<double> time; //!< in seconds; nothing if the image does not say it
};

/*! Reads grey images (PGM; P2 and P5, 8 and 16 bits) from bytes in whatever pieces they come, one image after the other. A comment
    "# t 0.25" in the header of an image says its time in seconds.

    An image whose sizes or values make no sense is refused. What follows it can only be read if it is known where the image
    ends. */
class PgmReader
{
public:
    //! Takes an image that is complete.
    using ImageHandler = std::function<void(const PgmImage &image)>;
    //! Takes the reason why an image was refused.
    using FaultHandler = std::function<void(const LoggedText &fault)>;

    PgmReader(ImageHandler image, FaultHandler fault);

    /*! Returns whether a stream that begins with these bytes is one of grey images: P2 or P5, white space, and a number or a
        comment. Returns nothing if more bytes are needed to tell; 64 are always enough. */
    static std::optional<bool> suits(std::string_view begin);
    //! Takes further bytes.
    void feed(std::string_view bytes);
    //! Ends the stream: refuses an image of which something is missing.
    void finish();
    //! Forgets everything; the next byte begins an image.
    void restart();
    //! Returns whether the rest of the bytes cannot be read.
    bool isLost() const { return m_state == State::Lost; }

private:
    enum class State {
        Magic,
        Columns,
        Rows,
        Largest,
        Text,
        Binary,
        Lost
    };

    void takeByte(unsigned char byte);
    void takeHeaderByte(unsigned char byte);
    void beginComment();
    void takeComment(unsigned char byte);
    void takeMagic(unsigned char byte);
    void endNumber();
    void beginRaster();
    void takeTextByte(unsigned char byte);
    std::size_t takeBinary(std::string_view bytes);
    void takeValue(int value);
    void lose(const LoggedText &fault);

    const ImageHandler m_imageHandler;
    const FaultHandler m_faultHandler;
    State m_state = State::Magic;
    std::string m_magic;
    bool m_inComment = false;
    std::string m_comment;
    std::optional<int> m_number; //!< the digits so far
    int m_largest = 0;
    std::optional<int> m_highByte; //!< of a value of 16 bits
    std::size_t m_taken = 0; //!< values of the image so far
    LoggedText m_fault; //!< why the image will be refused at its end
    PgmImage m_image;
};

} // namespace Monitor
