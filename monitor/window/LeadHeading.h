// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QVector>

class QAction;
class QMenuBar;

namespace Monitor {

class Companions;

/*! Says in menus which entries concern the first source, while there are others beside it. An operator who zeroes the wrong
    instrument would not notice it at once. */
class LeadHeading : public QObject
{
    Q_OBJECT

public:
    explicit LeadHeading(Companions &companions, QObject *parent = nullptr);

    //! Puts a heading before the entry of that name in one of the menus of a bar.
    void addBefore(const QString &entry, const QMenuBar &bar);

private:
    void refresh();

    Companions &m_companions;
    QVector<QAction *> m_headings;
};

} // namespace Monitor
