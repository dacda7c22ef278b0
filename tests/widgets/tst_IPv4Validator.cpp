// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/IPv4Validator.h"
#include "tests/support/TestMain.h"

#include <QLineEdit>

using namespace Corvale_Qt;

class tst_IPv4Validator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void judges_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("state");
        const int invalid = QValidator::Invalid;
        const int intermediate = QValidator::Intermediate;
        const int acceptable = QValidator::Acceptable;
        QTest::newRow("nothing") << "" << intermediate;
        QTest::newRow("address") << "192.168.0.1" << acceptable;
        QTest::newRow("all bounds") << "0.0.255.255" << acceptable;
        QTest::newRow("hole") << "192.168..1" << intermediate;
        QTest::newRow("blank part") << "192.168. .1" << intermediate;
        QTest::newRow("above 255") << "192.168.0.256" << invalid;
        QTest::newRow("above 255 after a hole") << "192..0.256" << invalid;
        QTest::newRow("five parts") << "1.2.3.4.5" << invalid;
        QTest::newRow("five empty parts") << "...." << invalid;
        QTest::newRow("three parts are not looked at") << "1.2.999" << intermediate;
        QTest::newRow("letters in three parts") << "a.b.c" << intermediate;
        QTest::newRow("letters in four parts") << "a.b.c.d" << invalid;
        QTest::newRow("negative part") << "10.0.0.-1" << acceptable;
        QTest::newRow("number beyond int") << "1.2.3.99999999999" << invalid;
    }
    void judges()
    {
        QFETCH(QString, text);
        QFETCH(int, state);
        int pos = 0;
        QCOMPARE(int(IPv4Validator().validate(text, pos)), state);
    }

    void lineEditRefusesTheFifthPart()
    {
        QLineEdit edit;
        edit.setValidator(new IPv4Validator(&edit));
        QTest::keyClicks(&edit, "10.0.0.256");
        QCOMPARE(edit.text(), QString("10.0.0.25"));
        QTest::keyClicks(&edit, ".1");
        QCOMPARE(edit.text(), QString("10.0.0.251"));
        QVERIFY(edit.hasAcceptableInput());
    }
};

CORVALE_QT_TEST_MAIN(tst_IPv4Validator)
#include "tst_IPv4Validator.moc"
