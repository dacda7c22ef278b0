// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace Monitor {

//! What becomes of the files of a recording once they are complete. While it is written, a file is always text.
enum class SegmentForm {
    Text, //!< it stays as it is
    Zstd, //!< it is compressed
    Hdf5, //!< it is written anew, in the form of NeXus
};

//! Returns "text", "zstd" or "hdf5".
QString segmentFormName(SegmentForm form);
//! Returns the form of that name; nothing if there is none.
std::optional<SegmentForm> segmentFormFromName(const QString &name);
//! Returns the names of all forms.
QStringList segmentFormNames();

//! Returns the path that a complete file has in a form: a.csv, a.csv.zst, a.h5.
QString completedPath(const QString &path, SegmentForm form);
//! Returns whether there is a file of that path, in any form.
bool existsInAnyForm(const QString &path);

//! How the text of a complete file is written in another form, and how the result is checked.
struct SegmentConversion
{
    //! Called with the progress, from 0 to 1; returns false to cancel the work.
    using GoesOn = std::function<bool(double)>;
    //! Does its part of the work; returns false, with a reason in \a why if there is one but the disk, on failure.
    using Step = std::function<
        bool(const QString &text, const QString &draft, const GoesOn &, QString *why)>;

    SegmentForm form = SegmentForm::Text;
    //! Returns whether there is anything to convert; a file that has nothing stays as it is. Null if every file has.
    std::function<bool(const QString &text)> suits;
    //! Whether the result may take the place of an older file, because the recording may overwrite.
    bool replaces = false;
    Step write; //!< writes the text into the draft, an empty file
    Step compare; //!< returns whether a reader finds the same in both
};

} // namespace Monitor
