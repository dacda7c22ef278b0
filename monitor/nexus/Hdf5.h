// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <hdf5.h>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace Monitor {

//! Anything that HDF5 has opened: a file, a group, a data set, a type. It is closed with its owner.
class Hdf5Object
{
public:
    Hdf5Object() = default;
    //! Takes over what a function of HDF5 returned, which is negative if it failed.
    explicit Hdf5Object(hid_t id)
        : m_id(id)
    {
    }
    ~Hdf5Object() { close(); }
    Hdf5Object(Hdf5Object &&other) noexcept
        : m_id(std::exchange(other.m_id, H5I_INVALID_HID))
    {
    }
    Hdf5Object &operator=(Hdf5Object &&other) noexcept
    {
        std::swap(m_id, other.m_id);
        return *this;
    }
    Hdf5Object(const Hdf5Object &) = delete;
    Hdf5Object &operator=(const Hdf5Object &) = delete;

    bool isOpen() const { return m_id >= 0; }
    hid_t id() const { return m_id; }
    //! Closes it now. Returns false if what was written to it could not be kept.
    bool close() { return m_id < 0 || H5Idec_ref(std::exchange(m_id, H5I_INVALID_HID)) >= 0; }

private:
    hid_t m_id = H5I_INVALID_HID;
};

/*! The right to call HDF5, which one thread has at a time: not every build of it is safe with several. While it is held, HDF5
    prints no messages. */
class Hdf5Turn
{
public:
    Hdf5Turn();

private:
    const std::lock_guard<std::recursive_mutex> m_lock;
};

using Hdf5Sizes = std::vector<hsize_t>;

//! Returns the reason that HDF5 gives for the last failure of this thread, the system's own words if it has them.
QString hdf5Error();
//! Returns the sizes of a data set along its dimensions; nothing if it has none or cannot be read.
std::optional<Hdf5Sizes> sizesOf(hid_t dataset);
//! Returns how many values a row of a data set has, which is all but its first dimension; 0 if that is too many to be counted.
hsize_t valuesPerRow(const Hdf5Sizes &sizes);
/*! Returns what keeps a data set from being read as numbers; empty if nothing does. Its sizes are checked before any of it is
    read: a damaged or hostile file may claim any number of values. */
QString faultOfNumbers(hid_t dataset);
//! Returns the same for a data set of another type: only what its sizes ask for is checked.
QString faultOfStorage(hid_t dataset);

//! Returns whether an object has an attribute of that name.
bool hasAttribute(hid_t object, const char *name);
//! Returns the texts of an attribute; none if there is no such attribute, or if it holds no texts.
QStringList attributeTexts(hid_t object, const char *name);
//! Returns the first of attributeTexts(), an empty text if there is none.
QString attributeText(hid_t object, const char *name);
//! Returns a number from an attribute; \a otherwise if there is none.
double attributeNumber(hid_t object, const char *name, double otherwise);
//! Returns the object of that name below another one. It is not open if it is missing, or lies in another file.
Hdf5Object openObject(hid_t parent, const QString &name, H5I_type_t type);
/*! Returns texts of a data set with one dimension, or the only text of one without. Returns nothing if they cannot be read or if
    those of one dimension have more than \a mostBytes. */
std::optional<QStringList>
dataTexts(hid_t dataset, hsize_t first, hsize_t count, std::size_t mostBytes);
/*! Reads rows of a data set, which must have passed faultOfNumbers() and have that many rows. Returns false on failure. */
bool readRows(hid_t dataset, hid_t type, hsize_t first, hsize_t count, void *values);

//! Writes objects to an HDF5 file, and remembers whether all of that went well.
class Hdf5Output
{
public:
    //! A data set that grows by rows, compressed in chunks.
    Hdf5Object growing(hid_t parent,
                       const QString &name,
                       hid_t type,
                       const Hdf5Sizes &rowSizes,
                       hsize_t rowsInChunk);
    //! Appends rows to such a data set, which has \a rowsBefore of them.
    void append(hid_t dataset, hid_t type, hsize_t rowsBefore, hsize_t rows, const void *values);
    //! Makes a group of a NeXus class.
    Hdf5Object group(hid_t parent, const QString &name, const char *nexusClass);
    //! Writes a text as an attribute.
    void text(hid_t object, const char *name, const QString &text);
    //! Writes several texts as one attribute.
    void texts(hid_t object, const char *name, const QStringList &texts);
    //! Writes a number as an attribute.
    void number(hid_t object, const char *name, double number);
    //! Writes whole numbers as one attribute.
    void indices(hid_t object, const char *name, const std::vector<int> &numbers);
    //! Writes texts as a data set of one dimension.
    void textsData(hid_t parent, const QString &name, const QStringList &texts);
    //! Writes a text as a data set.
    Hdf5Object textData(hid_t parent, const QString &name, const QString &text);
    //! Writes numbers as a data set of these sizes; one without sizes holds a single number.
    Hdf5Object numbers(hid_t parent,
                       const QString &name,
                       const std::vector<double> &numbers,
                       const Hdf5Sizes &sizes,
                       const QString &unit = {});
    //! Notes the result of a call; a negative one is a failure.
    void note(hid_t result);

    bool isGood() const { return m_error.isEmpty(); }
    //! Returns why the first thing that failed did.
    QString errorString() const { return m_error; }

private:
    Hdf5Object noted(hid_t id);

    QString m_error;
};

//! Returns the type of a text of any length, in UTF-8.
Hdf5Object textType();

} // namespace Monitor
