// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/ChargeLimit_p.h"
#include "corvale_qt/widgets/QScienceSpinBox.h"

namespace Corvale_Qt {

ChargeLimit::ChargeLimit(QScienceSpinBox *box)
    : m_box(box)
    , m_charge(box->value())
{
    m_edited = QObject::connect(box,
                                QOverload<double>::of(&QDoubleSpinBox::valueChanged),
                                [this](double value) {
                                    m_charge = value / m_factor;
                                });
}

ChargeLimit::~ChargeLimit()
{
    QObject::disconnect(m_edited);
}

double ChargeLimit::value() const
{
    return m_box->value();
}

void ChargeLimit::setFactor(double factor)
{
    m_factor = factor;
    const QSignalBlocker blocker(m_box);
    m_box->setValue(m_charge * factor);
}

} // namespace Corvale_Qt
