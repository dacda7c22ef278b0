// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/IPv4Validator.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

class tst_IPv4Validator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void judges_data()
    {
        columns<QString, int>("text", "state");
        row("nothing", "", int(QValidator::Intermediate));
        row("address", "192.168.0.1", int(QValidator::Acceptable));
        row("limits", "0.0.255.255", int(QValidator::Acceptable));
        row("empty part", "192.168..1", int(QValidator::Intermediate));
        row("blank part", "192.168. .1", int(QValidator::Intermediate));
        row("above 255", "192.168.0.256", int(QValidator::Invalid));
        row("above 255 after an empty part", "192..0.256", int(QValidator::Invalid));
        row("five parts", "1.2.3.4.5", int(QValidator::Invalid));
        row("five empty parts", "....", int(QValidator::Invalid));
        row("three parts are not checked", "1.b.999", int(QValidator::Intermediate));
        row("letters in four parts", "a.b.c.d", int(QValidator::Invalid));
        row("negative part", "10.0.0.-1", int(QValidator::Acceptable));
        row("number beyond int", "1.2.3.99999999999", int(QValidator::Invalid));
    }
    void judges()
    {
        QFETCH(QString, text);
        int pos = 0;
        QTEST(int(IPv4Validator().validate(text, pos)), "state");
    }
};

CORVALE_QT_TEST_MAIN(tst_IPv4Validator)
#include "tst_IPv4Validator.moc"
