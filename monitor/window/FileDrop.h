// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>

class QWidget;

namespace Monitor {

//! Takes a file that is dropped on a window.
class FileDrop : public QObject
{
    Q_OBJECT

public:
    explicit FileDrop(QWidget *window);

Q_SIGNALS:
    //! Emitted with the path of the file.
    void dropped(const QString &path);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace Monitor
