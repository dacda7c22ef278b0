// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <optional>
#include <vector>

namespace Monitor {

/*! Where the parts of several recordings lie on one tape. Each part is placed by the moment at which it was taken. Times that no
    recording covers are cut out, unless they are short, so positions on the tape are seconds from its beginning without
    those.

    A recording that does not state when it was taken begins with the tape. A part that does not state it follows the part before it; so
    does one that claims to have begun before that one ended. */
class CommonTimes
{
public:
    //! Seconds that no recording covers and that are played all the same.
    static constexpr double longestHole = 60.0;
    //! Seconds that stand for a longer hole.
    static constexpr double shownHole = 1.0;

    //! What is known about a part of a recording.
    struct Part
    {
        double firstTime = 0.0; //!< time of the first reading, in seconds of the part
        double lastTime = 0.0;
        double step = 1.0; //!< from its last reading to what follows it, in seconds
        std::optional<double> origin; //!< the moment at which t is 0, in seconds since 1970
        bool hasReadings = true;
    };
    //! The parts of a recording, in their order; at least one.
    using Track = std::vector<Part>;
    //! A stretch of the tape from which nothing is cut out.
    struct Stretch
    {
        double position = 0.0;
        double moment = 0.0; //!< of its beginning, in seconds from zero()
        double length = 0.0; //!< in seconds
    };

    //! Times of an empty tape.
    CommonTimes() = default;
    explicit CommonTimes(const std::vector<Track> &tracks);

    //! Returns the length of the tape in seconds.
    double length() const { return m_length; }
    const std::vector<Stretch> &stretches() const { return m_stretches; }
    //! Returns what is added to a time of a part for its position.
    double shift(int track, int part) const { return place(track, part).shift; }
    //! Returns the position of the first reading of a part.
    double begin(int track, int part) const { return place(track, part).begin; }
    //! Returns the position of the last reading of a part.
    double end(int track, int part) const { return place(track, part).end; }
    int parts(int track) const { return int(m_places[std::size_t(track)].size()); }
    //! Returns the last part that has begun at a position; -1 before the first one.
    int partAt(int track, double position) const;

    //! Returns whether any recording states when it was taken.
    bool isDated() const { return m_isDated; }
    //! Returns whether a recording states when it was taken.
    bool isDated(int track) const { return m_states[std::size_t(track)].isDated; }
    //! Returns how many parts of a recording follow the one before although they claim another moment.
    int movedParts(int track) const { return m_states[std::size_t(track)].movedParts; }
    //! Returns the moment to which others are counted, in seconds since 1970; 0 if no recording is dated.
    double zero() const { return m_zero; }
    //! Returns the moment of a position, in seconds from zero().
    double momentAt(double position) const;
    //! Returns the moment at which t is 0 in a part, in seconds from zero().
    double origin(int track, int part) const { return place(track, part).origin; }

private:
    struct Place
    {
        double shift = 0.0;
        double begin = 0.0; //!< a moment first, a position in the end
        double end = 0.0;
        double origin = 0.0;
    };
    struct State
    {
        bool isDated = false;
        int movedParts = 0;
    };
    const Place &place(int track, int part) const
    {
        return m_places[std::size_t(track)][std::size_t(part)];
    }
    double earliest(const std::vector<Track> &tracks) const;
    void placeTrack(const Track &track, double earliest);
    void layStretches(const std::vector<Track> &tracks);
    const Stretch &stretchAtMoment(double moment) const;

    std::vector<std::vector<Place>> m_places;
    std::vector<State> m_states;
    std::vector<Stretch> m_stretches;
    double m_length = 0.0;
    double m_zero = 0.0;
    bool m_isDated = false;
};

} // namespace Monitor
