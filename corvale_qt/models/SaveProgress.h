// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QIODevice>
#include <QtGlobal>

#include <functional>

namespace Corvale_Qt {

/*! How far RVXAbstractPlotDataModel::SaveDataToFile() has come. While an object of this class lives, it watches what is saved in
    its thread; of several, the newest does. RVXScope watches while an operator saves, shows the progress and lets it be canceled.

    A model that takes long calls goOn() now and then while it writes, if isWatched(). The event loop may run in goOn(): rows may
    come and leave, and the model may even be deleted, so it copies what it writes before the first call. After goOn() has
    returned false it leaves an older file of that name as it is (writeWhole()) and returns false.

    \code
    const Rows copy = rows;
    for (int row = 0; row < copy.size(); ++row) {
        write(copy[row]);
        if (row % 1000 == 0 && !SaveProgress::goOn(row, copy.size()))
            return false;
    }
    \endcode */
class CORVALE_QT_EXPORT SaveProgress
{
public:
    //! Gets the share that is done, from 0 to 1, and returns whether to go on.
    using Watcher = std::function<bool(double share)>;

    //! Begins to watch.
    explicit SaveProgress(Watcher watcher);
    ~SaveProgress();
    Q_DISABLE_COPY(SaveProgress)

    //! Returns whether somebody watches.
    static bool isWatched();
    //! Tells that \a done of \a all are written. Returns whether to go on; true if nobody watches.
    static bool goOn(qint64 done, qint64 all);

    /*! Writes a file as a whole: one of that name stays as it was until \a write has returned true and all is on the disk. Returns
        whether that is so. A pipe or a device is written directly, and so is a file in a folder where no second file can be made:
        there, a write that ends early leaves a part. */
    static bool writeWhole(const QString &fileName,
                           QIODevice::OpenMode mode,
                           const std::function<bool(QIODevice &file)> &write);

private:
    Watcher m_watcher;
    SaveProgress *const m_before;
};

} // namespace Corvale_Qt
