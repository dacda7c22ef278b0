// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QByteArray>
#include <QPointer>

#include <typeindex>

class QDebug;
class QPointF;
template<typename T>
class QwtSeriesData;

namespace Corvale_Qt {

class BlockRanges;
class RVXAbstractPlotDataModel;

/*! The memory that holds the rows of a column, in up to two pieces, and the conversion from a stored number to the one that
    doubleData() returns: factor * number - zero, in this order. */
struct ColumnSpans
{
    //! Cached ranges of the stored numbers; null if their owner caches none.
    BlockRanges *blocks = nullptr;
    qint64 number = 0; //!< index of the first row's number among all that the ring ever took
    int ringSize = 0; //!< capacity of the ring, in numbers
    const double *piece[2] = {nullptr, nullptr};
    int size[2] = {0, 0};
    double factor = 1.0;
    double zero = 0.0;

    //! Returns the stored number of row \a i, counted from the first row of the spans.
    double stored(int i) const { return i < size[0] ? piece[0][i] : piece[1][i - size[0]]; }
    //! Returns what doubleData() returns for row \a i, counted from the first row of the spans.
    double value(int i) const { return factor * stored(i) - zero; }
    //! Returns the number of rows.
    int count() const { return size[0] + size[1]; }
};

//! Writes the sizes and the conversion, not the numbers.
QDebug operator<<(QDebug debug, const ColumnSpans &spans);

/*! Reads a plot model in chunks instead of cell by cell.

    The public interface of the models returns one number for each virtual call; hosts implement and override that one.
    The private classes of the library's models and proxies implement this interface as well. Code that reads many numbers
    uses a PlotColumnReader, which finds it once with of(). Rows and columns are counted as in doubleData(). */
class PlotColumns
{
public:
    virtual ~PlotColumns();

    //! Writes doubleData(row, column) of \a count rows, starting at \a firstRow, to \a out, equal bit for bit.
    virtual void read(int column, int firstRow, int count, double *out) const = 0;
    //! Returns true if the x of each sample row is greater than that of the row before; a NaN is not.
    virtual bool xRises() const = 0;
    /*! Sets \a spans to the memory that holds \a count rows, starting at \a firstRow; it is valid until the model changes.
        Returns false if any of the rows is not stored in this form. The default returns false. */
    virtual bool spans(int column, int firstRow, int count, ColumnSpans &spans) const;
    /*! Appends the display text of a sample's cell in UTF-8. Returns false and appends nothing if only the item model has
        the text. The default returns false. */
    virtual bool appendText(QByteArray &text, int row, int column) const;
    /*! Returns the version of column 0: another number after each change, which no model uses twice. The default returns
        0: changes are not counted. */
    virtual quint64 xVersion() const;
    /*! Returns how many of its oldest rows a column has dropped since the last reset, for models whose columns drop rows
        one after the other. The default returns -1: all columns drop a row together, when the model announces it. */
    virtual qint64 droppedRows(int column) const;

    /*! Returns the bulk interface of \a model. Null if the model's class is not exactly a class of the library: a host's
        subclass may override doubleData(), and then only that function has the right numbers. */
    static const PlotColumns *of(const RVXAbstractPlotDataModel *model);

    //! Returns the bulk interface of a model whose class is known.
    using Finder = const PlotColumns *(*)(const RVXAbstractPlotDataModel &);
    //! Registers a class for of(); \a find is called for its objects. Returns false if the class is known already.
    static bool add(std::type_index modelClass, Finder find);

protected:
    PlotColumns() = default;
    PlotColumns(const PlotColumns &) = default;
    PlotColumns &operator=(const PlotColumns &) = default;
};

//! The columns that a series reads, so that many of its points can be read at once.
struct SeriesColumns
{
    const PlotColumns *columns = nullptr; //!< null: the series can only be read point by point
    int column = 0; //!< of y; x is column 0
    int startRow = 0; //!< row of the first point
    double scale = 1.0; //!< divisor of y

    /*! Returns the columns of a ColumnSeries, or of an RVXSeriesData over a model of the library; null columns for any other
        series, and for subclasses of these two. */
    static SeriesColumns of(const QwtSeriesData<QPointF> *series);

    //! Writes the x of \a count points to \a x, starting with point \a first.
    void readX(size_t first, int count, double *x) const
    {
        columns->read(0, startRow + int(first), count, x);
    }
    //! Writes the y of \a count points to \a y, starting with point \a first.
    void readY(size_t first, int count, double *y) const
    {
        columns->read(column, startRow + int(first), count, y);
        for (int i = 0; i < count; ++i)
            y[i] /= scale;
    }
};

/*! Reads chunks of any plot model: through PlotColumns if the model has it, otherwise cell by cell. It is cheap to copy.
    It reads zeros from the moment that the model's deletion begins. The functions return what those of PlotColumns return;
    without a model, or for one that has no PlotColumns, they return what the defaults there return. */
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
    //! Returns the bulk interface, or null if there is none or the model is gone.
    const PlotColumns *columns() const { return isGone() ? nullptr : m_columns; }

private:
    bool isGone() const { return m_isGuarded && m_object.isNull(); }

    QPointer<const QObject> m_object; // the model, if it is one
    bool m_isGuarded = false;
    const RVXAbstractPlotDataModel *m_model = nullptr;
    const PlotColumns *m_columns = nullptr;
};

} // namespace Corvale_Qt
