// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QtGlobal>

#include <typeinfo>

namespace Corvale_Qt {

class LibraryBulkData;
class RVXAbstractPlotDataModel;

/*! Vouches for a subclass of one of the library's models: its doubleData() returns what the library's class returns, so that
    displays may read the memory of that class. Without it, a subclass is read through its doubleData(), cell by cell.

    \code
    class Electrometer : public RVXMultichannelDeviceModel, public RVXBulkPlotVoucher
    {
        const std::type_info &vouchedType() const override { return typeid(Electrometer); }
    };
    \endcode */
class CORVALE_QT_EXPORT RVXBulkPlotVoucher
{
public:
    RVXBulkPlotVoucher();
    virtual ~RVXBulkPlotVoucher();
    Q_DISABLE_COPY(RVXBulkPlotVoucher)

    /*! Returns the typeid of the class that this object vouches for. It does not count for a subclass of that class, which
        may override doubleData(). */
    virtual const std::type_info &vouchedType() const = 0;
};

/*! Reads a plot model in chunks, or in place, instead of cell by cell.

    A host's model derives from this class as well as from RVXAbstractPlotDataModel; views and proxies find it with of(). They
    then draw the model as fast as the library's own models. Rows and columns are counted as in doubleData(): column 0 is x,
    row 1 is the oldest sample.

    \code
    class Digitizer : public RVXAbstractDeviceDataModel, public RVXBulkPlotData
    {
        // ...
        const std::type_info &vouchedType() const override { return typeid(Digitizer); }
        bool xRises() const override { return true; }
        quint64 xVersion() const override { return m_version; } // = newXVersion() after each change of column 0
        void read(int column, int firstRow, int count, double *out) const override
        {
            for (int i = 0; i < count; ++i)
                out[i] = Digitizer::doubleData(firstRow + i, column);
        }
        bool spans(int column, int firstRow, int count, Spans &spans) const override;
    };
    \endcode

    The functions are called for each curve of each frame, so none of them may take long. The object must not change or move
    its numbers except while it announces it as a model. */
class CORVALE_QT_EXPORT RVXBulkPlotData : public RVXBulkPlotVoucher
{
public:
    /*! The layout of this class. Later versions of the library may append virtual functions; they call only those that the
        layout of an object has, so that hosts need not be built again. */
    static constexpr int currentLayout = 1;

    /*! The memory that holds rows of a column, in up to two pieces, as in a ring, and the conversion from a stored number to
        the one that doubleData() returns: factor * number - zero, in this order. */
    struct Spans
    {
        const double *piece[2] = {nullptr, nullptr}; //!< the first number of each piece
        int size[2] = {0, 0}; //!< how many numbers each piece has
        double factor = 1.0; //!< multiplier of the stored numbers
        double zero = 0.0; //!< subtrahend of the products

        //! Returns the stored number of row \a i, counted from the first row of the spans.
        double stored(int i) const { return i < size[0] ? piece[0][i] : piece[1][i - size[0]]; }
        //! Returns what doubleData() returns for row \a i, counted from the first row of the spans.
        double value(int i) const { return factor * stored(i) - zero; }
        //! Returns the number of rows.
        int count() const { return size[0] + size[1]; }
    };

    ~RVXBulkPlotData() override;

    //! Writes doubleData(row, column) of \a count rows, starting at \a firstRow, to \a out, equal bit for bit.
    virtual void read(int column, int firstRow, int count, double *out) const = 0;
    //! Returns true if the x of each sample row is greater than that of the row before; a NaN is not.
    virtual bool xRises() const = 0;
    /*! Sets \a spans to the memory that holds \a count rows, starting at \a firstRow; it is valid until the model changes.
        Returns false if any of the rows is not stored in this form. The default returns false. */
    virtual bool spans(int column, int firstRow, int count, Spans &spans) const;
    /*! Returns the version of column 0: another number of newXVersion() after each change of it, so that what is computed
        for one channel serves all. The default returns 0: changes are not counted. */
    virtual quint64 xVersion() const;

    //! Returns the layout that the object was compiled with.
    int layoutVersion() const { return m_layout; }

    /*! Returns the bulk interface of \a model, which may be null. Null if the model has none, or if nobody vouches for its
        exact class: a subclass may override doubleData(), and then only that function has the right numbers. */
    static const RVXBulkPlotData *of(const RVXAbstractPlotDataModel *model);
    //! Returns a number that no call has returned before and that is not 0.
    static quint64 newXVersion();

protected:
    //! Hosts use the default, which their compiler takes from the header that they are built with.
    explicit RVXBulkPlotData(int layout = currentLayout);

private:
    friend class PlotDataReader;
    friend class LibraryBulkData;

    int m_layout;
    const LibraryBulkData *m_columns = nullptr; // set for the library's own models
};

} // namespace Corvale_Qt
