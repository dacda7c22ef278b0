// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/dialogs/QuietColor.h"

#include <QEvent>
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
        setAlignment(Qt::AlignLeft | Qt::AlignTop);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        setWordWrap(
            true); // after the policy, to which it adds that the height depends on the width
        quieten();
    }
    //! Returns one line, so that a form gives each text the lines that its width needs, and none that a label guesses.
    QSize sizeHint() const override { return {QLabel::sizeHint().width(), fontMetrics().height()}; }
    QSize minimumSizeHint() const override
    {
        return {QLabel::minimumSizeHint().width(), fontMetrics().height()};
    }

protected:
    void changeEvent(QEvent *event) override
    {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange)
            quieten();
    }

private:
    void quieten()
    {
        const QPalette around = parentWidget() ? parentWidget()->palette() : QPalette();
        const QColor quiet = quietColor(around, QPalette::WindowText, QPalette::Window);
        if (palette().color(QPalette::WindowText) == quiet)
            return; // the new palette is announced as well
        QPalette own;
        own.setColor(QPalette::WindowText, quiet);
        setPalette(own);
    }
};

} // namespace Monitor
