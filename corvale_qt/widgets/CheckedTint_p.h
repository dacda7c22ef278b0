// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QObject>

class QAbstractButton;

namespace Corvale_Qt {

/*! Tints a button with the palette's highlight as long as it is checked. Styles draw a checked button a little darker, which
    is hardly seen with a dark palette. */
class CheckedTint : public QObject
{
public:
    //! The button becomes the parent.
    explicit CheckedTint(QAbstractButton *button);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void apply();

    QAbstractButton *m_button;
    bool m_isApplying = false;
};

} // namespace Corvale_Qt
