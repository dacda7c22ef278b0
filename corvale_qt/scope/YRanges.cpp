// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScope.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/YRanges_p.h"

#include <QCoreApplication>

namespace Corvale_Qt {

namespace {

// The step of 250000 is kept on purpose: instruments have that range.
const char *const absoluteRanges[] = {
    "100000000", "10000000", "1000000", "250000", "100000", "50000", "20000", "10000",
    "5000",      "2000",     "1000",    "500",    "100",    "50",    "20",    "5",
    "1",         ".1",       ".05",     ".01",    ".001",   ".0001",
};
const char *const percentRanges[] = {
    "100%",
    "50%",
    "20%",
    "10%",
    "5%",
    "2%",
    "1%",
    "0.5%",
    "0.2%",
    "0.1%",
    "0.05%",
    "0.02%",
    "0.01%",
};

QString translated(const char *text)
{
    return QCoreApplication::translate("Corvale_Qt::RVXScope", text);
}

} // namespace

QStringList yRangeTexts(int list)
{
    QStringList texts{translated(QT_TRANSLATE_NOOP("Corvale_Qt::RVXScope", "Auto"))};
    if (list == RVXScope::PercentRanges) {
        texts << translated(QT_TRANSLATE_NOOP("Corvale_Qt::RVXScope", "Normalize"));
        for (const char *text : percentRanges)
            texts << text;
    } else if (list != RVXScope::AutomaticRange) {
        for (const char *text : absoluteRanges)
            texts << text;
    }
    return texts;
}

YRangeChoice yRangeChoice(int list, int index, const QString &text)
{
    YRangeChoice choice;
    if (list == RVXScope::PercentRanges || list == RVXScope::AutomaticRange) {
        choice.scaleMode = index;
        choice.canBePositiveOnly =
            list == RVXScope::PercentRanges && index >= RVXScopePlotView::FullRange;
        return choice;
    }
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    if (!isNumber)
        return choice;
    choice.scaleMode = RVXScopePlotView::FullRange;
    choice.canBePositiveOnly = list == RVXScope::AbsoluteRanges;
    choice.range = YRangeChoice::Range{list == RVXScope::AbsoluteRanges ? -value : 0.0, value};
    return choice;
}

} // namespace Corvale_Qt
