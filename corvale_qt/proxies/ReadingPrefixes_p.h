// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include "corvale_qt/units/SiPrefix.h"

#include <QPointer>
#include <QVariant>
#include <QVector>

#include <memory>

class QAbstractItemModel;

namespace Corvale_Qt {

//! A reading, and what its text depends on.
struct PrefixedReading
{
    int channel = 1; //!< counted from 1
    QString unit; //!< symbol of the unit that the value is given in
    double value = 0.0;
    double noise = 0.0; //!< standard deviation in the same unit; NaN if it is not known yet
};

/*! Chooses prefix and digits of readings. Each channel keeps its own from one reading to the next, and all displays of the same
    readings share them: legend, table, cursor and markers give the same text for the same reading. */
class ReadingPrefixes
{
public:
    /*! Returns the prefixes of the readings of a model. Models that pass on the same readings have the same ones: averages of
        length 1, and zeroing proxies that subtract the same zeros. A new acquisition has others. */
    static std::shared_ptr<ReadingPrefixes> of(const QAbstractItemModel *model);

    //! Follows the newest reading of a channel, and returns what it is shown with.
    Units::SiPrefix follow(const PrefixedReading &newest);
    //! Returns whether the readings of a model that was reset still have these prefixes: it was cleared, or got its readings back.
    bool outlastReset(const QAbstractItemModel *model) const;
    //! Returns what any reading of a channel is shown with: what the newest one has, as far as the reading allows.
    Units::SiPrefix alike(const PrefixedReading &reading) const;

private:
    QPointer<const QAbstractItemModel> m_model; // whose readings they are
    QVector<double> m_zeros; // which are subtracted from them
    QVariant m_acquisition; // to which they belong; not valid if the model does not tell
    QVector<Units::SiPrefix> m_prefixes; // of channel 1 and up
};

//! Returns the text of a reading with a prefix, in the unit \a fixedUnit if the quantity has it; empty for the prefix's own.
QString readingText(Units::SiPrefix prefix, double value, const QString &fixedUnit);

} // namespace Corvale_Qt
