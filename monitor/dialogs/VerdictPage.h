// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/dialogs/ScrolledPage.h"
#include <corvale_qt/detector/VerdictLimits.h>

#include <array>

class QDoubleSpinBox;
class QFormLayout;

namespace Monitor {

/*! The limits by which profile, histogram and report judge estimates, each with its meaning and its usual value. The page
    scrolls where there is no room for all of them. */
class VerdictPage : public ScrolledPage
{
    Q_OBJECT

public:
    explicit VerdictPage(QWidget *parent = nullptr);

    //! Returns what the fields say.
    Corvale_Qt::VerdictLimits limits() const;
    void setLimits(const Corvale_Qt::VerdictLimits &limits);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addLimit(QFormLayout *form, std::size_t index);

    std::array<QDoubleSpinBox *, Corvale_Qt::verdictLimitFields.size()> m_boxes{};
};

} // namespace Monitor
