// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/CanvasColors_p.h"
#include "corvale_qt/scope/CanvasLook_p.h"

namespace Corvale_Qt {

namespace {

QColor grey(int level)
{
    return {level, level, level};
}

} // namespace

CanvasLook CanvasLook::onBlack()
{
    return {Qt::black, Qt::white, grey(88), grey(48), QBrush(Qt::yellow)};
}

CanvasLook CanvasLook::onWhite()
{
    return {Qt::white, Qt::black, grey(190), grey(225), QBrush(colorOnWhite(Qt::yellow))};
}

} // namespace Corvale_Qt
