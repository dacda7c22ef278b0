// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/numerics/WideRegisters_p.h"

namespace Corvale_Qt {

#if defined(__x86_64__)

namespace {

[[gnu::target("avx")]] void emptyUpperHalves()
{
    __builtin_ia32_vzeroupper();
}

} // namespace

void clearWideRegisters()
{
    if (__builtin_cpu_supports("avx"))
        emptyUpperHalves();
}

#else

void clearWideRegisters() { }

#endif

} // namespace Corvale_Qt
