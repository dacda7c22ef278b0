// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <QByteArray>
#include <QPointer>

#include <typeindex>

class QPointF;
template<typename T>
class QwtSeriesData;

namespace Corvale_Qt {

class BlockRanges;
class RVXAbstractPlotDataModel;

/*! The memory behind some rows of a column, in up to two pieces, and how a number there becomes the one that
    doubleData() gives: factor * number - zero, in this order. */
struct ColumnSpans
{
    //! Ranges of the stored numbers, where their owner keeps them; null for none.
    BlockRanges *blocks = nullptr;
    qint64 number = 0; //!< of the first one, counted as BlockRanges counts
    int ringSize = 0; //!< how many numbers the owner has room for
    const double *piece[2] = {nullptr, nullptr};
    int size[2] = {0, 0};
    double factor = 1.0;
    double zero = 0.0;

    //! The stored number of row \a i, counted from the first row asked for.
    double stored(int i) const { return i < size[0] ? piece[0][i] : piece[1][i - size[0]]; }
    double value(int i) const { return factor * stored(i) - zero; }
    int count() const { return size[0] + size[1]; }
};

/*! Reads a plot model by the chunk instead of by the cell.

    The interface of the models asks for one number at a time through a virtual call; that is what hosts implement
    and override. Models and proxies of the library offer this beside it, from their private classes. Who reads
    many numbers asks for it once, with of(), and uses a PlotColumnReader. */
class PlotColumns
{
public:
    virtual ~PlotColumns();

    //! Writes doubleData(row, column) of \a count rows from \a firstRow on to \a out, equal bit for bit.
    virtual void read(int column, int firstRow, int count, double *out) const = 0;
    //! Whether the x of each sample row is greater than that of the one before (a NaN is not).
    virtual bool xRises() const = 0;
    /*! Where the numbers of \a count rows from \a firstRow on lie; false where they lie nowhere as they are, or
        not all of them do. Good until the model changes. */
    virtual bool spans(int column, int firstRow, int count, ColumnSpans &spans) const;
    /*! Appends the display text of a sample's cell, in UTF-8; false, and nothing appended, where only the item
        model's side has it. */
    virtual bool appendText(QByteArray &text, int row, int column) const;
    //! Another number each time that column 0 has changed, never used twice by any model; 0 where nobody counts.
    virtual quint64 xVersion() const;
    /*! How many of its oldest rows a column has dropped since the last reset, where columns drop theirs one after the
        other; -1 where all drop together, as the model announces it. */
    virtual qint64 droppedRows(int column) const;

    /*! The bulk side of \a model; null for a model that is not, exactly, a class of the library: a host's
        subclass may have another doubleData(), and what it says holds. */
    static const PlotColumns *of(const RVXAbstractPlotDataModel *model);

    using Finder = const PlotColumns *(*)(const RVXAbstractPlotDataModel &);
    //! Makes of() know a class, once per class: \a find gives an object's bulk side.
    static bool add(std::type_index modelClass, Finder find);

protected:
    PlotColumns() = default;
    PlotColumns(const PlotColumns &) = default;
    PlotColumns &operator=(const PlotColumns &) = default;
};

/*! What a series reads, for who wants more of it than one point. */
struct SeriesColumns
{
    const PlotColumns *columns = nullptr; //!< null: ask the series point by point
    int column = 0;
    int startRow = 0;
    double scale = 1.0; //!< divisor of y

    //! What a ColumnSeries reads, or exactly an RVXSeriesData over a class of the library; otherwise nothing is known.
    static SeriesColumns of(const QwtSeriesData<QPointF> *series);

    void readX(size_t first, int count, double *x) const
    {
        columns->read(0, startRow + int(first), count, x);
    }
    void readY(size_t first, int count, double *y) const
    {
        columns->read(column, startRow + int(first), count, y);
        for (int i = 0; i < count; ++i)
            y[i] /= scale;
    }
};

/*! Chunks of any plot model: in bulk where it can, cell by cell where it must. Cheap to copy. As soon as the
    model's deletion has begun it reads nothing, also before anyone has heard of that. */
class PlotColumnReader
{
public:
    PlotColumnReader() = default;
    explicit PlotColumnReader(const RVXAbstractPlotDataModel *model);
    //! Reads columns that belong to no model.
    explicit PlotColumnReader(const PlotColumns *columns);

    //! As PlotColumns::read(); zeros where there is no model.
    void read(int column, int firstRow, int count, double *out) const;
    //! As PlotColumns::xRises(); false where nobody knows.
    bool xRises() const;
    //! As PlotColumns::spans(); false where nobody knows.
    bool spans(int column, int firstRow, int count, ColumnSpans &spans) const;
    //! As PlotColumns::xVersion(); 0 where nobody counts.
    quint64 xVersion() const;
    //! As PlotColumns::droppedRows(); -1 where nobody knows.
    qint64 droppedRows(int column) const;
    //! Returns the bulk interface to read from: that of a model that is alive, or columns without a model. May be null.
    const PlotColumns *columns() const { return m_object || !m_model ? m_columns : nullptr; }

private:
    QPointer<const QObject> m_object; // the model
    const RVXAbstractPlotDataModel *m_model = nullptr;
    const PlotColumns *m_columns = nullptr;
};

} // namespace Corvale_Qt
