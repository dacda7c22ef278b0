// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/settings/XmlSettingsFormat_p.h"
#include "tests/support/TestMain.h"

#include <QBuffer>
#include <QTextCodec>

using namespace Corvale_Qt;
using SettingsMap = QSettings::SettingsMap;

namespace {

QByteArray written(const SettingsMap &settings)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return writeXmlSettings(buffer, settings) ? buffer.data() : QByteArray("refused");
}

//! "a=1; a/b=2", or "refused".
QString readBack(const QByteArray &document)
{
    QBuffer buffer;
    buffer.setData(document);
    buffer.open(QIODevice::ReadOnly);
    SettingsMap settings;
    if (!readXmlSettings(buffer, settings))
        return settings.isEmpty() ? "refused" : "refused, but changed";
    QStringList entries;
    for (auto it = settings.cbegin(); it != settings.cend(); ++it)
        entries << it.key() + "=" + it.value().toString();
    return entries.join("; ");
}

QByteArray nested(int depth)
{
    return "<Settings>" + QByteArray("<a>").repeated(depth) + "x"
        + QByteArray("</a>").repeated(depth) + "</Settings>";
}

} // namespace

class tst_XmlSettingsFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textOfASmallFile();
    void values_data();
    void values();
    void keys_data();
    void keys();
    void emptyParts();
    void documents_data();
    void documents();
    void limitsOfDocuments_data();
    void limitsOfDocuments();
    void limitsOfWriting();
    void failingDevice();
};

void tst_XmlSettingsFormat::textOfASmallFile()
{
    const SettingsMap settings{{"StatisticsSetupPage/peaks", 2},
                               {"FactoryReset/peaks", 0},
                               {"FactoryReset/center-of-gravity", true},
                               {"StatisticsSetupPage/deep/er", 2.5},
                               {"window", "a<b & \"c\""},
                               {"window/width", 640}};
    QCOMPARE(written(settings),
             QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<Settings>\n"
                        "    <FactoryReset>\n"
                        "        <center-of-gravity>true</center-of-gravity>\n"
                        "        <peaks>0</peaks>\n"
                        "    </FactoryReset>\n"
                        "    <StatisticsSetupPage>\n"
                        "        <deep>\n"
                        "            <er>2.5</er>\n"
                        "        </deep>\n"
                        "        <peaks>2</peaks>\n"
                        "    </StatisticsSetupPage>\n"
                        "    <window>a&lt;b &amp; &quot;c&quot;<width>640</width>\n"
                        "    </window>\n"
                        "</Settings>\n"));
}

void tst_XmlSettingsFormat::values_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    const auto same = [](const char *name, const QString &value) {
        QTest::newRow(name) << value << "key=" + value;
    };
    same("markup", "</key><key>&amp;<!-- -->]]>");
    same("white space around it", "  two\n words\t");
    same("line ends of another system", "one\r\ntwo\rthree");
    same("beyond the basic plane", QString::fromUtf8("\xce\xa7\xc2\xb2 \xf0\x9f\x92\xa5"));
    same("long", QString(300000, 'x').replace(150000, 1, '&'));
    QTest::newRow("control characters") << QString("a\x01"
                                                   "b\x0b"
                                                   "c")
            + QChar(0)
                                        << QString::fromUtf8("key=a\xef\xbf\xbd"
                                                             "b\xef\xbf\xbd"
                                                             "c\xef\xbf\xbd");
    QTest::newRow("half a character") << QString("a") + QChar(0xd800) + "b"
                                      << QString::fromUtf8("key=a\xef\xbf\xbd"
                                                           "b");
    QTest::newRow("empty comes back as missing") << QString() << QString();
}

void tst_XmlSettingsFormat::values()
{
    QFETCH(QString, value);
    QFETCH(QString, expected);
    QCOMPARE(readBack(written({{"key", value}, {"zz", "1"}})),
             expected + (expected.isEmpty() ? "zz=1" : "; zz=1"));
}

void tst_XmlSettingsFormat::keys_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("element");
    QTest::newRow("letters of any script") << QString::fromUtf8("Gr\xc3\xb6\xc3\x9f"
                                                                "e")
                                           << QByteArray("Gr\xc3\xb6\xc3\x9f"
                                                         "e");
    QTest::newRow("space") << "Beam Line" << QByteArray("Beam_x0020_Line");
    QTest::newRow("digit first") << "1st.x-2" << QByteArray("_x0031_st.x-2");
    QTest::newRow("name of the root") << "Settings" << QByteArray("_x0053_ettings");
    QTest::newRow("looks like a namespace") << "a:b" << QByteArray("a_x003A_b");
    QTest::newRow("markup") << "a><b" << QByteArray("a_x003E__x003C_b");
    QTest::newRow("looks escaped") << "_x0041_" << QByteArray("_x005F_x0041_");
    QTest::newRow("escaped by what follows") << "_x0041 " << QByteArray("_x005F_x0041_x0020_");
    QTest::newRow("an escaped slash stays as it is")
        << "a_x002F_b" << QByteArray("a_x005F_x002F_b");
    QTest::newRow("half a character") << QString(QChar(0xd800)) << QByteArray("_xD800_");
}

void tst_XmlSettingsFormat::keys()
{
    QFETCH(QString, key);
    QFETCH(QByteArray, element);
    const QByteArray document = written({{key + "/in", "1"}, {"in/" + key, "2"}});
    QVERIFY2(document.contains("<" + element + ">"), document.constData());
    SettingsMap expected{{key + "/in", "1"}, {"in/" + key, "2"}};
    QStringList entries;
    for (auto it = expected.cbegin(); it != expected.cend(); ++it)
        entries << it.key() + "=" + it.value().toString();
    QCOMPARE(readBack(document), entries.join("; "));
}

//! Two keys that come to the same: one value stays whole.
void tst_XmlSettingsFormat::emptyParts()
{
    QCOMPARE(readBack(written({{"//", "0"}, {"/a//b/", "1"}, {"a/b", "2"}})), QString("a/b=2"));
}

void tst_XmlSettingsFormat::documents_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &document, const QString &expected) {
        QTest::newRow(name) << document << expected;
    };
    row("laid out by hand",
        "<Settings><a>\n 1\n</a><!-- 2 --><g><b>3</b>\n</g></Settings>",
        "a=\n 1\n; g/b=3");
    row("the later value counts", "<Settings><a>1</a><b>2</b><a>3</a></Settings>", "a=3; b=2");
    row("value and group in one", "<Settings><a>1<b>2</b></a></Settings>", "a=1; a/b=2");
    row("another root is one more group", "<Other><a>1</a></Other>", "Other/a=1");
    row("a section of white space is not a value",
        "<Settings><a>1<![CDATA[]]></a><b>2<![CDATA[ \n]]></b></Settings>",
        "a=1; b=2");
    row("a section is a value", "<Settings><a>1<![CDATA[<2>]]></a></Settings>", "a=<2>");
    row("text outside of elements", "<Settings>x<a>1</a>y</Settings>", "a=1");
    // The end of the inner element removes one name too many. Existing files are read this way.
    row("the name of the root within",
        "<Settings><a><Settings><b>1</b></Settings><c>2</c></a></Settings>",
        "a/b=1; c=2");
    row("empty", "", "refused");
    row("cut short", "<Settings><a>1</a>", "refused");
    row("two roots", "<Settings/><Settings/>", "refused");
    row("not this format", "[General]\na=1\n", "refused");
    row("not text", QByteArray::fromHex("89504e470d0a1a0a0000000d49484452"), "refused");
    const QByteArray micro = "<Settings><a>\xb5</a></Settings>";
    row("another encoding, declared",
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + micro,
        QString::fromUtf8("a=\xc2\xb5"));
    row("another encoding, marked",
        QTextCodec::codecForName("UTF-16")->fromUnicode("<Settings><a>1</a></Settings>"),
        "a=1");
    row("an unknown encoding",
        "<?xml version=\"1.0\" encoding=\"none\"?><Settings><a>1</a></Settings>",
        "refused");
    row("bytes that are not UTF-8", micro, "refused");
}

void tst_XmlSettingsFormat::documents()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, expected);
    QCOMPARE(readBack(document), expected);
}

void tst_XmlSettingsFormat::limitsOfDocuments_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("expected");
    const auto within = [](const QByteArray &markup) {
        return "<Settings>" + markup + "<z>1</z></Settings>";
    };
    const auto attributes = [](int count) {
        QByteArray tag = "<b";
        for (int i = 0; i < count; ++i)
            tag += " a" + QByteArray::number(i) + "='>'";
        return tag + "/>";
    };
    const int mega = 1024 * 1024;
    QTest::newRow("as deep as it may be")
        << nested(32) << QStringList(QVector<QString>(32, "a").toList()).join('/') + "=x";
    QTest::newRow("too deep") << nested(33) << "refused";
    QTest::newRow("entities that multiply")
        << QByteArray("<!DOCTYPE Settings [<!ENTITY a \"0123456789\">"
                      "<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\"><!ENTITY c "
                      "\"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">"
                      "<!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\"><!ENTITY e "
                      "\"&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;\">]>"
                      "<Settings><k>&e;</k></Settings>")
        << "refused";
    // Half a megabyte of document that stands for a hundred gigabytes of keys.
    QTest::newRow("one long key over and over") << QByteArray(
        "<Settings><" + QByteArray(300000, 'a') + ">" + QByteArray("<b>1</b>").repeated(30000)
        + "</" + QByteArray(300000, 'a') + "></Settings>")
                                                << "refused";
    QTest::newRow("elements with nothing in them") << within("<a/>") << "z=1";
    QTest::newRow("too many of these") << within(QByteArray("<a/>").repeated(mega)) << "refused";
    QTest::newRow("too many comments") << within(QByteArray("<!---->").repeated(mega)) << "refused";
    QTest::newRow("too many attributes in all")
        << within(attributes(60).repeated(5000)) << "refused";
    QTest::newRow("a few attributes") << within(attributes(60)) << "z=1";
    QTest::newRow("too many attributes for one tag") << within(attributes(1000)) << "refused";
    // What looks like the beginning of something else must not hide it.
    QTest::newRow("too many behind a comment")
        << within("<!-- <a ' -->" + attributes(1000)) << "refused";
    QTest::newRow("too many behind a section")
        << within("<a><![CDATA[<!-- <a ']]></a>" + attributes(1000)) << "refused";
    QTest::newRow("too many behind an instruction")
        << within("<?p <a '?>" + attributes(1000)) << "refused";
    QTest::newRow("markup in a comment")
        << within("<!-- <a '" + attributes(1000).mid(2) + " -->") << "z=1";
    QTest::newRow("a long comment") << within("<!--" + QByteArray(8 * mega, 'x') + "-->") << "z=1";
    QTest::newRow("too long a comment")
        << within("<!--" + QByteArray(16 * mega, 'x') + "-->") << "refused";
    QTest::newRow("a document type") << "<!DOCTYPE Settings>" + within("") << "z=1";
    QTest::newRow("declarations of a document type")
        << "<!DOCTYPE Settings [<!ATTLIST a b CDATA 'c'>]>" + within("") << "refused";
}

void tst_XmlSettingsFormat::limitsOfDocuments()
{
    documents();
}

//! What would not be read back is not written either.
void tst_XmlSettingsFormat::limitsOfWriting()
{
    const QString deep = QString("a/").repeated(32);
    QVERIFY(written({{deep, 1}}) != "refused");
    QCOMPARE(written({{deep + "b", 1}}), QByteArray("refused"));
    const QString half(2 * 1024 * 1024, 'x');
    QVERIFY(written({{"a", half}}) != "refused");
    QCOMPARE(written({{"a", half}, {"b", half}}), QByteArray("refused"));
    SettingsMap many;
    for (int i = 0; i < 70000; ++i)
        many.insert(QString("group/%1").arg(i), i);
    QCOMPARE(written(many), QByteArray("refused"));
}

void tst_XmlSettingsFormat::failingDevice()
{
    QBuffer closed;
    QTest::ignoreMessage(QtWarningMsg, "QIODevice::write (QBuffer): device not open");
    QVERIFY(!writeXmlSettings(closed, {{"a", 1}}));
}

CORVALE_QT_TEST_MAIN(tst_XmlSettingsFormat)
#include "tst_XmlSettingsFormat.moc"
