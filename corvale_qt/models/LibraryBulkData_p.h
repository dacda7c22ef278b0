// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/RVXBulkPlotData.h"

#include <QByteArray>
#include <QPointer>

class QDebug;

namespace Corvale_Qt {

class BlockRanges;
class RVXAbstractPlotDataModel;

/*! Says whether numbers in a ring are still those that they were: as long as value() stays, every number that the ring has taken
    is the same, and the ring has only dropped its oldest numbers and taken new ones. A copy of a ring goes on by itself, so
    that it gets another stamp. */
class ContentStamp
{
public:
    ContentStamp() = default;
    ContentStamp(const ContentStamp &) { }
    ContentStamp(ContentStamp &&other) noexcept
        : m_value(other.m_value)
    {
        other.renew();
    }
    ContentStamp &operator=(const ContentStamp &other)
    {
        if (this != &other)
            renew();
        return *this;
    }
    ContentStamp &operator=(ContentStamp &&other) noexcept
    {
        m_value = other.m_value;
        other.renew();
        return *this;
    }
    ~ContentStamp() = default;

    //! Returns a number that no other stamp returns; never 0.
    quint64 value() const { return m_value; }
    //! Says that a number was changed, or counted anew.
    void renew() { m_value = RVXBulkPlotData::newXVersion(); }

private:
    quint64 m_value = RVXBulkPlotData::newXVersion();
};

//! Where the rows of a column lie in memory; for a ring of the library, also its cached ranges and its capacity.
struct RingSpans : RVXBulkPlotData::Spans
{
    //! Cached ranges of the stored numbers; null if their owner caches none.
    BlockRanges *blocks = nullptr;
    qint64 number = 0; //!< index of the first row's number among all that the ring ever took
    int ringSize = 0; //!< capacity of the ring, in numbers
    //! The ContentStamp of the ring, which says whether the number at an index is that of before; 0 if its owner has none.
    quint64 content = 0;
};

//! Writes the sizes and the conversion, not the numbers.
QDebug operator<<(QDebug debug, const RingSpans &spans);

/*! The bulk interface of the library's own models and proxies. It adds what hosts cannot offer. The private class of a model
    implements it, and the model hands it out by its property "bulkPlotData". */
class LibraryBulkData : public RVXBulkPlotData
{
public:
    ~LibraryBulkData() override;

    //! Sets \a spans as RVXBulkPlotData::spans() does, with the cached ranges. The default returns false.
    virtual bool columnSpans(int column, int firstRow, int count, RingSpans &spans) const;
    bool spans(int column, int firstRow, int count, Spans &spans) const final;
    /*! Appends the display text of a sample's cell in UTF-8. Returns false and appends nothing if only the item model has
        the text. The default returns false. */
    virtual bool appendText(QByteArray &text, int row, int column) const;
    /*! Returns how many of its oldest rows a column has dropped since the last reset, for models whose columns drop rows
        one after the other. The default returns -1: all columns drop a row together, when the model announces it. */
    virtual qint64 droppedRows(int column) const;

    //! Returns the bulk interface of \a model if its class is exactly a class of the library, otherwise null.
    static const LibraryBulkData *of(const RVXAbstractPlotDataModel *model);

protected:
    LibraryBulkData();
};

/*! Reads chunks of any plot model: through its bulk interface if it has one, otherwise cell by cell. It is cheap to copy.
    The functions return what those of RVXBulkPlotData and LibraryBulkData return; without a model, or for one without a bulk
    interface, they return what the defaults there return. */
class PlotDataReader
{
public:
    PlotDataReader() = default;
    //! Reads a model, which may be null; reads zeros from the moment that the model's deletion begins.
    explicit PlotDataReader(const RVXAbstractPlotDataModel *model);
    //! Returns a reader of an interface, which may be null and must live as long as the reader.
    static PlotDataReader ofBulk(const RVXBulkPlotData *bulk);

    //! Returns whether a bulk interface is read.
    bool isBulk() const { return m_bulk && !isGone(); }
    //! Writes doubleData(row, column) of \a count rows, starting at \a firstRow, to \a out; zeros without a model.
    void read(int column, int firstRow, int count, double *out) const;
    bool xRises() const { return isBulk() && m_bulk->xRises(); }
    quint64 xVersion() const { return isBulk() ? m_bulk->xVersion() : 0; }
    bool spans(int column, int firstRow, int count, RingSpans &spans) const;
    qint64 droppedRows(int column) const
    {
        return m_own && !isGone() ? m_own->droppedRows(column) : -1;
    }

private:
    bool isGone() const { return m_isGuarded && m_object.isNull(); }
    bool hostSpans(int column, int firstRow, int count, RingSpans &spans) const;

    QPointer<const QObject> m_object; // the model, if it is one
    bool m_isGuarded = false;
    const RVXAbstractPlotDataModel *m_model = nullptr;
    const RVXBulkPlotData *m_bulk = nullptr;
    const LibraryBulkData *m_own = nullptr; // m_bulk, if it is one of the library's own
};

} // namespace Corvale_Qt
