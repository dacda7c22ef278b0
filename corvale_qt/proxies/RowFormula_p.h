// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/proxies/ExpressionText_p.h"

#include <QCoreApplication>

#include <memory>

namespace Corvale_Qt {

//! One expression as the parser has compiled it. The parser's library is seen by this class only.
class RowFormula
{
public:
    virtual ~RowFormula();

    static bool isAvailable();
    //! Compiles a text. Returns null, with a \a fault, if it makes no sense.
    static std::unique_ptr<RowFormula> from(const ExpressionText &text, ExpressionFault *fault);
    //! Computes \a rows rows; row r of channel c is sources[c][r].
    virtual void evaluate(const double *const *sources, int rows, double *out) = 0;

protected:
    RowFormula();

    Q_DECLARE_TR_FUNCTIONS(Corvale_Qt::RowFormula)
};

} // namespace Corvale_Qt
