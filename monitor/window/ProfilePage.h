// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

class QLabel;

namespace Corvale_Qt {
struct DetectorFrame;
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
    //! Shows a frame on its cells, and the detector that it comes from.
    void showFrame(const Corvale_Qt::DetectorFrame &frame, double time);
    //! Shows the numbers and the verdict of the frame in the display again.
    void showNumbers();
    //! Shows sums of readings in this unit, whatever they are; empty for one that suits each.
    void setValueUnit(const QString &symbol);

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QStringList numbers() const;
    QString length(double value, bool alongX) const;
    QString amount(double value) const;

    Corvale_Qt::RVXSpectrogram *m_display;
    QLabel *m_numbers;
};

} // namespace Monitor
