// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/model/MultichannelDeviceModel.h"
#include "monitor/recording/Recorder.h"
#include "monitor/session/ActivityWatch.h"
#include "monitor/session/FloodGate.h"
#include "monitor/session/ReadingLimit.h"
#include "monitor/sources/Source.h"
#include "monitor/statistics/StreamStatistics.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace Monitor {

/*! One source and what becomes of its readings: the model that the window shows, the recording, the counts. It
    knows nothing of the window, but that nobody sees more than 25 pictures and 5 new streams a second, nor reads more
    than 5 events: the model and the log get no more than that, recording and counts all of it at once. */
class Session : public QObject
{
    Q_OBJECT

public:
    //! The clock must outlive the session; the source is the session's own.
    Session(Clock &clock, std::unique_ptr<Source> source, QObject *parent = nullptr);
    ~Session() override;
    void start();

    //! Limits that hold for every stream, whatever its source says of them.
    void setRange(double low, double high);
    /*! Has the model get readings every so many seconds, as from an instrument that collects before it reports; 0 for
        as often as anybody can see. */
    void setShowInterval(double seconds);
    //! What comes after so much is let pass by.
    void setLimit(const ReadingLimit &limit) { m_limit = limit; }

    Source &source() const { return *m_source; }
    MultichannelDeviceModel &model() { return m_model; }
    const StreamStatistics &statistics() const { return m_statistics; }
    Clock &clock() const { return m_clock; }
    bool isStale() const;
    //! Readings a second.
    double rate() const;
    //! By the clock; 0 before the first reading.
    double lastArrival() const { return m_activity.lastArrival(); }

    bool isPaused() const { return m_model.isPaused(); }
    void setPaused(bool paused);

    //! False, with a text, where the file cannot be opened.
    bool startRecording(Recorder::Options options, QString *error);
    //! False where readings could not be written.
    bool stopRecording();
    //! Null while nothing is recorded.
    const Recorder *recorder() const { return m_recorder.get(); }
    //! What to say of the recordings that are not complete, one line each; empty where all are.
    QStringList incompleteRecordings() const { return m_incompleteRecordings; }

Q_SIGNALS:
    //! The model has the channels of another acquisition.
    void streamStarted(const Monitor::StreamHeader &header);
    void pausedChanged(bool paused);
    void recordingChanged();
    void staleChanged(bool stale);
    //! The last reading that the run wants is there; the model shows it.
    void limitReached();
    //! A line for the log.
    void noted(const QString &text);

private:
    void takeHeader(const StreamHeader &header);
    void takeReadings(const ReadingBlock &readings);
    void takeEvent(const QString &text);
    void tellHeldBack(double now);
    void showWaiting();
    void showHeader();
    bool isShowDue() const;
    void tick();

    Clock &m_clock;
    std::unique_ptr<Source> m_source;
    MultichannelDeviceModel m_model;
    //! The model has another stream's channels, and gets this one's before its readings.
    bool m_headerWaits = false;
    FloodGate m_shownHeaders;
    ReadingBlock m_toShow;
    double m_showInterval;
    double m_shownAt = 0.0;
    StreamStatistics m_statistics;
    ActivityWatch m_activity;
    ReadingLimit m_limit;
    std::unique_ptr<Recorder> m_recorder;
    QStringList m_incompleteRecordings;
    FloodGate m_shownEvents;
    FloodGate m_recordedEvents;
    double m_rangeLow = 0.0;
    double m_rangeHigh = 0.0;
    bool m_stale = false;
};

} // namespace Monitor
