// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/Units.h"

namespace Corvale_Qt {
namespace Units {

namespace {

constexpr QChar microSign(0xB5);
constexpr QChar degreeSign(0xB0);

QString micro(const char *text)
{
    return QString::fromLatin1(text).arg(microSign);
}

QString degree(const char *text)
{
    return QString::fromLatin1(text).arg(degreeSign);
}

} // namespace

// Current

A::A()
    : MeasurementUnit(1.0, QStringLiteral("A"), Type_A, 1.0, 'e', 3)
{
}

QString A::description() const
{
    return QStringLiteral("Current (A)");
}

mA::mA()
    : MeasurementUnit(1e3, QStringLiteral("mA"), Type_mA, 1.0, 'e', 3)
{
}

QString mA::description() const
{
    return QStringLiteral("Current (mA)");
}

uA::uA()
    : MeasurementUnit(1e6, micro("%1A"), Type_uA, 1.0, 'f', 4)
{
}

QString uA::description() const
{
    return micro("Current (%1A)");
}

nA::nA()
    : MeasurementUnit(1e9, QStringLiteral("nA"), Type_nA, 1.0, 'f', 4)
{
}

QString nA::description() const
{
    return QStringLiteral("Current (nA)");
}

pA::pA()
    : MeasurementUnit(1e12, QStringLiteral("pA"), Type_pA, 1.0, 'f', 4)
{
}

QString pA::description() const
{
    return QStringLiteral("Current (pA)");
}

// Charge

C::C()
    : MeasurementUnit(1.0, QStringLiteral("C"), Type_C, 1.0, 'e', 3)
{
}

QString C::description() const
{
    return QStringLiteral("Charge (C)");
}

mC::mC()
    : MeasurementUnit(1e3, QStringLiteral("mC"), Type_mC, 1.0, 'e', 3)
{
}

QString mC::description() const
{
    return QStringLiteral("Charge (mC)");
}

uC::uC()
    : MeasurementUnit(1e6, micro("%1C"), Type_uC, 1.0, 'f', 4)
{
}

QString uC::description() const
{
    return micro("Charge (%1C)");
}

nC::nC()
    : MeasurementUnit(1e9, QStringLiteral("nC"), Type_nC, 1.0, 'f', 4)
{
}

QString nC::description() const
{
    return QStringLiteral("Charge (nC)");
}

pC::pC()
    : MeasurementUnit(1e12, QStringLiteral("pC"), Type_pC, 1.0, 'f', 4)
{
}

QString pC::description() const
{
    return QStringLiteral("Charge (pC)");
}

fC::fC()
    : MeasurementUnit(1e15, QStringLiteral("fC"), Type_fC, 1.0, 'f', 4)
{
}

QString fC::description() const
{
    return QStringLiteral("Charge (fC)");
}

// Voltage

V::V()
    : MeasurementUnit(1.0, QStringLiteral("V"), Type_V, 1.0, 'f', 3)
{
}

QString V::description() const
{
    return QStringLiteral("Voltage (V)");
}

mV::mV()
    : MeasurementUnit(1e3, QStringLiteral("mV"), Type_mV, 1.0, 'e', 3)
{
}

QString mV::description() const
{
    return QStringLiteral("Voltage (mV)");
}

uV::uV()
    : MeasurementUnit(1e6, micro("%1V"), Type_uV, 1.0, 'f', 4)
{
}

QString uV::description() const
{
    return micro("Voltage (%1V)");
}

kV::kV()
    : MeasurementUnit(0.001, QStringLiteral("kV"), Type_kV, 1.0, 'e', 3)
{
}

QString kV::description() const
{
    return QStringLiteral("Voltage (kV)");
}

// Counts

Pulses::Pulses()
    : MeasurementUnit(1.0, QStringLiteral("Counts"), Type_Pulses, 1.0, 'e', 3)
{
}

// Rate

Hz::Hz()
    : MeasurementUnit(1.0, QStringLiteral("Hz"), Type_Hz, 1.0, 'e', 3)
{
}

QString Hz::description() const
{
    return QStringLiteral("Rate (Hz)");
}

KHz::KHz()
    : MeasurementUnit(0.001, QStringLiteral("kHz"), Type_KHz, 1.0, 'e', 3)
{
}

QString KHz::description() const
{
    return QStringLiteral("Rate (kHz)");
}

// Time

S::S()
    : MeasurementUnit(1.0, QStringLiteral("s"), Type_S, 1.0, 'e', 3)
{
}

QString S::description() const
{
    return QStringLiteral("Time (seconds)");
}

ms::ms()
    : MeasurementUnit(1e3, QStringLiteral("ms"), Type_ms, 1.0, 'e', 3)
{
}

QString ms::description() const
{
    return QStringLiteral("Time (ms)");
}

us::us()
    : MeasurementUnit(1e6, micro("%1s"), Type_us, 1.0, 'e', 3)
{
}

QString us::description() const
{
    return micro("Time (%1s)");
}

ns::ns()
    : MeasurementUnit(1e9, QStringLiteral("ns"), Type_ns, 1.0, 'e', 3)
{
}

QString ns::description() const
{
    return QStringLiteral("Time (ns)");
}

minutes::minutes()
    : MeasurementUnit(1.0 / 60.0, QStringLiteral("min"), Type_minutes, 1.0, 'e', 3)
{
}

QString minutes::description() const
{
    return QStringLiteral("Time (min)");
}

// Position

m::m()
    : MeasurementUnit(1.0, QStringLiteral("m"), Type_m, 1.0, 'e', 3)
{
}

QString m::description() const
{
    return QStringLiteral("Position (m)");
}

mm::mm()
    : MeasurementUnit(1e3, QStringLiteral("mm"), Type_mm, 1.0, 'f', 3)
{
}

QString mm::description() const
{
    return QStringLiteral("Position (mm)");
}

cm::cm()
    : MeasurementUnit(100.0, QStringLiteral("cm"), Type_cm, 1.0, 'e', 3)
{
}

QString cm::description() const
{
    return QStringLiteral("Position (cm)");
}

// Energy

eV::eV()
    : MeasurementUnit(1.0, QStringLiteral("eV"), Type_eV, 1.0, 'e', 3)
{
}

QString eV::description() const
{
    return QStringLiteral("Energy (eV)");
}

KeV::KeV()
    : MeasurementUnit(0.001, QStringLiteral("KeV"), Type_KeV, 1.0, 'e', 3)
{
}

QString KeV::description() const
{
    return QStringLiteral("Energy (KeV)");
}

MeV::MeV()
    : MeasurementUnit(1e-6, QStringLiteral("MeV"), Type_MeV, 1.0, 'e', 3)
{
}

QString MeV::description() const
{
    return QStringLiteral("Energy (MeV)");
}

// Dose

Gy::Gy()
    : MeasurementUnit(1.0, QStringLiteral("Gy"), Type_Gy, 1.0, 'e', 3)
{
}

QString Gy::description() const
{
    return QStringLiteral("Dose (Gy)");
}

cGy::cGy()
    : MeasurementUnit(100.0, QStringLiteral("cGy"), Type_cGy, 1.0, 'e', 3)
{
}

QString cGy::description() const
{
    return QStringLiteral("Dose (cGy)");
}

Gp::Gp()
    : MeasurementUnit(1.0, QStringLiteral("Gp"), Type_Gp, 1.0, 'e', 3)
{
}

MU::MU()
    : MeasurementUnit(1.0, QStringLiteral("MU"), Type_MU, 1.0, 'e', 3)
{
}

QString MU::description() const
{
    return QStringLiteral("Monitor Units");
}

Gp_per_s::Gp_per_s()
    : MeasurementUnit(1.0, QStringLiteral("Gp/s"), Type_Gp_per_s, 1.0, 'e', 3)
{
}

QString Gp_per_s::description() const
{
    return QStringLiteral("Dose Rate (Gp/s)");
}

MU_per_s::MU_per_s()
    : MeasurementUnit(1.0, QStringLiteral("MU/s"), Type_MU_per_s, 1.0, 'e', 3)
{
}

QString MU_per_s::description() const
{
    return QStringLiteral("Dose Rate (MU/s)");
}

// Field

G::G()
    : MeasurementUnit(1.0, QStringLiteral("G"), Type_G, 1.0, 'e', 3)
{
}

QString G::description() const
{
    return QStringLiteral("Field (G)");
}

kG::kG()
    : MeasurementUnit(0.001, QStringLiteral("kG"), Type_kG, 1.0, 'e', 3)
{
}

QString kG::description() const
{
    return QStringLiteral("Field (kG)");
}

// Temperature

Celcius::Celcius()
    : MeasurementUnit(1.0, degree("%1C"), Type_Celcius, 1.0, 'f', 3)
{
}

QString Celcius::description() const
{
    return degree("Temperature (%1C)");
}

Fahrenheit::Fahrenheit()
    : MeasurementUnit(1.0, degree("%1F"), Type_Fahrenheit, 1.0, 'f', 3)
{
}

QString Fahrenheit::description() const
{
    return degree("Temperature (%1F)");
}

int Fahrenheit::fixedType() const
{
    return 177;
}

// Strips of a detector

Strips::Strips()
    : MeasurementUnit(1.0, QStringLiteral("strips"), Type_Strips, 1.0, 'e', 3)
{
}

QString Strips::description() const
{
    return QStringLiteral("Position (strips)");
}

} // namespace Units
} // namespace Corvale_Qt
