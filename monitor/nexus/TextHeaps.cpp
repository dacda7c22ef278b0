// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/TextHeaps.h"

#include "monitor/core/RegularFile.h"

#include <QFile>

#include <algorithm>

namespace Monitor {

namespace {

const QByteArray &signature()
{
    static const QByteArray bytes("GCOL\1\0\0\0", 8);
    return bytes;
}

quint64 numberAt(const QByteArray &bytes, qint64 at, int size)
{
    quint64 number = 0;
    for (int i = size - 1; i >= 0; --i)
        number = number << 8 | quint8(bytes.at(int(at) + i));
    return number;
}

//! Returns the first bytes of the superblock, which may stand behind a block of the user; empty if the file has none.
QByteArray superblockOf(QFile *file)
{
    const QByteArray signature("\x89HDF\r\n\x1a\n", 8);
    constexpr qint64 size = 16, smallestUserBlock = 512;
    for (qint64 place = 0; place + size <= file->size();
         place = std::max(2 * place, smallestUserBlock)) {
        file->seek(place);
        QByteArray head = file->read(size);
        if (head.size() == size && head.startsWith(signature))
            return head;
    }
    return {};
}

//! Returns a size with the bytes that fill it up, as all parts of a heap have them.
quint64 aligned(quint64 size)
{
    constexpr quint64 alignment = 8;
    return (size + alignment - 1) / alignment * alignment;
}

} // namespace

int lengthSizeOf(const QString &path)
{
    constexpr int versionAt = 8, oldPlace = 14, newPlace = 10;
    constexpr quint64 firstNewVersion = 2;
    QFile file(path);
    const QByteArray head = openRegular(file) ? superblockOf(&file) : QByteArray();
    if (head.isEmpty())
        return 0;
    const bool isOld = numberAt(head, versionAt, 1) < firstNewVersion;
    const int size = int(numberAt(head, isOld ? oldPlace : newPlace, 1));
    return size == 2 || size == 4 || size == 8 ? size : 0;
}

bool beginsTextHeap(const QByteArray &bytes)
{
    return bytes.startsWith(signature());
}

quint64 textHeapSize(const QByteArray &bytes, int lengthSize)
{
    const int head = signature().size() + lengthSize;
    return bytes.size() < head ? 0 : numberAt(bytes, signature().size(), lengthSize);
}

bool textHeapHasEnd(const QByteArray &heap, int lengthSize)
{
    const quint64 head = aligned(8 + quint64(lengthSize)); // of the heap, and of each text in it
    const auto end = quint64(heap.size());
    for (quint64 at = head; at + head <= end;) {
        const quint64 index = numberAt(heap, qint64(at), 2);
        const quint64 size = numberAt(heap, qint64(at) + 8, lengthSize);
        const quint64 room = end - at;
        // Index 0 is the free space, whose size counts its head.
        const bool isPossible = index == 0 ? size > 0 && size <= room : size <= room - head;
        if (!isPossible)
            return false;
        at += index == 0 ? size : head + aligned(size);
    }
    return true;
}

} // namespace Monitor
