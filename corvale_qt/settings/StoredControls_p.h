// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QList>
#include <QString>
#include <QVariant>

class QSettings;
class QWidget;

namespace Corvale_Qt {

/*! A list of controls whose values are kept in settings, each under its key. Check boxes, checkable groups and radio
    buttons are kept as bool, spin boxes as int and combo boxes as the int of the current index. */
class StoredControls
{
public:
    //! Appends a control, which is not owned.
    void add(const QString &key, QWidget *control);

    //! Returns the values of all controls, in the order in which they were added.
    QVariantList values() const;
    /*! Sets all controls without emitting their signals. Texts are converted to the type of the control, and values out
        of range become the nearest allowed one. */
    void setValues(const QVariantList &values);

    //! Reads the values from a group of the settings. A missing value counts as false or 0 in setValues().
    QVariantList read(QSettings &settings, const QString &group) const;
    //! Writes the values of all controls into a group of the settings.
    void writeAll(QSettings &settings, const QString &group) const;
    //! Writes the value of \a control into a group of the settings.
    void write(QSettings &settings, const QString &group, const QWidget *control) const;

private:
    struct Entry
    {
        QString key;
        QWidget *control;
    };
    QList<Entry> m_entries;
};

} // namespace Corvale_Qt
