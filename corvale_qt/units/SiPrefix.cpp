// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/SiPrefix.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Corvale_Qt {
namespace Units {

namespace {

constexpr int usualDigits = 4;
constexpr int fewestDigits = 3;
constexpr int mostDecimals = 9;
// Numbers of the unit beyond these have an exponent.
constexpr double largestPlain = 1e7;
constexpr double smallestPlain = 1e-6;
// Up to here, a double holds every whole number.
constexpr double largestWhole = 9007199254740992.0;
// Rounded to four digits, this number has a digit more.
constexpr double roundsUp = 0.99995;
// The prefix becomes smaller below this number of its unit.
constexpr double smallestKept = 0.8;

//! A unit that takes prefixes, and the powers of ten of the smallest and the largest one that people use with it.
struct Quantity
{
    const char *symbol;
    int lowest;
    int highest;
};

constexpr Quantity quantities[] = {
    {"A", -15, 3},
    {"C", -15, 3},
    {"V", -9, 6},
    {"Hz", 0, 9},
    {"s", -12, 0},
    {"m", -9, 0},
    {"eV", 0, 12},
    {"Gy", -9, 3},
    {"W", -12, 9},
    {"J", -12, 6},
    {"T", -9, 0},
    {"G", -6, 3},
    {"Pa", -9, 6},
};

struct Prefix
{
    char16_t letter;
    int exponent;
};

// The first letter of an exponent is the one that is shown; the others are read.
constexpr Prefix prefixes[] = {
    {u'f', -15},
    {u'p', -12},
    {u'n', -9},
    {u'\u00b5', -6},
    {u'u', -6},
    {u'\u03bc', -6},
    {u'm', -3},
    {u'k', 3},
    {u'K', 3}, // the symbol of the library's own unit is "KeV"
    {u'M', 6},
    {u'G', 9},
    {u'T', 12},
};

QString prefixText(int exponent)
{
    const auto *const found =
        std::find_if(std::begin(prefixes), std::end(prefixes), [exponent](const Prefix &prefix) {
            return prefix.exponent == exponent;
        });
    return found == std::end(prefixes) ? QString() : QString(QChar(found->letter));
}

//! A symbol, taken apart.
struct Symbol
{
    int quantity = -1;
    int exponent = 0;
};

//! Returns the quantity and the prefix of a symbol; no quantity if prefixes cannot be changed.
Symbol readSymbol(const QString &symbol)
{
    for (int i = 0; i < int(std::size(quantities)); ++i) {
        const QLatin1String base(quantities[i].symbol);
        if (symbol == base)
            return {i, 0};
        if (symbol.size() != base.size() + 1 || !symbol.endsWith(base))
            continue;
        for (const Prefix &prefix : prefixes) {
            if (symbol.at(0) == QChar(prefix.letter))
                return {i, prefix.exponent};
        }
    }
    return {};
}

//! Multiplies by a power of ten. Powers up to 22 are exact, so the result is rounded once.
double timesPowerOfTen(double value, int exponent)
{
    return exponent < 0 ? value / std::pow(10.0, -exponent) : value * std::pow(10.0, exponent);
}

//! Returns whether a number counts something: beams, layers, pulses. Numbers without a unit do if they are whole.
bool isCount(double number, const QString &symbol)
{
    const bool counts =
        symbol.isEmpty() || symbol.compare(QLatin1String("counts"), Qt::CaseInsensitive) == 0;
    return counts && std::abs(number) <= largestWhole && std::trunc(number) == number;
}

int decadeOf(double value)
{
    return int(std::floor(std::log10(value)));
}

//! Returns how many digits after the point a number needs to have \a digits digits.
int decimalsFor(double magnitude, int digits)
{
    // A number below 1 is shown with the decimals of one just above 1, so that the point stays where it is.
    const double shown = magnitude >= smallestKept ? std::max(magnitude, 1.0) : magnitude;
    int before = shown > 0.0 ? decadeOf(shown) + 1 : 1;
    // The digits that are cut off may round up to one more.
    if (shown >= std::pow(10.0, before) * (1.0 - 0.5 * std::pow(10.0, -digits)))
        ++before;
    return std::max(digits - before, 0);
}

QString fixedText(double value, int decimals)
{
    QString text = QString::number(value, 'f', decimals);
    const bool isZero = std::none_of(text.begin(), text.end(), [](QChar c) {
        return c >= QLatin1Char('1') && c <= QLatin1Char('9');
    });
    if (isZero && text.startsWith(QLatin1Char('-')))
        text.remove(0, 1);
    return text;
}

} // namespace

SiPrefix::SiPrefix(const QString &symbol)
    : m_given(symbol)
{
    const Symbol read = readSymbol(symbol);
    m_quantity = read.quantity;
    m_givenExponent = read.exponent;
    m_exponent = read.exponent;
}

QString SiPrefix::symbol() const
{
    if (!isScalable() || m_exponent == m_givenExponent)
        return m_given;
    return prefixText(m_exponent) + QLatin1String(quantities[m_quantity].symbol);
}

QStringList SiPrefix::symbols() const
{
    QStringList symbols;
    if (!isScalable())
        return symbols;
    const Quantity &quantity = quantities[m_quantity];
    for (int exponent = quantity.lowest; exponent <= quantity.highest; exponent += 3)
        symbols << prefixText(exponent) + QLatin1String(quantity.symbol);
    return symbols;
}

//! Returns the exponent of the prefix that leaves one to three digits before the point.
int SiPrefix::idealExponent(double magnitude) const
{
    const Quantity &quantity = quantities[m_quantity];
    int exponent = quantity.highest;
    while (exponent > quantity.lowest
           && timesPowerOfTen(magnitude, m_givenExponent - exponent) < roundsUp)
        exponent -= 3;
    return exponent;
}

bool SiPrefix::follow(double magnitude, double noise)
{
    magnitude = std::abs(magnitude);
    const bool digitsChange = followNoise(magnitude, noise);
    if (!isScalable() || m_isFixed || magnitude == 0.0 || !std::isfinite(magnitude))
        return digitsChange;
    const double now = shown(magnitude);
    if (m_isChosen && now >= smallestKept && now < 1000.0 * roundsUp)
        return digitsChange;
    m_isChosen = true;
    const int exponent = idealExponent(magnitude);
    const bool prefixChanges = exponent != m_exponent;
    m_exponent = exponent;
    return prefixChanges || digitsChange;
}

//! Chooses the last digit. It is kept while the noise is between a half and twenty of it.
bool SiPrefix::followNoise(double magnitude, double noise)
{
    const int before = m_lastDigit;
    if (std::isnan(noise))
        return false;
    if (!(noise > 0.0) || !std::isfinite(noise)) {
        m_lastDigit = unknownDigit;
        return m_lastDigit != before;
    }
    // What moves by a tenth of itself from reading to reading is not noise.
    if (magnitude > 0.0 && std::isfinite(magnitude))
        noise = std::min(noise, magnitude * std::pow(10.0, 1 - fewestDigits));
    const double inDigits = before == unknownDigit ? 0.0 : timesPowerOfTen(noise, -before);
    if (!(inDigits >= 0.5 && inDigits < 20.0))
        m_lastDigit = decadeOf(noise);
    return m_lastDigit != before;
}

bool SiPrefix::fix(const QString &symbol)
{
    if (symbol.isEmpty()) {
        m_isFixed = false;
        m_isChosen = false;
        return true;
    }
    const QStringList known = symbols();
    for (const QString &each : symbol.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const Symbol read = readSymbol(each);
        if (!isScalable() || read.quantity != m_quantity
            || !known.contains(prefixText(read.exponent)
                               + QLatin1String(quantities[m_quantity].symbol)))
            continue;
        m_exponent = read.exponent;
        m_isFixed = true;
        return true;
    }
    return false;
}

double SiPrefix::shown(double value) const
{
    return m_exponent == m_givenExponent ? value
                                         : timesPowerOfTen(value, m_givenExponent - m_exponent);
}

double SiPrefix::given(double shownValue) const
{
    return m_exponent == m_givenExponent
        ? shownValue
        : timesPowerOfTen(shownValue, m_exponent - m_givenExponent);
}

QString SiPrefix::number(double value) const
{
    const double number = shown(value);
    const double magnitude = std::abs(number);
    if (!std::isfinite(number))
        return QString::number(number);
    if (isCount(number, m_given))
        return fixedText(number, 0);
    const bool hasNoise = m_lastDigit != unknownDigit;
    if (number == 0.0 && !hasNoise)
        return QStringLiteral("0");
    const bool isTiny = magnitude < smallestPlain && number != 0.0 && !hasNoise;
    if (magnitude >= largestPlain || isTiny)
        return QString::number(number, 'e', usualDigits - 1);
    const int decimals =
        hasNoise ? m_exponent - m_givenExponent - m_lastDigit : decimalsFor(magnitude, usualDigits);
    return fixedText(number, std::clamp(decimals, 0, mostDecimals));
}

QString SiPrefix::text(double value) const
{
    const QString unit = symbol();
    if (!std::isfinite(value) || unit.isEmpty())
        return number(value);
    return number(value) + QLatin1Char(' ') + unit;
}

QString SiPrefix::tick(double value, double step) const
{
    const double number = shown(value);
    const double distance = std::abs(shown(step));
    // Ticks are sums of steps, so the one at 0 may miss it by rounding errors.
    if (std::abs(number) < 1e-9 * distance)
        return QStringLiteral("0");
    if (!(distance > 0.0) || !std::isfinite(number) || std::abs(number) >= largestPlain
        || distance < 1e-9)
        return QString::number(number, 'g', 6);
    // A step such as 0.25 needs more decimals than its first digit.
    // A step of 0.1 that is a rounding error too small must not get another decimal.
    int decimals = std::clamp(-decadeOf(distance * (1.0 + 1e-9)), 0, mostDecimals);
    for (int more = 0; more < 2; ++more) {
        const double scaled = distance * std::pow(10.0, decimals);
        if (std::abs(scaled - std::round(scaled)) > 1e-6 * scaled)
            ++decimals;
    }
    return fixedText(number, std::min(decimals, mostDecimals));
}

std::optional<double> SiPrefix::parse(const QString &text) const
{
    const QString typed = text.trimmed();
    const auto isUnit = [](QChar c) {
        return c.isLetter() || c == QChar(0xb5) || c == QLatin1Char('/') || c == QChar(0xb0);
    };
    int end = typed.size();
    while (end > 0 && isUnit(typed.at(end - 1)))
        --end;
    bool isNumber = false;
    const double number = typed.left(end).trimmed().toDouble(&isNumber);
    const QString unit = typed.mid(end);
    if (!isNumber || !std::isfinite(number))
        return std::nullopt;
    std::optional<double> value;
    const Symbol read = readSymbol(unit);
    if (unit.isEmpty() || unit == symbol())
        value = given(number);
    else if (unit == m_given)
        value = number;
    else if (isScalable() && read.quantity == m_quantity)
        value = timesPowerOfTen(number, read.exponent - m_givenExponent);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

QString SiPrefix::text(double value, const QString &symbol, double noise)
{
    SiPrefix prefix(symbol);
    prefix.follow(value, noise);
    return prefix.text(value);
}

} // namespace Units
} // namespace Corvale_Qt
