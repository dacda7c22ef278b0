// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/NumberText_p.h"
#include "corvale_qt/units/SiPrefix.h"
#include "corvale_qt/units/Units.h"
#include "tests/support/TestMain.h"

#include <optional>

using namespace Corvale_Qt::Units;

namespace {

std::unique_ptr<MeasurementUnit> unitOf(int type)
{
    return std::unique_ptr<MeasurementUnit>(MeasurementUnit::fromType(MeasurementUnitType(type)));
}

} // namespace

using Corvale_Qt::Units::appendNumber;

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
        const QHash<QString, int> powers = {
            {"f", -15}, {"p", -12}, {"n", -9}, {QString::fromUtf8("µ"), -6}, {"m", -3}, {"c", -2},
            {"k", 3},   {"K", 3},   {"M", 6}};
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

    void prefixesFollowTheData_data()
    {
        // The prefix follows the numbers one after the other; "s=" gives their noise. The text is that of the last one.
        tableFrom(R"(
            | unit | numbers | text
            the digits that a person reads | A | 1.863e-07 | 186.3 nA
            zero has no prefix of its own | A | 0 | 0 A
            zero keeps the prefix | A | 2e-9 0 | 0 nA
            just below the border | A | 999.94e-9 | 999.9 nA
            the border rounds to 1000 | A | 999.95e-9 | 1.000 µA
            negative | A | -999.95e-9 | -1.000 µA
            upwards at once | A | 5e-7 1.0e-6 | 1.000 µA
            downwards later: still above 0.8 | A | 1e-6 0.81e-6 | 0.810 µA
            downwards below 0.8 | A | 1e-6 0.79e-6 | 790.0 nA
            noise at the border changes the prefix once | A | 1.1e-6 0.95e-6 1.02e-6 0.9e-6 | 0.900 µA
            not a number | A | 2e-9 nan | nan
            infinite | A | -inf | -inf
            subnormal: beyond all prefixes | A | 5e-324 | 4.941e-309 fA
            largest double | A | 1.7e308 | 1.700e+305 kA
            a unit with a prefix | nA | 0.001863 | 1.863 pA
            the library's spelling is kept | KeV | 5 | 5.000 KeV
            and read | KeV | 5000 | 5.000 MeV
            millimetres | mm | 0.25 | 250.0 µm
            metres do not become kilometres | m | 2500 | 2500 m
            no prefix below hertz | Hz | 0.02 | 0.02000 Hz
            centimetres stay | cm | 0.00123 | 0.001230 cm
            monitor units stay | MU | 12345.6 | 12346 MU
            minutes are not milli-inches | min | 90 | 90.00 min
            degrees are not coulombs | °C | 0.021 | 0.02100 °C
            no unit | | 12.345 | 12.35
            a whole number without a unit | | 1 s=3 | 1
            counts have all their digits | Counts | 123456789 | 123456789 Counts
            a mean of counts | Counts | 117.25 | 117.3 Counts
            noise takes digits | A | 1.8634e-7 s=3e-9 | 186 nA
            and gives digits | A | 1.86342e-7 s=2e-11 | 186.34 nA
            three digits are left to what moves | A | 1.8634e-7 s=1e-7 | 186 nA
            slightly more noise keeps the digits | A | 1.8634e-7 s=9e-11 1.8634e-7 s=15e-11 | 186.34 nA
            much more noise takes one | A | 1.8634e-7 s=9e-11 1.8634e-7 s=25e-11 | 186.3 nA
            no sign without a digit | A | 2e-7 s=1e-9 -1e-10 s=1e-9 | -100 pA
            rounded to nothing | V | 2 s=0.01 -0.001 | -1.000 mV
        )");
    }
    void prefixesFollowTheData()
    {
        SiPrefix prefix(cell("unit"));
        const QStringList words = cell("numbers").split(' ');
        double value = 0.0;
        for (int i = 0; i < words.size(); ++i) {
            value = words[i].toDouble();
            const bool hasNoise = words.value(i + 1).startsWith("s=");
            prefix.follow(value, hasNoise ? words[++i].mid(2).toDouble() : 0.0);
        }
        QTEST(prefix.text(value), "text");
    }

    void aUnitIsFixed()
    {
        SiPrefix prefix("A");
        QVERIFY(!prefix.fix("mV") && !prefix.fix("TA"));
        QVERIFY(prefix.fix("uA") && !prefix.follow(2e-3));
        QCOMPARE(prefix.text(2e-3), QString::fromUtf8("2000 µA"));
        QCOMPARE(prefix.text(1e-15), QString::fromUtf8("1.000e-09 µA"));
        QVERIFY(prefix.fix(QString()) && prefix.follow(2e-3));
        QCOMPARE(prefix.text(2e-3), QString("2.000 mA"));
        QVERIFY(SiPrefix("MU").symbols().isEmpty() && !SiPrefix("MU").fix("MU"));
        QCOMPARE(SiPrefix("mm").symbols().join(' '), QString::fromUtf8("nm µm mm m"));
    }

    void numbersAreTyped_data()
    {
        // The numbers are in A and shown in nA.
        tableFrom(R"(
            | typed | double number
            in the shown unit | 186.3 | 186.3e-9
            with the shown unit | -20 nA | -20e-9
            in another unit, without a blank | 0.2uA | 0.2e-6
            with a micro sign | 3 µA | 3e-6
            with an exponent | 1e3 pA | 1e-9
            another quantity | 3 mV | nan
            not finite | inf | nan
            too large | 1e308 kA | nan
            no number | nA | nan
            nothing | | nan
        )");
    }
    void numbersAreTyped()
    {
        QFETCH(double, number);
        SiPrefix prefix("A");
        prefix.follow(5e-9);
        const std::optional<double> parsed = prefix.parse(cell("typed"));
        QCOMPARE(parsed.has_value(), !std::isnan(number));
        QVERIFY(!parsed || std::abs(*parsed / number - 1.0) < 1e-12);
    }

    void ticksHaveTheDigitsOfTheirStep()
    {
        SiPrefix prefix("A");
        prefix.follow(1e-6);
        QCOMPARE(prefix.tick(0.25e-6, 0.25e-6), QString("0.25"));
        QCOMPARE(prefix.tick(1e-6, 0.25e-6), QString("1.00"));
        QCOMPARE(prefix.tick(0.1e-6, 0.09999999999999999e-6), QString("0.1"));
        QCOMPARE(prefix.tick(-3e-23, 0.5e-6), QString("0"));
        QVERIFY(prefix.fix("nA"));
        QCOMPARE(prefix.tick(0.25e-6, 0.25e-6), QString("250"));
        QCOMPARE(SiPrefix("MU").tick(12.5, 12.5), QString("12.5"));
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

    void textsAreQts_data()
    {
        columns<char, int>("format", "precision");
        QTest::newRow("time in files") << 'f' << 9;
        QTest::newRow("value in files") << 'g' << 6;
        QTest::newRow("time in tables") << 'e' << 3;
        QTest::newRow("current in tables") << 'f' << 4;
        QTest::newRow("most decimals of the exponent form") << 'e' << 9;
        QTest::newRow("no decimals") << 'f' << 0;
        QTest::newRow("no decimals of the exponent form") << 'e' << 0;
        QTest::newRow("nine digits") << 'g' << 9;
        QTest::newRow("one digit") << 'g' << 0;
        QTest::newRow("more than the fast way takes") << 'e' << 17;
        QTest::newRow("nonsense") << 'f' << -1;
    }
    void textsAreQts()
    {
        QFETCH(char, format);
        QFETCH(int, precision);
        const auto compare = [&](double value) {
            for (double each : {value, -value}) {
                QByteArray text("x");
                appendNumber(text, each, format, precision);
                const QString expected = "x" + QString::number(each, format, precision);
                if (QString::fromUtf8(text) != expected)
                    QFAIL(qPrintable(
                        QStringLiteral("%1 instead of %2").arg(QString(text), expected)));
            }
        };
        for (double special : {0.0, 6446.5, 123456.5, 0.5, 2.5, 1e-13, 1e22, qInf(), qQNaN()})
            compare(special);
        for (double nearOneMoreDigit : {9.9996, 9.9995, 0.99994999999999, 99999.5})
            compare(nearOneMoreDigit);
        for (double besideAPowerOfTen : {1000.0, 1e-3})
            for (double towards : {0.0, 1e9})
                compare(std::nextafter(besideAPowerOfTen, towards));
        compare(std::numeric_limits<double>::max());
        compare(std::numeric_limits<double>::denorm_min());
        std::mt19937_64 random(3);
        std::uniform_real_distribution<double> magnitude(-20.0, 20.0);
        for (int i = 0; i < 4000; ++i) {
            compare(std::pow(10.0, magnitude(random)));
            // Numbers with few bits, where ties are.
            compare(std::ldexp(double(random() % 2000000), -int(random() % 24)));
            // The same, a hair beside the tie.
            compare(
                std::nextafter(std::ldexp(double(random() % 2000000), -int(random() % 24)), 1e9));
            // Times of a long run, halfway between two texts of nine decimals.
            compare(std::ldexp(double((random() % (1ULL << 36)) | 1), -10));
            // Many bits and large.
            compare(std::ldexp(double(random() >> 11), -int(random() % 60)));
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_Units)
#include "tst_Units.moc"
