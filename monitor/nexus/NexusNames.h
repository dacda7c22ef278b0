// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace Monitor::NexusNames {

/*! \file
    Names that the writer and the reader of our own files share. The rest of an entry follows the NeXus convention. */

inline constexpr const char *time = "time";
//! The moment at which the time was 0, an attribute of the time, in ISO 8601.
inline constexpr const char *start = "start";
inline constexpr const char *units = "units";
inline constexpr const char *givenName = "given_name";

//! The group with what a recording says of the stream, as its lines.
inline constexpr const char *recording = "recording";
inline constexpr const char *recordingLines = "header";
inline constexpr const char *recordingValues = "values_per_reading";
inline constexpr const char *recordingRows = "rows_per_frame";
//! 0 if frames are only counted.
inline constexpr const char *recordingTimes = "frames_have_times";

inline constexpr const char *events = "events";
inline constexpr const char *eventText = "value";
//! How many readings of the entry come before the event.
inline constexpr const char *eventRow = "readings_before";

} // namespace Monitor::NexusNames
