// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QMetaType>
#include <QString>

namespace Corvale_Qt {
namespace Units {

/*! Codes of the units, as stored in files and passed between programs. Each quantity has a block of 16 codes; the gaps
    are part of the numbering. */
enum MeasurementUnitType : int {
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

/*! A physical unit of display. It converts numbers from the base unit of their quantity to the numbers that a person sees,
    and formats those as text.

    Models return pointers to units that the models own; fromType() and fromString() return new units that the caller
    owns. A unit is a plain value that may be copied and assigned.

    \code
    const Units::mA unit;
    unit.formatSuffix(0.0012); // "1.200e+00 mA"
    \endcode */
class CORVALE_QT_EXPORT MeasurementUnit
{
public:
    /*! Constructs a unit that the library does not know, of type Type_Unknown, shown in exponent form with three digits
        after the point. Numbers in the base unit are multiplied by \a factor and by \a extraScale; \a name is the
        symbol behind numbers. */
    MeasurementUnit(double factor, const QString &name, double extraScale);
    //! Copies the factor, the symbol, the extra scale, the type and the number format.
    MeasurementUnit(const MeasurementUnit &other);
    virtual ~MeasurementUnit();
    //! Copies what the copy constructor copies; overridden functions stay those of this object's class.
    MeasurementUnit &operator=(const MeasurementUnit &other);

    //! Returns the symbol, for example "mA".
    virtual QString name() const;
    //! Returns a caption for an axis, for example "Current (mA)".
    virtual QString description() const;
    //! Converts from the base unit to this one: (extra scale x factor) x value.
    virtual double scale(double value) const;
    //! Converts from this unit to the base unit: value / extra scale / factor. Not finite if either divisor is 0.
    virtual double unscale(double value) const;
    //! Converts a \a value in the base unit with scale() and returns its text, without the symbol.
    virtual QString format(double value) const;
    //! Returns the text of a \a value that is in this unit already, without the symbol.
    virtual QString formatUnscaled(double value) const;
    //! Returns format() followed by a space and the symbol.
    virtual QString formatSuffix(double value) const;
    //! Returns formatUnscaled() followed by a space and the symbol.
    virtual QString formatSuffixUnscaled(double value) const;

    //! Returns the code of the unit; Type_Unknown for units that the library does not know.
    MeasurementUnitType type() const;
    //! Sets the further multiplier of scale(), which is 1.0 for the units of the library. It is not checked.
    void setExtraScale(double extraScale);
    //! Sets how many digits after the point the texts have. It is not checked.
    void setPrecision(int precision);

    //! Returns a new unit, owned by the caller, or null if no unit has the \a type.
    static MeasurementUnit *fromType(MeasurementUnitType type);
    /*! Returns the type that a text from a person or a file means, or Type_Unknown. A micro sign is not understood (write
        "uA"), and a text that means nothing else but ends with a capital C or F is a temperature; both stay so for
        files that exist already. */
    static MeasurementUnitType typeFromString(const QString &text);
    //! Returns a new unit for \a text, owned by the caller, or null if typeFromString() does not know the text.
    static MeasurementUnit *fromString(const QString &text);

protected:
    //! Constructs a unit of the library; \a format is 'e' or 'f', \a precision the number of digits after the point.
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
