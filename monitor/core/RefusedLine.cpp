// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/core/RefusedLine.h"

#include "monitor/core/Text.h"

namespace Monitor {

QString refusalText(Refusal refusal)
{
    switch (refusal) {
    case Refusal::TooLong:
        return Text::tr("longer than 2 MiB");
    case Refusal::TooManyValues:
        return Text::tr("more than 256 values");
    case Refusal::WrongCount:
        return Text::tr("a different number of values than the lines before");
    case Refusal::TimeBackwards:
        return Text::tr("its time goes backwards");
    case Refusal::Unreadable:
        break;
    }
    return Text::tr("not readable");
}

namespace {

QString droppedText(RefusedLine::What what)
{
    switch (what) {
    case RefusedLine::What::Image:
        return Text::tr("image %1 dropped, %2: \"%3\"");
    case RefusedLine::What::Reading:
        return Text::tr("reading %1 dropped, %2: \"%3\"");
    case RefusedLine::What::Line:
        break;
    }
    return Text::tr("line %1 dropped, %2: \"%3\"");
}

QString phraseOf(RefusedLine::What what)
{
    switch (what) {
    case RefusedLine::What::Image:
        return Text::tr("image %1, %2: \"%3\"");
    case RefusedLine::What::Reading:
        return Text::tr("reading %1, %2: \"%3\"");
    case RefusedLine::What::Line:
        break;
    }
    return Text::tr("line %1, %2: \"%3\"");
}

QString whyText(const RefusedLine &line)
{
    if (line.reason.isEmpty())
        return refusalText(line.refusal);
    // A reason for this one names the number of a declared detector, to which the limit of channels does not apply.
    if (line.refusal == Refusal::TooManyValues)
        return line.reason.now();
    return refusalText(line.refusal) + QStringLiteral(" (%1)").arg(line.reason.now());
}

} // namespace

QString RefusedLine::text() const
{
    return droppedText(what).arg(number).arg(whyText(*this), QString::fromLatin1(excerpt));
}

QString RefusedLine::phrase() const
{
    return phraseOf(what).arg(number).arg(whyText(*this), QString::fromLatin1(excerpt));
}

} // namespace Monitor
