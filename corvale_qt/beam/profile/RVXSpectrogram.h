// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/beam/profile/SpectrogramCalc.h"
#include "corvale_qt/beam/profile/SpectrogramResult.h"
#include "corvale_qt/corvale_qt_export.h"

#include <QScopedPointer>
#include <QVector>
#include <QWidget>

namespace Corvale_Qt {

class RVXSpectrogramPrivate;

/*! Shows the two-dimensional beam profile: each frame of readings as an intensity raster, with the sigma ellipse,
    the means, a displacement arrow, and the beam's numbers.

    | layout        | readings of a frame                              | raster                 |
    |---------------|--------------------------------------------------|------------------------|
    | setL408()     | X strips in values 0 to 31, Y strips in 64 to 95 | 32 x 32 cells of 2 mm  |
    | setPixelated()| 120 pixels among the 128 values                  | 12 x 12 cells of 3.8 mm|

    Frames may come at any rate: a calculation is shown at most ten times a second, and the newest frame is shown at
    the next tick at the latest. The side bar shows the numbers; if it is hidden, the widget emits calcUpdate()
    instead and the owner reads them with getCalc(). The numbers of every frame, shown or not, come with
    frameCalculated(), whether the display is visible or not.

    \code
    auto *profile = new Corvale_Qt::RVXSpectrogram(window);
    profile->setPixelated(true);
    profile->setRange(1e-6, 1e-9); // full scale in ampere, and in coulomb
    profile->setData(charges, seconds);
    \endcode

    Readings that are missing or not finite count as 0. */
class CORVALE_QT_EXPORT RVXSpectrogram : public QWidget
{
    Q_OBJECT
    //! Lets the time plot's history grow beyond 3000 frames.
    Q_PROPERTY(bool unlimitedHistory READ unlimitedHistory WRITE setUnlimitedHistory)

public:
    //! Makes a display without a layout, in charge mode, with full scales of 1 and a sample rate of 1.
    explicit RVXSpectrogram(QWidget *parent = nullptr);
    ~RVXSpectrogram() override;

    //! Returns the calculation of the frame that was shown last; it is not valid before the first frame.
    SpectrogramCalc getCalc() const;
    /*! Returns the numbers of the newest frame, whether it is shown already or not. They are computed when they are asked
        for, with the settings of now. */
    SpectrogramResult result() const;
    //! Returns the numbers of the frame that was shown last, as getCalc() does, and which frame it is.
    SpectrogramResult shownResult() const;
    //! Returns whether the display shows currents instead of charges.
    bool getCurrentEnabled() const;
    //! Returns the limit below which a pixel counts as 0, in the current unit (coulomb or ampere).
    double getDiscriminator() const;
    //! Returns whether the X axis, and with it mean X, is inverted.
    bool getXinverted() const;
    //! Returns whether the Y axis, and with it mean Y, is inverted.
    bool getYinverted() const;
    //! Returns whether the time plot's history may grow beyond 3000 frames; false at the start.
    bool unlimitedHistory() const;
    //! Lets the time plot's history grow without limit, or keeps it at 3000 frames from the next frame on.
    void setUnlimitedHistory(bool unlimited);

public Q_SLOTS:
    /*! Takes one frame, in coulomb, and its time in seconds. A frame with the same time as the one before is ignored;
        the display starts from 0, so a first frame at 0 is ignored too. A step back in time clears the time plot. A
        time that is not finite is refused with a debug line. */
    void setData(const QVector<double> &readings, double timestamp);
    /*! Sets the options of the strip pair's Gaussian fits: threshold fraction, half width in strips, minimum peak in
        coulomb, a number that is ignored, and weight power. With fewer than four entries all options are the defaults:
        0, 1024, 1e-15 and 2. The minimum peak stays a charge when currents are shown, so the same frames are fitted.
        The other two arguments are ignored; they match the signature of the histograms' slot. */
    void SetRegressionOptions(bool enabled, const QVector<double> &options, int peaks);
    /*! Chooses the strip pair, and clears the time plot and any frame of another layout. False only leaves the
        strip pair: the display then has no layout. */
    void setL408(bool enabled);
    /*! Chooses the pixel matrix, and clears the time plot and any frame of another layout. False only leaves the
        pixel matrix: the display then has no layout. */
    void setPixelated(bool enabled);
    //! Writes the display's name, in UTF-8, to the debug stream.
    void setName(const char *name);
    /*! Sets the full scale in current mode (ampere) and in charge mode (coulomb). A mode with 0 has no full scale:
        every scale then follows the frame. Ignored if either number is negative or not finite. */
    void setRange(double current, double charge);
    /*! Sets the number of frames per second, which converts charges to currents. Ignored unless above 0. Threshold
        and discriminator keep their charges. */
    void setSampleRate(int rate);
    //! Chooses an entry of the scaling box, counted from 0. Any other index chooses 100 %. Emits no changedYScale().
    void setScale(int index);
    //! Shows currents (charge times sample rate) instead of charges.
    void currentEnabled(bool enabled);
    //! Shows or hides the colour bar.
    void scaleEnabled(bool enabled);
    //! Shows or hides the side bar. While it is hidden, calcUpdate() announces new numbers.
    void sidebarEnabled(bool enabled);
    //! Enables or disables the display. While it is disabled, its controls are grey and no new frame is painted.
    void setEnabled(bool enabled);

Q_SIGNALS:
    //! Emitted when getCalc() has a new calculation, but only while the side bar is hidden.
    void calcUpdate();
    /*! Emitted by setData() with the numbers of every frame that it takes; it ignores a repeated time stamp, a strip frame that
        is all 0, and all frames without a layout. While nobody is connected, frames that are not shown are not
        computed. */
    void frameCalculated(const Corvale_Qt::SpectrogramResult &result);
    //! Emitted when the user chooses another entry of the scaling box; \a index is counted from 0.
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
