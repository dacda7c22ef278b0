// SPDX-License-Identifier: LGPL-2.1-or-later
/* +------------------------------------------------------------------+
   | Not part of the interface: this header may change in any version. |
   +------------------------------------------------------------------+ */
#pragma once

#include <QList>
#include <QString>
#include <QVariant>

class QSettings;
class QWidget;

namespace Corvale_Qt {

/*! Controls whose values are kept in settings, each under a key: check boxes, checkable groups and radio buttons
    as bool, spin boxes as int, combo boxes as the int of the current index. */
class StoredControls
{
public:
    void add(const QString &key, QWidget *control);

    //! The values of all controls, in the order in which they were added.
    QVariantList values() const;
    /*! Sets all controls, without a signal from any of them. Values that are texts count for what they say; those
        that are out of a control's range become its nearest. */
    void setValues(const QVariantList &values);

    //! The values that a group of the settings has; what is missing reads as false or 0.
    QVariantList read(QSettings &settings, const QString &group) const;
    void writeAll(QSettings &settings, const QString &group) const;
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
