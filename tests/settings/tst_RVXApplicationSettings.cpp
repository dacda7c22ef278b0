// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/settings/RVXApplicationSettings.h"
#include "tests/support/Files.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"
#include "tests/support/TextTable.h"

#include <array>

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
        QFETCH(bool, useXmlFormat);
        QFETCH(QByteArray, damaged);
        const QString file = path("my.settings");
        putFile(file, damaged);
        putFile(file + ".damaged", "an older one");

        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression("my\\.settings.*was damaged and is kept as"));
        RVXApplicationSettings owner(nullptr, file, false, useXmlFormat);
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

            RVXApplicationSettings owner(nullptr,
                                         path("Beam Group/panel." + suffix),
                                         false,
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
