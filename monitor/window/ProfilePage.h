// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

class QLabel;

namespace Corvale_Qt {
class RVXSpectrogram;
} // namespace Corvale_Qt

namespace Monitor {

/*! The beam profile with its numbers: in the display's side bar if there is room for it beside the picture, otherwise
    in one line below. */
class ProfilePage : public QWidget
{
    Q_OBJECT

public:
    explicit ProfilePage(QWidget *parent = nullptr);
    Corvale_Qt::RVXSpectrogram *display() const { return m_display; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void showNumbers();

    Corvale_Qt::RVXSpectrogram *m_display;
    QLabel *m_numbers;
};

} // namespace Monitor
