// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/OptionTexts.h"

#include "monitor/core/Text.h"
#include "monitor/readings/DetectorPresets.h"
#include "monitor/sources/PlayClock.h"

namespace Monitor {

QString summaryText()
{
    return Text::tr(
        "Shows the readings of beam diagnostic instruments: channels over time, profiles, "
        "positions and spots. Without a source it shows a simulated beam.");
}

namespace {

//! What is read, and how.
QVector<OptionText> readingOptions()
{
    return {
        {"source",
         "NAME=ADDRESS",
         Text::tr(
             "Read this source under a name of its own; may be given more than once. --stats and "
             "--check read several sources, also without names.")},
        {"speed",
         "N",
         Text::tr("Play a file N times as fast as it was recorded; 0 for as fast as possible.")},
        {"loop", "", Text::tr("Play a file again and again.")},
        {"from",
         "SECONDS",
         Text::tr(
             "Begin at this time of the file; at the reading of this number if it has no times.")},
        {"to", "SECONDS", Text::tr("End at this time of the file, or at that reading.")},
        {"import",
         "HOW",
         Text::tr(
             "Read a table of another program: delimiter=semicolon, decimal=comma, header=no, "
             "time=2 (the column) or interval=1ms (there is none), clock=local, "
             "format=\"dd.MM.yyyy HH:mm:ss\", skip=3, comment=%; those that are needed, separated "
             "by commas.")},
        {"range",
         "LOW,HIGH",
         Text::tr("Mark readings outside these limits as over range, whatever the source says.")},
        {"detector",
         "FILE.json",
         Text::tr(
             "Take the places and the calibration of the detector from this file, or from %1, "
             "whatever the source says. A window remembers it for the source; none forgets it.")
             .arg(detectorPresets().join(QStringLiteral(", ")))},
        {"planned",
         "FILE.csv",
         Text::tr(
             "Compare the spots of the source with those of this list: position errors, and a map "
             "of the difference.")},
        {"measured",
         "FILE.csv",
         Text::tr("The same as a source: the list to compare with the plan.")},
        {"tolerance",
         "MM",
         Text::tr("The largest position error of a spot that is in order; 1,2 for x and y.")},
        {"compute",
         "\"NAME [UNIT] = EXPRESSION\"",
         Text::tr("Add a channel that is computed from others, like \"asym = (A - B) / (A + B)\"; "
                  "may be "
                  "given "
                  "more than once.")},
    };
}

QVector<OptionText> recordingOptions()
{
    return {
        {"record",
         "PATH",
         Text::tr("Record everything that arrives to a new file, or to files in a folder, named "
                  "after their time in UTC.")},
        {"rotate",
         "LIMIT",
         Text::tr("With --record: begin a new file after a time (1h, 30min), a size (100M, 2G), or "
                  "both (1h,2G).")},
        {"compress",
         "",
         Text::tr("Compress each file of a recording (zstd) once it is complete; it is read as it "
                  "is. The "
                  "same as --segments zstd.")},
        {"segments",
         "FORM",
         Text::tr("What each file of a recording becomes once it is complete: text, as it was "
                  "written; zstd, compressed; hdf5, in the form of NeXus.")},
        {"mode",
         "MODE",
         Text::tr("Permissions of new recordings, less what the umask takes away; 0640 without the "
                  "option, so that the group can read them.")},
        {"overwrite", "", Text::tr("Let --record and --convert replace an existing file.")},
    };
}

//! What is shown, drawn, printed or converted, and the rest.
QVector<OptionText> outputOptions()
{
    return {
        {"settings",
         "FILE",
         Text::tr("Keep settings and window layout in this file; each file has one window. --stats "
                  "takes its limits of verdicts and its fit parameters from it.")},
        {"plugin-path",
         "FOLDER",
         Text::tr("Look for source plugins in this folder too, before those of "
                  "CORVALE_MONITOR_PLUGIN_PATH and of the installation; may be given more than "
                  "once.")},
        {"language",
         "CODE",
         Text::tr("Show texts in this language: de, en, fr or ja. Without it a window has that of "
                  "its settings or of the desktop, and a picture is English.")},
        {"screenshot",
         "FILE.png",
         Text::tr("Draw the window into a picture, without a display, and end.")},
        {"size", "WxH", Text::tr("Size of the window or of the picture, in pixels.")},
        {"view",
         "NAME",
         Text::tr(
             "Show this display: strip, scope, histogram, profile, position, spots or errors.")},
        {"span",
         "TIME",
         Text::tr("Show this much time in the strip chart: 90s, 2h, or all that is kept.")},
        {"after",
         "AMOUNT",
         Text::tr("End, or take the picture, after this amount of data: 200frames, or 2s of its "
                  "time. Readings without times count as %1 a second.")
             .arg(countedEachSecond)},
        {"publish",
         "ADDRESS",
         Text::tr("Publish position, sigma, integral, verdict, rate and newest values, for example "
                  "as a device of TANGO: tango:beam/monitor/1. Given again, or as NAME=ADDRESS, "
                  "for further sources.")},
        {"headless",
         "",
         Text::tr("Read without a window, and connect again what is lost, until a signal ends the "
                  "program; with --publish or --record.")},
        {"stats", "", Text::tr("Read to the end and print statistics of each channel.")},
        {"json", "", Text::tr("Print the statistics as JSON.")},
        {"fit-channels",
         "",
         Text::tr("With --stats: fit a Gaussian to all channels in their order. Without it, only "
                  "strips, pixels and channels that a detector places are fitted.")},
        {"convert",
         "OUT.csv",
         Text::tr(
             "Read to the end and write a recording; one of HDF5, in the form of NeXus, if the "
             "name ends in .h5, .hdf5 or .nxs.")},
        {"check",
         "",
         Text::tr("Read to the end and print every line that cannot be used, and what is lost.")},
        {"repair",
         "FILE",
         Text::tr(
             "Write what can be read of a damaged recording to a copy beside it; the file itself "
             "stays as it is.")},
        {"diagnostics",
         "",
         Text::tr("Print at the end how long the program was busy at a time, without the first "
                  "seconds.")},
        {"help", "", Text::tr("Print this text.")},
        {"version", "", Text::tr("Print the version.")},
    };
}

} // namespace

QVector<OptionText> optionTexts()
{
    return readingOptions() + recordingOptions() + outputOptions();
}

QVector<TopicText> topicTexts()
{
    return {
        {Text::tr("Sources"),
         {
             {"sim:ic4, sim:strips, sim:pixels, sim:spots",
              Text::tr("A simulated beam; ?seed=N gives another one.")},
             {"PATH, file:PATH",
              Text::tr(
                  "A table: a recording (also compressed), a file saved by the library, or CSV. "
                  "Where CSV needs --import, a message says how. Or HDF5: a recording, or the "
                  "NXdata of another program over a time axis.")},
             {"IMAGES.pgm, FOLDER",
              Text::tr(
                  "Grey images of at most 256 x 256 pixels: those of a file, or all *.pgm files of "
                  "a "
                  "folder.")},
             {"-", Text::tr("Lines, or grey images, on standard input.")},
             {"tcp://HOST:PORT",
              Text::tr("Lines from an instrument on the network. Add ?ask=READ?&every=100ms if it "
                       "answers only when asked.")},
             {"tcp-listen://127.0.0.1:PORT", Text::tr("Lines from a program that connects.")},
             {"serial:DEVICE?baud=N",
              Text::tr("Lines from a serial port, 8N1; the default is 115200 baud.")},
             {"ca:PV,PV",
              Text::tr("EPICS process variables by Channel Access; needs the package "
                       "corvale-monitor-epics.")},
             {"tango://HOST:PORT/DEVICE/NAME,NAME",
              Text::tr(
                  "Attributes of a TANGO device; #dbase=no at the end if the port is that of a "
                  "device server. Needs the package corvale-monitor-tango.")},
             {"SCHEME:REST", Text::tr("What another source plugin reads.")},
             {"?silence=30s",
              Text::tr("After tcp, tcp-listen and serial: connect again if a source that used to "
                       "talk is "
                       "silent for this long. The default is 30s with ?ask, otherwise off.")},
         }},
        {Text::tr("Exit status"),
         {
             {"0", Text::tr("Everything went well.")},
             {"1",
              Text::tr(
                  "The arguments make no sense, the results cannot be published, or the window "
                  "of these settings shows another source.")},
             {"2",
              Text::tr(
                  "Without a window: there were no readings, some lines could not be used, or some "
                  "of the "
                  "readings were left out.")},
             {"3", Text::tr("The source could not be opened, or it was lost.")},
             {"4", Text::tr("The output could not be written, or not all of it.")},
         }},
        {Text::tr("Examples"),
         {
             {"corvale-monitor sim:pixels", Text::tr("A simulated pixel detector.")},
             {"corvale-monitor currents.csv --from 820", Text::tr("A recording from 820 s on.")},
             {"corvale-monitor \"tcp://10.0.0.7:5000?ask=READ?&every=100ms\" --record /data",
              Text::tr("An instrument on the network, recorded to files in a folder.")},
             {"corvale-monitor tcp://10.0.0.7:5000 --source halo=tcp://10.0.0.8:5000",
              Text::tr("Two instruments in one window, with charts of the same stretch of time.")},
             {"corvale-monitor --headless --publish tango:beam/monitor/1 tcp://10.0.0.7:5000",
              Text::tr("What is computed, for the archive and the alarms of the control system.")},
             {"corvale-monitor --stats currents.csv",
              Text::tr("Mean, sigma, minimum and maximum of each channel.")},
         }},
    };
}

} // namespace Monitor
