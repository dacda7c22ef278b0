// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QComboBox>

namespace Corvale_Qt {

class TimeSpanBoxPrivate;

/*! A combo box for the length of time that a chart shows: from 1 s to 7 d, all, or whatever the user types as TimeSpan reads
    it. A text that is not a time span is refused in words, in a tool tip and by refused(), and the box shows the span that
    applies again. Escape also brings that back.

    \code
    auto *box = new TimeSpanBox(panel);
    connect(box, &TimeSpanBox::spanChanged, scope, &RVXScope::setTimeSpan); // if x is in seconds
    \endcode */
class CORVALE_QT_EXPORT TimeSpanBox : public QComboBox
{
    Q_OBJECT
    //! The span in seconds, infinity for all; 60 at first.
    Q_PROPERTY(double span READ span WRITE setSpan NOTIFY spanChanged USER true)

public:
    //! Creates a box that shows one minute.
    explicit TimeSpanBox(QWidget *parent = nullptr);
    ~TimeSpanBox() override;

    //! Returns the span in seconds; infinity for all.
    double span() const;
    void hidePopup() override;

public Q_SLOTS:
    //! Sets the span in seconds, infinity for all. Ignores a number that is not a span, see TimeSpan::isPossible().
    void setSpan(double seconds);

Q_SIGNALS:
    //! The span is another one, in seconds.
    void spanChanged(double seconds);
    //! A text was typed that is not a time span; \a reason says so in words, as plain text.
    void refused(const QString &reason);
    /*! The user has closed the list, confirmed a span by Enter, or given up by Escape. A window may give the focus back to its chart,
        so that its keys work again. */
    void entryFinished();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    Q_DECLARE_PRIVATE(TimeSpanBox)
    const QScopedPointer<TimeSpanBoxPrivate> d_ptr;
};

} // namespace Corvale_Qt
