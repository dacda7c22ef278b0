// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/model/MultichannelDeviceModel.h"
#include "monitor/readings/ComputedStream.h"
#include "monitor/readings/LimitTexts.h"
#include "monitor/recording/Recorder.h"
#include "monitor/recording/SegmentCompressor.h"
#include "monitor/session/ActivityWatch.h"
#include "monitor/session/Alarms.h"
#include "monitor/session/FloodGate.h"
#include "monitor/session/ReadingLimit.h"
#include "monitor/session/RunTimeline.h"
#include "monitor/session/SpotPlan.h"
#include "monitor/sources/Source.h"
#include "monitor/statistics/StreamStatistics.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace Monitor {

/*! One source and its readings: the model that the window shows, the recording and the statistics. Recording and
    statistics get everything at once. The model and the log get no more than a person can follow: 25 insertions, 5 new
    streams and 5 events per second. Where a picture takes long, the model gets its readings less often, down to 5 times a
    second, so that painting leaves half of the time to the readings and to the person. */
class Session : public QObject
{
    Q_OBJECT

public:
    //! \a clock must outlive the session.
    Session(Clock &clock, std::unique_ptr<Source> source, QObject *parent = nullptr);
    ~Session() override;
    //! Starts the source.
    void start();
    /*! Replaces the source by another one and starts it. The recording ends, and what was shown and counted is forgotten.
        Must not be called from a slot of the source, which is deleted at once, so that the next one may open what it held. */
    void replaceSource(std::unique_ptr<Source> source);

    //! Sets limits that replace those of every stream; none if \a low is not below \a high.
    void setRange(double low, double high);
    //! Sets a detector that replaces that of every stream; an empty one replaces none.
    void setDetector(const Corvale_Qt::DetectorLayout &detector) { m_detector = detector; }
    /*! Sets the channels that are computed. A stream that has begun goes on with them: what is shown is computed anew, a recording
        goes on under a new header, and counts and statistics begin again. Only streams of independent channels have computed ones. */
    void setComputedChannels(const QVector<Corvale_Qt::ComputedChannel> &channels);
    //! Returns the channels that setComputedChannels() was given.
    const QVector<Corvale_Qt::ComputedChannel> &computedChannels() const
    {
        return m_computedChannels;
    }
    //! Returns why the present stream has none of them; empty if it has them.
    const LoggedText &computedFault() const { return m_computedFault; }
    /*! Sets limits by the names of channels, which go before those of a stream; empty ones remove a limit of the stream. They
        hold at once and for the streams that follow. */
    void setLimits(const NamedLimits &limits);
    //! Returns the limits that setLimits() was given.
    const NamedLimits &chosenLimits() const { return m_chosenLimits; }
    /*! Sets how many seconds readings are collected before the model gets them, as from an instrument that reports
        rarely; 0 for the shortest interval. */
    void setShowInterval(double seconds);
    //! To be called with the seconds that painting what the model shows has taken.
    void notePainting(double seconds) { m_painted += seconds; }
    //! Sets how much of the source is used; readings beyond the limit are ignored.
    void setLimit(const ReadingLimit &limit) { m_limit = limit; }

    //! Sets what spots are compared with. Call it before a window shows the session.
    void setSpotPlan(const SpotPlan &plan) { m_spotPlan = plan; }
    const SpotPlan &spotPlan() const { return m_spotPlan; }

    Source &source() const { return *m_source; }
    MultichannelDeviceModel &model() { return m_model; }
    const StreamStatistics &statistics() const { return m_statistics; }
    //! Returns which channels are beyond their limits. All readings are judged as they come, also while the session is paused.
    Alarms &alarms() { return m_alarms; }
    const Alarms &alarms() const { return m_alarms; }
    Clock &clock() const { return m_clock; }
    //! Returns whether readings are overdue.
    bool isStale() const;
    //! Returns the number of gaps of the whole run, also those before the source started over.
    qint64 gaps() const { return m_gapsBefore + m_statistics.gaps(); }
    //! Returns the readings per second; 0 while stale.
    double rate() const;
    //! Returns the clock's seconds at the last arrival; 0 before the first.
    double lastArrival() const { return m_activity.lastArrival(); }

    bool isPaused() const { return m_model.isPaused(); }
    //! Pauses what the model shows, or shows what waited and goes on; the recording does not pause.
    void setPaused(bool paused);

    //! Sets the permissions of the files of the recordings that follow.
    void setRecordingMode(unsigned mode) { m_recordingMode = mode; }
    //! Sets what the names of the files have added, if other sessions record to the same path; empty for nothing.
    void setRecordingLabel(const QString &label) { m_recordingLabel = label; }
    QString recordingLabel() const { return m_recordingLabel; }
    //! Begins to record. Returns false, with a text in \a error, if the file cannot be opened.
    bool startRecording(Recorder::Options options, QString *error);
    //! Ends the recording. Returns false if readings could not be written.
    bool stopRecording();
    //! Returns the recorder; null while nothing is recorded.
    const Recorder *recorder() const { return m_recorder.get(); }
    //! Returns what compresses the files of recordings, which goes on after a recording has ended.
    SegmentCompressor &compressor() { return *m_compressor; }
    const SegmentCompressor &compressor() const { return *m_compressor; }
    //! Has another session, which must outlive this one, compress the files.
    void compressWith(Session &other) { m_compressor = &other.compressor(); }
    //! Returns a line for each recording that is incomplete.
    QStringList incompleteRecordings() const { return m_incompleteRecordings; }

Q_SIGNALS:
    //! Emitted before the present source is deleted, since another one replaces it.
    void sourceClosing();
    //! Emitted when there is another source, before it is started.
    void sourceReplaced();
    //! Emitted when the state of the present source or its text changed.
    void sourceStateChanged(Monitor::Source::State state, const QString &text);
    //! Emitted for each line that the present source dropped.
    void lineRefused(const Monitor::RefusedLine &line);
    //! Emitted when the model has the channels of another acquisition.
    void streamStarted(const Monitor::StreamHeader &header);
    //! Emitted when a frame is to be shown; \a values has all values of the reading. Not emitted while paused.
    void frameShown(double time, const QVector<double> &values);
    //! Emitted when the channels of the stream have other limits.
    void limitsChanged();
    //! Emitted when the session was paused or goes on.
    void pausedChanged(bool paused);
    //! Emitted when a recording or a file of it began or ended, or when its errors changed.
    void recordingChanged();
    //! Emitted when isStale() changed.
    void staleChanged(bool stale);
    //! Emitted when the model shows the last reading within the limit.
    void limitReached();
    //! Emitted with a line for the log.
    void noted(const QString &text);

private:
    void listenToSource();
    void forgetStream();
    void takeHeader(const StreamHeader &header);
    StreamHeader completed(const StreamHeader &told);
    void countAnew(const StreamHeader &header);
    void showAnew(const ComputedStream &former);
    void takeJump();
    bool takeNewPart(const StreamHeader &header);
    void takeReadings(const ReadingBlock &readings);
    void takeEvent(const QString &text);
    void tellHeldBack(double now);
    void applyLimits(StreamHeader *header) const;
    void showWaiting();
    void showHeader();
    void showFrame();
    void record(const ReadingBlock &readings);
    void takeToShow(const ReadingBlock &readings);
    void tellLeftOut();
    bool isShowDue() const;
    void tellCompression();
    void tick();

    Clock &m_clock;
    std::unique_ptr<Source> m_source;
    MultichannelDeviceModel m_model;
    //! Whether the model still has the channels of a former stream.
    bool m_headerWaits = false;
    FloodGate m_shownHeaders;
    ReadingBlock m_toShow;
    //! The latest frame that has not been shown, and its time; empty if there is none.
    QVector<double> m_frame;
    double m_frameTime = 0.0;
    bool m_leftOutTold = false;
    double m_showInterval;
    double m_shownAt = 0.0;
    double m_painted = 0.0; //!< seconds since then
    double m_waited = 0.0; //!< seconds since then, for the recording
    StreamStatistics m_statistics;
    qint64 m_gapsBefore = 0; //!< of the streams before the present one
    RunTimeline m_timeline;
    ActivityWatch m_activity;
    ReadingLimit m_limit;
    NamedLimits m_chosenLimits;
    Alarms m_alarms;
    QVector<Corvale_Qt::ChannelLimits> m_streamLimits; //!< without those that were chosen
    SegmentCompressor m_ownCompressor;
    SegmentCompressor *m_compressor = &m_ownCompressor;
    std::unique_ptr<Recorder> m_recorder;
    unsigned m_recordingMode = RecordingFile::usualMode;
    QString m_recordingLabel;
    QStringList m_incompleteRecordings;
    FloodGate m_shownEvents;
    FloodGate m_recordedEvents;
    Corvale_Qt::DetectorLayout m_detector;
    StreamHeader m_told; //!< of the present stream, as the source gave it
    QVector<Corvale_Qt::ComputedChannel> m_computedChannels;
    LoggedText m_computedFault;
    std::unique_ptr<ComputedStream> m_computed = std::make_unique<ComputedStream>();
    double m_rangeLow = 0.0;
    double m_rangeHigh = 0.0;
    bool m_stale = false;
    SpotPlan m_spotPlan;
};

} // namespace Monitor
