// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/Hdf5.h"

namespace Monitor {

namespace {

//! Texts as HDF5 takes them.
class Utf8Texts
{
public:
    explicit Utf8Texts(const QStringList &texts)
    {
        for (const QString &text : texts)
            m_bytes.push_back(text.toUtf8());
        for (const QByteArray &bytes : m_bytes)
            m_pointers.push_back(bytes.constData());
    }
    const char *const *pointers() const { return m_pointers.data(); }

private:
    std::vector<QByteArray> m_bytes;
    std::vector<const char *> m_pointers;
};

} // namespace

void Hdf5Output::note(hid_t result)
{
    if (result < 0 && m_error.isEmpty())
        m_error = hdf5Error();
}

Hdf5Object Hdf5Output::noted(hid_t id)
{
    note(id);
    return Hdf5Object(id);
}

Hdf5Object Hdf5Output::growing(hid_t parent,
                               const QString &name,
                               hid_t type,
                               const Hdf5Sizes &rowSizes,
                               hsize_t rowsInChunk)
{
    constexpr unsigned compression = 4;
    Hdf5Sizes now{0}, most{H5S_UNLIMITED}, chunk{rowsInChunk};
    for (const hsize_t size : rowSizes) {
        now.push_back(size);
        most.push_back(size);
        chunk.push_back(size);
    }
    const int rank = int(now.size());
    const Hdf5Object plan = noted(H5Pcreate(H5P_DATASET_CREATE));
    note(H5Pset_chunk(plan.id(), rank, chunk.data()));
    // Bytes of the same place in neighbouring numbers are alike, and so compress better together.
    if (H5Tget_class(type) != H5T_STRING)
        note(H5Pset_shuffle(plan.id()));
    note(H5Pset_deflate(plan.id(), compression));
    const Hdf5Object space = noted(H5Screate_simple(rank, now.data(), most.data()));
    return noted(H5Dcreate2(parent,
                            name.toUtf8().constData(),
                            type,
                            space.id(),
                            H5P_DEFAULT,
                            plan.id(),
                            H5P_DEFAULT));
}

void Hdf5Output::append(hid_t dataset,
                        hid_t type,
                        hsize_t rowsBefore,
                        hsize_t rows,
                        const void *values)
{
    const std::optional<Hdf5Sizes> sizes = sizesOf(dataset);
    if (!sizes || !isGood())
        return;
    Hdf5Sizes grown = *sizes, begin(sizes->size(), 0), part = *sizes;
    grown.front() = rowsBefore + rows;
    begin.front() = rowsBefore;
    part.front() = rows;
    note(H5Dset_extent(dataset, grown.data()));
    const Hdf5Object to = noted(H5Dget_space(dataset));
    note(H5Sselect_hyperslab(to.id(), H5S_SELECT_SET, begin.data(), nullptr, part.data(), nullptr));
    const Hdf5Object from = noted(H5Screate_simple(int(part.size()), part.data(), nullptr));
    note(H5Dwrite(dataset, type, from.id(), to.id(), H5P_DEFAULT, values));
}

Hdf5Object Hdf5Output::group(hid_t parent, const QString &name, const char *nexusClass)
{
    Hdf5Object made =
        noted(H5Gcreate2(parent, name.toUtf8().constData(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
    text(made.id(), "NX_class", QLatin1String(nexusClass));
    return made;
}

void Hdf5Output::text(hid_t object, const char *name, const QString &text)
{
    const Hdf5Object type = textType(), space = noted(H5Screate(H5S_SCALAR));
    const Hdf5Object attribute =
        noted(H5Acreate2(object, name, type.id(), space.id(), H5P_DEFAULT, H5P_DEFAULT));
    const QByteArray bytes = text.toUtf8();
    const char *pointer = bytes.constData();
    note(H5Awrite(attribute.id(), type.id(), &pointer));
}

void Hdf5Output::texts(hid_t object, const char *name, const QStringList &texts)
{
    const auto count = hsize_t(texts.size());
    const Hdf5Object type = textType(), space = noted(H5Screate_simple(1, &count, nullptr));
    const Hdf5Object attribute =
        noted(H5Acreate2(object, name, type.id(), space.id(), H5P_DEFAULT, H5P_DEFAULT));
    note(H5Awrite(attribute.id(), type.id(), Utf8Texts(texts).pointers()));
}

void Hdf5Output::number(hid_t object, const char *name, double number)
{
    const Hdf5Object space = noted(H5Screate(H5S_SCALAR));
    const Hdf5Object attribute =
        noted(H5Acreate2(object, name, H5T_IEEE_F64LE, space.id(), H5P_DEFAULT, H5P_DEFAULT));
    note(H5Awrite(attribute.id(), H5T_NATIVE_DOUBLE, &number));
}

void Hdf5Output::indices(hid_t object, const char *name, const std::vector<int> &numbers)
{
    const hsize_t count = numbers.size();
    const Hdf5Object space = noted(H5Screate_simple(1, &count, nullptr));
    const Hdf5Object attribute =
        noted(H5Acreate2(object, name, H5T_STD_I32LE, space.id(), H5P_DEFAULT, H5P_DEFAULT));
    note(H5Awrite(attribute.id(), H5T_NATIVE_INT, numbers.data()));
}

void Hdf5Output::textsData(hid_t parent, const QString &name, const QStringList &texts)
{
    const Hdf5Object dataset = growing(parent, name, textType().id(), {}, hsize_t(texts.size()));
    const Utf8Texts utf8(texts);
    append(dataset.id(), textType().id(), 0, hsize_t(texts.size()), utf8.pointers());
}

Hdf5Object Hdf5Output::textData(hid_t parent, const QString &name, const QString &text)
{
    const Hdf5Object type = textType(), space = noted(H5Screate(H5S_SCALAR));
    Hdf5Object dataset = noted(H5Dcreate2(parent,
                                          name.toUtf8().constData(),
                                          type.id(),
                                          space.id(),
                                          H5P_DEFAULT,
                                          H5P_DEFAULT,
                                          H5P_DEFAULT));
    const QByteArray bytes = text.toUtf8();
    const char *pointer = bytes.constData();
    note(H5Dwrite(dataset.id(), type.id(), H5S_ALL, H5S_ALL, H5P_DEFAULT, &pointer));
    return dataset;
}

Hdf5Object Hdf5Output::numbers(hid_t parent,
                               const QString &name,
                               const std::vector<double> &numbers,
                               const Hdf5Sizes &sizes,
                               const QString &unit)
{
    const Hdf5Object space =
        noted(sizes.empty() ? H5Screate(H5S_SCALAR)
                            : H5Screate_simple(int(sizes.size()), sizes.data(), nullptr));
    Hdf5Object dataset = noted(H5Dcreate2(parent,
                                          name.toUtf8().constData(),
                                          H5T_IEEE_F64LE,
                                          space.id(),
                                          H5P_DEFAULT,
                                          H5P_DEFAULT,
                                          H5P_DEFAULT));
    note(H5Dwrite(dataset.id(), H5T_NATIVE_DOUBLE, H5S_ALL, H5S_ALL, H5P_DEFAULT, numbers.data()));
    if (!unit.isEmpty())
        text(dataset.id(), "units", unit);
    return dataset;
}

} // namespace Monitor
