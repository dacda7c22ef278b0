// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/profile/BeamFrame_p.h"
#include "corvale_qt/beam/profile/ChargeLimit_p.h"
#include "corvale_qt/beam/profile/MeanHistory_p.h"
#include "corvale_qt/beam/profile/MeanTimePlot_p.h"
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/beam/profile/SpectrogramPlot_p.h"

#include "ui_RVXSpectrogram.h"

#include <QTimer>

#include <memory>

namespace Corvale_Qt {

/*! Connects the controls of the side bar with the plots, decides when a frame is shown, and shows its numbers. */
class RVXSpectrogramPrivate
{
    Q_DECLARE_PUBLIC(RVXSpectrogram)

public:
    explicit RVXSpectrogramPrivate(RVXSpectrogram *q);

    void build();

    // Layout, unit and scale.
    void setLayout(ProfileLayout layout, const QString &title);
    void setCurrent(bool current);
    void setSampleRate(int rate);
    void applyUnit();
    void chooseScale(int index);
    void applyScale();
    void setInverted();

    // From a new frame to the screen.
    void takeFrame(const QVector<double> &data, double timestamp);
    void remember(const SpectrogramCalc &calc, double timestamp);
    void tick();
    bool isBelowThreshold(const BeamFrame &frame) const;
    void present(const BeamFrame &frame);
    void presentAgain();
    void showFrame(const BeamFrame &frame);
    void showResults();
    void clearFrame();

    FrameOptions frameOptions() const;
    EllipseOptions ellipseOptions() const;

    Ui::RVXSpectrogram ui{};
    SpectrogramPlot *plot = nullptr;
    MeanTimePlot *timePlot = nullptr;
    std::shared_ptr<MeanHistory> history = std::make_shared<MeanHistory>();
    QTimer timer;
    QTimer showNewest; //!< fires once the events that are queued already are handled

    QString name;
    ProfileLayout layout = ProfileLayout::None;
    RegressionOptions<double> regression;

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
    std::unique_ptr<ChargeLimit> threshold;
    std::unique_ptr<ChargeLimit> discriminator;

    SpectrogramCalc calc;
    double axisRotation = 0.0;
    FrameReadings shownCharges{}; //!< the charges that the calculation was made from
    bool hasFrame = false;
    FrameReadings newestCharges{};
    bool newestWaits = false; //!< whether the newest frame is still to be painted

private:
    void buildPlots();
    void connectControls();
    void connectDisplayOptions();
    void showNoNumbers(const QString &text);
    BeamFrame frameOf(const FrameReadings &charges) const;
    double colorRange() const;
    double readingFactor() const { return current ? sampleRate : 1.0; }
    //! Returns the full scale of the current mode, or 0 if it has none.
    double fullScale() const { return current ? currentFullScale : chargeFullScale; }

    RVXSpectrogram *const q_ptr;
};

} // namespace Corvale_Qt
