// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/readings/UnitSymbols.h"

#include <QHash>
#include <QRegularExpression>

namespace Monitor {

using namespace Corvale_Qt::Units;

namespace {

QHash<QString, MeasurementUnitType> allSymbols()
{
    constexpr int lastType = Type_Strips;
    QHash<QString, MeasurementUnitType> symbols;
    for (int code = Type_A; code <= lastType; ++code) {
        const auto type = MeasurementUnitType(code);
        const std::unique_ptr<MeasurementUnit> unit(MeasurementUnit::fromType(type));
        if (!unit)
            continue;
        const QString name = unit->name();
        symbols.insert(name, type);
        if (name.startsWith(QChar(0xB5)))
            symbols.insert(QLatin1Char('u') + name.mid(1), type);
    }
    symbols.insert(QStringLiteral("counts"), Type_Pulses);
    symbols.insert(QStringLiteral("keV"), Type_KeV);
    return symbols;
}

//! Returns the block of 16 codes that a unit's code lies in; codes are grouped by quantity.
int block(MeasurementUnitType type)
{
    return type / 16;
}

//! Returns whether two units of the same block cannot be converted into each other (degrees; MU and gray).
bool onlyShareABlock(const MeasurementUnit &one, const MeasurementUnit &other)
{
    const auto isGray = [](const MeasurementUnit &unit) {
        return unit.type() == Type_Gy || unit.type() == Type_cGy;
    };
    if (block(one.type()) == block(Type_Gy))
        return !isGray(one) || !isGray(other);
    return block(one.type()) == block(Type_Celcius);
}

//! Returns whether a name says that C stands for degrees Celsius: temp_C, water_C, T1_C.
bool meansDegrees(const QString &name, const QString &symbol)
{
    static const QRegularExpression temperature(
        QStringLiteral(
            "temp|therm|celsius|water|cool|heat|chiller|cryo|ambient|room|oven|magnet|coil|pump|"
            "inlet|outlet|(^|[^a-z])air|^t[0-9]*$"),
        QRegularExpression::CaseInsensitiveOption);
    return symbol == QLatin1String("C") && name.contains(temperature);
}

} // namespace

std::unique_ptr<MeasurementUnit> unitFromSymbol(const QString &symbol)
{
    static const QHash<QString, MeasurementUnitType> symbols = allSymbols();
    const auto found = symbols.find(symbol);
    return std::unique_ptr<MeasurementUnit>(
        found == symbols.end() ? nullptr : MeasurementUnit::fromType(*found));
}

void splitUnitSuffix(const QString &text, QString *name, QString *symbol)
{
    const bool round = text.endsWith(QLatin1Char(')'));
    const bool inBrackets = round || text.endsWith(QLatin1Char(']'));
    const int mark = text.lastIndexOf(!inBrackets ? QLatin1Char('_')
                                          : round ? QLatin1Char('(')
                                                  : QLatin1Char('['));
    const QString before = text.left(qMax(mark, 0)).trimmed();
    QString suffix = mark > 0 ? text.mid(mark + 1) : QString();
    if (inBrackets)
        suffix = suffix.left(suffix.size() - 1).trimmed();
    const bool isUnit =
        !before.isEmpty() && unitFromSymbol(suffix) && !meansDegrees(before, suffix);
    *name = isUnit ? before : text;
    *symbol = isUnit ? suffix : QString();
}

bool sameQuantity(const MeasurementUnit &one, const MeasurementUnit &other)
{
    if (one.type() == other.type())
        return one.type() != Type_Unknown;
    return block(one.type()) == block(other.type()) && !onlyShareABlock(one, other);
}

} // namespace Monitor
