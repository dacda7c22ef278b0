// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/units/NumberText_p.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

using Corvale_Qt::Units::appendNumber;

class tst_NumberText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

CORVALE_QT_TEST_MAIN(tst_NumberText)
#include "tst_NumberText.moc"
