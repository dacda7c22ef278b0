// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/units/MeasurementUnit.h"

/*! \file
    One class for each unit that the library knows. The base unit of a quantity has factor 1; the numbers
    that a model holds are in the base unit, except temperatures, which are never converted. */

namespace Corvale_Qt {
namespace Units {

// Current

class CORVALE_QT_EXPORT A : public MeasurementUnit
{
public:
    A();
    QString description() const override;
};

class CORVALE_QT_EXPORT mA : public MeasurementUnit
{
public:
    mA();
    QString description() const override;
};

class CORVALE_QT_EXPORT uA : public MeasurementUnit
{
public:
    uA();
    QString description() const override;
};

class CORVALE_QT_EXPORT nA : public MeasurementUnit
{
public:
    nA();
    QString description() const override;
};

class CORVALE_QT_EXPORT pA : public MeasurementUnit
{
public:
    pA();
    QString description() const override;
};

// Charge

class CORVALE_QT_EXPORT C : public MeasurementUnit
{
public:
    C();
    QString description() const override;
};

class CORVALE_QT_EXPORT mC : public MeasurementUnit
{
public:
    mC();
    QString description() const override;
};

class CORVALE_QT_EXPORT uC : public MeasurementUnit
{
public:
    uC();
    QString description() const override;
};

class CORVALE_QT_EXPORT nC : public MeasurementUnit
{
public:
    nC();
    QString description() const override;
};

class CORVALE_QT_EXPORT pC : public MeasurementUnit
{
public:
    pC();
    QString description() const override;
};

class CORVALE_QT_EXPORT fC : public MeasurementUnit
{
public:
    fC();
    QString description() const override;
};

// Voltage

class CORVALE_QT_EXPORT V : public MeasurementUnit
{
public:
    V();
    QString description() const override;
};

class CORVALE_QT_EXPORT mV : public MeasurementUnit
{
public:
    mV();
    QString description() const override;
};

class CORVALE_QT_EXPORT uV : public MeasurementUnit
{
public:
    uV();
    QString description() const override;
};

class CORVALE_QT_EXPORT kV : public MeasurementUnit
{
public:
    kV();
    QString description() const override;
};

// Counts

class CORVALE_QT_EXPORT Pulses : public MeasurementUnit
{
public:
    Pulses();
};

// Rate

class CORVALE_QT_EXPORT Hz : public MeasurementUnit
{
public:
    Hz();
    QString description() const override;
};

class CORVALE_QT_EXPORT KHz : public MeasurementUnit
{
public:
    KHz();
    QString description() const override;
};

// Time

class CORVALE_QT_EXPORT S : public MeasurementUnit
{
public:
    S();
    QString description() const override;
};

class CORVALE_QT_EXPORT ms : public MeasurementUnit
{
public:
    ms();
    QString description() const override;
};

class CORVALE_QT_EXPORT us : public MeasurementUnit
{
public:
    us();
    QString description() const override;
};

class CORVALE_QT_EXPORT ns : public MeasurementUnit
{
public:
    ns();
    QString description() const override;
};

class CORVALE_QT_EXPORT minutes : public MeasurementUnit
{
public:
    minutes();
    QString description() const override;
};

// Position

class CORVALE_QT_EXPORT m : public MeasurementUnit
{
public:
    m();
    QString description() const override;
};

class CORVALE_QT_EXPORT mm : public MeasurementUnit
{
public:
    mm();
    QString description() const override;
};

class CORVALE_QT_EXPORT cm : public MeasurementUnit
{
public:
    cm();
    QString description() const override;
};

// Energy

class CORVALE_QT_EXPORT eV : public MeasurementUnit
{
public:
    eV();
    QString description() const override;
};

class CORVALE_QT_EXPORT KeV : public MeasurementUnit
{
public:
    KeV();
    QString description() const override;
};

class CORVALE_QT_EXPORT MeV : public MeasurementUnit
{
public:
    MeV();
    QString description() const override;
};

// Dose

class CORVALE_QT_EXPORT Gy : public MeasurementUnit
{
public:
    Gy();
    QString description() const override;
};

class CORVALE_QT_EXPORT cGy : public MeasurementUnit
{
public:
    cGy();
    QString description() const override;
};

class CORVALE_QT_EXPORT Gp : public MeasurementUnit
{
public:
    Gp();
};

class CORVALE_QT_EXPORT MU : public MeasurementUnit
{
public:
    MU();
    QString description() const override;
};

class CORVALE_QT_EXPORT Gp_per_s : public MeasurementUnit
{
public:
    Gp_per_s();
    QString description() const override;
};

class CORVALE_QT_EXPORT MU_per_s : public MeasurementUnit
{
public:
    MU_per_s();
    QString description() const override;
};

// Field

class CORVALE_QT_EXPORT G : public MeasurementUnit
{
public:
    G();
    QString description() const override;
};

class CORVALE_QT_EXPORT kG : public MeasurementUnit
{
public:
    kG();
    QString description() const override;
};

// Temperature

class CORVALE_QT_EXPORT Celcius : public MeasurementUnit
{
public:
    Celcius();
    QString description() const override;
};

class CORVALE_QT_EXPORT Fahrenheit : public MeasurementUnit
{
public:
    Fahrenheit();
    QString description() const override;
    //! 177, whatever type() says. Not used by the library; hosts built against it have the slot.
    virtual int fixedType() const;
};

// Strips of a detector

class CORVALE_QT_EXPORT Strips : public MeasurementUnit
{
public:
    Strips();
    QString description() const override;
};

} // namespace Units
} // namespace Corvale_Qt
