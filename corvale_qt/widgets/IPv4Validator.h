// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QValidator>

namespace Corvale_Qt {

/*! Lets a line edit take a dotted IPv4 address.

    The numbers are not checked until there are four parts; a fifth part is refused at once.

    \code
    addressEdit->setValidator(new IPv4Validator(addressEdit));
    \endcode */
class CORVALE_QT_EXPORT IPv4Validator : public QValidator
{
    Q_OBJECT

public:
    //! Creates a validator; it has no settings.
    explicit IPv4Validator(QObject *parent = nullptr);

    /*! Returns Acceptable for four numbers up to 255 and Intermediate while parts are missing or empty. Returns Invalid
        if there are more than four parts, or if one of four parts is not a number or is above 255. A negative number
        is accepted: this is kept on purpose for addresses that are already stored. */
    State validate(QString &input, int &pos) const override;
    //! Leaves the text as it is.
    void fixup(QString &input) const override;
};

} // namespace Corvale_Qt
