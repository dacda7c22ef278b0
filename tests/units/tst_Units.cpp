// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/Units.h"
#include "tests/support/TestMain.h"
#include "tests/support/TextTable.h"

#include <QHash>

#include <cmath>
#include <memory>

using namespace Corvale_Qt::Units;

namespace {

std::unique_ptr<MeasurementUnit> unitOf(int type)
{
    return std::unique_ptr<MeasurementUnit>(MeasurementUnit::fromType(MeasurementUnitType(type)));
}

} // namespace

class tst_Units : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsThatPeopleAndFilesGive_data()
    {
        tableFrom(R"(
            | text | int type
            ampere is a capital letter | A | 16
            a small a is nothing | a | 0
            coulomb in either case | c | 32
            capital C is coulomb, not a temperature | C | 32
            picofarad does not exist: a temperature | pF | 177
            any other text that ends with C | degC | 176
            kilocoulomb does not exist: a temperature | kC | 176
            a small c at the end is nothing | kc | 0
            degree sign | °F | 177
            micro sign is not understood | µA | 0
            but microcoulomb ends with C | µC | 176
            u stands for micro | uC | 34
            milli and mega volt are not mixed up | mv | 0
            kilovolt in any case | KV | 53
            MeV in any case | mev | 134
            two names for counts | Pulses | 64
            counts | Counts | 64
            minutes by either name | minutes | 100
            dose rate before dose | gp/S | 148
            strips cannot be asked for by text | strips | 0
            no text | | 0
        )");
        QTest::newRow("white space is not trimmed") << " mA" << 0;
    }
    void textsThatPeopleAndFilesGive()
    {
        QFETCH(QString, text);
        QFETCH(int, type);
        QCOMPARE(int(MeasurementUnit::typeFromString(text)), type);
        const std::unique_ptr<MeasurementUnit> unit(MeasurementUnit::fromString(text));
        QCOMPARE(unit ? int(unit->type()) : 0, type);
    }

    //! What a unit shows, a person may type; "u" stands for the micro sign.
    void symbolsAreUnderstood()
    {
        for (int type = 1; type < Type_Strips; ++type) {
            const auto unit = unitOf(type);
            const QString symbol = unit ? unit->name().replace(QChar(0xb5), 'u') : QString();
            QCOMPARE(int(MeasurementUnit::typeFromString(symbol)), unit ? type : 0);
        }
    }

    void everyTypeMakesAUnitOfItsOwn()
    {
        int made = 0;
        for (int type = -300; type <= 300; ++type) {
            const auto unit = unitOf(type);
            if (!unit)
                continue;
            ++made;
            QCOMPARE(int(unit->type()), type);
            QVERIFY(!unit->name().isEmpty() && !unit->description().isEmpty());
            // A quantity and its unit: only counts and gigaprotons have one word for both.
            QVERIFY2(unit->description().contains('(') || type == 64 || type == 146 || type == 147,
                     qPrintable(unit->description()));
        }
        QCOMPARE(made, 40);
    }

    /*! A prefix in front of the symbol of a quantity's base unit, the first of its block of types, says what the factor
        is: 1 A is 1e9 nA. */
    void factorsAreThoseOfThePrefixes()
    {
        const QHash<QString, int> powers = {{"f", -15},
                                            {"p", -12},
                                            {"n", -9},
                                            {QString::fromUtf8("µ"), -6},
                                            {"m", -3},
                                            {"c", -2},
                                            {"k", 3},
                                            {"K", 3},
                                            {"M", 6}};
        int prefixed = 0;
        QString base;
        for (int type = Type_A; type < Type_Strips; ++type) {
            const auto unit = unitOf(type);
            if (!unit)
                continue;
            const QString name = unit->name();
            if (type % 16 == 0)
                base = name;
            const QString prefix = name.left(name.size() - base.size());
            const bool isPrefixed = name.endsWith(base) && powers.contains(prefix);
            const double expected = isPrefixed ? std::pow(10.0, -powers.value(prefix))
                : type == Type_minutes         ? 1.0 / 60.0
                                               : 1.0;
            QVERIFY2(std::abs(unit->scale(1.0) / expected - 1.0) < 1e-15, qPrintable(name));
            prefixed += isPrefixed ? 1 : 0;
        }
        QCOMPARE(prefixed, 22);
    }

    void unitsAreCopied()
    {
        mA original;
        original.setPrecision(1);
        original.setExtraScale(2.0);
        const mA copy(original);
        mA assigned;
        assigned = original;
        for (const mA &each : {copy, assigned})
            QCOMPARE(each.formatSuffix(0.0012), QString("2.4e+00 mA"));
    }

    void numbersBecomeTexts()
    {
        QCOMPARE(mA().format(0.0012), QString("1.200e+00"));
        QCOMPARE(mA().formatSuffix(0.0012), QString("1.200e+00 mA"));
        QCOMPARE(uA().formatSuffix(1.5e-6), QString::fromUtf8("1.5000 µA"));
        QCOMPARE(us().formatSuffix(1.5e-6), QString::fromUtf8("1.500e+00 µs"));
        QCOMPARE(V().format(0.25), QString("0.250"));
        QCOMPARE(mm().formatSuffixUnscaled(2.5), QString("2.500 mm"));
        QCOMPARE(Celcius().description(), QString::fromUtf8("Temperature (°C)"));
        QCOMPARE(Pulses().description(), QString("Counts"));
        QCOMPARE(Fahrenheit().fixedType(), 177);

        MeasurementUnit percent(100.0, "%1", 1.0);
        percent.setPrecision(1);
        QCOMPARE(percent.formatSuffix(0.5), QString("5.0e+01 %1"));
    }

    void scalingGoesBothWays()
    {
        MeasurementUnit unit(1000.0, "m", 2.0);
        QCOMPARE(unit.scale(1.0), 2000.0);
        QCOMPARE(unit.unscale(2000.0), 1.0);
        unit.setExtraScale(0.0);
        QVERIFY(!std::isfinite(unit.unscale(1.0)));
        QCOMPARE(minutes().scale(120.0), 2.0);
        // The factor is multiplied by the extra scale first; the other order gives another last digit.
        MeasurementUnit order(0.1, "m", 3.0);
        QVERIFY(order.scale(7.0) == (3.0 * 0.1) * 7.0 && order.scale(7.0) != 3.0 * (0.1 * 7.0));
        // The division by the extra scale comes first; the factor first, or the product of both, gives others.
        QVERIFY(order.unscale(2.0) == 2.0 / 3.0 / 0.1 && order.unscale(2.0) != 2.0 / 0.1 / 3.0);
        QVERIFY(order.unscale(3.0) == 3.0 / 3.0 / 0.1 && order.unscale(3.0) != 3.0 / (3.0 * 0.1));
    }

    void aSubclassChangesWhatIsShown()
    {
        struct Offset : MeasurementUnit
        {
            Offset()
                : MeasurementUnit(1.0, "K", 1.0)
            {
            }
            QString name() const override { return "shown elsewhere"; }
            double scale(double value) const override { return value + 273.2; }
        };
        // format() follows an overridden scale(); the symbol is the stored one.
        QCOMPARE(Offset().formatSuffix(0.0), QString("2.732e+02 K"));
    }
};

CORVALE_QT_TEST_MAIN(tst_Units)
#include "tst_Units.moc"
