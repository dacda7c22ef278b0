// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include "corvale_qt/proxies/ReadingPrefixes_p.h"

#include <QVariant>

class QAbstractItemModel;
class QModelIndex;

namespace Corvale_Qt {

// What the cells and titles of RVXLatestPlotDataProxyModel show. Models and indexes are those of its source: \a header is a
// channel's cell in the header row, \a sample the channel's newest sample.

//! Returns the data of a reading while the model has no samples.
QVariant cellWithoutSample(int role);
//! Returns the channel's colour, lightened; black if the model gives none.
QVariant channelBackground(const QModelIndex &header);
//! Returns the model's text colour if the model has a background too, else black or white to suit channelBackground().
QVariant channelForeground(const QModelIndex &header);
//! Returns the text of a reading with the symbol of its channel's unit. A reading that is not finite gets no symbol.
QVariant readingWithUnit(const QModelIndex &sample);

//! Writes readings with the prefix of their channel. Works for a source of any kind; only that of a plot model has a known noise.
class LatestPrefixes
{
public:
    //! Forgets which readings they are, because the source, or what a proxy makes of it, may be another.
    void clear() { m_shared.reset(); }
    //! Forgets them after a reset of \a source, unless its readings are still those of the same acquisition.
    void restart(const QAbstractItemModel *source);
    //! Sets the unit that readings are shown in if their quantity has it; empty for the one that suits each.
    void setFixedUnit(const QString &symbol) { m_fixedUnit = symbol; }
    const QString &fixedUnit() const { return m_fixedUnit; }
    //! Returns the text of a reading with the prefix and the digits that suit it; that of the source if it is not finite.
    QVariant reading(const QModelIndex &sample);

private:
    std::shared_ptr<ReadingPrefixes> m_shared; // with the other displays of the same readings
    QString m_fixedUnit;
};

//! Returns whether channels have units with different symbols.
bool unitsDiffer(const QAbstractItemModel *model);
//! Returns "Data (unit)", or "Data" if channels have no unit or each reading shows its own. \a model may be null.
QString dataTitle(const QAbstractItemModel *model, bool readingsShowUnits);
//! Returns the check state of all channels together, partially checked if they differ; invalid without channels.
QVariant checkStateOfAll(const QAbstractItemModel *model);

} // namespace Corvale_Qt
