// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/RVXBulkPlotData.h"

#include <QByteArray>
#include <QPointer>

class QDebug;
class QPointF;
template<typename T>
class QwtSeriesData;

namespace Corvale_Qt {

class BlockRanges;
class RVXAbstractPlotDataModel;

//! The memory that holds rows of a column, with what only the library's own rings have.
struct ColumnSpans : RVXBulkPlotData::Spans
{
    //! Cached ranges of the stored numbers; null if their owner caches none.
    BlockRanges *blocks = nullptr;
    qint64 number = 0; //!< index of the first row's number among all that the ring ever took
    int ringSize = 0; //!< capacity of the ring, in numbers
};

//! Writes the sizes and the conversion, not the numbers.
QDebug operator<<(QDebug debug, const ColumnSpans &spans);

/*! The bulk interface of the library's own models and proxies, whose private classes implement it, with what hosts cannot
    offer. Each of those models hands it out by its property "bulkPlotData". */
class PlotColumns : public RVXBulkPlotData
{
public:
    ~PlotColumns() override;

    //! Sets \a spans as RVXBulkPlotData::spans() does, with the cached ranges. The default returns false.
    virtual bool columnSpans(int column, int firstRow, int count, ColumnSpans &spans) const;
    bool spans(int column, int firstRow, int count, Spans &spans) const final;
    /*! Appends the display text of a sample's cell in UTF-8. Returns false and appends nothing if only the item model has
        the text. The default returns false. */
    virtual bool appendText(QByteArray &text, int row, int column) const;
    /*! Returns how many of its oldest rows a column has dropped since the last reset, for models whose columns drop rows
        one after the other. The default returns -1: all columns drop a row together, when the model announces it. */
    virtual qint64 droppedRows(int column) const;

    //! Returns the bulk interface of \a model if its class is exactly a class of the library, otherwise null.
    static const PlotColumns *of(const RVXAbstractPlotDataModel *model);

protected:
    PlotColumns();
};

/*! The bulk interface of any model, which may have none. The functions return what those of RVXBulkPlotData and PlotColumns
    return; for a host's model they return what the defaults there return. It does not own the interface. */
class BulkColumns
{
public:
    BulkColumns() = default;
    explicit BulkColumns(const RVXBulkPlotData *bulk)
        : m_bulk(bulk)
        , m_own(bulk ? bulk->m_columns : nullptr)
    {
    }

    //! Returns false if there is no bulk interface; then no other function may be called.
    explicit operator bool() const { return m_bulk; }
    void read(int column, int firstRow, int count, double *out) const
    {
        m_bulk->read(column, firstRow, count, out);
    }
    bool xRises() const { return m_bulk->xRises(); }
    quint64 xVersion() const { return m_bulk->xVersion(); }
    bool spans(int column, int firstRow, int count, ColumnSpans &spans) const
    {
        return m_own ? m_own->columnSpans(column, firstRow, count, spans)
                     : hostSpans(column, firstRow, count, spans);
    }
    qint64 droppedRows(int column) const { return m_own ? m_own->droppedRows(column) : -1; }

private:
    bool hostSpans(int column, int firstRow, int count, ColumnSpans &spans) const;

    const RVXBulkPlotData *m_bulk = nullptr;
    const PlotColumns *m_own = nullptr;
};

//! The columns that a series reads, so that many of its points can be read at once.
struct SeriesColumns
{
    BulkColumns columns; //!< none: the series can only be read point by point
    int column = 0; //!< of y; x is column 0
    int startRow = 0; //!< row of the first point
    double scale = 1.0; //!< divisor of y

    /*! Returns the columns of a ColumnSeries, or of an RVXSeriesData over a model with a bulk interface; no columns for any
        other series, and for subclasses of these two. */
    static SeriesColumns of(const QwtSeriesData<QPointF> *series);

    //! Writes the x of \a count points to \a x, starting with point \a first.
    void readX(size_t first, int count, double *x) const
    {
        columns.read(0, startRow + int(first), count, x);
    }
    //! Writes the y of \a count points to \a y, starting with point \a first.
    void readY(size_t first, int count, double *y) const
    {
        columns.read(column, startRow + int(first), count, y);
        for (int i = 0; i < count; ++i)
            y[i] /= scale;
    }
};

/*! Reads chunks of any plot model: through its bulk interface if it has one, otherwise cell by cell. It is cheap to copy.
    It reads zeros from the moment that the model's deletion begins. The functions return what those of RVXBulkPlotData and
    PlotColumns return; without a model, or for one without a bulk interface, they return what the defaults there return. */
class PlotColumnReader
{
public:
    PlotColumnReader() = default;
    explicit PlotColumnReader(const RVXAbstractPlotDataModel *model);
    //! Reads columns that belong to no model; they must live as long as the reader.
    explicit PlotColumnReader(const PlotColumns *columns);

    //! Writes doubleData(row, column) of \a count rows, starting at \a firstRow, to \a out; zeros without a model.
    void read(int column, int firstRow, int count, double *out) const;
    bool xRises() const;
    bool spans(int column, int firstRow, int count, ColumnSpans &spans) const;
    quint64 xVersion() const;
    qint64 droppedRows(int column) const;

private:
    bool isGone() const { return m_isGuarded && m_object.isNull(); }
    bool isBulk() const { return m_columns && !isGone(); }

    QPointer<const QObject> m_object; // the model, if it is one
    bool m_isGuarded = false;
    const RVXAbstractPlotDataModel *m_model = nullptr;
    BulkColumns m_columns;
};

} // namespace Corvale_Qt
