// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once
// Private: this header is not installed.

#include "corvale_qt/proxies/MergedInput_p.h"

namespace Corvale_Qt {

/*! Counts the sample rows of the inputs of a RVXMultichannelProxyModel, and keeps the number of rows of the longest
    input up to date without asking all of them at each sample. */
class InputRows
{
public:
    InputRows(const MergedInputs &inputs, const QVector<Channel> &channels);

    //! Returns the sample rows of the longest input; 0 without inputs.
    int longest() const { return m_longest; }
    //! Counts the rows of \a input again, after it changed.
    void count(MergedInput &input);
    //! Counts the rows and columns of all inputs again and forgets their news and their dropped rows.
    void countAll();

    /*! Returns the sample rows of the longest input that is shown to the left of \a input. The search stops at
        \a enough rows: the result may then be too small, but it is not below \a enough. */
    int longestBefore(const MergedInput &input, int enough) const;
    //! Returns the sample rows of the longest input other than \a input.
    int longestBeside(const MergedInput &input) const;

private:
    void countLongest();

    const MergedInputs &m_inputs;
    const QVector<Channel> &m_channels;
    int m_longest = 0;
    // The number of inputs that have m_longest rows.
    int m_holders = 0;
};

} // namespace Corvale_Qt
