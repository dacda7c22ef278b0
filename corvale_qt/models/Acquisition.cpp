// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/Acquisition_p.h"

namespace Corvale_Qt {

namespace {

// A property, because exported classes keep their members: hosts are built with them.
constexpr char kProperty[] = "_corvale_qt_acquisition";

} // namespace

void beginAcquisition(QObject *model)
{
    model->setProperty(kProperty, model->property(kProperty).toInt() + 1);
}

QVariant acquisitionOf(const QObject *model)
{
    return model ? model->property(kProperty) : QVariant();
}

} // namespace Corvale_Qt
