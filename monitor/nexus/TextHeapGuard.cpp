// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/TextHeapGuard.h"

#include "monitor/nexus/Hdf5.h"
#include "monitor/nexus/TextHeaps.h"

#include <QFile>

#include <algorithm>
#include <limits>
#include <memory>
#if H5_VERSION_GE(1, 13, 0)
#include <H5FDdevelop.h>
#endif

namespace Monitor {

namespace {

constexpr quint64 smallestHeap = 4096; // bytes, as the format says
constexpr quint64 largestHeap = quint64(64) * 1024 * 1024;
constexpr haddr_t lastAddress = haddr_t(std::numeric_limits<qint64>::max());

//! An open file. HDF5 takes it for the first of its members.
struct GuardedFile
{
    H5FD_t common;
    H5FD_t *plain; //!< HDF5's own driver of files, which reads
    int lengthSize;
    TextHeapFault *fault;
};

GuardedFile *guarded(H5FD_t *file)
{
    return reinterpret_cast<GuardedFile *>(file);
}
const GuardedFile *guarded(const H5FD_t *file)
{
    return reinterpret_cast<const GuardedFile *>(file);
}

H5FD_t *openFile(const char *name, unsigned flags, hid_t access, haddr_t most)
{
    const auto *fault = static_cast<TextHeapFault *const *>(H5Pget_driver_info(access));
    if (!fault || (flags & H5F_ACC_RDWR) != 0)
        return nullptr;
    const Hdf5Object usual(H5Pcreate(H5P_FILE_ACCESS));
    H5FD_t *plain = H5FDopen(name, flags, usual.id(), most);
    if (!plain)
        return nullptr;
    auto file = std::make_unique<GuardedFile>();
    file->plain = plain;
    file->lengthSize = lengthSizeOf(QFile::decodeName(name));
    file->fault = *fault;
    return &file.release()->common;
}

herr_t closeFile(H5FD_t *file)
{
    const std::unique_ptr<GuardedFile> closed(guarded(file));
    return H5FDclose(closed->plain);
}

int compareFiles(const H5FD_t *one, const H5FD_t *other)
{
    return H5FDcmp(guarded(one)->plain, guarded(other)->plain);
}

//! Metadata is not gathered in larger pieces, in the middle of which a heap would not be seen.
herr_t tellFeatures(const H5FD_t *, unsigned long *features)
{
    *features = H5FD_FEAT_DATA_SIEVE;
    return 0;
}

haddr_t endOfAddresses(const H5FD_t *file, H5FD_mem_t type)
{
    return H5FDget_eoa(guarded(file)->plain, type);
}

herr_t setEndOfAddresses(H5FD_t *file, H5FD_mem_t type, haddr_t end)
{
    return H5FDset_eoa(guarded(file)->plain, type, end);
}

haddr_t endOfFile(const H5FD_t *file, H5FD_mem_t type)
{
    return H5FDget_eof(guarded(file)->plain, type);
}

//! Returns what keeps HDF5 from walking through a heap, the first bytes of which were read.
TextHeapFault
faultOfHeap(GuardedFile *file, H5FD_mem_t type, hid_t transfer, haddr_t at, const QByteArray &begin)
{
    const quint64 size = file->lengthSize > 0 ? textHeapSize(begin, file->lengthSize) : 0;
    if (size < smallestHeap || size > H5FDget_eof(file->plain, type) - at)
        return TextHeapFault::Damaged;
    if (size > largestHeap)
        return TextHeapFault::TooLarge;
    QByteArray heap = begin.left(int(size));
    if (size > quint64(begin.size())) {
        heap.resize(int(size));
        if (H5FDread(file->plain, type, transfer, at, size, heap.data()) < 0)
            return TextHeapFault::Damaged;
    }
    return textHeapHasEnd(heap, file->lengthSize) ? TextHeapFault::None : TextHeapFault::Damaged;
}

herr_t
readFile(H5FD_t *common, H5FD_mem_t type, hid_t transfer, haddr_t at, std::size_t size, void *bytes)
{
    GuardedFile *file = guarded(common);
    if (H5FDread(file->plain, type, transfer, at, size, bytes) < 0)
        return -1;
    const int looked = int(std::min<quint64>(size, largestHeap));
    const QByteArray begin = QByteArray::fromRawData(static_cast<const char *>(bytes), looked);
    if (!beginsTextHeap(begin))
        return 0;
    const TextHeapFault fault = faultOfHeap(file, type, transfer, at, begin);
    if (fault == TextHeapFault::None)
        return 0;
    *file->fault = fault;
    return -1;
}

herr_t writeFile(H5FD_t *, H5FD_mem_t, hid_t, haddr_t, std::size_t, const void *)
{
    return -1;
}

hid_t registerDriver()
{
    constexpr H5FD_mem_t kinds[] = H5FD_FLMAP_DICHOTOMY;
    H5FD_class_t driver{};
#if H5_VERSION_GE(1, 13, 0)
    driver.version = H5FD_CLASS_VERSION;
    driver.value = 600; // any number above those that HDF5 keeps for itself
#endif
    driver.name = "guarded";
    driver.maxaddr = lastAddress;
    driver.fc_degree = H5F_CLOSE_WEAK;
    driver.fapl_size = sizeof(TextHeapFault *);
    driver.open = openFile;
    driver.close = closeFile;
    driver.cmp = compareFiles;
    driver.query = tellFeatures;
    driver.get_eoa = endOfAddresses;
    driver.set_eoa = setEndOfAddresses;
    driver.get_eof = endOfFile;
    driver.read = readFile;
    driver.write = writeFile;
    std::copy(std::begin(kinds), std::end(kinds), std::begin(driver.fl_map));
    return H5FDregister(&driver);
}

} // namespace

bool guardTextHeaps(hid_t access, TextHeapFault *fault)
{
    static const hid_t driver = registerDriver();
    return H5Pset_driver(access, driver, &fault) >= 0;
}

} // namespace Monitor
