// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QObject>
#include <QVariant>

namespace Corvale_Qt {

/*! Notes that a model begins an acquisition: what displays have learned of the readings before, as their digits, does not hold for
    those that follow. A reset alone does not say that, since a model that is cleared goes on with the same instrument. */
void beginAcquisition(QObject *model);
//! Returns which acquisition a model is in, to be compared; not valid if the model does not note them, or is null.
QVariant acquisitionOf(const QObject *model);

} // namespace Corvale_Qt
