// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/beam/profile/SpectrogramCalc.h"
#include "corvale_qt/corvale_qt_export.h"

#include <QScopedPointer>
#include <QVector>
#include <QWidget>

namespace Corvale_Qt {

class RVXSpectrogramPrivate;

/*! The two-dimensional beam profile: each frame of readings as an intensity raster, with the sigma ellipse, the
    means, a displacement arrow, and the beam's numbers.

    | layout        | readings of a frame                              | raster                 |
    |---------------|--------------------------------------------------|------------------------|
    | setL408()     | X strips in values 0 to 31, Y strips in 64 to 95 | 32 x 32 cells of 2 mm  |
    | setPixelated()| 120 pixels among the 128 values                  | 12 x 12 cells of 3.8 mm|

    Frames may come at any rate: a calculation is shown at most ten times a second, and that of the newest frame
    always is, at the next tick at the latest. With the side bar, the numbers are shown there; without it they are
    the owner's, who gets calcUpdate().

    \code
    auto *profile = new Corvale_Qt::RVXSpectrogram(window);
    profile->setPixelated(true);
    profile->setRange(1e-6, 1e-9); // full scale in ampere, and in coulomb
    profile->setData(charges, seconds);
    \endcode

    A value that is missing or not finite counts as 0. */
class CORVALE_QT_EXPORT RVXSpectrogram : public QWidget
{
    Q_OBJECT
    //! Lets the time plot's history grow beyond 3000 frames.
    Q_PROPERTY(bool unlimitedHistory READ unlimitedHistory WRITE setUnlimitedHistory)

public:
    explicit RVXSpectrogram(QWidget *parent = nullptr);
    ~RVXSpectrogram() override;

    //! The calculation that is shown, or was shown last; not valid before the first one.
    SpectrogramCalc getCalc() const;
    bool getCurrentEnabled() const;
    //! In the unit in force, coulomb or ampere.
    double getDiscriminator() const;
    bool getXinverted() const;
    bool getYinverted() const;
    bool unlimitedHistory() const;
    void setUnlimitedHistory(bool unlimited);

public Q_SLOTS:
    /*! Takes one frame, in coulomb, and its time in seconds. A frame with the time stamp of the one before is
        ignored (so is a first frame at 0, which the display starts from); a step back in time clears the time
        plot; a time that is not finite is refused with a debug line. */
    void setData(const QVector<double> &readings, double timestamp);
    /*! Options of the strip pair's Gaussian fits: threshold fraction, half width in strips, minimum peak, a number
        that is not used, weight power. Fewer than four entries stand for 0, 1024, 1e-15 and 2; the two other
        arguments are for the histograms' sake. */
    void SetRegressionOptions(bool enabled, const QVector<double> &options, int peaks);
    //! Chooses the strip pair; clears the time plot, and what was shown of another layout. False leaves the display without that layout.
    void setL408(bool enabled);
    //! Chooses the pixel matrix; clears the time plot, and what was shown of another layout. False leaves the display without that layout.
    void setPixelated(bool enabled);
    //! Names the display on the debug stream.
    void setName(const char *name);
    /*! Full scale in current mode (ampere) and in charge mode (coulomb). Where it is 0, a mode has none, and every
        scale follows the frame. Ignored where either is negative or not finite. */
    void setRange(double current, double charge);
    /*! Frames per second: what turns a charge into a current. Ignored unless above 0. Threshold and discriminator
        stay the charges that they are. */
    void setSampleRate(int rate);
    //! Chooses an entry of the scaling box, counted from 0; any other index stands for 100 %.
    void setScale(int index);
    //! Shows currents (charge times sample rate) instead of charges.
    void currentEnabled(bool enabled);
    //! Shows the colour bar.
    void scaleEnabled(bool enabled);
    //! Shows the side bar; without it calcUpdate() tells of new numbers.
    void sidebarEnabled(bool enabled);
    //! Disabled, the display is grey and frames are no longer painted.
    void setEnabled(bool enabled);

Q_SIGNALS:
    //! A new calculation is there; only while the side bar is not enabled.
    void calcUpdate();
    //! The user chose another entry of the scaling box.
    void changedYScale(int index);

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void update();

private:
    Q_DECLARE_PRIVATE(RVXSpectrogram)
    const QScopedPointer<RVXSpectrogramPrivate> d_ptr;
};

} // namespace Corvale_Qt
