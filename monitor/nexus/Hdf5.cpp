// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/Hdf5.h"

#include "monitor/core/Text.h"

#include <algorithm>
#include <limits>

namespace Monitor {

namespace {

std::recursive_mutex &hdf5Mutex()
{
    static std::recursive_mutex mutex;
    return mutex;
}

//! The largest chunk that is read: HDF5 takes the memory for a whole one.
constexpr hsize_t largestChunk = hsize_t(64) * 1024 * 1024; // bytes
//! No compression makes more of a byte than this.
constexpr hsize_t mostFromAByte = 2000;
//! No list of names in an attribute is longer.
constexpr hsize_t mostTexts = 4096;
constexpr std::size_t longestFixedText = 65536;

herr_t takeInnermost(unsigned, const H5E_error2_t *error, void *text)
{
    *static_cast<QString *>(text) = QString::fromUtf8(error->desc);
    return 0;
}

//! Returns how many bytes a chunk of a data set has; 0 if it has none.
hsize_t chunkBytes(hid_t plan, hsize_t valueSize)
{
    hsize_t sizes[H5S_MAX_RANK] = {};
    const int rank =
        H5Pget_layout(plan) == H5D_CHUNKED ? H5Pget_chunk(plan, H5S_MAX_RANK, sizes) : 0;
    hsize_t bytes = rank > 0 ? valueSize : 0;
    for (int i = 0; i < rank; ++i)
        bytes = sizes[i] > largestChunk / std::max<hsize_t>(bytes, 1) ? largestChunk + 1
                                                                      : bytes * sizes[i];
    return bytes;
}

hsize_t fileSize(hid_t dataset)
{
    const Hdf5Object file(H5Iget_file_id(dataset));
    hsize_t size = 0;
    H5Fget_filesize(file.id(), &size);
    return size;
}

//! Returns what texts in memory say, and gives the memory back to HDF5.
QStringList takeTexts(std::vector<char *> &&texts)
{
    QStringList result;
    for (char *text : texts) {
        result.append(QString::fromUtf8(text));
        H5free_memory(text);
    }
    return result;
}

QStringList fixedTexts(const QByteArray &bytes, std::size_t size)
{
    QStringList result;
    for (std::size_t at = 0; at + size <= std::size_t(bytes.size()); at += size)
        result.append(QString::fromUtf8(bytes.constData() + at,
                                        int(qstrnlen(bytes.constData() + at, uint(size)))));
    return result;
}

//! Refuses to follow a link to another file, which may be any file of the system, or a pipe that nobody writes to.
herr_t
refuseOtherFile(const char *, const char *, const char *, const char *, unsigned *, hid_t, void *)
{
    return -1;
}

//! Returns how links are followed: inside of the file only, wherever on a path they are.
hid_t insideTheFile()
{
    static const hid_t access = [] {
        const hid_t links = H5Pcreate(H5P_LINK_ACCESS);
        H5Pset_elink_cb(links, refuseOtherFile, nullptr);
        return links;
    }();
    return access;
}

} // namespace

Hdf5Turn::Hdf5Turn()
    : m_lock(hdf5Mutex())
{
    // What could not be written to a full disk stays open in HDF5, which crashes where it tries once more at the end of the
    // program. All that could be written is closed before.
    static const bool leavesTheEnd = H5dont_atexit() >= 0;
    Q_UNUSED(leavesTheEnd)
    // Failures are reported in sentences of the monitor.
    thread_local const bool isQuiet = H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr) >= 0;
    Q_UNUSED(isQuiet)
}

QString hdf5Error()
{
    QString text;
    H5Ewalk2(H5E_DEFAULT, H5E_WALK_DOWNWARD, takeInnermost, &text);
    // HDF5 quotes the system in the middle of much else.
    const QString sign = QStringLiteral("error message = '");
    const int begin = text.indexOf(sign);
    if (begin >= 0)
        text = text.mid(begin + sign.size()).section(QLatin1Char('\''), 0, 0);
    return text.isEmpty() ? Text::tr("HDF5 gives no reason") : text;
}

Hdf5Object textType()
{
    Hdf5Object type(H5Tcopy(H5T_C_S1));
    H5Tset_size(type.id(), H5T_VARIABLE);
    H5Tset_cset(type.id(), H5T_CSET_UTF8);
    return type;
}

std::optional<Hdf5Sizes> sizesOf(hid_t dataset)
{
    const Hdf5Object space(H5Dget_space(dataset));
    const int rank = H5Sget_simple_extent_ndims(space.id());
    if (rank < 1)
        return std::nullopt;
    Hdf5Sizes sizes(std::size_t(rank), 0);
    H5Sget_simple_extent_dims(space.id(), sizes.data(), nullptr);
    return sizes;
}

hsize_t valuesPerRow(const Hdf5Sizes &sizes)
{
    constexpr hsize_t most = hsize_t(1) << 32;
    hsize_t values = 1;
    for (auto size = sizes.begin() + 1; size != sizes.end(); ++size) {
        if (*size == 0 || *size > most / values)
            return 0;
        values *= *size;
    }
    return values;
}

QString faultOfNumbers(hid_t dataset)
{
    const Hdf5Object type(H5Dget_type(dataset));
    const H5T_class_t kind = H5Tget_class(type.id());
    return kind == H5T_INTEGER || kind == H5T_FLOAT ? faultOfStorage(dataset)
                                                    : Text::tr("they are not numbers");
}

QString faultOfStorage(hid_t dataset)
{
    const Hdf5Object type(H5Dget_type(dataset)), plan(H5Dget_create_plist(dataset));
    const std::optional<Hdf5Sizes> sizes = sizesOf(dataset);
    if (!sizes)
        return Text::tr("they are not a list");
    if (H5Pget_layout(plan.id()) == H5D_VIRTUAL || H5Pget_external_count(plan.id()) > 0)
        return Text::tr("they lie in another file");
    const hsize_t valueSize = H5Tget_size(type.id());
    if (chunkBytes(plan.id(), valueSize) > largestChunk)
        return Text::tr("their chunks are larger than %1 MB").arg(largestChunk / 1024 / 1024);
    // What is not stored would be made up, and there may be any amount of it.
    const hsize_t bytes = valueSize * valuesPerRow(*sizes);
    const hsize_t most = std::min(H5Dget_storage_size(dataset), fileSize(dataset)) * mostFromAByte;
    const bool isCounted = bytes > 0 || sizes->front() == 0;
    if (!isCounted || (bytes > 0 && sizes->front() > most / bytes && sizes->front() > 0))
        return Text::tr("they claim to be more than the file can hold");
    return {};
}

bool hasAttribute(hid_t object, const char *name)
{
    return H5Aexists(object, name) > 0;
}

QStringList attributeTexts(hid_t object, const char *name)
{
    if (!hasAttribute(object, name))
        return {};
    const Hdf5Object attribute(H5Aopen(object, name, H5P_DEFAULT));
    const Hdf5Object type(H5Aget_type(attribute.id())), space(H5Aget_space(attribute.id()));
    const hssize_t count = H5Sget_simple_extent_npoints(space.id());
    if (H5Tget_class(type.id()) != H5T_STRING || count < 1 || hsize_t(count) > mostTexts)
        return {};
    if (H5Tis_variable_str(type.id()) > 0) {
        std::vector<char *> texts(std::size_t(count), nullptr);
        const Hdf5Object inMemory(H5Tcopy(type.id()));
        const bool isRead = H5Aread(attribute.id(), inMemory.id(), texts.data()) >= 0;
        const QStringList result = takeTexts(std::move(texts));
        return isRead ? result : QStringList();
    }
    const std::size_t size = H5Tget_size(type.id());
    if (size == 0 || size > longestFixedText)
        return {};
    QByteArray bytes(int(size * std::size_t(std::min<hssize_t>(count, 256))), '\0');
    if (count > 256 || H5Aread(attribute.id(), type.id(), bytes.data()) < 0)
        return {};
    return fixedTexts(bytes, size);
}

QString attributeText(hid_t object, const char *name)
{
    return attributeTexts(object, name).value(0);
}

double attributeNumber(hid_t object, const char *name, double otherwise)
{
    if (!hasAttribute(object, name))
        return otherwise;
    const Hdf5Object attribute(H5Aopen(object, name, H5P_DEFAULT));
    const Hdf5Object type(H5Aget_type(attribute.id())), space(H5Aget_space(attribute.id()));
    const H5T_class_t kind = H5Tget_class(type.id());
    double number = otherwise;
    if ((kind != H5T_INTEGER && kind != H5T_FLOAT) || H5Sget_simple_extent_npoints(space.id()) != 1
        || H5Aread(attribute.id(), H5T_NATIVE_DOUBLE, &number) < 0)
        return otherwise;
    return number;
}

Hdf5Object openObject(hid_t parent, const QString &name, H5I_type_t type)
{
    const QByteArray path = name.toUtf8();
    if (path.isEmpty())
        return {};
    Hdf5Object object(H5Oopen(parent, path.constData(), insideTheFile()));
    return H5Iget_type(object.id()) == type ? std::move(object) : Hdf5Object();
}

std::optional<QStringList>
dataTexts(hid_t dataset, hsize_t first, hsize_t count, std::size_t mostBytes)
{
    const Hdf5Object type(H5Dget_type(dataset)), space(H5Dget_space(dataset));
    if (H5Tget_class(type.id()) != H5T_STRING)
        return std::nullopt;
    const int rank = H5Sget_simple_extent_ndims(space.id());
    if (rank == 1)
        H5Sselect_hyperslab(space.id(), H5S_SELECT_SET, &first, nullptr, &count, nullptr);
    if (rank < 0 || rank > 1 || hsize_t(H5Sget_select_npoints(space.id())) != count)
        return std::nullopt;
    const Hdf5Object inMemory(H5Tcopy(type.id())), room(H5Screate_simple(1, &count, nullptr));
    const std::size_t size = H5Tget_size(type.id());
    if (H5Tis_variable_str(type.id()) <= 0) {
        if (size == 0 || size > longestFixedText || count > mostBytes / size)
            return std::nullopt;
        QByteArray bytes(int(size * count), '\0');
        if (H5Dread(dataset, inMemory.id(), room.id(), space.id(), H5P_DEFAULT, bytes.data()) < 0)
            return std::nullopt;
        return fixedTexts(bytes, size);
    }
    // HDF5 1.10 crashes where it is asked for the size of a single text; that one lies in the file as it is.
    hsize_t bytes = 0;
    const bool fits = rank == 0
        || (H5Dvlen_get_buf_size(dataset, type.id(), space.id(), &bytes) >= 0
            && bytes <= mostBytes);
    if (!fits)
        return std::nullopt;
    std::vector<char *> texts(std::size_t(count), nullptr);
    const bool isRead =
        H5Dread(dataset, inMemory.id(), room.id(), space.id(), H5P_DEFAULT, texts.data()) >= 0;
    const QStringList result = takeTexts(std::move(texts));
    return isRead ? std::optional<QStringList>(result) : std::nullopt;
}

bool readRows(hid_t dataset, hid_t type, hsize_t first, hsize_t count, void *values)
{
    const std::optional<Hdf5Sizes> sizes = sizesOf(dataset);
    if (!sizes || count > sizes->front() || first > sizes->front() - count)
        return false;
    Hdf5Sizes begin(sizes->size(), 0), part = *sizes;
    begin.front() = first;
    part.front() = count;
    const Hdf5Object from(H5Dget_space(dataset));
    H5Sselect_hyperslab(from.id(), H5S_SELECT_SET, begin.data(), nullptr, part.data(), nullptr);
    const Hdf5Object room(H5Screate_simple(int(part.size()), part.data(), nullptr));
    return H5Dread(dataset, type, room.id(), from.id(), H5P_DEFAULT, values) >= 0;
}

} // namespace Monitor
