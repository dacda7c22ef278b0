// SPDX-License-Identifier: LGPL-2.1-or-later
/*! \file
    Lets the threads of the monitor meet as often as possible. It says nothing if all is well; what it does wrong is found by the
    thread sanitizer. With the argument "planted" it races on purpose, to see that this is found. */
#include "monitor/core/OrderedWorker.h"
#include "monitor/core/Text.h"
#include "monitor/plugins/support/ReaderThreads.h"
#include "monitor/recording/RecordingFile.h"
#include "monitor/recording/RecordingWorker.h"
#include "monitor/recording/SegmentCompressor.h"
#include "monitor/sources/PluginQueue.h"
#include "monitor/tape/TapeCache.h"
#include "monitor/tape/TapeIndexThread.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace Monitor;

// In place of reading files and catalogues, which has no threads of its own.
namespace Monitor {

TapeCache::TapeCache(const QString &, const ImportOptions &, const QString &) { }
TapeIndex TapeCache::load() const
{
    return {};
}
void TapeCache::save(const TapeIndex &) const { }

QString Text::countedInEnglish(const char *text, const char *, qint64 count)
{
    return QString::fromUtf8(text).replace(QLatin1String("%n"), QString::number(count));
}

TapeIndex indexTape(const QString &, const ImportOptions &, TapeIndexing *indexing, QString *error)
{
    constexpr int pieces = 200;
    TapeIndex index;
    index.addPart("#corvale 1\n#channels a\n");
    for (int piece = 0; piece < pieces && !indexing->isCancelled; ++piece) {
        TapeBlock block;
        block.rows = 1;
        block.row = piece;
        block.firstTime = block.lastTime = piece;
        index.addBlock(block);
        indexing->progress = double(piece) / pieces;
        std::this_thread::yield();
    }
    *error = QStringLiteral("read");
    return index;
}

} // namespace Monitor

namespace {

void require(bool condition, const char *what)
{
    if (condition)
        return;
    std::fprintf(stderr, "thread_races: %s\n", what);
    std::exit(1);
}

//! Several threads fill a queue while it is emptied, and one of them is still at it when the queue is closed.
void fillAndEmptyAQueue()
{
    constexpr int threads = 4, rounds = 500;
    std::atomic<int> wakes{0};
    PluginQueue queue([&wakes] { ++wakes; });
    std::vector<std::thread> fillers;
    fillers.reserve(threads);
    for (int thread = 0; thread < threads; ++thread)
        fillers.emplace_back([&queue] {
            const double times[] = {0.0, 1.0}, values[] = {1.0, 2.0};
            for (int round = 0; round < rounds; ++round) {
                CorvaleMonitor::SourceStream stream;
                stream.channels = {{QStringLiteral("a"), QStringLiteral("nA")}};
                queue.begin(stream);
                queue.add(2, times, values);
                queue.note(QStringLiteral("a line"));
                queue.setState(CorvaleMonitor::SourceState::Connecting, QString::number(round));
            }
        });
    qint64 items = 0;
    for (int round = 0; round < rounds; ++round)
        items += qint64(queue.takeAll().items.size());
    fillers.front().join();
    queue.close();
    for (std::size_t thread = 1; thread < fillers.size(); ++thread)
        fillers[thread].join();
    items += qint64(queue.takeAll().items.size());
    require(wakes > 0 && items > 0, "the queue carried nothing");
}

//! Readers begin and end while others begin, and all are waited for.
void beginAndEndReaders()
{
    constexpr int readers = 100;
    std::atomic<int> ended{0};
    for (int reader = 0; reader < readers; ++reader)
        ReaderThreads::run(
            [&ended, text = QString::number(reader)] { ended += text.isEmpty() ? 0 : 1; });
    ReaderThreads::waitForAll();
    require(ended == readers, "a reader did not end");
}

//! Recordings are indexed while their progress is asked for; some are cancelled.
void indexTapes()
{
    constexpr int tapes = 40;
    for (int tape = 0; tape < tapes; ++tape) {
        TapeIndexThread thread(QStringLiteral("a.csv"), {});
        if (tape % 2 == 0)
            continue;
        double progress = 0.0;
        while (!thread.isDone())
            progress = std::max(progress, thread.progress());
        require(thread.errorString() == QLatin1String("read"), "the index has no result");
        require(thread.result().rows() > 0 && progress <= 1.0, "the index is empty");
    }
}

bool copyFile(const QString &from, const QString &to)
{
    QFile source(from), target(to);
    return source.open(QIODevice::ReadOnly) && target.open(QIODevice::WriteOnly)
        && target.write(source.readAll()) == source.size();
}

//! Files are brought into another form while others are added, looked at and given up.
void convertFiles()
{
    const QTemporaryDir folder;
    SegmentConversion conversion;
    conversion.form = SegmentForm::Zstd;
    conversion.write = [](const QString &text, const QString &draft, const auto &goesOn,
                          QString *) { return goesOn(0.5) && copyFile(text, draft); };
    conversion.compare = [](const QString &, const QString &draft, const auto &goesOn,
                            QString *why) {
        *why = QStringLiteral("the draft is missing");
        return goesOn(1.0) && QFile::exists(draft);
    };
    constexpr int files = 60;
    SegmentCompressor compressor;
    int seen = 0;
    for (int number = 0; number < files; ++number) {
        const QString path = folder.filePath(QStringLiteral("%1.csv").arg(number));
        QFile file(path);
        require(file.open(QIODevice::WriteOnly) && file.write("0,1\n") == 4,
                "no file can be written");
        file.close();
        compressor.add(path, conversion);
        // Nothing else is asked in between, so that only the lock of this function orders it and the thread.
        constexpr int looks = 100;
        for (int look = 0; look < looks; ++look)
            seen += compressor.pending().size() + (compressor.progress() > 1.0 ? 1 : 0);
        if (number == files / 2)
            compressor.cancel();
        compressor.takeErrors();
    }
    compressor.finish();
    require(seen > 0 && compressor.pending().isEmpty(), "files are left");
}

/*! Readings are recorded faster than they become text, while the owner looks at what is done, and now and then at the file, which
    goes in the end. */
void recordReadings()
{
    const QTemporaryDir folder;
    RecordingFile file;
    require(file.open(folder.filePath(QStringLiteral("a.csv")), RecordingFile::Existing::Refuse,
                      RecordingFile::usualMode),
            "no file can be opened");
    constexpr int rows = 1000, blocks = 1000, blocksOfTurn = 300;
    constexpr ReadingShape shape{1, 0, true};
    ReadingBlock readings(shape.values);
    const double value = 1.0;
    for (int row = 0; row < rows; ++row)
        readings.append(0.0, &value);
    RecordingWorker worker;
    worker.setFile(&file, true, 0);
    for (int number = 0; number < blocks; ++number) {
        worker.add(readings, shape);
        worker.add(RecordingBatch::Entry::Kind::Lines, "#event\n");
        require(!worker.isStuck() && worker.size() >= 0 && worker.lostReadings() == 0,
                "readings were not written");
        if (number % blocksOfTurn != 0)
            continue;
        worker.settle();
        WaitingText &waiting = worker.text().waiting();
        waiting.take(file.append(waiting.data(), waiting.size()));
        worker.setFile(&file, true, 0);
    }
    worker.settle();
    constexpr qint64 bytes =
        qint64(blocks) * (rows * qint64(sizeof "0,1") + qint64(sizeof "#event"));
    require(worker.size() == bytes, "bytes are missing");
    require(QFile::remove(file.path()), "the file cannot be removed");
    while (!worker.isStuck())
        worker.add(readings, shape);
}

//! Items come back in their order, however many are ahead; one is still in work when the worker goes.
void workInOrder()
{
    constexpr int items = 5000;
    int worked = 0;
    OrderedWorker<QByteArray> worker(
        [&worked](QByteArray &item) { item += QByteArray::number(++worked); });
    int taken = 0;
    for (int added = 0; added < items; ++added) {
        worker.add("item ");
        while (worker.pending() > added % 4)
            require(worker.take() == "item " + QByteArray::number(++taken),
                    "an item is not in order");
    }
    worker.add("last ");
}

//! Two threads change a number without a lock.
int raceOnPurpose()
{
    int number = 0;
    const auto change = [&number] {
        for (int round = 0; round < 1000; ++round)
            ++number;
    };
    std::thread other(change);
    change();
    other.join();
    return number;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "planted") == 0)
        return raceOnPurpose() > 0 ? 0 : 1;
    fillAndEmptyAQueue();
    beginAndEndReaders();
    indexTapes();
    convertFiles();
    recordReadings();
    workInOrder();
    std::puts("thread_races: the threads met.");
    return 0;
}
