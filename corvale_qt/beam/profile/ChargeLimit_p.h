// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QObject>

namespace Corvale_Qt {

class QScienceSpinBox;

/*! A limit that an operator sets in the unit in force and that is kept as a charge, so that it is the same one
    after the unit, or the rate, was switched forth and back. */
class ChargeLimit
{
public:
    //! \a box must outlive this object.
    explicit ChargeLimit(QScienceSpinBox *box);
    ~ChargeLimit();

    //! In the unit in force.
    double value() const;
    //! What turns the charge into the unit in force, above 0; the box shows the product, without a signal.
    void setFactor(double factor);

private:
    Q_DISABLE_COPY(ChargeLimit)

    QScienceSpinBox *m_box;
    double m_charge;
    double m_factor = 1.0;
    QMetaObject::Connection m_edited;
};

} // namespace Corvale_Qt
