// SPDX-License-Identifier: LGPL-2.1-or-later
// Measures how fast texts become readings: the parser alone, the replay of a file in the window, and the outline of a tape.
#include "Goal.h"
#include "MonitorFigures.h"
#include "ThreadTime.h"
#include "monitor/core/Clock.h"
#include "monitor/input/LineProtocol.h"
#include "monitor/input/LineSplitter.h"
#include "monitor/session/Session.h"
#include "monitor/sources/FileSource.h"
#include "monitor/tape/TapeIndexer.h"
#include "monitor/window/MonitorWindow.h"

#include <QApplication>
#include <QFile>

#include <cmath>
#include <memory>

using namespace Monitor;

namespace {

constexpr double mega = 1e6;

//! Returns readings as an instrument tells them, or with all digits of doubles.
QByteArray linesOf(int channels, qint64 bytes, int digits)
{
    QByteArray text = "#corvale 1\n#unit nA\n#channels ";
    for (int i = 0; i < channels; ++i)
        text += (i > 0 ? ",c" : "c") + QByteArray::number(i);
    for (qint64 row = 0; text.size() < bytes; ++row) {
        text += '\n' + QByteArray::number(1e-5 * double(row), 'g', 12);
        for (int i = 0; i < channels; ++i)
            text += ','
                + QByteArray::number(100.0 + 0.37 * i + 1e-3 * double(row % 7919) / 3.0,
                                     'g',
                                     digits);
    }
    return text + '\n';
}

//! Adds up what it is given.
class SumSink : public StreamSink
{
public:
    void streamStarted(const StreamHeader &header) override { m_channels = header.channels.size(); }
    void reading(double, const double *values) override
    {
        ++readings;
        for (int i = 0; i < m_channels; ++i)
            sum += values[i];
    }
    void eventNoted(const QString &) override { }
    void lineRefused(const RefusedLine &line) override { qFatal("%s", qPrintable(line.text())); }

    qint64 readings = 0;
    double sum = 0.0;

private:
    int m_channels = 0;
};

void parse(int channels, int digits)
{
    const QByteArray text = linesOf(channels, qint64(100) << 20, digits);
    SumSink sink;
    LineProtocol protocol(sink);
    LineSplitter splitter;
    const double start = threadSeconds();
    for (int begin = 0; begin < text.size(); begin += Source::pieceSize)
        splitter.feed({text.constData() + begin,
                       std::size_t(std::min(Source::pieceSize, text.size() - begin))},
                      [&](std::string_view line, bool tooLong) {
                          protocol.takeLine(line, tooLong);
                      });
    protocol.finish();
    const double seconds = threadSeconds() - start;
    require(sink.readings > 0 && std::isfinite(sink.sum), "19 parser: the readings");
    report({QStringLiteral("19 parser alone, %1 channels, numbers of %2 digits, MB/s")
                .arg(channels)
                .arg(digits),
            text.size() / seconds / mega,
            Goal::AtLeast,
            400.0});
}

void writeFile(const QString &path, qint64 bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("no file");
    const QByteArray whole = linesOf(8, qint64(64) << 20, 8);
    // Each piece begins a new part, as after a restart of the instrument: its times begin again.
    for (qint64 size = 0; size < bytes; size += whole.size())
        file.write(whole);
}

} // namespace

void measureParser(const Figures &)
{
    parse(8, 8);
    parse(128, 8);
    parse(8, 17);
    parse(128, 17);
}

void measureReplay(const Figures &figures)
{
    const QString path = figures.file("replay.csv");
    writeFile(path, qint64(256) << 20);
    const double bytes = double(QFile(path).size());
    SystemClock clock;
    FileSource::Options options;
    options.speed = 0.0;
    Session session(clock, std::make_unique<FileSource>(clock, path, options));
    MonitorWindow window(session, figures.settings());
    window.resize(MonitorWindow::usualSize);
    window.show();
    QApplication::processEvents();
    QObject::connect(&session, &Session::sourceStateChanged, [](Source::State state) {
        if (state == Source::State::Finished || state == Source::State::Failed)
            QApplication::quit();
    });
    QElapsedTimer timer;
    timer.start();
    session.start();
    QApplication::exec();
    require(session.source().counts().bad() == 0, "19 CSV replay: every line is read");
    report({"19 CSV file played as fast as possible, MB/s",
            bytes * 1e3 / double(timer.elapsed()) / mega,
            Goal::AtLeast,
            200.0});
    QFile::remove(path);
}

void measureOutline(const Figures &figures)
{
    const QString path = figures.file("tape.csv");
    writeFile(path, qint64(1000) * 1000 * 1000);
    TapeIndexing indexing;
    QString error;
    QElapsedTimer timer;
    timer.start();
    const TapeIndex index = indexTape(path, ImportOptions(), &indexing, &error);
    const double seconds = double(timer.elapsed()) * 1e-3;
    require(index.rows() > 0, "23 outline: the readings");
    report({"23 outline of a recording of 1 GB, s", seconds, Goal::AtMost, 2.0});
    QFile::remove(path);
}
