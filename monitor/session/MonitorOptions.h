// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/recording/SegmentForm.h"
#include "monitor/sources/FileSource.h"
#include <corvale_qt/detector/VerdictLimits.h>

#include <QString>

namespace Monitor {

//! How sources are opened and recorded: what the settings dialog edits. The command line replaces parts of it for one run.
struct MonitorOptions
{
    //! What a start without a source on the command line opens.
    enum class Start {
        Simulator,
        LastSource,
        Nothing,
    };

    Start start = Start::Simulator;
    FileSource::Options file;
    //! Readings outside these limits are over range; the source's own limits count if both are equal.
    double rangeLow = 0.0;
    double rangeHigh = 0.0;
    //! A file with the places and the calibration of the detector, or a preset; empty for what the source says.
    QString detectorFile;
    //! Position displays say "no beam" if a reading adds up to less, in its unit; 0 for any beam.
    double minimumSum = 0.0;
    //! By which estimates on detectors are judged that state no limits of their own.
    Corvale_Qt::VerdictLimits verdictLimits;
    //! Where every source is recorded as soon as it is opened; empty for nowhere.
    QString recordFolder;
    //! When a recording begins a new file: "1h", "100M", or empty for never.
    QString rotation;
    //! What each file of such a recording becomes once it is complete.
    SegmentForm segments = SegmentForm::Text;
    //! The language of the texts, like "de"; empty for that of the desktop.
    QString language;

    bool hasRange() const { return rangeLow < rangeHigh; }
};

} // namespace Monitor
