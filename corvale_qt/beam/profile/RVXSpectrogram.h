// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/beam/profile/SpectrogramCalc.h"
#include "corvale_qt/beam/profile/SpectrogramResult.h"
#include "corvale_qt/corvale_qt_export.h"
#include "corvale_qt/detector/BeamVerdict.h"
#include "corvale_qt/detector/DetectorFrame.h"
#include "corvale_qt/numerics/BeamEstimator.h"

#include <QPair>
#include <QRectF>
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
    | setLayout()   | one for each reading of the described detector   | the detector's cells   |

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

    Readings that are missing or not finite count as 0, but on a described detector: there the number of readings must be right,
    and one that is not finite makes its cell dead. */
class CORVALE_QT_EXPORT RVXSpectrogram : public QWidget
{
    Q_OBJECT
    //! Lets the time plot's history grow beyond 3000 frames.
    Q_PROPERTY(bool unlimitedHistory READ unlimitedHistory WRITE setUnlimitedHistory)
    /*! Whether every frame is judged by judgeEstimate(), and told as valid only if the numbers describe it. False at the start;
        frames of a described detector are judged in any case. */
    Q_PROPERTY(bool verdictEnabled READ isVerdictEnabled WRITE setVerdictEnabled)
    //! Symbol of the unit of a described detector's readings; coulomb or ampere, with SI prefixes, while it is empty.
    Q_PROPERTY(QString intensityUnit READ intensityUnit WRITE setIntensityUnit)
    /*! Whether integral, maximum, colour bar and what the mouse is over are shown with the prefix that suits them, such as nC; false
        at the start, when only a described detector without an intensityUnit has prefixes, on its plot. */
    Q_PROPERTY(bool siPrefix READ hasSiPrefix WRITE setSiPrefix)
    //! With siPrefix, the unit that they are shown in whatever the numbers, such as "nA"; empty, as at first, for one that suits each.
    Q_PROPERTY(QString valueUnit READ valueUnit WRITE setValueUnit)
    //! Whether the colours of a described detector follow the logarithm.
    Q_PROPERTY(bool logarithmicColors READ hasLogarithmicColors WRITE setLogarithmicColors)
    //! Whether profiles and their fits are drawn at the edges of a described detector; true at the start.
    Q_PROPERTY(bool projectionsVisible READ areProjectionsVisible WRITE setProjectionsVisible)
    //! How many of the last frames of a described detector are averaged, 1 to 100.
    Q_PROPERTY(int averagedFrames READ averagedFrames WRITE setAveragedFrames)
    //! Whether the background, once it is taken, is subtracted from the frames of a described detector; true at the start.
    Q_PROPERTY(bool backgroundSubtracted READ isBackgroundSubtracted WRITE setBackgroundSubtracted)

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

    // ---- A described detector, and verdicts ----

    //! The colour maps.
    enum ColorMap : int {
        Greyscale, //!< from black to white
        Color, //!< from black over blue, green and yellow to red
        Viridis, //!< rises evenly in brightness, also for colour-blind eyes
    };
    Q_ENUM(ColorMap)

    using QWidget::setLayout;
    /*! Shows a described detector instead of a preset: cells at their true places and widths, axes in its units, x to the right and y
        upwards. setData() then takes as many values as the layout has readings and refuses others with a debug line. Strips show the
        product of their profiles. An empty layout leaves the display without a layout. A list of channels, which has no places, is
        refused with a debug line. */
    void setLayout(const DetectorLayout &layout);
    //! Returns the layout that setLayout() set; empty while a preset, or nothing, is shown.
    DetectorLayout detectorLayout() const;
    /*! Returns the unit of the lengths along an axis that getCalc() and result() return: "mm" if the layout states a length, else "cells"
        or the symbol that it states. */
    QString lengthUnit(DetectorLayout::Axis axis) const;
    //! Returns the part of the plane that a described detector covers, in the units of lengthUnit(); the top is the lowest place.
    QRectF lengthArea() const;
    //! Takes one frame that is on its cells already. A frame of another layout than before has that layout shown.
    void setFrame(const DetectorFrame &frame, double timestamp);
    /*! Returns the frame that is shown, averaged and less the background, in the unit shown; without cells if there is none. For a
        preset, it is on the cells of DetectorLayout::stripPair() or pixelMatrix(). */
    DetectorFrame shownFrame() const;

    //! Returns how a described detector is estimated: regression for strips, least squares for a matrix, until one is chosen.
    BeamEstimator estimator() const;
    //! Chooses how a described detector is estimated. The regression uses SetRegressionOptions(), the centre of gravity SetCoGOptions().
    void setEstimator(BeamEstimator estimator);
    //! Returns the estimate along an axis of the frame that is shown, in the unit of the axis. It is not Ok unless frames are judged.
    BeamEstimate estimate(DetectorLayout::Axis axis) const;
    //! Returns the verdict on the frame that is shown. It is NotValid without reasons unless frames are judged.
    BeamVerdict verdict() const;
    //! Returns the limits by which frames are judged: those of the detector until others are set.
    VerdictLimits verdictLimits() const;
    //! Sets the limits by which frames are judged, and judges the frame that is shown again.
    void setVerdictLimits(const VerdictLimits &limits);
    //! Returns the property verdictEnabled.
    bool isVerdictEnabled() const;
    //! Sets the property verdictEnabled.
    void setVerdictEnabled(bool enabled);

    //! Returns the colour map.
    ColorMap colorMap() const;
    //! Chooses the colour map, of presets too.
    void setColorMap(ColorMap map);
    /*! Makes the colours of a described detector run from \a low to \a high, in the unit shown. Ignored unless \a low is below
        \a high. */
    void setColorRange(double low, double high);
    //! Makes the colours follow the scaling box again.
    void resetColorRange();
    //! Returns whether the colours have a range of setColorRange().
    bool hasColorRange() const;
    //! Returns where the colours of a described detector begin and end now, in the unit shown.
    QPair<double, double> colorRange() const;
    //! Returns the property logarithmicColors.
    bool hasLogarithmicColors() const;
    //! Sets the property logarithmicColors. A range that does not begin above 0 then spans three decades.
    void setLogarithmicColors(bool logarithmic);
    //! Returns the property projectionsVisible.
    bool areProjectionsVisible() const;
    //! Sets the property projectionsVisible.
    void setProjectionsVisible(bool visible);
    //! Returns the property intensityUnit.
    QString intensityUnit() const;
    //! Sets the property intensityUnit.
    void setIntensityUnit(const QString &unit);
    //! Returns the property siPrefix.
    bool hasSiPrefix() const;
    //! Sets the property siPrefix. The numbers that functions return stay in their unit.
    void setSiPrefix(bool on);
    //! Returns the property valueUnit.
    QString valueUnit() const;
    /*! Sets the property valueUnit. Of several symbols with spaces in between, the first one of the quantity that is shown counts; one
        of another quantity fixes nothing. */
    void setValueUnit(const QString &symbol);
    //! Returns the part of a described detector that is shown, in the units of its axes; the top of the rectangle is its lowest place.
    QRectF shownArea() const;
    //! Shows a part of a described detector; an empty rectangle shows all of it.
    void setShownArea(const QRectF &area);

    //! Returns the property averagedFrames.
    int averagedFrames() const;
    //! Sets the property averagedFrames, limited to 1 to 100.
    void setAveragedFrames(int frames);
    //! Returns whether there is a background.
    bool hasBackground() const;
    //! Returns the property backgroundSubtracted.
    bool isBackgroundSubtracted() const;
    //! Sets the property backgroundSubtracted. The frame that is shown is computed again.
    void setBackgroundSubtracted(bool subtracted);
    //! Takes the mean of the next frames, 1 to 100, as background.
    void takeBackground(int frames);
    //! Forgets the background.
    void clearBackground();
    //! Returns what is done to frames, as text for a person; empty if nothing is done.
    QString frameProcessing() const;

    /*! Writes the frame that is shown as CSV; see docs/detector-file.md. Returns false if there is none, or if the file could not
        be written. */
    bool saveFrame(const QString &file) const;
    //! Writes a picture of the plot, in the format that the end of the name says. Returns false if it could not be written.
    bool savePicture(const QString &file) const;

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
    /*! Sets the options of the centre of gravity on described detectors, as the histograms take them: 0 for a threshold or 1 for a
        window, the threshold as a share of the peak, the half width of the window in cells. Without options all cells are used.
        The other two arguments are ignored. */
    void SetCoGOptions(bool enabled, const QVector<double> &options, int peaks);
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
    /*! Emitted when getCalc() has a new calculation, of a new frame or because a setting computes the one that is shown again,
        but only while the side bar is hidden. */
    void calcUpdate();
    /*! Emitted by setData() with the numbers of every frame that it takes; it ignores a repeated time stamp, a strip frame that
        is all 0, and all frames without a layout. While nobody is connected, frames that are not shown are not
        computed. */
    void frameCalculated(const Corvale_Qt::SpectrogramResult &result);
    /*! Emitted when getCalc() has a new calculation, of a new frame or because a setting computes the one that is shown again, whether
        the side bar is hidden or not. */
    void shownResultChanged();
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
