// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/detector/DetectorFile.h"
#include "corvale_qt/detector/DetectorLines.h"
#include "tests/support/FuzzTarget.h"

using namespace Corvale_Qt;
using Axis = DetectorLayout::Axis;

std::vector<std::string> fuzzSeeds()
{
    return {
        R"({"detector":1,"kind":"strips","x":{"positions":[-2,0,3],"widths":[1,1,1.5],"unit":"mm"}})",
        R"({"detector":1,"kind":"matrix","x":{"cells":2,"pitch":2,"unit":"mm"},
               "y":{"cells":2,"pitch":2,"unit":"mm","direction":"reverse"},"wiring":[[0,2],[1,3]]})",
        R"({"detector":1,"kind":"channels","readings":3,
               "channels":{"names":["a","b","c"],"gain":[1,2,3],"dead":[2],"saturation":5}})",
        "#layout strips 3 2\n#pitch x 2 mm\n#positions y -1,4 mm\n#offset x 0.5 mm\n#dead 2",
        "#positions x 3 2 1 mm\n#widths x 0.5 mm\n#gain 1,2,3,4,5\n#direction x reverse\n#density",
        ("#offset x 0.5 \xef\xbb\xbf"
         "mm\n#pitch 2 mm\n#dead 2"),
        "#layout matrix 2 3\n#pedestal 1\n#saturation 9\n#noise 0.5\n#detector {\"detector\":1}"};
}

namespace {

//! Checks of a layout what its users rely on.
void check(const DetectorLayout &layout, const DetectorFault &fault)
{
    FUZZ_REQUIRE(layout.isEmpty() || fault.isEmpty());
    if (layout.isEmpty())
        return;
    FUZZ_REQUIRE(layout.readings() >= 1 && layout.readings() <= DetectorLayout::maxReadings);
    for (int cell = 0; cell < layout.cells(); ++cell)
        FUZZ_REQUIRE(layout.readingAt(cell) >= -1 && layout.readingAt(cell) < layout.readings());
    for (Axis axis : {Axis::X, Axis::Y}) {
        const QVector<double> positions = layout.positions(axis);
        FUZZ_REQUIRE(positions.size() == layout.cells(axis));
        FUZZ_REQUIRE(layout.widths(axis).size() == positions.size());
        for (double position : positions)
            FUZZ_REQUIRE(position > layout.lowerEdge(axis) && position < layout.upperEdge(axis));
    }
    FUZZ_REQUIRE(detectorFromJson(detectorToJson(layout)) == layout);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    DetectorFault fault;
    const DetectorLayout read = detectorFromJson(bytes, &fault);
    FUZZ_REQUIRE(read.isEmpty() == !fault.isEmpty());
    check(read, fault);

    DetectorLines lines;
    for (const QByteArray &line : bytes.split('\n'))
        FUZZ_REQUIRE(lines.take(QString::fromUtf8(line)) != DetectorLines::Line::Wrong
                     || !lines.fault().isEmpty());
    for (int readings : {0, 1, 5, 6}) {
        DetectorDescription stream;
        stream.kind = DetectorKind(readings % 3);
        stream.readings = readings;
        const DetectorLayout stated = lines.layout(stream, &fault);
        check(stated, fault);
    }
    return 0;
}
