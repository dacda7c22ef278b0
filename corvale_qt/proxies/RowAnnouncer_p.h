// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include "corvale_qt/proxies/InputRows_p.h"
#include "corvale_qt/proxies/ProxyIndexes_p.h"

namespace Corvale_Qt {

/*! Decides what a RVXMultichannelProxyModel announces when its inputs change. At every end signal the proxy has exactly
    the rows that it has announced, whatever the inputs do and in whatever order.

    Inputs may stand on each other (a model and its average side by side). One change of the lowest of them then
    arrives from each in turn, and until the last announcement some hold the new samples and some the old.
    Therefore nothing is announced before every input has ended what it began:

    - An input that grows beyond the others is announced as it grows. An input that grows within the announced
      rows changes its column there, from the repeated older sample to the new ones.
    - An input that drops rows at its front shifts the table, unless another one has shifted it as far already.
      The first of a round is announced as a removal at the front and an insertion at the end; the others are
      announced as changes of their columns. droppedRows() of a column tells which inputs follow.
    - All other differences are settled at the end of the table.
    - An input that is reset, whose columns are inserted, removed or moved, or that ends a change whose beginning was
      not heard, resets the table.

    One change is announced at a time. The work for a sample does not depend on the number of inputs. */
class RowAnnouncer
{
public:
    RowAnnouncer(RVXMultichannelProxyModel *proxy,
                 const MergedInputs &inputs,
                 const QVector<Channel> &channels);

    //! Returns the number of sample rows that the proxy has announced.
    int rows() const { return m_rows; }
    //! Returns whether any input is in the middle of a change. Changes of the others are then announced afterwards.
    bool isBusy() const { return m_open > 0; }

    void rowsAboutToBeInserted(MergedInput &input, int last);
    void rowsInserted(MergedInput &input, int first);
    void rowsAboutToBeRemoved(MergedInput &input, int first, int last);
    void rowsRemoved(MergedInput &input, int first, int last);
    void rowsAboutToBeMoved(MergedInput &input, int first, int last, int before);
    void layoutAboutToBeChanged(MergedInput &input, InputChange change);
    //! Resets the table: \a input changes in a way that cannot be announced by rows.
    void aboutToBeReset(MergedInput &input, InputChange change);
    //! \a input has ended \a change.
    void end(MergedInput &input, InputChange change);
    //! Notes that rows of \a input changed while the announcer was busy; the header is row 0.
    void cellsChangedMeanwhile(MergedInput &input, int firstRow, int lastRow);

    //! Calls the proxy's hook and emits dataChanged() for these cells of the proxy.
    void announceCells(int firstRow, int firstColumn, int lastRow, int lastColumn);

    /*! Begins a reset of the proxy around a change of its channels. Such resets may be nested; views see no samples
        until the last one ends. */
    void beginReset();
    void endReset();
    //! Closes all changes that \a input has begun: their ends will not be heard.
    void abandon(MergedInput &input);

private:
    enum class Change {
        None,
        Insertion,
        Removal,
        Move,
        Layout,
        Reset
    };

    //! Notes that \a input begins \a change. Returns false if another change is announced, so that this one cannot be.
    bool begin(MergedInput &input, InputChange change);
    template<typename Announce>
    void announceBegin(Change change, Announce announce);
    void open(Change change, int first, int last, qint64 shift);
    void openLayout();
    void openReset();
    void close();
    void closeLayout();
    void finishReset();

    void announce(Change change, int first, int last);
    int announcedLead(qint64 dropped, bool rowsRemain) const;
    bool isSettled() const;
    void settle();
    void settleRows();
    void tell(MergedInput &input, int knownRows, qint64 shift);
    void tellOfRowsBehind(int first);
    void columnsChanged(const MergedInput &input, int first, int last, int rowsBefore);

    MergedInput::News &newsOf(MergedInput &input);

    RVXMultichannelProxyModel *const q;
    const MergedInputs &m_inputs;
    InputRows m_counts;

    int m_rows = 0;
    // The rows that the table has dropped at its front, and the most that any input has dropped.
    qint64 m_shifted = 0;
    qint64 m_mostDropped = 0;

    // The number of changes that are open, of the inputs and of the announcer itself.
    int m_open = 0;
    // The inputs with changes that are not announced yet.
    QVector<MergedInput *> m_withNews;
    bool m_needsReset = false;

    // The change that is announced and open: rows m_first to m_last. When it ends, m_shift becomes m_shifted.
    Change m_change = Change::None;
    int m_first = 0;
    int m_last = 0;
    qint64 m_shift = 0;
    // Whether its beginning is being emitted. It must not end before all listeners have heard of it.
    bool m_beginning = false;
    HeldIndexes m_held;
};

} // namespace Corvale_Qt
