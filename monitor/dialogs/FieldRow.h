// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QFormLayout>
#include <QLabel>

namespace Monitor {

/*! Adds a row of several widgets, with a label whose key leads to \a field, one of them. A focus proxy would do that too, but
    Tab then never leads to what comes after the row. */
inline void addFieldRow(QFormLayout *layout, const QString &label, QWidget *row, QWidget *field)
{
    auto *text = new QLabel(label);
    text->setBuddy(field);
    layout->addRow(text, row);
}

} // namespace Monitor
