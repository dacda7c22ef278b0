// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/numerics/SweepTrigger.h"
#include "corvale_qt/scope/SampleRows_p.h"

#include <optional>

namespace Corvale_Qt {

class PlotDataReader;

/*! Cuts sweeps of equal length at triggers out of the rows of a model, while the model appends rows and drops old ones. A
    trigger within the sweep of another one does not count. */
class TriggeredSweeps
{
public:
    //! A sweep that is complete.
    struct Sweep
    {
        RowRange rows;
        int origin =
            1; //!< the row at which its time is 0: that of the trigger, or where one would have been
        bool isTriggered = false;
    };

    //! Searches anew with another trigger, from the first row that comes after this.
    void set(const SweepTrigger &trigger);
    const SweepTrigger &trigger() const { return m_trigger; }
    //! Waits for the next trigger, also after a single one.
    void arm();
    //! Begins again with row 1.
    void restart();
    void rowsRemoved(int start, int end);
    //! Rows that were searched have other values now: those of another unit, or from which a zero is subtracted.
    void valuesChanged() { m_areValuesOther = true; }

    TriggerState state() const { return m_state; }
    /*! Searches the rows up to \a lastRow that are new. Returns the newest sweep of \a length rows that they complete. */
    std::optional<Sweep> update(const PlotDataReader &reader, int lastRow, int length);

private:
    int before(int length) const;
    std::optional<Sweep> triggered(const PlotDataReader &reader, int lastRow, int length);
    std::optional<Sweep> automatic(int lastRow, int length);
    void search(const PlotDataReader &reader, int lastRow, int length);
    void readAgain(const PlotDataReader &reader);

    SweepTrigger m_trigger;
    TriggerSearch m_search;
    TriggerState m_state = TriggerState::Off;
    bool m_isDone = false; //!< a single sweep was shown
    bool m_areValuesOther = false; //!< than those that were searched
    int m_nextRow = 1; //!< the first row that was not searched
    int m_triggerRow = 0; //!< its sweep is not complete; 0 for none
    int m_shownTo = 0; //!< the last row of the last sweep; triggers up to it do not count
};

} // namespace Corvale_Qt
