// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QDateTime>
#include <QObject>
#include <QString>

#include <memory>

class QAbstractItemModel;

namespace Corvale_Qt {

class PlotDataExportPrivate;

/*! Writes rows of a plot model as CSV, slice by slice, so that the event loop goes on meanwhile and the user can cancel.

    The first line has the titles: "time (s)", "UTC" if startTime() is set, and the name of each channel with its unit in
    parentheses. Each row is a line: x, the moment in UTC to a millisecond, and the readings with as many digits as restore them;
    a field is empty where there is no finite reading. A title that would not be one field is quoted.

    The rows are copied when the export starts, so rows that come or leave meanwhile change nothing. The file appears under its
    name when it is complete; a canceled or failed export leaves no file, and an older one as it was.

    \code
    auto *save = new PlotDataExport(&model, this);
    connect(save, &PlotDataExport::finished, save, &QObject::deleteLater);
    save->start("shown.csv");
    \endcode */
class CORVALE_QT_EXPORT PlotDataExport : public QObject
{
    Q_OBJECT

public:
    //! Constructs an export of all rows and channels of a model, which is not owned. A model that is not a plot model has no rows.
    explicit PlotDataExport(const QAbstractItemModel *model, QObject *parent = nullptr);
    ~PlotDataExport() override;

    //! Exports only rows \a first to \a last, both included, as far as the model has them.
    void setRows(int first, int last);
    /*! Exports only rows whose x is at least \a left and at most \a right: those from the first to the last such row, as far as
        setRows() allows. */
    void setTimes(double left, double right);
    //! Sets whether channels that are not shown (check state 0) are left out; they are not at first.
    void setShownOnly(bool shownOnly);
    //! Sets the moment at which x was 0, in which case x is in seconds; invalid, as at first, if it is not known.
    void setStartTime(const QDateTime &moment);

    /*! Begins to write to \a path. Returns false, with errorString(), if the file cannot be opened or nothing is to be written, or if
        the export is running already. */
    bool start(const QString &path);
    //! Ends the export, without a file; finished() follows.
    void cancel();
    //! Returns whether rows are still being written.
    bool isRunning() const;
    //! Returns how many rows are written in all.
    int rows() const;
    //! Returns what went wrong; empty if nothing did.
    QString errorString() const;

Q_SIGNALS:
    //! Some more rows were written; \a rows counts them all.
    void progressed(int rows);
    //! The export has ended; \a complete says whether the file is there.
    void finished(bool complete);

private:
    const std::unique_ptr<PlotDataExportPrivate> d;
};

} // namespace Corvale_Qt
