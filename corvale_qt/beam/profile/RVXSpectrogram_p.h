// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/BeamFrame_p.h"
#include "corvale_qt/beam/profile/ChargeLimit_p.h"
#include "corvale_qt/beam/profile/DetectorMode_p.h"
#include "corvale_qt/beam/profile/MeanHistory_p.h"
#include "corvale_qt/beam/profile/MeanTimePlot_p.h"
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/beam/profile/ResultBoxes_p.h"
#include "corvale_qt/beam/profile/SpectrogramPlot_p.h"

#include "ui_RVXSpectrogram.h"

#include <QTimer>

#include <limits>
#include <memory>
#include <optional>

namespace Corvale_Qt {

class DetectorControls;

//! A frame as it was handed over.
struct TakenFrame
{
    FrameReadings charges{};
    DetectorFrame cells; //!< instead of the charges, on a described detector
    qint64 number = 0; //!< which call of setData() brought it, from 1; 0 for no frame
    double time = std::numeric_limits<double>::quiet_NaN(); //!< seconds

    bool exists() const { return number > 0; }
};

/*! Connects the controls of the side bar with the plots, decides when a frame is shown, and shows its numbers. */
class RVXSpectrogramPrivate
{
    Q_DECLARE_PUBLIC(RVXSpectrogram)

public:
    explicit RVXSpectrogramPrivate(RVXSpectrogram *q);

    void build();

    // Layout, unit and scale.
    void setLayout(ProfileLayout layout, const QString &title);
    void setDescribed(const DetectorLayout &layout);
    bool hasLayout() const { return detector.isOn() || layout != ProfileLayout::None; }
    void setCurrent(bool current);
    void setSampleRate(int rate);
    void applyUnit();
    QString amountUnit() const;
    void chooseScale(int index);
    void applyScale();
    void setInverted();

    // From a new frame to the screen.
    bool takesTime(double timestamp) const;
    void takeFrame(const QVector<double> &data, double timestamp);
    void takeCells(const DetectorFrame &cells, double timestamp);
    void takeNewest(TakenFrame taken);
    void remember(const SpectrogramCalc &calc, double timestamp);
    SpectrogramResult newestResult() const;
    SpectrogramResult shownResult() const;
    void tick();
    bool isBelowThreshold(const BeamFrame &frame) const;
    void present(const JudgedFrame &frame);
    void presentAgain();
    void announceShown();
    void processAgain();
    void showFrame(const JudgedFrame &frame);
    void showResults() { results.show(judged, sidebar); }
    void clearFrame();

    void setColors(const ColorSettings &colors);
    FrameOptions frameOptions() const;
    EllipseOptions ellipseOptions() const;

    Ui::RVXSpectrogram ui{};
    ResultBoxes results{ui};
    SpectrogramPlot *plot = nullptr;
    MeanTimePlot *timePlot = nullptr;
    std::shared_ptr<MeanHistory> history = std::make_shared<MeanHistory>();
    QTimer timer;
    QTimer showNewest; //!< fires once the events that are queued already are handled

    QString name;
    ProfileLayout layout = ProfileLayout::None; //!< None on a described detector
    DetectorMode detector;
    QString intensityUnit; //!< of the readings of a described detector; empty for coulomb or ampere
    bool siPrefix = false;
    QString
        valueUnit; //!< with siPrefix, the unit that is shown; empty for the prefix that suits each number
    double intensityFactor = 1.0; //!< what one base unit of a known intensityUnit is in it
    RegressionOptions<double> regression; //!< with the smallest peak as a charge

    bool redrawPending = false;
    bool drawing = true; //!< whether the widget is enabled
    bool sidebar = true;
    bool current = false;
    bool settingScale = false; //!< true while the host, not the user, chooses the scale
    bool autoScale = true;
    int sampleRate = 1;
    double currentFullScale = 1.0;
    double chargeFullScale = 1.0;
    double fraction = 1.0; //!< fraction of full scale that the colours reach
    double lastMaximum = 0.0; //!< last maximum above 0 since the layout was chosen; 0 before
    double lastTimestamp = 0.0;
    DetectorControls *detectorControls = nullptr; //!< made with the first layout
    std::unique_ptr<ChargeLimit> threshold;
    std::unique_ptr<ChargeLimit> discriminator;

    JudgedFrame judged; //!< what is shown
    qint64 framesHandedOver = 0;
    TakenFrame shown; //!< the frame that the calculation was made from
    TakenFrame newest;
    mutable std::optional<SpectrogramResult>
        newestNumbers; //!< empty until they are computed with the settings of now
    bool newestWaits = false; //!< whether the newest frame is still to be painted

private:
    void buildPlots();
    void connectControls();
    void connectDisplayOptions();
    JudgedFrame frameOf(const TakenFrame &taken) const;
    JudgedFrame judgedFrameOf(const TakenFrame &taken) const;
    SpectrogramResult resultOf(const TakenFrame &taken, const BeamFrame &frame) const;
    bool isEveryFrameAskedFor() const;
    double colorRange() const;
    double readingFactor() const { return current ? sampleRate : 1.0; }
    //! Returns the full scale of the current mode, or 0 if it has none.
    double fullScale() const { return current ? currentFullScale : chargeFullScale; }

    RVXSpectrogram *const q_ptr;
};

} // namespace Corvale_Qt
