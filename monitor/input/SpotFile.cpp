// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/input/SpotFile.h"

#include "monitor/core/Text.h"
#include "monitor/input/CsvReader.h"

namespace Monitor {

namespace {

constexpr int pieceSize = 256 * 1024;

//! Keeps the spots of the only list in a file.
class SpotSink : public StreamSink
{
public:
    void streamStarted(const StreamHeader &header) override
    {
        ++streams;
        spots.header = header;
        spots.readings.clear(header.valuesPerReading());
    }
    void reading(double time, const double *values) override
    {
        if (spots.size() <= SpotRows::most)
            spots.readings.append(time, values);
    }
    void eventNoted(const QString &) override { }
    void lineRefused(const RefusedLine &line) override
    {
        refused = refused.isEmpty() ? line.phrase() : refused;
    }

    SpotRows spots;
    int streams = 0;
    QString refused;
};

} // namespace

SpotRows spotsFromFile(const QString &path, QString *error)
{
    SpotSink sink;
    CsvReader reader(sink);
    if (reader.open(path))
        while (sink.spots.size() <= SpotRows::most && reader.read(pieceSize)) { }
    if (reader.hasFailed())
        *error = Text::tr("%1 cannot be read: %2. Check the path and whether this user may read it")
                     .arg(path, reader.errorString());
    else if (!sink.refused.isEmpty())
        *error = Text::tr("%1 cannot be used: %2. Correct this line, or remove it")
                     .arg(path, sink.refused);
    else if (sink.spots.size() > SpotRows::most)
        *error = Text::tr("%1 has more than %2 spots. Compare the fields one by one")
                     .arg(path, QString::number(SpotRows::most));
    else if (sink.streams != 1 || sink.spots.header.kind != StreamKind::Spots
             || !sink.spots.isUsable())
        *error =
            Text::tr("%1 is not a list of spots; it needs the columns x_mm, y_mm and mu").arg(path);
    return error->isEmpty() ? sink.spots : SpotRows();
}

} // namespace Monitor
