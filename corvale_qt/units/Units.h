// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/units/MeasurementUnit.h"

/*! \file
    Declares one class for each unit that the library knows. Models hold numbers in the base unit of their quantity, whose
    class has the factor 1. Temperatures are never converted: models hold them in the unit that is shown. */

namespace Corvale_Qt {
namespace Units {

// Current

//! Ampere, shown as "A"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT A : public MeasurementUnit
{
public:
    A();
    QString description() const override;
};

//! Milliampere, shown as "mA"; amperes x 1e3; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT mA : public MeasurementUnit
{
public:
    mA();
    QString description() const override;
};

//! Microampere, shown as "µA"; amperes x 1e6; 4 digits after the point.
class CORVALE_QT_EXPORT uA : public MeasurementUnit
{
public:
    uA();
    QString description() const override;
};

//! Nanoampere, shown as "nA"; amperes x 1e9; 4 digits after the point.
class CORVALE_QT_EXPORT nA : public MeasurementUnit
{
public:
    nA();
    QString description() const override;
};

//! Picoampere, shown as "pA"; amperes x 1e12; 4 digits after the point.
class CORVALE_QT_EXPORT pA : public MeasurementUnit
{
public:
    pA();
    QString description() const override;
};

// Charge

//! Coulomb, shown as "C"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT C : public MeasurementUnit
{
public:
    C();
    QString description() const override;
};

//! Millicoulomb, shown as "mC"; coulombs x 1e3; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT mC : public MeasurementUnit
{
public:
    mC();
    QString description() const override;
};

//! Microcoulomb, shown as "µC"; coulombs x 1e6; 4 digits after the point.
class CORVALE_QT_EXPORT uC : public MeasurementUnit
{
public:
    uC();
    QString description() const override;
};

//! Nanocoulomb, shown as "nC"; coulombs x 1e9; 4 digits after the point.
class CORVALE_QT_EXPORT nC : public MeasurementUnit
{
public:
    nC();
    QString description() const override;
};

//! Picocoulomb, shown as "pC"; coulombs x 1e12; 4 digits after the point.
class CORVALE_QT_EXPORT pC : public MeasurementUnit
{
public:
    pC();
    QString description() const override;
};

//! Femtocoulomb, shown as "fC"; coulombs x 1e15; 4 digits after the point.
class CORVALE_QT_EXPORT fC : public MeasurementUnit
{
public:
    fC();
    QString description() const override;
};

// Voltage

//! Volt, shown as "V"; 3 digits after the point.
class CORVALE_QT_EXPORT V : public MeasurementUnit
{
public:
    V();
    QString description() const override;
};

//! Millivolt, shown as "mV"; volts x 1e3; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT mV : public MeasurementUnit
{
public:
    mV();
    QString description() const override;
};

//! Microvolt, shown as "µV"; volts x 1e6; 4 digits after the point.
class CORVALE_QT_EXPORT uV : public MeasurementUnit
{
public:
    uV();
    QString description() const override;
};

//! Kilovolt, shown as "kV"; volts x 0.001; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT kV : public MeasurementUnit
{
public:
    kV();
    QString description() const override;
};

// Counts

//! Counted pulses, shown as "Counts"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT Pulses : public MeasurementUnit
{
public:
    Pulses();
};

// Rate

//! Hertz, shown as "Hz"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT Hz : public MeasurementUnit
{
public:
    Hz();
    QString description() const override;
};

//! Kilohertz, shown as "kHz"; hertz x 0.001; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT KHz : public MeasurementUnit
{
public:
    KHz();
    QString description() const override;
};

// Time

//! Second, shown as "s"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT S : public MeasurementUnit
{
public:
    S();
    QString description() const override;
};

//! Millisecond, shown as "ms"; seconds x 1e3; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT ms : public MeasurementUnit
{
public:
    ms();
    QString description() const override;
};

//! Microsecond, shown as "µs"; seconds x 1e6; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT us : public MeasurementUnit
{
public:
    us();
    QString description() const override;
};

//! Nanosecond, shown as "ns"; seconds x 1e9; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT ns : public MeasurementUnit
{
public:
    ns();
    QString description() const override;
};

//! Minute, shown as "min"; seconds / 60; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT minutes : public MeasurementUnit
{
public:
    minutes();
    QString description() const override;
};

// Position

//! Metre, shown as "m"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT m : public MeasurementUnit
{
public:
    m();
    QString description() const override;
};

//! Millimetre, shown as "mm"; metres x 1e3; 3 digits after the point.
class CORVALE_QT_EXPORT mm : public MeasurementUnit
{
public:
    mm();
    QString description() const override;
};

//! Centimetre, shown as "cm"; metres x 100; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT cm : public MeasurementUnit
{
public:
    cm();
    QString description() const override;
};

// Energy

//! Electronvolt, shown as "eV"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT eV : public MeasurementUnit
{
public:
    eV();
    QString description() const override;
};

//! Kiloelectronvolt, shown as "KeV"; electronvolts x 0.001; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT KeV : public MeasurementUnit
{
public:
    KeV();
    QString description() const override;
};

//! Megaelectronvolt, shown as "MeV"; electronvolts x 1e-6; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT MeV : public MeasurementUnit
{
public:
    MeV();
    QString description() const override;
};

// Dose

//! Gray, shown as "Gy"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT Gy : public MeasurementUnit
{
public:
    Gy();
    QString description() const override;
};

//! Centigray, shown as "cGy"; grays x 100; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT cGy : public MeasurementUnit
{
public:
    cGy();
    QString description() const override;
};

//! Gigaproton, shown as "Gp"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT Gp : public MeasurementUnit
{
public:
    Gp();
};

//! Monitor unit, shown as "MU"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT MU : public MeasurementUnit
{
public:
    MU();
    QString description() const override;
};

//! Gigaprotons per second, shown as "Gp/s"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT Gp_per_s : public MeasurementUnit
{
public:
    Gp_per_s();
    QString description() const override;
};

//! Monitor units per second, shown as "MU/s"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT MU_per_s : public MeasurementUnit
{
public:
    MU_per_s();
    QString description() const override;
};

// Field

//! Gauss, shown as "G"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT G : public MeasurementUnit
{
public:
    G();
    QString description() const override;
};

//! Kilogauss, shown as "kG"; gauss x 0.001; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT kG : public MeasurementUnit
{
public:
    kG();
    QString description() const override;
};

// Temperature

//! Degree Celsius (the spelling of the name is kept for hosts), shown as "°C"; 3 digits after the point.
class CORVALE_QT_EXPORT Celcius : public MeasurementUnit
{
public:
    Celcius();
    QString description() const override;
};

//! Degree Fahrenheit, shown as "°F"; 3 digits after the point.
class CORVALE_QT_EXPORT Fahrenheit : public MeasurementUnit
{
public:
    Fahrenheit();
    QString description() const override;
    //! Always returns 177. The library does not call it; it stays for hosts that were built against it.
    virtual int fixedType() const;
};

// Strips of a detector

//! Strips of a detector, shown as "strips"; exponent form, 3 digits after the point.
class CORVALE_QT_EXPORT Strips : public MeasurementUnit
{
public:
    Strips();
    QString description() const override;
};

} // namespace Units
} // namespace Corvale_Qt
