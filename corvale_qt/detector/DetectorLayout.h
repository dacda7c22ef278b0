// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/detector/DetectorDescription.h"

#include <QMetaType>
#include <QSharedDataPointer>

class QDebug;

namespace Corvale_Qt {

class DetectorLayoutData;

/*! What a detector is: the places of its cells, which reading belongs to which cell, and how readings become charges.

    A layout is a value that cannot be changed; copies share their data. It is made from a DetectorDescription, which is
    checked as a whole, so every layout that is not empty can be used without further checks.

    \code
    DetectorDescription harp;
    harp.kind = DetectorKind::Strips;
    harp.x = DetectorAxis::at({-26.3, -18, -12, -6, 0, 6, 12, 18, 26.3}, "mm");
    DetectorFault fault;
    const DetectorLayout layout = DetectorLayout::fromDescription(harp, &fault);
    if (layout.isEmpty())
        qWarning() << fault.message();
    \endcode */
class CORVALE_QT_EXPORT DetectorLayout
{
public:
    //! The two axes of a detector.
    enum class Axis {
        X, //!< the strips of x, or the columns of a matrix
        Y, //!< the strips of y, or the rows of a matrix
    };

    static constexpr int maxStrips = 4096; //!< the most cells of a plane of strips
    static constexpr int maxSide = 256; //!< the most rows, and columns, of a matrix
    static constexpr int maxReadings = maxSide * maxSide; //!< the most readings of a frame

    //! Makes an empty layout: nothing is known about the detector.
    DetectorLayout();
    //! Shares the data of \a other.
    DetectorLayout(const DetectorLayout &other);
    //! Shares the data of \a other.
    DetectorLayout &operator=(const DetectorLayout &other);
    ~DetectorLayout();

    /*! Returns the layout that a description means. Returns an empty layout if something is wrong, and says in \a fault, if
        it is given, what it is and where. */
    static DetectorLayout fromDescription(const DetectorDescription &description,
                                          DetectorFault *fault = nullptr);
    //! Returns the pair of 32 strips of 2 mm that RVXSpectrogram::setL408() shows: x in readings 0 to 31, y in 64 to 95.
    static DetectorLayout stripPair();
    //! Returns the round matrix of 120 pixels of 3.8 mm that RVXSpectrogram::setPixelated() shows.
    static DetectorLayout pixelMatrix();

    //! Returns whether nothing is known about the detector.
    bool isEmpty() const;
    //! Returns the description that the layout was made from, with the number of readings, and without ordinary channels.
    const DetectorDescription &description() const;
    //! Returns how the cells are arranged.
    DetectorKind kind() const;
    //! Returns a short text for a person, for example "Harp 3, strips 16 + 16, mm".
    QString summary() const;

    //! Returns the number of cells along an axis, 0 if the detector does not have it.
    int cells(Axis axis) const;
    //! Returns the number of all cells.
    int cells() const;
    //! Returns the number of readings in a frame.
    int readings() const;
    //! Returns the index of the reading of a cell (x before y, or row after row), -1 if it is not wired.
    int readingAt(int cell) const;
    //! Returns the number of cells that are not wired.
    int unwiredCells() const;
    //! Returns the calibration of a reading's channel; that of an ordinary channel if there is none for the index.
    DetectorChannel channel(int reading) const;

    //! Returns the unit of an axis; empty if its positions are counted in cells.
    QString unit(Axis axis) const;
    //! Returns whether the cells of an axis are at a uniform distance.
    bool isUniform(Axis axis) const;
    //! Returns the centre of each cell in the unit of the axis, in the order of the cells, rising or falling.
    QVector<double> positions(Axis axis) const;
    //! Returns the width over which each cell collects.
    QVector<double> widths(Axis axis) const;
    //! Returns the part of the axis that each cell stands for: from the middle before it to the middle behind it.
    QVector<double> intervals(Axis axis) const;
    /*! Returns the position of an index that lies between cells: 2.5 is in the middle of cells 2 and 3, counted from 0.
        Beyond the ends, the distance of the outermost two cells goes on. */
    double positionAt(Axis axis, double index) const;
    //! Returns the lowest position that a cell of the axis covers; 0 without cells.
    double lowerEdge(Axis axis) const;
    //! Returns the highest position that a cell of the axis covers; 0 without cells.
    double upperEdge(Axis axis) const;

    //! Returns whether both describe the same detector.
    bool operator==(const DetectorLayout &other) const;
    //! Returns whether they describe different detectors.
    bool operator!=(const DetectorLayout &other) const { return !(*this == other); }

private:
    QSharedDataPointer<DetectorLayoutData> d;
};

//! Writes the summary of a layout.
CORVALE_QT_EXPORT QDebug operator<<(QDebug debug, const DetectorLayout &layout);

} // namespace Corvale_Qt

Q_DECLARE_METATYPE(Corvale_Qt::DetectorLayout)
