// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace Corvale_Qt {
namespace Units {

/*! Chooses the prefix of a unit for the numbers that are shown, and writes them with it: 1.863e-7 A is "186.3 nA".

    The prefix follows the magnitude of the data with hysteresis, so that it does not change back and forth while a reading
    moves around a border. It becomes larger when a number would have four digits before the point (from 999.95 on, which
    rounds to 1000), and smaller when a number falls below 0.8. Units for which prefixes are unusual or would mislead keep
    their symbol: counts, monitor units, degrees, minutes, centimetres, strips.

    Numbers have as many digits as their noise allows: the last digit is the first one of the noise. The number of digits has
    hysteresis as well. While the noise is not known, numbers have four digits. Whole numbers of counts, and those without a
    unit, have all their digits and no decimals. An exponent is used only for numbers that are
    beyond all prefixes of the unit, or far from a unit that is fixed.

    It is a plain value: one for each axis, or for each cell of a table.

    \code
    Units::SiPrefix prefix("A");
    prefix.follow(1.863e-7);
    prefix.text(1.863e-7); // "186.3 nA"
    \endcode */
class CORVALE_QT_EXPORT SiPrefix
{
public:
    //! Constructs a prefix for numbers without a unit.
    SiPrefix() = default;
    //! Constructs a prefix for numbers in the unit \a symbol, which may have a prefix itself, for example "A", "nA" or "mm".
    explicit SiPrefix(const QString &symbol);

    //! Returns whether the unit takes prefixes.
    bool isScalable() const { return m_quantity >= 0; }
    //! Returns the symbol of the unit that the numbers are given in.
    QString givenSymbol() const { return m_given; }
    //! Returns the symbol of the unit that the numbers are shown in.
    QString symbol() const;
    //! Returns the symbols that fix() takes, the smallest unit first; empty if the unit takes no prefixes.
    QStringList symbols() const;

    /*! Chooses the prefix for numbers up to \a magnitude, and the last digit for their \a noise, the standard deviation; both
        are in the given unit. Returns whether either has changed. A magnitude of 0 or not finite keeps the prefix; a noise that
        is NaN keeps the last digit, and one of 0 stands for the usual four digits. At least three digits are shown of the magnitude. */
    bool follow(double magnitude, double noise = 0.0);
    /*! Shows numbers in the unit \a symbol from now on; empty to follow the data again. Of several symbols with spaces in between,
        such as "nA mV", the first one of symbols() counts. Returns false and changes nothing if there is none; "u" stands for
        the micro sign. */
    bool fix(const QString &symbol);
    //! Returns whether the unit is fixed.
    bool isFixed() const { return m_isFixed; }

    //! Converts a number from the given unit to the shown one.
    double shown(double value) const;
    //! Converts a number from the shown unit to the given one.
    double given(double shownValue) const;

    //! Returns the text of a \a value in the given unit, without a symbol. A NaN is "nan".
    QString number(double value) const;
    //! Returns number() with the symbol. A number that is not finite has no symbol.
    QString text(double value) const;
    //! Returns the label of a tick at \a value, with the digits that a distance of \a step between ticks needs.
    QString tick(double value, double step) const;

    /*! Returns the number, in the given unit, that a person typed: "186.3" is in the shown unit, "0.2 uA" in another. Empty if the
        text is not a finite number with, at most, a unit of the same quantity. */
    std::optional<double> parse(const QString &text) const;

    //! Returns text() of a single \a value in the unit \a symbol with the prefix that suits it, and digits for its \a noise.
    static QString text(double value, const QString &symbol, double noise = 0.0);

private:
    int idealExponent(double magnitude) const;
    bool followNoise(double magnitude, double noise);

    static constexpr int unknownDigit = 10000;

    QString m_given;
    int m_quantity = -1; // index into the table of quantities; -1 without prefixes
    int m_givenExponent = 0; // power of ten of the given unit
    int m_exponent = 0; // power of ten of the shown unit
    int m_lastDigit = unknownDigit; // power of ten of the last digit, in the given unit
    bool m_isChosen = false;
    bool m_isFixed = false;
};

} // namespace Units
} // namespace Corvale_Qt
