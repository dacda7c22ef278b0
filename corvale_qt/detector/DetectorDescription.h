// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/detector/VerdictLimits.h"

#include <QString>
#include <QVector>

#include <limits>

namespace Corvale_Qt {

//! How the cells of a detector are arranged.
enum class DetectorKind {
    Channels, //!< a list of channels without places
    Strips, //!< one or two planes of strips or wires: the cells of x, then the cells of y
    Matrix, //!< rows and columns of cells, row after row
};

/*! The places of the cells along one axis, as a person states them.

    An axis with neither a pitch nor positions is counted in cells: cell 1 is at 1. An axis with a pitch has its zero in
    the middle of the detector. Positions are taken as they are stated. A reversed axis has the opposite sign. The offset is
    added last. */
struct CORVALE_QT_EXPORT DetectorAxis
{
    //! Returns an axis of \a count cells at a uniform \a distance, with its zero in the middle.
    static DetectorAxis uniform(int count, double distance, const QString &unit);
    //! Returns an axis with one cell at each of the \a places.
    static DetectorAxis at(const QVector<double> &places, const QString &unit);
    //! Returns an axis that is counted in cells.
    static DetectorAxis counted(int count);

    int cells = 0; //!< number of cells; 0 if the detector does not have this axis
    double pitch = std::numeric_limits<double>::quiet_NaN(); //!< NaN if it is not known
    QVector<double> positions; //!< centre of each cell, rising or falling; empty for a uniform axis
    //! Width over which each cell collects, or a single width for all of them; empty if cells touch each other.
    QVector<double> widths;
    double offset = 0; //!< added to every position
    QString unit; //!< unit of all lengths of the axis; empty for an axis that is counted in cells
    bool reversed = false; //!< whether the cells run against the direction of the axis
};

//! The calibration of one channel: charge = (reading - pedestal) / gain.
struct CORVALE_QT_EXPORT DetectorChannel
{
    QString name; //!< may be empty
    double gain = 1; //!< reading per charge, relative to the other channels; not 0
    double pedestal = 0; //!< reading without beam, in the unit of the readings
    //! Readings from here on are saturated, in the unit of the readings.
    double saturation = std::numeric_limits<double>::infinity();
    bool dead = false; //!< whether the readings of the channel mean nothing

    //! Returns whether all fields are equal.
    bool operator==(const DetectorChannel &other) const;
};

//! A detector as a person describes it. DetectorLayout checks it and computes the places of the cells.
struct CORVALE_QT_EXPORT DetectorDescription
{
    DetectorKind kind = DetectorKind::Channels; //!< how the cells are arranged
    QString title; //!< a name for people; may be empty
    DetectorAxis x; //!< the strips of x, or the columns of a matrix
    DetectorAxis y; //!< the strips of y, or the rows of a matrix
    /*! For each cell (x before y, or row after row) the index of its reading in a frame, -1 for a cell that is not
        wired. Empty if the readings come in the order of the cells. */
    QVector<int> wiring;
    //! Number of readings in a frame; 0 if it is the number of cells. Readings without a cell are allowed.
    int readings = 0;
    //! One for each reading; empty if all channels are as a channel is by default.
    QVector<DetectorChannel> channels;
    bool density =
        false; //!< whether a reading is a charge per length (or area), and not the charge of its cell
    //! Standard deviation of a reading without beam, in the unit of the readings; NaN if it is not known.
    double noise = std::numeric_limits<double>::quiet_NaN();
    //! By which profile display, histogram and reports judge what they find on the detector. All at least 0.
    VerdictLimits verdictLimits;
    //! Whether the limits were stated, even as the usual ones.
    bool verdictLimitsStated = false;

    /*! Returns whether the description states verdict limits, or holds others than the default. A program that lets its user
        choose limits applies them only to detectors without their own. */
    bool hasOwnVerdictLimits() const;
};

//! What is wrong with a description, and where.
struct CORVALE_QT_EXPORT DetectorFault
{
    QString
        place; //!< the key, with an index from 0 for an item of a list, for example "x.positions[4]"
    QString text; //!< what is wrong, as a sentence without its full stop
    int line = 0; //!< the line of the text that was read, from 1; 0 if it was not read from a text

    //! Returns whether there is no fault.
    bool isEmpty() const { return text.isEmpty(); }
    //! Returns one line for a person, for example "line 7, x.positions[4]: the positions do not rise".
    QString message() const;
};

} // namespace Corvale_Qt
