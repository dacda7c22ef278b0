// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/ChannelExpressions.h"
#include "tests/support/FuzzTarget.h"

#include <cmath>

using namespace Corvale_Qt;

//! Each line is a computed channel as somebody types it.
std::vector<std::string> fuzzSeeds()
{
    return {"asymmetry = (A - B) / (A + B)",
            "x [mm] = fit_position(A .. D)\ny = x > 2 ? sqrt(x) : -1e3",
            "s [nA] = sum(A .. D) + avg([left plate], B) ^ 2\nt = s * _pi\nu = t && s || A != B",
            "a = b\nb = a",
            "a = A ? B : D ? A : B\n = A\nA = 1\nb = min(A,\nc = ((((A))))",
            "w = fit_sigma(A, B, D) * atan2(A, B)\nq = A .. D",
            "n = 1e400\nm = A / 0\nk = ln(0-1) + log10(0)\nj = rint(A) % 2"};
}

namespace {

constexpr int rows = 3;
using Rows = std::vector<std::vector<double>>;

bool same(double one, double other)
{
    return one == other || (std::isnan(one) && std::isnan(other));
}

//! Computes the channels, this many rows at a time.
Rows computed(ChannelExpressions *expressions, const Rows &inputs, int atOnce)
{
    Rows result(std::size_t(expressions->count()), std::vector<double>(rows));
    for (int first = 0; first < rows; first += atOnce) {
        std::vector<const double *> from;
        std::vector<double *> to;
        for (const std::vector<double> &input : inputs)
            from.push_back(input.data() + first);
        for (std::vector<double> &output : result)
            to.push_back(output.data() + first);
        expressions->evaluate(from.data(), atOnce, to.data());
    }
    return result;
}

bool isSame(const Rows &one, const Rows &other)
{
    for (std::size_t channel = 0; channel < one.size(); ++channel)
        for (std::size_t row = 0; row < rows; ++row)
            if (!same(one[channel][row], other[channel][row]))
                return false;
    return true;
}

} // namespace

/*! Expressions make sense, or a fault names a place in one of them. Rows are computed one by one as they are together, and an
    expression in parentheses has the same value. */
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (!ChannelExpressions::isAvailable())
        return 0;
    static const QStringList names{"A", "B", "left plate", "D"};
    static const Rows inputs{{1, -2.5, 1e300}, {0, 3, std::nan("")}, {7, 7, 7}, {2, 1e-300, -1}};
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    QVector<ComputedChannel> channels;
    for (const QString &line : text.split('\n'))
        if (const std::optional<ComputedChannel> channel = ComputedChannel::fromText(line))
            channels.append(*channel);
    ChannelExpressions expressions;
    ExpressionFault fault;
    if (!expressions.compile(names, channels, &fault)) {
        FUZZ_REQUIRE(!fault.isEmpty() && !fault.message().isEmpty());
        FUZZ_REQUIRE(fault.channel >= -1 && fault.channel < channels.size());
        FUZZ_REQUIRE(fault.channel < 0
                     || fault.position <= channels[fault.channel].expression.size());
        return 0;
    }
    FUZZ_REQUIRE(expressions.count() == channels.size());
    const Rows together = computed(&expressions, inputs, rows);
    FUZZ_REQUIRE(isSame(together, computed(&expressions, inputs, 1)));
    for (ComputedChannel &channel : channels)
        channel.expression = '(' + channel.expression + ')';
    if (expressions.compile(names, channels, &fault))
        FUZZ_REQUIRE(isSame(together, computed(&expressions, inputs, rows)));
    return 0;
}
