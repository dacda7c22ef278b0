// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LoggedText.h"
#include <corvale_qt/beam/profile/RVXPositionPlot.h>
#include <corvale_qt/beam/profile/RVXSpectrogram.h>

#include <QObject>
#include <QPointF>
#include <QTimer>

#include <optional>

namespace Monitor {

class MultichannelDeviceModel;

/*! Hands the rows of the model to the displays that take frames: profiles, and positions, which come from the profiles
    or from the four halves of a split chamber. It follows the model, and therefore its pauses. */
class FrameFeeder : public QObject
{
    Q_OBJECT

public:
    //! The feeder does not own the model and the displays; they must outlive it.
    FrameFeeder(MultichannelDeviceModel *model,
                Corvale_Qt::RVXSpectrogram *profile,
                Corvale_Qt::RVXPositionPlot *position,
                QObject *parent = nullptr);

    //! Shows a frame of a stream of frames; \a values has all values of the reading.
    void takeFrame(double time, const QVector<double> &values);
    //! Sets what is subtracted from each channel, in its base unit, and shows the last reading again; nothing if it is empty.
    void setZeros(const QVector<double> &zeros);
    //! Sets the limits of the verdicts of the profile, on detectors that state none of their own.
    void setVerdictLimits(const Corvale_Qt::VerdictLimits &limits);
    //! Returns whether the model's stream has profiles.
    bool hasProfile() const { return !m_detector.isEmpty(); }
    //! Returns whether the model's stream has positions.
    bool hasPosition() const;
    //! Returns whether the profile display has shown a frame of this stream, whatever its verdict.
    bool hasShownProfile() const;
    //! Returns whether the position display has got a position of this stream.
    bool hasShownPosition() const;

Q_SIGNALS:
    /*! Emitted when what the profile leaves out of the shown frames has changed; empty if nothing is left out. */
    void leftOutChanged(const Monitor::LoggedText &text);

private:
    bool showsRows() const;
    void beginStream();
    void takeValues(double time, const QVector<double> &values);
    void tellLeftOut(const LoggedText &text);
    void feedRows(int first, int last);
    void convertZeros();
    void readRow(int row);
    QVector<double> values() const;
    void feed(int row);
    int firstRowToFeed(int first, int last) const;
    void beginDetector();
    void followProfile();
    void showWhyNotValid(double sum);
    std::optional<QPointF> placeBesideDetector() const;
    void feedLastAgain();
    void feedPosition(const double *values);

    MultichannelDeviceModel *const m_model;
    Corvale_Qt::RVXSpectrogram *const m_profile;
    Corvale_Qt::RVXPositionPlot *const m_position;
    Corvale_Qt::DetectorLayout m_detector; //!< empty without profiles
    Corvale_Qt::VerdictLimits m_verdictLimits;
    int m_left = -1, m_right = -1, m_up = -1, m_down = -1;
    std::vector<double> m_values;
    QVector<double> m_baseZeros;
    QVector<double> m_zeros; //!< the same in the unit of the readings
    double m_lastTime = 0.0;
    LoggedText m_leftOut;
    QTimer m_again;
    Corvale_Qt::SpectrogramCalc m_lastShown;
    qint64 m_lastFrame = 0; //!< number of the frame that the position was taken from
    qint64 m_framesBefore =
        0; //!< number of the last frame that the profile showed of the stream before
    bool m_hasPosition = false; //!< of halves
};

} // namespace Monitor
