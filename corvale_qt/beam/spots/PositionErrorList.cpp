// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/PositionErrorList_p.h"

#include <QtNumeric>

#include <algorithm>

namespace Corvale_Qt {

void PositionErrorList::Sum::add(double value)
{
    if (!qIsFinite(value))
        return;
    sum += value;
    ++count;
}

double PositionErrorList::Sum::mean() const
{
    return count > 0 ? sum / count : qQNaN();
}

bool PositionErrorList::setErrorMap(const QVector<Spot> &spots)
{
    if (spots.constData() == m_spots.constData())
        return false;
    m_spots = spots;
    addUp();
    return true;
}

void PositionErrorList::insert(int row, const QVector<Spot> &spots)
{
    if (row == m_spots.size()) {
        for (const Spot &spot : spots)
            addErrorSpot(spot);
        return;
    }
    m_spots.insert(row, spots.size(), Spot());
    std::copy(spots.cbegin(), spots.cend(), m_spots.begin() + row);
    addUp();
}

void PositionErrorList::addErrorSpot(const Spot &spot)
{
    m_spots.append(spot);
    m_x.add(spot.xError);
    m_y.add(spot.yError);
}

void PositionErrorList::updateErrorSpots(int first, const QVector<Spot> &spots)
{
    std::copy(spots.cbegin(), spots.cend(), m_spots.begin() + first);
    addUp();
}

void PositionErrorList::remove(int first, int count)
{
    m_spots.remove(first, count);
    addUp();
}

QPointF PositionErrorList::meanError() const
{
    return QPointF(m_x.mean(), m_y.mean());
}

double PositionErrorList::energy() const
{
    return m_spots.isEmpty() ? qQNaN() : m_spots.constLast().energy;
}

void PositionErrorList::addUp()
{
    m_x = Sum();
    m_y = Sum();
    for (const Spot &spot : qAsConst(m_spots)) {
        m_x.add(spot.xError);
        m_y.add(spot.yError);
    }
}

} // namespace Corvale_Qt
