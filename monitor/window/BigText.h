// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

namespace Monitor {

/*! Lines of text, all in the largest font in which they fit. The first line is a title and half as large, or as large as its width lets it be.

    A tab is where a line may be broken; all of them are if the text can be larger then. The size stays while numbers
    change, unless they no longer fit or could be a quarter larger. */
class BigText : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    void setLines(const QStringList &lines);
    QStringList lines() const { return m_lines; }
    //! Greys the lines, as numbers that are old.
    void setFaint(bool faint);
    //! Returns the pixel size of the font, which is that of all lines but the title.
    int pixelSize() const { return m_pixels; }
    QSize minimumSizeHint() const override { return {240, 120}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QRect room() const;
    int fittingPixels(const QStringList &lines) const;
    void chooseSize();

    QStringList m_lines;
    bool m_broken = false;
    int m_pixels = 1;
    bool m_faint = false;
};

} // namespace Monitor
