// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/recording/ShortestNumber.h"
#include "tests/support/TestMain.h"
#include "tests/support/TextTable.h"

#include <charconv>
#include <cstring>
#include <random>

using namespace Monitor;

static QByteArray shortest(double value)
{
    char text[longestNumber];
    return QByteArray(text, int(writeShortest(text, value) - text));
}

//! Returns the digits of a number without its sign, point, exponent and the zeros at both ends.
static QByteArray digitsOf(QByteArray text)
{
    text = text.split('e').first().replace('-', "").replace('.', "");
    while (text.startsWith('0'))
        text.remove(0, 1);
    while (text.endsWith('0'))
        text.chop(1);
    return text;
}

class tst_ShortestNumber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesAsAPersonWould_data()
    {
        tableFrom(R"(| double number | text
            zero          | 0                    | 0
            negative zero | -0.0                 | -0
            decimals      | -100.37              | -100.37
            whole         | 300000               | 300000
            round         | 300000000000         | 300000000000
            15 digits     | 123456789012345      | 123456789012345
            16 digits     | 0.1234567890123456   | 0.1234567890123456
            below 1       | 0.00015              | 0.00015
            exponent      | 0.000015             | 1.5e-05
            billionth     | 1.5e-9               | 1.5e-09
            one digit     | 1e-12                | 1e-12
            large         | 1e300                | 1e+300
            smallest      | 5e-324               | 5e-324
            infinity      | -inf                 | -inf)");
    }
    void writesAsAPersonWould()
    {
        QFETCH(double, number);
        QTEST(QString(shortest(number)), "text");
    }
    //! Compares with the standard library, for numbers of 1 to 17 digits around the powers of ten that are used.
    void readsBackAndIsShortest()
    {
        std::mt19937_64 dice(7);
        for (int i = 0; i < 200000; ++i) {
            const QByteArray sent = QByteArray::number(quint64(dice())).left(1 + int(dice() % 17))
                + "e" + QByteArray::number(int(dice() % 45) - 38);
            const double value = sent.toDouble();
            const QByteArray text = shortest(value);
            const double read = text.toDouble();
            QVERIFY2(std::memcmp(&read, &value, sizeof read) == 0, sent);
            char scientific[longestNumber];
            const char *const end = std::to_chars(scientific,
                                                  scientific + sizeof scientific,
                                                  value,
                                                  std::chars_format::scientific)
                                        .ptr;
            const QByteArray expected = digitsOf({scientific, int(end - scientific)});
            const bool isLargeWhole = value >= 1e15 && !text.contains('e');
            QVERIFY2(isLargeWhole || digitsOf(text) == expected, sent);
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_ShortestNumber)
#include "tst_ShortestNumber.moc"
