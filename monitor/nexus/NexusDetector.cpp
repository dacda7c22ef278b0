// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/NexusDetector.h"

#include <cmath>
#include <functional>

namespace Monitor {

namespace {

using Corvale_Qt::DetectorChannel;
using Corvale_Qt::DetectorKind;
using Corvale_Qt::DetectorLayout;
using Axis = DetectorLayout::Axis;

//! The bit of a dead pixel in the mask of NXdetector.
constexpr double deadPixel = 2.0;

std::vector<double> numbersOf(const QVector<double> &numbers)
{
    return {numbers.begin(), numbers.end()};
}

void writeAxis(Hdf5Output *output, hid_t group, const DetectorLayout &layout, Axis axis)
{
    const int cells = layout.cells(axis);
    if (cells == 0)
        return;
    const QString name = axis == Axis::X ? QStringLiteral("x") : QStringLiteral("y");
    const QString unit = layout.unit(axis);
    const Hdf5Sizes sizes{hsize_t(cells)};
    output->numbers(group,
                    name + QLatin1String("_pixel_offset"),
                    numbersOf(layout.positions(axis)),
                    sizes,
                    unit);
    output->numbers(group,
                    name + QLatin1String("_pixel_size"),
                    numbersOf(layout.widths(axis)),
                    sizes,
                    unit);
    const double pitch =
        axis == Axis::X ? layout.description().x.pitch : layout.description().y.pitch;
    if (!std::isnan(pitch))
        output->numbers(group, name + QLatin1String("_pitch"), {pitch}, {}, unit);
}

//! Returns the shape of what is known of each reading: that of the cells, if readings come in their order.
Hdf5Sizes readingSizes(const DetectorLayout &layout)
{
    const bool isImage = layout.kind() == DetectorKind::Matrix
        && layout.description().wiring.isEmpty() && layout.cells() == layout.readings();
    if (!isImage)
        return {hsize_t(layout.readings())};
    return {hsize_t(layout.cells(Axis::Y)), hsize_t(layout.cells(Axis::X))};
}

void writeChannels(Hdf5Output *output,
                   hid_t group,
                   const DetectorLayout &layout,
                   const QString &unit)
{
    const Hdf5Sizes sizes = readingSizes(layout);
    const auto write = [&](const char *name,
                           const QString &unitOfNumbers,
                           const std::function<double(const DetectorChannel &)> &number) {
        std::vector<double> numbers;
        for (int i = 0; i < layout.readings(); ++i)
            numbers.push_back(number(layout.channel(i)));
        return output->numbers(group, QLatin1String(name), numbers, sizes, unitOfNumbers);
    };
    const Hdf5Object gain = write("gain", {}, [](const DetectorChannel &channel) {
        return channel.gain;
    });
    output->text(gain.id(),
                 "long_name",
                 QStringLiteral("charge = (reading - pedestal) / gain; not applied to the data"));
    write("pedestal", unit, [](const DetectorChannel &channel) {
        return channel.pedestal;
    });
    write("saturation_value", unit, [](const DetectorChannel &channel) {
        return channel.saturation;
    });
    const Hdf5Object mask = write("pixel_mask", {}, [](const DetectorChannel &channel) {
        return channel.dead ? deadPixel : 0.0;
    });
    output->text(mask.id(), "long_name", QStringLiteral("bit 1 (value 2): dead"));
}

void writeWiring(Hdf5Output *output, hid_t group, const DetectorLayout &layout)
{
    if (layout.description().wiring.isEmpty())
        return;
    std::vector<double> readings;
    for (int cell = 0; cell < layout.cells(); ++cell)
        readings.push_back(layout.readingAt(cell));
    const Hdf5Object wiring =
        output->numbers(group, QStringLiteral("wiring"), readings, {hsize_t(readings.size())});
    output->text(wiring.id(),
                 "long_name",
                 QStringLiteral("index of the reading of each cell, from 0; -1 is not wired"));
}

} // namespace

void writeNexusDetector(Hdf5Output *output,
                        hid_t instrument,
                        const DetectorLayout &layout,
                        const QString &unit)
{
    if (layout.isEmpty())
        return;
    const Hdf5Object group = output->group(instrument, QStringLiteral("detector"), "NXdetector");
    const char *const kinds[] = {"channels", "strips", "pixels"};
    output->textData(group.id(), QStringLiteral("type"), QLatin1String(kinds[int(layout.kind())]));
    output->textData(group.id(), QStringLiteral("description"), layout.summary());
    if (layout.kind() != DetectorKind::Channels) {
        writeAxis(output, group.id(), layout, Axis::X);
        writeAxis(output, group.id(), layout, Axis::Y);
        writeWiring(output, group.id(), layout);
    }
    writeChannels(output, group.id(), layout, unit);
    if (!std::isnan(layout.description().noise))
        output->numbers(group.id(),
                        QStringLiteral("noise"),
                        {layout.description().noise},
                        {},
                        unit);
}

} // namespace Monitor
