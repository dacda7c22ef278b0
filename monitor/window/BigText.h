// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

namespace Monitor {

//! Lines of text, all in the largest font in which they fit. The first line is a title and half as large.
class BigText : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    void setLines(const QStringList &lines);
    QStringList lines() const { return m_lines; }
    //! Greys the lines, as numbers that are old.
    void setFaint(bool faint);
    QSize minimumSizeHint() const override { return {240, 120}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int fittingPixels(const QRect &room) const;

    QStringList m_lines;
    bool m_faint = false;
};

} // namespace Monitor
