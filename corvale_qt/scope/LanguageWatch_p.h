// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QObject>

class QWidget;

namespace Corvale_Qt {

//! Tells when a widget is told that the language of the program has changed, so that texts that were kept are made anew.
class LanguageWatch : public QObject
{
    Q_OBJECT

public:
    //! Watches \a widget, which becomes the parent.
    explicit LanguageWatch(QWidget *widget);

Q_SIGNALS:
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace Corvale_Qt
