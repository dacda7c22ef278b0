// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/AmountUnit_p.h"
#include "corvale_qt/widgets/QScienceSpinBox.h"

namespace Corvale_Qt {

/*! Shows a charge or a current that nobody types. Its value is in the unit that was set; its text may have the prefix that suits
    it. */
class AmountBox : public QScienceSpinBox
{
public:
    using QScienceSpinBox::QScienceSpinBox;

    //! Sets the symbol of the unit, and whether the text has the prefix that suits the value.
    void setUnit(const AmountUnit &unit);
    //! Shows an amount, or what stands for none if it is not finite.
    void showAmount(double amount);

    QString textFromValue(double value) const override;
    //! Returns the value that is set: the text may be in another unit, and rounded.
    double valueFromText(const QString &text) const override;

private:
    QString unitText() const;

    Units::SiPrefix m_prefix;
    AmountUnit m_unit;
};

} // namespace Corvale_Qt
