// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/FileSource.h"
#include "monitor/tape/Tape.h"
#include "monitor/tape/TapeIndex.h"

#include <memory>
#include <optional>

namespace Monitor {

class Clock;
class TapeIndexThread;

/*! The tape of one recording. It needs the index of the recording for places, and makes it in the background; play, pause, speed and single
    steps forwards work without it. Positions are those of TapeIndex. */
class TapeDeck : public Tape
{
    Q_OBJECT

public:
    //! Both must outlive the deck. The index is kept in \a cacheFolder; the user's folder of caches if it is empty.
    TapeDeck(FileSource &source,
             Clock &clock,
             const QString &cacheFolder = {},
             QObject *parent = nullptr);
    ~TapeDeck() override;

    bool isPlaying() const override;
    void play() override;
    void pause() override;
    void stepForwards() override;
    void stepBackwards() override;
    double speed() const override { return m_source.speed(); }
    void setSpeed(double speed) override;
    void seek(double position) override;

    bool isIndexed() const override { return !m_index.isEmpty(); }
    double indexProgress() const override;
    QString indexError() const override { return m_indexError; }
    const TapeIndex &index() const { return m_index; }
    double position() const override;
    TapeReadout readoutAt(double position) const override;
    TapeReadout readout() const override;
    //! Returns the place of the reading that is shown, or that is sought.
    TapeSpot spot() const;

private:
    void tick();
    void takeIndex();
    void seekSpot(const TapeSpot &spot);
    void goTo(const TapeSpot &spot);
    void repeatIfDue();
    void takeLoop() override { updateStop(); }
    void updateStop();
    TapeReadout readoutOf(const TapeSpot &spot) const;
    TapeSurvey surveyOfIndex() const;
    void tellChange();

    FileSource &m_source;
    Clock &m_clock;
    std::unique_ptr<TapeIndexThread> m_indexing;
    TapeIndex m_index;
    QString m_indexError;
    int m_toldProgress = 0; // percent
    std::optional<TapeSpot> m_sought;
    double m_toldPosition = -1.0;
    bool m_toldPlaying = false;
};

} // namespace Monitor
