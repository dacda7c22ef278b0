// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/FileSource.h"
#include "monitor/sources/PlayClock.h"
#include "monitor/tape/CommonTimes.h"
#include "monitor/tape/Tape.h"

#include <QPointer>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

namespace Monitor {

class Clock;
class TapeIndexThread;

/*! Several recordings on one tape, each where it was taken. All their readings are played in the order of their moments; where several
    have the same one, in the order of the recordings. CommonTimes says where each lies.

    It leads the sources as long as it lives: they may be started before or after it is made, and play nothing before all are indexed. If the
    first one had played something already, the tape begins there. A source may be deleted first and is missing from then on. */
class CommonTape : public Tape
{
    Q_OBJECT

public:
    //! A recording, and the name by which it differs from the others.
    struct Recording
    {
        QString name;
        FileSource *source;
    };
    //! How the recordings are played.
    struct Options
    {
        double speed =
            1.0; //!< how many times as fast as they were taken; 0 for as fast as possible
        bool repeats = false; //!< whether everything is played again after its end
        //! The first and the last time to play, in seconds of the time of the first recording.
        double from = -kInfinity;
        double to = kInfinity;
    };

    //! Returns the options that a first recording was opened with.
    static Options optionsOf(const FileSource &first);
    //! The clock must outlive the tape. Indexes are kept in \a cacheFolder; the user's folder of caches if it is empty.
    CommonTape(const std::vector<Recording> &recordings,
               const Options &options,
               Clock &clock,
               const QString &cacheFolder = {},
               QObject *parent = nullptr);
    //! Lets the sources go on by themselves.
    ~CommonTape() override;

    bool isPlaying() const override { return !m_play.isPaused() && !m_hasEnded; }
    void play() override;
    void pause() override;
    void stepForwards() override;
    void stepBackwards() override;
    double speed() const override { return m_play.speed(); }
    void setSpeed(double speed) override;
    void seek(double position) override;

    bool isIndexed() const override { return m_isPlaced && !m_tracks.empty(); }
    double indexProgress() const override;
    QString indexError() const override;
    double position() const override { return m_sought.value_or(m_position); }
    TapeReadout readoutAt(double position) const override;
    const CommonTimes &times() const { return m_times; }

private:
    //! A recording that is indexed and placed.
    struct Track
    {
        QString name;
        QPointer<FileSource> source;
        std::unique_ptr<TapeIndexThread> indexing; //!< null once it has ended
        TapeIndex index;
    };
    //! The readings of one recording that come before those of all others.
    struct Run
    {
        int track = -1;
        double position = 0.0; //!< of the first one
        double until = 0.0; //!< position of the last one at most
    };

    void tick();
    bool takeIndexes();
    void place();
    bool takeIndex(Track *track);
    void tellPlacing(int track) const;
    void begin();
    void setPaused(bool paused);
    void updatePace();
    TapeSurvey surveyOfTracks() const;
    void addMarks(int track, TapeSurvey *survey) const;

    FileSource &source(int track) const { return *m_tracks[std::size_t(track)].source; }
    bool isGone(int track) const { return !m_tracks[std::size_t(track)].source; }
    int count() const { return int(m_tracks.size()); }
    PlayLimit limitOf(int track, double until) const;
    double positionOf(int track, const FileSource::Place &place) const;
    double firstPosition() const;
    double lastPosition() const;
    std::optional<Run> nextRun() const;
    int playRun(const Run &run);
    void playTo(double due);
    void reachEnd();
    void goTo(double position);
    void seekTrack(int track, double position);
    double latestPlayed() const;
    void tellMove();

    Clock &m_clock;
    const Options m_options;
    std::vector<Track> m_tracks;
    CommonTimes m_times;
    PlayClock m_play;
    QTimer m_unpaced{this};
    bool m_isPlaced = false;
    bool m_hasEnded = false;
    int m_toldProgress = 0; // percent
    double m_position = 0.0;
    double m_toldPosition = -1.0;
    std::optional<double> m_sought;
};

} // namespace Monitor
