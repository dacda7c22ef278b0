// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/nexus/TextHeaps.h"

#include "monitor/core/RegularFile.h"
#include "monitor/core/Text.h"

#include <QFile>

#include <algorithm>

namespace Monitor {

namespace {

constexpr qint64 sliceSize = qint64(4) * 1024 * 1024;
constexpr qint64 lookedAtEachEnd = qint64(128) * 1024 * 1024;
//! A heap that claims to be larger is read only so far, as the library would need the memory for all of it.
constexpr quint64 largestHeap = quint64(64) * 1024 * 1024;

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

//! Returns how many bytes a length has in a file; 0 if its superblock does not say that in a way that is known.
int sizeOfLengths(QFile *file)
{
    constexpr int versionAt = 8, oldPlace = 14, newPlace = 10;
    constexpr quint64 firstNewVersion = 2;
    const QByteArray head = superblockOf(file);
    if (head.isEmpty())
        return 0;
    const bool isOld = numberAt(head, versionAt, 1) < firstNewVersion;
    const int size = int(numberAt(head, isOld ? oldPlace : newPlace, 1));
    return size == 2 || size == 4 || size == 8 ? size : 0;
}

//! Returns a size with the bytes that fill it up, as all parts of a heap have them.
quint64 aligned(quint64 size)
{
    constexpr quint64 alignment = 8;
    return (size + alignment - 1) / alignment * alignment;
}

//! Returns whether a walk through a heap reaches its end. \a heap begins with its signature.
bool hasEnd(const QByteArray &heap, int lengthSize)
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

//! Returns whether all heaps that begin between two places of a file have an end.
bool haveEnds(QFile *file, qint64 begin, qint64 end, int lengthSize)
{
    const QByteArray signature("GCOL\1\0\0\0", 8);
    const int headSize = signature.size() + lengthSize;
    for (qint64 place = begin; place < end; place += sliceSize) {
        file->seek(place);
        const QByteArray slice = file->read(sliceSize + headSize - 1);
        for (int at = slice.indexOf(signature); at >= 0; at = slice.indexOf(signature, at + 1)) {
            if (at + headSize > slice.size())
                break;
            const quint64 size = numberAt(slice, at + signature.size(), lengthSize);
            file->seek(place + at);
            const QByteArray heap = file->read(qint64(std::min(size, largestHeap)));
            if (quint64(heap.size()) == size && !hasEnd(heap, lengthSize))
                return false;
        }
    }
    return true;
}

} // namespace

QString faultOfTextHeaps(const QString &path)
{
    QFile file(path);
    if (!openRegular(file))
        return file.errorString();
    const int lengthSize = sizeOfLengths(&file);
    if (lengthSize == 0)
        return {}; // the library says what it is
    const qint64 size = file.size();
    const bool isSmall = size <= 2 * lookedAtEachEnd;
    const bool areWhole = haveEnds(&file, 0, isSmall ? size : lookedAtEachEnd, lengthSize)
        && (isSmall || haveEnds(&file, size - lookedAtEachEnd, size, lengthSize));
    return areWhole ? QString() : Text::tr("the texts in it are damaged");
}

} // namespace Monitor
