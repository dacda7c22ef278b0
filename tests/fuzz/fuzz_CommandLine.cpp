// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/Clock.h"
#include "monitor/program/CommandLine.h"
#include "monitor/session/RotationText.h"
#include "monitor/sources/SourceFactory.h"
#include "tests/support/FuzzTarget.h"

#include <algorithm>

using namespace Monitor;

//! Arguments are separated by line ends in an input, and by '|' here.
std::vector<std::string> fuzzSeeds()
{
    std::vector<std::string> seeds{
        "sim:strips?seed=7|--speed|4|--loop|--from|-1e3|--to|20.5",
        "--record|r|--rotate|1h,100M|--mode|0640|--compress|--overwrite|tcp-listen://"
        "[::1]:5000?silence=30s",
        "tcp://10.0.0.7:5000?ask=READ%3F%0A&every=100ms&silence=0",
        "serial:/nowhere/ttyUSB0?baud=115200&silence=1.5min",
        "--import|delimiter=semicolon,decimal=comma,header=no,time=2,clock=local,skip=3,comment=%,"
        "format=dd.MM.yyyy HH:mm:ss|table.txt",
        "--import|interval=1ms,delimiter=bar,clock=utc|file:a.csv",
        "--compute|asym [nA] = (A - B) / (A + "
        "B)|--range|-1e-6,1e-6|--tolerance|1,2|--planned|p.csv",
        "--screenshot|p.png|--size|1280x800|--view|histogram|--after|200frames|--span|1.5min",
        "--stats|--json|--measured|s.csv|--detector|nowhere.json|--after|2s",
        "--segments|hdf5|--record|r|--rotate|1h|--language|ja|sim:ic4",
        "--segments|zstd|--record|r|--source|halo=a.csv|--source|b=sim:ic4",
        "--segments|text|--compress|--record|r|sim:ic4",
        "--segments|paper|--record|r",
        "--stats|--check|a.csv",
        "--check|--source|a=a.csv|b.csv",
        "--convert|b.csv|--source|a=a.csv|c.csv",
        "--source|a.csv|--source|=x",
        "--settings|\xc3\xa9.xui|-|--|-h"};
    for (std::string &seed : seeds)
        std::replace(seed.begin(), seed.end(), '|', '\n');
    return seeds;
}

namespace {

//! An address that names a source gives it a description; any other gives an error.
void tryAddress(const QString &address)
{
    static SystemClock clock;
    SourceFactory factory(clock, {});
    const std::unique_ptr<Source> source = factory.make(address);
    FUZZ_REQUIRE(bool(source) == factory.errorString().isEmpty());
    FUZZ_REQUIRE(!source || !source->description().isEmpty());
}

//! What a text says of an import is written as a text that says the same.
void tryImport(const QString &text)
{
    ImportOptions options, again;
    QString error;
    if (!ImportOptions::fromText(text, &options, &error)) {
        FUZZ_REQUIRE(!error.isEmpty());
        return;
    }
    FUZZ_REQUIRE(ImportOptions::fromText(options.text(), &again, &error));
    FUZZ_REQUIRE(again.text() == options.text());
}

void tryRotation(const QString &text)
{
    Recorder::Options options;
    const bool isRotation = setRotation(&options, text);
    FUZZ_REQUIRE(options.rotateBytes >= 0 && options.rotateSeconds >= 0.0);
    FUZZ_REQUIRE(isRotation == (options.rotateBytes > 0 || options.rotateSeconds > 0.0));
}

} // namespace

//! Arguments are either understood or refused with a message, and so are the texts in them.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    // A device that is named as a file would be waited for.
    if (bytes.contains("dev/") || bytes.contains("proc/") || bytes.contains("sys/"))
        return 0;
    QStringList arguments{QStringLiteral("corvale-monitor")};
    for (const QByteArray &line : bytes.split('\n'))
        arguments.append(QString::fromUtf8(line));
    CommandLine commandLine;
    QString error;
    FUZZ_REQUIRE(commandLine.parse(arguments, &error) == error.isEmpty());
    FUZZ_REQUIRE(!error.isEmpty() || commandLine.record.mode <= 0777);
    for (const QString &text : arguments.mid(1)) {
        tryAddress(text);
        tryImport(text);
        tryRotation(text);
    }
    return 0;
}
