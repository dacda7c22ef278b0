// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/tape/TapeIndex.h"
#include "tests/support/FuzzTarget.h"

#include <QCryptographicHash>

#include <cmath>

using namespace Monitor;

namespace {

TapeIndex small()
{
    TapeIndex index;
    index.addPart("#corvale 1\n#channels a,b\n");
    TapeBlock block;
    block.rows = 100;
    block.firstTime = 5.0;
    block.lastTime = 15.0;
    block.low = -1.0;
    block.high = 2.0;
    index.addBlock(block);
    index.addPart("#corvale 1\n");
    block.offset = 4096;
    block.row = 100;
    block.part = 1;
    index.addBlock(block);
    index.addMark({TapeMark::Kind::Event, {0, 7.5}, 0.0, QStringLiteral("beam on")});
    index.addMark({TapeMark::Kind::Gap, {1, 12.0}, 1.5, {}});
    return index;
}

//! Returns the bytes of an index without the sum over them, which no mutation would meet.
std::string withoutSum(const TapeIndex &index)
{
    return index.toBytes()
        .mid(QCryptographicHash::hashLength(QCryptographicHash::Sha1))
        .toStdString();
}

} // namespace

std::vector<std::string> fuzzSeeds()
{
    return {withoutSum(small()), withoutSum({})};
}

//! An index that is read answers within its limits, and is written as the same bytes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray content(reinterpret_cast<const char *>(data), int(size));
    TapeIndex index, again;
    if (!index.fromBytes(QCryptographicHash::hash(content, QCryptographicHash::Sha1) + content)) {
        FUZZ_REQUIRE(index.isEmpty() && index.parts() == 0 && index.marks().isEmpty());
        return 0;
    }
    const double length = index.length();
    FUZZ_REQUIRE(length >= 0.0 && std::isfinite(length));
    for (const double position : {-1.0, 0.0, 0.5 * length, length, 2.0 * length + 1.0}) {
        const TapeSpot spot = index.spotAt(position);
        FUZZ_REQUIRE(spot.part >= 0 && spot.part <= index.parts());
        const double back = index.positionOf(spot);
        FUZZ_REQUIRE(back >= 0.0 && back <= length);
        int part = -1;
        index.entryBefore(spot, 1000, 65536, &part);
        FUZZ_REQUIRE(part >= 0 && part <= index.parts());
    }
    for (const TapeMark &mark : index.marks())
        FUZZ_REQUIRE(index.positionOf(mark.spot) <= length);
    FUZZ_REQUIRE(index.outline(100).size() == 100);
    FUZZ_REQUIRE(index.rows() >= 0);
    FUZZ_REQUIRE(again.fromBytes(index.toBytes()) && again.toBytes() == index.toBytes());
    return 0;
}
