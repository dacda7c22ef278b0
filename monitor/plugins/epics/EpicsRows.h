// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <functional>
#include <limits>
#include <vector>

/*! Puts the values of several variables, which come one by one, side by side into rows. A row is complete when each variable that
    is present has a new value, or when one of them has a second one; the others then have the value that they still have. Its
    time is that of the newest of its values. */
class EpicsRows
{
public:
    //! Takes the time of a row and its values.
    using Sink = std::function<void(double time, const double *values)>;

    //! Begins with variables of these numbers of values, none of which is present.
    void begin(const std::vector<int> &sizes);
    //! Says that a variable is present: a row waits for its values.
    void expect(int variable);
    /*! Gives a variable new values. If there are fewer than its size, the rest is missing. A time that is NaN is not known: that of
        the row before is taken. */
    void update(int variable, double time, const double *values, int count, const Sink &sink);
    //! Takes the values of a variable away, and completes a row that says so.
    void remove(int variable, const Sink &sink);
    //! Completes a row that waits.
    void flush(const Sink &sink);
    //! Returns whether a row waits for the new values of some variables.
    bool isWaiting() const { return m_waiting > 0; }

private:
    struct Variable
    {
        std::size_t first = 0;
        int size = 0;
        bool isPresent = false;
        bool isNew = false;
        double time = -std::numeric_limits<double>::infinity(); //!< the last that is known
    };

    void fill(const Variable &variable, const double *values, int count);

    std::vector<Variable> m_variables;
    std::vector<double> m_values;
    double m_time = 0.0; //!< of the newest value of the row
    double m_lastTime = 0.0; //!< of the previous row
    int m_waiting = 0; //!< new values in the row
    int m_present = 0;
    bool m_any = false; //!< whether there was a row before
};
