// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/FrameFile_p.h"

#include <QSaveFile>
#include <QTextStream>

namespace Corvale_Qt {

namespace {

using Axis = DetectorLayout::Axis;

QString number(double value)
{
    return QString::number(value, 'g', 17);
}

QString flagText(CellFlags flags)
{
    return flags.testFlag(CellFlag::Dead)     ? QStringLiteral("dead")
        : flags.testFlag(CellFlag::Saturated) ? QStringLiteral("saturated")
                                              : QString();
}

QString unitOf(const DetectorLayout &layout, Axis axis)
{
    return layout.unit(axis).isEmpty() ? QStringLiteral("cells") : layout.unit(axis);
}

void writeStrips(const DetectorFrame &frame, QTextStream &out)
{
    out << "axis,position,width,value,flag\n";
    int cell = 0;
    for (const Axis axis : {Axis::X, Axis::Y}) {
        const QVector<double> positions = frame.layout.positions(axis);
        const QVector<double> widths = frame.layout.widths(axis);
        for (int i = 0; i < positions.size(); ++i, ++cell)
            out << (axis == Axis::X ? "x," : "y,") << number(positions[i]) << ','
                << number(widths[i]) << ',' << number(frame.values[cell]) << ','
                << flagText(frame.flags.value(cell)) << '\n';
    }
}

void writeMatrix(const DetectorFrame &frame, QTextStream &out)
{
    const QVector<double> x = frame.layout.positions(Axis::X);
    const QVector<double> y = frame.layout.positions(Axis::Y);
    out << "y\\x";
    for (const double place : x)
        out << ',' << number(place);
    for (int row = 0; row < y.size(); ++row) {
        out << '\n' << number(y[row]);
        for (int column = 0; column < x.size(); ++column) {
            const int cell = row * x.size() + column;
            const bool isEmpty = frame.layout.readingAt(cell) < 0
                || frame.flags.value(cell).testFlag(CellFlag::Dead);
            out << ',' << (isEmpty ? QString() : number(frame.values[cell]));
        }
    }
    out << '\n';
}

} // namespace

bool writeFrame(const DetectorFrame &frame, double time, const QString &unit, const QString &file)
{
    QSaveFile output(file);
    if (!output.open(QIODevice::WriteOnly))
        return false;
    QTextStream out(&output);
    out.setCodec("UTF-8");
    out << "# " << frame.layout.summary() << '\n';
    out << "# x in " << unitOf(frame.layout, Axis::X) << ", y in " << unitOf(frame.layout, Axis::Y);
    if (!unit.isEmpty())
        out << ", values in " << unit;
    out << "\n# t = " << number(time) << " s\n";
    if (frame.layout.kind() == DetectorKind::Matrix)
        writeMatrix(frame, out);
    else
        writeStrips(frame, out);
    out.flush();
    return out.status() == QTextStream::Ok && output.commit();
}

} // namespace Corvale_Qt
