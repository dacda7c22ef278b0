// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LoggedText.h"

#include <QByteArray>
#include <QMetaType>

namespace Monitor {

//! Why a line was dropped.
enum class Refusal {
    TooLong, //!< longer than a line may be
    TooManyValues, //!< more values than a reading may have
    WrongCount, //!< a different number of values than the lines before
    TimeBackwards, //!< its time goes backwards
    Unreadable, //!< a field is not a number, or a known word has an invalid value
};
//! Number of values of Refusal.
constexpr int refusalKinds = 5;

//! Returns a few words for a person, for example "longer than 2 MiB".
QString refusalText(Refusal refusal);

//! A line, an image or a reading that was dropped, and why.
struct RefusedLine
{
    //! What was dropped.
    enum class What {
        Line,
        Image, //!< an image of a file
        Reading, //!< a reading of a file that has no lines
    };

    What what = What::Line;
    Refusal refusal = Refusal::Unreadable;
    qint64 number = 0; //!< number of the line, image or reading in its stream, from 1
    QByteArray
        excerpt; //!< the beginning of the line, escaped; for an image the name of its file, for a
    //!< reading its time
    LoggedText reason; //!< what is wrong with the line, if more is known than its refusal

    //! Returns that it was dropped, and why, in one line and in the language in which texts are made at present.
    QString text() const;
    //! Returns the same as a part of a sentence: "line 3, not readable: "1,x"".
    QString phrase() const;
};

} // namespace Monitor

Q_DECLARE_METATYPE(Monitor::RefusedLine)
