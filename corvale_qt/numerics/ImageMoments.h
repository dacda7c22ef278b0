// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/numerics/BeamEstimate.h"

#include <QVector>

namespace Corvale_Qt {

//! A matrix of charges and the places of its cells.
struct CORVALE_QT_EXPORT BeamImage
{
    int rows = 0; //!< number of rows
    int columns = 0; //!< number of columns
    QVector<double> charges; //!< rows x columns, row after row
    QVector<double> x; //!< middle of each column, rising or falling
    QVector<double> y; //!< middle of each row, rising or falling
    QVector<double> intervalsX; //!< length that each column stands for, above 0
    QVector<double> intervalsY; //!< length that each row stands for, above 0
    //! For each cell whether it measures nothing, and its charge is 0; empty if all cells measure.
    QVector<bool> unused;

    //! Returns whether all lists have the length that belongs to them.
    bool isUsable() const;
};

/*! The moments of a matrix. Lengths are in the unit of the cells' places; the charge is that of the cells. */
struct CORVALE_QT_EXPORT ImageMoments
{
    EstimateStatus status = EstimateStatus::NotEnoughCells; //!< the other numbers hold only with Ok
    double total = 0; //!< sum of the charges that were used, less the background
    double max = 0; //!< largest charge of a cell
    double meanX = 0; //!< centre of gravity
    double meanY = 0; //!< centre of gravity
    double sigmaX = 0; //!< root mean square width along x
    double sigmaY = 0; //!< root mean square width along y
    double sigmaMajor = 0; //!< root mean square width along the major axis
    double sigmaMinor = 0; //!< root mean square width along the minor axis
    double rotation =
        0; //!< direction of the major axis, radians from x towards y, in (-pi/2, pi/2]
    double background = 0; //!< charge per area that was subtracted
    bool clipped = false; //!< whether the area of integration was cut at the edge of the detector

    //! Returns whether the moments could be computed.
    bool isOk() const { return status == EstimateStatus::Ok; }
};

//! Computes the moments of all charges. It costs one pass over the cells.
CORVALE_QT_EXPORT ImageMoments imageMoments(const BeamImage &image);
/*! Computes the second moments as ISO 11146-1 defines them: less the background, the median of the four corners (5 % of the rows
    and columns, at least two; cells that measure nothing are left out), over a rectangle of three beam widths each way (6 sigma to
    each side of the centre), iterated. The rectangle has whole cells: those whose middle lies inside. */
CORVALE_QT_EXPORT ImageMoments secondMomentImage(const BeamImage &image);

} // namespace Corvale_Qt
