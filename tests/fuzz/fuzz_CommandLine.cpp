// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/Clock.h"
#include "monitor/program/CommandLine.h"
#include "monitor/session/RotationText.h"
#include "monitor/sources/SourceFactory.h"
#include "tests/support/FuzzTarget.h"

using namespace Monitor;

//! Each line is an argument.
std::vector<std::string> fuzzSeeds()
{
    return {"sim:strips?seed=7\n--speed\n4\n--loop\n--from\n-1e3\n--to\n20.5",
            "--record\nr\n--rotate\n1h,100M\n--mode\n0640\n--compress\n--overwrite\ntcp-listen://"
            "[::1]:5000?silence=30s",
            "tcp://10.0.0.7:5000?ask=READ%3F%0A&every=100ms&silence=0",
            "serial:/nowhere/ttyUSB0?baud=115200&silence=1.5min",
            "--import\ndelimiter=semicolon,decimal=comma,header=no,time=2,clock=local,format=dd.MM."
            "yyyy "
            "HH:mm:ss,skip=3,comment=%\ntable.txt",
            "--import\ninterval=1ms,delimiter=bar,clock=utc\nfile:a.csv",
            "--compute\nasym [nA] = (A - B) / (A + "
            "B)\n--range\n-1e-6,1e-6\n--tolerance\n1,2\n--planned\np.csv",
            "--screenshot\np.png\n--size\n1280x800\n--view\nhistogram\n--after\n200frames\n--"
            "span\n1.5min",
            "--stats\n--json\n--measured\ns.csv\n--detector\nnowhere.json\n--after\n2s",
            "--settings\n\xc3\xa9.xui\n-\n--\n-h"};
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
