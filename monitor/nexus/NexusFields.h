// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"

#include <vector>

namespace Monitor {

//! Neighbouring values of a reading that one data set holds.
struct NexusField
{
    QString name; //!< of the data set: letters, digits and underscores
    QString givenName; //!< as the stream calls it
    QString unit;
    int first = 0; //!< index of its first value in a reading
    std::vector<int>
        sizes; //!< of a row: none for a number, n for a profile, rows and columns for an image
    QStringList channels; //!< the names of its channels, if it has several that have names

    //! Returns the number of its values in a reading.
    int width() const;
};

//! The places of the values of a profile or an image along one axis.
struct NexusAxis
{
    QString name;
    QString unit; //!< empty if they are counted
    QVector<double> places;
};

//! Data sets that one plot shows: they have the same axes and the same unit.
struct NexusGroup
{
    QString name;
    std::vector<NexusField> fields;
    std::vector<NexusAxis> axes; //!< behind the time
};

/*! Returns how the readings of a stream are laid out: a group for the channels of each unit; one for the images of a matrix; one
    for each plane of strips. Readings of a detector that wires them to its cells in another order stay as they come. */
std::vector<NexusGroup> nexusGroups(const StreamHeader &header);

/*! Returns a name that every program can read, which \a taken does not have yet: other signs than letters, digits and underscores
    become underscores, and a number is added if need be. It is added to \a taken. */
QString nexusName(const QString &given, QStringList *taken);

} // namespace Monitor
