// SPDX-License-Identifier: LGPL-2.1-or-later
// Goal 12 compares writing CSV files with QTextStream and the texts that the models display.
#include "ChannelStack.h"
#include "Goal.h"
#include "Goals.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

using namespace Corvale_Qt;

namespace {

constexpr int samples = 100000;

//! Returns a template for a folder, in memory if possible, since the disk is not to be measured.
QString temporaryPlace()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QFile::exists(memory) ? memory : QDir::tempPath()) + "/corvale_qt_benchmarks-XXXXXX";
}

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

//! Writes the file cell by cell. Titles lose their first letters, as readers of these files expect.
void writeTable(MergedChannels &merged, const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        qFatal("Cannot create a file");
    QTextStream stream(&file);
    for (int i = 0; i < merged.channels(); ++i) {
        const QString title = QStringLiteral("channel_").mid(i + 1);
        stream << title << "_timestamp(s)," << title << ",";
    }
    stream << '\n';
    for (int row = 1; row <= samples; ++row) {
        for (int i = 0; i < merged.channels(); ++i) {
            for (int column : {0, 1})
                stream << merged.model(i).index(row, column).data().toString() << ",";
        }
        stream << '\n';
    }
}

void writeChannel(const RVXSingleChannelDataModel &model,
                  const QVector<double> &values,
                  const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        qFatal("Cannot create a file");
    QTextStream stream(&file);
    stream << "timestamp(s),channel_1,\n";
    for (int row = 1; row <= samples; ++row) {
        stream.setRealNumberNotation(QTextStream::FixedNotation);
        stream.setRealNumberPrecision(9);
        stream << model.doubleData(row, 0) << ",";
        stream.setRealNumberNotation(QTextStream::SmartNotation);
        stream.setRealNumberPrecision(6);
        stream << values[row - 1] << ",\n";
    }
}

void compare(const QString &name,
             double limit,
             const Work &ours,
             const Work &literal,
             const QTemporaryDir &place)
{
    const double faster = timesFaster(ours, literal);
    const QByteArray content = contentOf(place.filePath("ours.csv"));
    require(!content.isEmpty() && content == contentOf(place.filePath("literal.csv")),
            name + ", byte for byte");
    report({name + ", times faster than QTextStream", faster, Goal::AtLeast, limit});
}

} // namespace

void measureFiles()
{
    const QTemporaryDir place(temporaryPlace());
    const QString ours = place.filePath("ours.csv");
    const QString literal = place.filePath("literal.csv");
    MergedChannels merged(8, samples);
    compare(
        "12a file of 8 x 100k",
        4.0,
        [&] {
            merged.table().SaveDataToFile(ours);
        },
        [&] {
            writeTable(merged, literal);
        },
        place);

    const RVXSingleChannelDataModel &model = merged.model(0);
    QVector<double> values; // the unit is ampere, so as they were given
    for (int row = 1; row <= samples; ++row)
        values.append(model.doubleData(row, 1));
    compare(
        "12b file of one channel, 100k",
        4.0,
        [&] {
            model.SaveDataToFile(ours);
        },
        [&] {
            writeChannel(model, values, literal);
        },
        place);
}
