// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QValidator>

namespace Corvale_Qt {

/*! Lets a line edit take a dotted IPv4 address.

    While there are fewer than four parts the numbers are not looked at; a fifth part is refused at once.

    \code
    addressEdit->setValidator(new IPv4Validator(addressEdit));
    \endcode */
class CORVALE_QT_EXPORT IPv4Validator : public QValidator
{
    Q_OBJECT

public:
    explicit IPv4Validator(QObject *parent = nullptr);

    /*! Acceptable with four numbers up to 255, Intermediate while parts are missing or empty, Invalid with a
        fifth part, or a fourth and anything among them that is no number or above 255. A negative
       number passes: kept on purpose, for addresses that are stored already. */
    State validate(QString &input, int &pos) const override;
    //! Leaves the text as it is.
    void fixup(QString &input) const override;
};

} // namespace Corvale_Qt
