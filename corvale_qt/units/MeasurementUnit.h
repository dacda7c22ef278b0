// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QMetaType>
#include <QString>

namespace Corvale_Qt {
namespace Units {

/*! What a unit is, as stored in files and passed between programs: blocks of 16 for each quantity.
    The gaps are part of the numbering. */
enum MeasurementUnitType {
    Type_Unknown = 0,
    Type_A = 16,
    Type_mA = 17,
    Type_uA = 18,
    Type_nA = 19,
    Type_pA = 20,
    Type_C = 32,
    Type_mC = 33,
    Type_uC = 34,
    Type_nC = 35,
    Type_pC = 36,
    Type_fC = 37,
    Type_V = 48,
    Type_mV = 49,
    Type_uV = 50,
    Type_kV = 53,
    Type_Pulses = 64,
    Type_Hz = 80,
    Type_KHz = 81,
    Type_S = 96,
    Type_ms = 97,
    Type_us = 98,
    Type_ns = 99,
    Type_minutes = 100,
    Type_m = 112,
    Type_mm = 113,
    Type_cm = 114,
    Type_eV = 128,
    Type_KeV = 133,
    Type_MeV = 134,
    Type_Gy = 144,
    Type_cGy = 145,
    Type_Gp = 146,
    Type_MU = 147,
    Type_Gp_per_s = 148,
    Type_MU_per_s = 149,
    Type_G = 160,
    Type_kG = 161,
    Type_Celcius = 176,
    Type_Fahrenheit = 177,
    Type_Strips = 192,
};

/*! A physical unit of display: turns numbers held in the base unit of their quantity into numbers shown to a
    person, and those into text.

    Models hand out pointers to units that they keep; fromType() and fromString() make new ones that the caller
    owns. A unit is a plain value: it may be copied and assigned, and it knows nothing of who shows it.

    \code
    const Units::mA unit;
    unit.formatSuffix(0.0012); // "1.200e+00 mA"
    \endcode */
class CORVALE_QT_EXPORT MeasurementUnit
{
public:
    /*! A unit of the host's own: type Type_Unknown, exponent format with three digits. \a factor turns a value in
        the base unit into one in this unit, \a name is the symbol put after numbers, \a extraScale is multiplied
        in as well. */
    MeasurementUnit(double factor, const QString &name, double extraScale);
    MeasurementUnit(const MeasurementUnit &other);
    virtual ~MeasurementUnit();
    MeasurementUnit &operator=(const MeasurementUnit &other);

    //! The symbol, for example "mA".
    virtual QString name() const;
    //! A caption for an axis, for example "Current (mA)".
    virtual QString description() const;
    //! From the base unit to this one: (extra scale x factor) x value.
    virtual double scale(double value) const;
    //! From this unit to the base unit: value / extra scale / factor; not finite when either is 0.
    virtual double unscale(double value) const;
    //! Text of a \a value given in the base unit.
    virtual QString format(double value) const;
    //! Text of a \a value given in this unit.
    virtual QString formatUnscaled(double value) const;
    //! format() followed by a space and the symbol.
    virtual QString formatSuffix(double value) const;
    //! formatUnscaled() followed by a space and the symbol.
    virtual QString formatSuffixUnscaled(double value) const;

    MeasurementUnitType type() const;
    //! A further multiplier of scale(), 1.0 at first. Not checked.
    void setExtraScale(double extraScale);
    //! Digits after the point in format() and its kin. Not checked.
    void setPrecision(int precision);

    //! A new unit, owned by the caller; null where \a type names none.
    static MeasurementUnit *fromType(MeasurementUnitType type);
    /*! The type that a text from a person or a file means; Type_Unknown where it means none. The symbols with a
        micro sign are not understood (write "uA"), and any other text that ends with a capital C or F is a
        temperature: both kept for files already written. */
    static MeasurementUnitType typeFromString(const QString &text);
    //! A new unit for \a text, owned by the caller; null where typeFromString() does not know it.
    static MeasurementUnit *fromString(const QString &text);

protected:
    MeasurementUnit(double factor,
                    const QString &name,
                    MeasurementUnitType type,
                    double extraScale,
                    char format,
                    int precision);

private:
    friend struct UnitTraits;
    double m_factor;
    QString m_name;
    double m_extraScale;
    int m_precision;
    MeasurementUnitType m_type;
    char m_format;
};

} // namespace Units
} // namespace Corvale_Qt

Q_DECLARE_METATYPE(const Corvale_Qt::Units::MeasurementUnit *)
