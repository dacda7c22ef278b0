// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QString>
#include <QStringList>
#include <QVector>

namespace Corvale_Qt {

class ScopeModel;

/*! The units of the channels that are shown, in the order of the channels. Units with different symbols count as different, also
    nA and uA: the numbers of such channels do not fit on one scale. The model is asked again only after outdate(). */
class ChannelUnits
{
public:
    //! The place of a unit among the units that are shown.
    enum Place {
        First,
        Second,
        Further,
    };

    //! The model must live as long.
    explicit ChannelUnits(const ScopeModel &model);

    //! Sets whether channels are told apart by their units; otherwise all have the unit of the model, and the first place.
    void setApart(bool on);
    bool areApart() const { return m_areApart; }
    //! Makes the next request ask the model again, since its units or the shown channels may have changed.
    void outdate() { m_isOutdated = true; }

    //! Returns a number that is another one after each change of places or units.
    int version() const;
    //! Returns the place of the unit of a channel, counted from 1.
    Place placeOf(int channel) const;
    //! Returns whether a channel is shown, whose unit is the first one then.
    bool hasFirst() const;
    //! Returns whether a channel is shown that has another unit than the first one.
    bool hasSecond() const;
    //! Returns the symbol of the first or the second unit; empty for none.
    QString symbol(Place place) const;
    //! Returns what 1 in the base unit is in the first unit; 1 without a unit.
    double scaleOfFirst() const;
    //! Returns the names of the channels that are shown and whose place is \a least or a later one.
    QStringList namesFrom(Place least) const;

private:
    void update() const;

    const ScopeModel &m_model;
    bool m_areApart = false;
    mutable bool m_isOutdated = true;
    mutable int m_version = 0;
    mutable QVector<Place> m_places; // of channel 1 and up
    mutable QStringList m_symbols; // of the channels that are shown
    mutable int m_firstChannel = 0; // the first one that is shown; 0 for none
};

} // namespace Corvale_Qt
