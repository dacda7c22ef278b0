// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for the library's own models, proxies and views.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include <typeindex>

namespace Corvale_Qt {

class RVXAbstractPlotDataModel;

/*! Reads a plot model by the chunk instead of by the cell.

    The interface of the models asks for one number at a time through a virtual call; that is what
   hosts implement and override. Models and proxies of the library offer this beside it, from their
   private classes. Who reads many numbers asks for it once, with of(), and uses a PlotColumnReader.
 */
class PlotColumns
{
public:
    virtual ~PlotColumns();

    //! Writes doubleData(row, column) of \a count rows from \a firstRow on to \a out, equal bit for bit.
    virtual void read(int column, int firstRow, int count, double *out) const = 0;
    //! Whether the x of each sample row is greater than that of the one before (a NaN is not).
    virtual bool xRises() const = 0;

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

/*! Chunks of any plot model: in bulk where it can, cell by cell where it must. Cheap to copy; must not outlive
    the model. */
class PlotColumnReader
{
public:
    PlotColumnReader() = default;
    explicit PlotColumnReader(const RVXAbstractPlotDataModel *model);

    //! As PlotColumns::read(); zeros where there is no model.
    void read(int column, int firstRow, int count, double *out) const;
    //! As PlotColumns::xRises(); false where nobody knows.
    bool xRises() const;
    //! The model's bulk side, or null.
    const PlotColumns *columns() const { return m_columns; }

private:
    const RVXAbstractPlotDataModel *m_model = nullptr;
    const PlotColumns *m_columns = nullptr;
};

} // namespace Corvale_Qt
