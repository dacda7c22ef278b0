// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QObject>

namespace Corvale_Qt {

class QScienceSpinBox;

/*! A limit that the operator edits in the current unit (coulomb or ampere). It is stored as a charge, so that
    switching the unit or the rate back and forth does not change it. */
class ChargeLimit
{
public:
    //! Starts with the value of \a box, which must outlive this object.
    explicit ChargeLimit(QScienceSpinBox *box);
    ~ChargeLimit();

    //! Returns the limit in the current unit.
    double value() const;
    //! Sets the factor from coulomb to the current unit, above 0. The box shows the new value without a signal.
    void setFactor(double factor);

private:
    Q_DISABLE_COPY(ChargeLimit)

    QScienceSpinBox *m_box;
    double m_charge;
    double m_factor = 1.0;
    QMetaObject::Connection m_edited;
};

} // namespace Corvale_Qt
