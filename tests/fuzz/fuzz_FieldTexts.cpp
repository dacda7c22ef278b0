// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/IPv4Validator.h"
#include "corvale_qt/widgets/IntStepSpinBox.h"
#include "corvale_qt/widgets/QScienceSpinBox.h"
#include "corvale_qt/widgets/TimeSpan.h"
#include "tests/support/FuzzTarget.h"

#include <QLineEdit>

#include <cmath>

using namespace Corvale_Qt;

std::vector<std::string> fuzzSeeds()
{
    return {"127.0.0.1", "255.255.255.256",
            "1.2.3.",    "1..2.3",
            "15",        "-20 V",
            "1.5e-9",    "1,5E+300",
            "1e309",     "+.5",
            "1.5 min",   "1 h 30 min",
            "all",       "250 us",
            "\xc2\xb5",  "-0",
            "0x1f",      "1 000",
            "nan",       "inf"};
}

namespace {

//! Four parts of digits, none above 255; computed in another way than the validator does.
bool isAddress(const QString &text)
{
    int dots = 0, digits = 0, number = 0;
    for (const QChar sign : text) {
        if (sign == QLatin1Char('.')) {
            if (digits == 0 || ++dots > 3)
                return false;
            digits = number = 0;
        } else if (sign >= QLatin1Char('0') && sign <= QLatin1Char('9') && ++digits <= 3) {
            number = 10 * number + sign.digitValue();
            if (number > 255)
                return false;
        } else {
            return false;
        }
    }
    return dots == 3 && digits > 0;
}

void tryAddress(QString text)
{
    static const IPv4Validator validator;
    int position = text.size();
    const QString before = text;
    const QValidator::State state = validator.validate(text, position);
    FUZZ_REQUIRE(!isAddress(text) || state == QValidator::Acceptable);
    FUZZ_REQUIRE(text.count(QLatin1Char('.')) <= 3 || state == QValidator::Invalid);
    validator.fixup(text);
    FUZZ_REQUIRE(text == before);
}

//! Whatever is typed, the value is a multiple of the step within the range.
void trySteps(const QString &text)
{
    static auto *box = [] {
        auto *made = new IntStepSpinBox;
        made->setRange(-100, 1000);
        made->setSingleStep(5);
        made->setSuffix(QStringLiteral(" V"));
        return made;
    }();
    auto *edit = box->findChild<QLineEdit *>();
    edit->selectAll();
    edit->insert(text);
    box->interpretText();
    FUZZ_REQUIRE(box->value() % 5 == 0 && box->value() >= -100 && box->value() <= 1000);
    QString typed = text;
    int position = typed.size();
    box->validate(typed, position);
    FUZZ_REQUIRE(position >= 0 && position <= typed.size());
}

//! A number that is accepted is finite, and what is shown of it is accepted again.
void tryNumber(const QString &text)
{
    static auto *box = new QScienceSpinBox;
    QString typed = text;
    int position = typed.size();
    if (box->validate(typed, position) != QValidator::Acceptable)
        return;
    const double value = box->valueFromText(typed);
    FUZZ_REQUIRE(std::isfinite(value));
    QString shown = box->textFromValue(value);
    position = shown.size();
    FUZZ_REQUIRE(box->validate(shown, position) == QValidator::Acceptable);
    const double again = box->valueFromText(shown);
    FUZZ_REQUIRE(std::abs(again - value) <= 1e-4 * std::abs(value));
    box->setValue(value);
    FUZZ_REQUIRE(std::isfinite(box->value()));
}

void trySpan(const QString &text)
{
    QString error;
    const std::optional<double> span = TimeSpan::fromText(text, &error);
    FUZZ_REQUIRE(span.has_value() == error.isEmpty());
    if (!span)
        return;
    FUZZ_REQUIRE(TimeSpan::isPossible(*span));
    const std::optional<double> again = TimeSpan::fromText(TimeSpan::text(*span));
    FUZZ_REQUIRE(again && (*again == *span || std::abs(*again - *span) <= 1e-11 * *span));
}

} // namespace

//! What is typed or dropped into a field.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char *>(data), int(std::min<size_t>(size, 256)));
    tryAddress(text);
    trySteps(text);
    tryNumber(text);
    trySpan(text);
    return 0;
}
