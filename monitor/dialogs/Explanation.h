// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QLabel>

namespace Monitor {

//! The line below a field that explains it: quieter than the field, and as wide as the form.
class Explanation : public QLabel
{
public:
    explicit Explanation(const QString &text, QWidget *parent = nullptr)
        : QLabel(text, parent)
    {
        setTextFormat(Qt::PlainText);
        setForegroundRole(QPalette::PlaceholderText);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
        setWordWrap(
            true); // after the policy, to which it adds that the height depends on the width
    }
};

} // namespace Monitor
