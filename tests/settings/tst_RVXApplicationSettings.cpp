// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/settings/RVXApplicationSettings.h"
#include "corvale_qt/settings/XmlSettingsFormat_p.h"
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

#include <array>

using namespace Corvale_Qt;

using Corvale_Qt::RVXApplicationSettings;

namespace {

QString readByAnotherProcess(const QString &folder, const QString &format, const QString &key)
{
    QProcess process;
    process.start(SETTINGS_PROCESS, {"read", folder, format, key});
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

} // namespace

using SettingsMap = QSettings::SettingsMap;

namespace {

QByteArray written(const SettingsMap &settings)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return writeXmlSettings(buffer, settings) ? buffer.data() : QByteArray("refused");
}

//! Returns the settings in a document as "a=1; a/b=2", or "refused".
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

} // namespace

//! Application settings, and the XML format that they are kept in.
class tst_RVXApplicationSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName("Beam Group");
        QCoreApplication::setApplicationName("panel");
    }

    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { m_folder.reset(); }

    void placeOfTheFile_data()
    {
        tableFrom(R"(
            | given | bool useApplicationIdentity | bool useXmlFormat | file
            XML named after the application |  | true | true | Beam Group/panel.xui
            INI named after the application |  | true | false | Beam Group/panel.ini
            XML in a named file | my.settings | false | true | my.settings
            INI in a named file | my.settings | false | false | my.settings
        )");
    }
    void placeOfTheFile()
    {
        QFETCH(QString, given);
        QFETCH(bool, useApplicationIdentity);
        QFETCH(bool, useXmlFormat);
        QFETCH(QString, file);
        RVXApplicationSettings owner(nullptr, path(given), useApplicationIdentity, useXmlFormat);
        const auto settings = owner.getSettings();
        QCOMPARE(QDir::cleanPath(settings->fileName()), QDir::cleanPath(path(file)));
        settings->setValue("group/key", 7);
        settings->sync();
        QCOMPARE(settings->status(), QSettings::NoError);
        QCOMPARE(fileContents(path(file)).contains("<key>7</key>"), useXmlFormat);
        QCOMPARE(fileContents(path(file)).contains("key=7"), !useXmlFormat);
    }

    //! A missing organisation name is reported once, and the settings are kept anyway.
    void noOrganisation()
    {
        QCoreApplication::setOrganizationName(QString());
        QTest::ignoreMessage(
            QtWarningMsg,
            QRegularExpression("no organisation name.*Unknown Organization/panel.xui"));
        RVXApplicationSettings owner(nullptr, m_folder->path(), true, true);
        QCoreApplication::setOrganizationName("Beam Group");
        owner.getSettings()->setValue("a", 1);
        QVERIFY(owner.sync());
        QVERIFY(fileContents(path("Unknown Organization/panel.xui")).contains("<a>1</a>"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("was damaged"));
        putFile(path("Unknown Organization/panel.xui"), "nonsense");
        owner.getSettings()->setValue("b", 2);
        QVERIFY(owner.sync());
        QVERIFY(fileContents(path("Unknown Organization/panel.xui")).contains("<b>2</b>"));
    }

    void roundTrip_data() { addFormats(); }
    void roundTrip()
    {
        QFETCH(QString, format);
        {
            RVXApplicationSettings owner(nullptr, m_folder->path(), true, format == "xml");
            owner.getSettings()->setValue("StatisticsSetupPage/peaks", 2);
            owner.getSettings()->setValue("StatisticsSetupPage/center-of-gravity", true);
            owner.getSettings()->setValue("Beam Line/1st & only", "a < b");
        }
        const auto read = [&](const char *key) {
            return readByAnotherProcess(m_folder->path(), format, key);
        };
        QCOMPARE(read("StatisticsSetupPage/peaks"), QString("QString 2"));
        QCOMPARE(read("StatisticsSetupPage/center-of-gravity"), QString("QString true"));
        QCOMPARE(read("Beam Line/1st & only"), QString("QString a < b"));
    }

    void damagedFile_data()
    {
        columns<bool, QByteArray>("useXmlFormat", "damaged");
        row("XML cut short", true, QByteArray("<Settings>\n  <group><key>1</k"));
        row("XML overwritten with zeros", true, QByteArray(4096, 0));
        row("INI in the XML file", true, QByteArray("[group]\nkey=1\n"));
        row("INI with a line of nonsense", false, QByteArray("[group]\nkey=1\n\x01\x02nonsense\n"));
    }
    void damagedFile()
    {
        QFETCH(QByteArray, damaged);
        const QString file = path("my.settings");
        putFile(file, damaged);
        putFile(file + ".damaged", "an older one");

        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression("my\\.settings.*was damaged and is kept as"));
        RVXApplicationSettings owner(nullptr, file, false, cell<bool>("useXmlFormat"));
        QCOMPARE(fileContents(file + ".damaged"), damaged);
        QCOMPARE(owner.getSettings()->allKeys(), QStringList());
        QCOMPARE(owner.getSettings()->status(), QSettings::NoError);

        owner.getSettings()->setValue("group/key", 2);
        owner.getSettings()->sync();
        QVERIFY(fileContents(file).contains("2"));
        QCOMPARE(fileContents(file + ".damaged"), damaged);
    }

    void damagedWhileRunning()
    {
        const QString file = path("my.settings");
        RVXApplicationSettings owner(nullptr, file, false, true);
        owner.getSettings()->setValue("a", 1);
        owner.getSettings()->sync();
        putFile(file, "<Settings><a>1</a><b>slip of the hand<</b></Settings>");

        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("was damaged and is kept as"));
        owner.getSettings()->setValue("c", 3);
        owner.getSettings()->sync();
        QVERIFY(fileContents(file + ".damaged").contains("slip of the hand"));
        QVERIFY(fileContents(file).contains("<c>3</c>"));
    }

    //! If the damaged file cannot be renamed, that is reported, and the file stays until the next write.
    void damagedAndInTheWay()
    {
        const QString file = path("my.settings");
        putFile(file, "nonsense");
        QVERIFY(QDir().mkpath(file + ".damaged/folder"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("is damaged and cannot be renamed"));
        RVXApplicationSettings owner(nullptr, file, false, true);
        QCOMPARE(owner.getSettings()->allKeys(), QStringList());
        QCOMPARE(fileContents(file), QByteArray("nonsense"));
    }

    void lockOfAProcessThatDied()
    {
        const QString file = path("my.settings");
        putFile(file + ".lock", "");
        RVXApplicationSettings owner(nullptr, file, false, true);
        QVERIFY(!QFile::exists(file + ".lock")); // or the write below would take half a minute
        owner.getSettings()->setValue("a", 1);
        owner.getSettings()->sync();
        QVERIFY(fileContents(file).contains("<a>1</a>"));
    }

    void filesOfTheWholeSystemAreLeftOut()
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope, path("system"));
        putFile(path("system/Beam Group/panel.ini"), "[FactoryReset]\npeaks=1\n");
        putFile(path("user/Beam Group.ini"), "[FactoryReset]\npeaks=1\n");
        RVXApplicationSettings owner(nullptr, path("user"), true, false);
        QCOMPARE(owner.getSettings()->childGroups(), QStringList());
    }

    void killedWhileWriting_data() { addFormats(); }
    //! Whenever the process is killed, the file contains one complete generation.
    void killedWhileWriting()
    {
        QFETCH(QString, format);
        const QString suffix = format == "xml" ? "xui" : "ini";
        for (int round = 0; round < 50; ++round) {
            QProcess process;
            process.start(SETTINGS_PROCESS, {"write", m_folder->path(), format});
            for (int generation = 0; generation < 1 + round % 7; ++generation) {
                QVERIFY(process.canReadLine() || process.waitForReadyRead());
                process.readLine();
            }
            process.kill();
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.exitStatus(), QProcess::CrashExit);

            RVXApplicationSettings owner(nullptr, path("Beam Group/panel." + suffix), false,
                                         format == "xml");
            owner.getSettings()->beginGroup("StatisticsSetupPage");
            QCOMPARE(owner.getSettings()->childKeys().size(), 60);
            QSet<QString> generations;
            for (int key = 0; key < 60; ++key)
                generations << owner.getSettings()->value(QString("key-%1").arg(key)).toString();
            QCOMPARE(generations.size(), 1);
        }
        QVERIFY(!QFile::exists(path("Beam Group/panel." + suffix + ".damaged")));
    }

    //! Each process gets its turn, however often the others write.
    void severalWriters()
    {
        constexpr int kEnough = 100;
        std::array<QProcess, 3> writers;
        std::array<int, 3> generations{};
        for (QProcess &writer : writers)
            writer.start(SETTINGS_PROCESS, {"write", m_folder->path(), "xml"});
        const auto mostWritten = [&] {
            for (size_t i = 0; i < writers.size(); ++i) {
                while (writers[i].canReadLine())
                    generations[i] = writers[i].readLine().toInt();
            }
            return *std::max_element(generations.begin(), generations.end());
        };
        QTRY_VERIFY_WITH_TIMEOUT(mostWritten() >= kEnough, 60000);
        for (QProcess &writer : writers) {
            writer.kill();
            writer.waitForFinished();
        }
        for (const int written : generations)
            QVERIFY2(written >= kEnough / 4, qPrintable(QString::number(written)));
    }

    void textOfASmallFile()
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

    void values_data()
    {
        columns<QString, QString>("value", "expected");
        const auto same = [](const char *name, const QString &value) {
            row(name, value, "key=" + value);
        };
        same("markup", "</key><key>&amp;<!-- -->]]>");
        same("white space around it", "  two\n words\t");
        same("line ends of another system", "one\r\ntwo\rthree");
        same("beyond the basic plane", QString::fromUtf8("\xce\xa7\xc2\xb2 \xf0\x9f\x92\xa5"));
        same("long", QString(300000, 'x').replace(150000, 1, '&'));
        const QString unknown = QChar(QChar::ReplacementCharacter);
        row("control characters", QString("\x01-\x0b-") + QChar(0),
            "key=" + unknown + "-" + unknown + "-" + unknown);
        row("half a character", QString("a") + QChar(0xd800) + "b", "key=a" + unknown + "b");
        row("empty comes back as missing", "", "");
    }
    void values()
    {
        QFETCH(QString, expected);
        QCOMPARE(readBack(written({{"key", cell("value")}, {"zz", "1"}})),
                 expected + (expected.isEmpty() ? "zz=1" : "; zz=1"));
    }

    void keys_data()
    {
        tableFrom(R"(
            | key | QByteArray element
            letters of any script | Größe | Größe
            space | Beam Line | Beam_x0020_Line
            digit first | 1st.x-2 | _x0031_st.x-2
            name of the root | Settings | _x0053_ettings
            looks like a namespace | a:b | a_x003A_b
            markup | a><b | a_x003E__x003C_b
            looks escaped | _x0041_ | _x005F_x0041_
            escaped by what follows | _x0041 b | _x005F_x0041_x0020_b
            an escaped slash stays as it is | a_x002F_b | a_x005F_x002F_b
        )");
        row("half a character", QString(QChar(0xd800)), QByteArray("_xD800_"));
    }
    void keys()
    {
        QFETCH(QString, key);
        const QByteArray document = written({{key + "/in", "1"}, {"in/" + key, "2"}});
        QVERIFY2(document.contains("<" + cell<QByteArray>("element") + ">"), document.constData());
        QStringList entries{key + "/in=1", "in/" + key + "=2"};
        entries.sort();
        QCOMPARE(readBack(document), entries.join("; "));
    }

    //! Two keys that differ only in empty parts: one value is kept whole.
    void emptyParts()
    {
        QCOMPARE(readBack(written({{"//", "0"}, {"/a//b/", "1"}, {"a/b", "2"}})), QString("a/b=2"));
    }

    void documents_data()
    {
        tableFrom(R"(
            | QByteArray document | expected
            the later value counts | <Settings><a>1</a><b>2</b><a>3</a></Settings> | a=3; b=2
            value and group in one | <Settings><a>1<b>2</b></a></Settings> | a=1; a/b=2
            another root is one more group | <Other><a>1</a></Other> | Other/a=1
            a section is a value | <Settings><a>1<![CDATA[<2>]]></a></Settings> | a=<2>
            text outside of elements | <Settings>x<a>1</a>y</Settings> | a=1
            the name of the root within, which removes one name too many, as in existing files
                | <Settings><a><Settings><b>1</b></Settings><c>2</c></a></Settings> | a/b=1; c=2
            empty | | refused
            cut short | <Settings><a>1</a> | refused
            two roots | <Settings/><Settings/> | refused
            not this format | [General] | refused
            an unknown encoding
                | <?xml version="1.0" encoding="none"?><Settings><a>1</a></Settings> | refused
        )");
        row("laid out by hand",
            QByteArray("<Settings><a>\n 1\n</a><!-- 2 --><g><b>3</b>\n</g></Settings>"),
            "a=\n 1\n; g/b=3");
        row("a section of white space is not a value",
            QByteArray("<Settings><a>1<![CDATA[]]></a><b>2<![CDATA[ \n]]></b></Settings>"),
            "a=1; b=2");
        row("not text", QByteArray::fromHex("89504e470d0a1a0a0000000d49484452"), "refused");
        const QByteArray micro = "<Settings><a>\xb5</a></Settings>";
        row("bytes that are not UTF-8", micro, "refused");
        row("another encoding, declared",
            QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + micro), "a=µ");
        row("another encoding, marked",
            QTextCodec::codecForName("UTF-16")->fromUnicode("<Settings><a>1</a></Settings>"),
            "a=1");
    }
    void documents() { QCOMPARE(readBack(cell<QByteArray>("document")), cell("expected")); }

    void limitsOfDocuments_data()
    {
        columns<QByteArray, QString>("document", "expected");
        const auto add = [](const char *name, const QByteArray &document, bool isRead = false) {
            row(name, document, isRead ? "z=1" : "refused");
        };
        const auto within = [](const QByteArray &markup, const QByteArray &before = {}) {
            return before + "<Settings>" + markup + "<z>1</z></Settings>";
        };
        const auto attributes = [](int count) {
            QByteArray tag = "<b";
            for (int i = 0; i < count; ++i)
                tag += " a" + QByteArray::number(i) + "='>'";
            return QByteArray(tag + "/>");
        };
        const auto nested = [](int depth) {
            return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
        };
        const int mega = 1024 * 1024;
        add("as deep as allowed", within(nested(32)), true);
        add("too deep", within(nested(33)));
        QByteArray entities = "<!ENTITY a '0123456789'>";
        for (const char name : {'a', 'b', 'c', 'd'})
            entities += QByteArray("<!ENTITY ") + char(name + 1) + " '"
                + (QByteArray("&") + name + ";").repeated(10) + "'>";
        add("entities that multiply", within("&e;", "<!DOCTYPE Settings [" + entities + "]>"));
        // Half a megabyte of document that expands to a hundred gigabytes of keys.
        const QByteArray key(300000, 'a');
        add("one long key over and over",
            within("<" + key + ">" + QByteArray("<b>1</b>").repeated(30000) + "</" + key + ">"));
        add("elements with nothing in them", within("<a/>"), true);
        add("too many empty elements", within(QByteArray("<a/>").repeated(mega)));
        add("too many comments", within(QByteArray("<!---->").repeated(mega)));
        add("too many attributes in all", within(attributes(60).repeated(5000)));
        add("a few attributes", within(attributes(60)), true);
        add("too many attributes for one tag", within(attributes(1000)));
        // Something that looks like the beginning of a tag must not hide the attributes.
        add("too many behind a comment", within("<!-- <a ' -->" + attributes(1000)));
        add("too many behind a section", within("<a><![CDATA[<!-- <a ']]></a>" + attributes(1000)));
        add("too many behind an instruction", within("<?p <a '?>" + attributes(1000)));
        add("markup in a comment", within("<!-- <a '" + attributes(1000).mid(2) + " -->"), true);
        add("a long comment", within("<!--" + QByteArray(8 * mega, 'x') + "-->"), true);
        add("too long a comment", within("<!--" + QByteArray(16 * mega, 'x') + "-->"));
        add("a document type", within("", "<!DOCTYPE Settings>"), true);
        add("declarations of a document type",
            within("", "<!DOCTYPE Settings [<!ATTLIST a b CDATA 'c'>]>"));
    }
    void limitsOfDocuments() { documents(); }

    //! Settings that could not be read back are not written.
    void limitsOfWriting()
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

    void failingDevice()
    {
        QBuffer closed;
        QTest::ignoreMessage(QtWarningMsg, "QIODevice::write (QBuffer): device not open");
        QVERIFY(!writeXmlSettings(closed, {{"a", 1}}));
    }

private:
    static void addFormats()
    {
        QTest::addColumn<QString>("format");
        QTest::newRow("XML") << "xml";
        QTest::newRow("INI") << "ini";
    }
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

CORVALE_QT_TEST_MAIN(tst_RVXApplicationSettings)
#include "tst_RVXApplicationSettings.moc"
