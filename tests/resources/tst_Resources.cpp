// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/settings/Translations.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

#include <QSvgRenderer>

namespace {

//! Returns the relative luminance, 0 to 1, as the Web Content Accessibility Guidelines define it.
double luminance(QRgb rgb)
{
    const auto linear = [](int channel) {
        const double c = channel / 255.0;
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(rgb)) + 0.7152 * linear(qGreen(rgb)) + 0.0722 * linear(qBlue(rgb));
}

double contrast(QRgb a, QRgb b)
{
    const double first = luminance(a);
    const double second = luminance(b);
    return (qMax(first, second) + 0.05) / (qMin(first, second) + 0.05);
}

//! Returns the number of pixels of \a icon whose contrast to \a ground is at least 3, as graphics need.
int readablePixels(const QIcon &icon, int size, QRgb ground)
{
    QImage image(size, size, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    icon.paint(&painter, image.rect());
    painter.end();
    int count = 0;
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            count += contrast(image.pixel(x, y), ground) >= 3.0;
    return count;
}

//! A text of a catalog and its translation, all forms in one where it depends on a number.
struct CatalogEntry
{
    QString source;
    QString translation;
    bool isFinished = true;
};

QVector<CatalogEntry> entriesOf(const QString &path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    QXmlStreamReader xml(&file);
    QVector<CatalogEntry> entries;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("message")) {
            entries.append(CatalogEntry());
        } else if (xml.name() == QLatin1String("source")) {
            entries.last().source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            entries.last().isFinished = !xml.attributes().hasAttribute(QLatin1String("type"));
            entries.last().translation =
                xml.readElementText(QXmlStreamReader::IncludeChildElements);
        }
    }
    return entries;
}

//! Returns what a translation must keep: places of numbers, patterns of files, options, lines and mnemonics.
QStringList fixedParts(const QString &text)
{
    static const QRegularExpression part("%[1-9n]|\\(\\*\\.[^)]*\\)|--[a-z]+|;;|\\n|&(?=[^&=\\s])");
    QStringList parts;
    auto matches = part.globalMatch(text);
    while (matches.hasNext())
        parts.append(matches.next().captured());
    parts.sort();
    return parts;
}

} // namespace

class tst_Resources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void iconsAreReadable_data()
    {
        columns<QString, QRgb>("path", "ground");
        QDirIterator files(":/resources/icons");
        while (files.hasNext()) {
            const QString path = files.next();
            QTest::addRow("%s on light", qPrintable(path)) << path << qRgb(245, 245, 245);
            QTest::addRow("%s on dark", qPrintable(path)) << path << qRgb(42, 42, 42);
        }
    }
    void iconsAreReadable()
    {
        QFETCH(QString, path);
        QFETCH(QRgb, ground);
        for (int size : {16, 32})
            QVERIFY2(readablePixels(QIcon(path), size, ground) * 8 >= size * size,
                     qPrintable(QString::number(size) + " pixels"));
    }

    void buttonsHaveAnIconWithoutATheme()
    {
        const QString names = "document-save edit-clear configure edit-rename "
                              "edit-clear-locationbar-rtl align-vertical-bottom-out";
        for (const QString &name : names.split(' ')) {
            const QIcon fallback(QString(":/resources/icons/%1.svg").arg(name));
            QVERIFY2(!QIcon::fromTheme(name, fallback).pixmap(16).isNull(), qPrintable(name));
        }
    }

    void picturesAreWhereHostsLookForThem()
    {
        const QImage icon(":/resources/icons/cleartext.png");
        QVERIFY(!icon.isNull());
        QCOMPARE(QImage(":/icons/cleartext.png"), icon);
        QVERIFY(!QImage(":/resources/images/noisebck.png").isNull());
        QVERIFY(!QImage(":/resources/images/loginText.png").isNull());
    }

    //! Fails if a drawing was changed without making its picture again.
    void picturesMatchTheirDrawings_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("icon") << "icons/cleartext";
        QTest::newRow("lettering") << "images/loginText";
    }
    void picturesMatchTheirDrawings()
    {
        QFETCH(QString, name);
        const QImage picture =
            QImage(":/resources/" + name + ".png").convertToFormat(QImage::Format_ARGB32);
        QSvgRenderer renderer(QString(CORVALE_QT_SOURCE_DIR "/corvale_qt/resources/") + name
                              + ".svg");
        QImage drawing(picture.size(), QImage::Format_ARGB32);
        drawing.fill(Qt::transparent);
        QPainter painter(&drawing);
        renderer.render(&painter);
        painter.end();
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                QVERIFY(qAbs(qAlpha(picture.pixel(x, y)) - qAlpha(drawing.pixel(x, y))) <= 8);
    }

    void catalogsAreComplete_data()
    {
        QTest::addColumn<QString>("path");
        QDirIterator files(CORVALE_QT_SOURCE_DIR "/translations", {"*.ts"});
        while (files.hasNext()) {
            const QString path = files.next();
            QTest::addRow("%s", qPrintable(files.fileName())) << path;
        }
    }
    void catalogsAreComplete()
    {
        QFETCH(QString, path);
        const QVector<CatalogEntry> entries = entriesOf(path);
        QVERIFY(entries.size() > 300);
        QStringList faults;
        for (const CatalogEntry &entry : entries) {
            const QString &text = entry.translation;
            if (!entry.isFinished || text.trimmed().isEmpty() != entry.source.trimmed().isEmpty())
                faults.append("not translated: " + entry.source);
            else if (!text.contains("%n") && fixedParts(text) != fixedParts(entry.source))
                faults.append(entry.source + " -> " + text);
        }
        QVERIFY2(faults.isEmpty(), qPrintable("\n" + faults.join('\n')));
    }

    void personsHaveTheirLanguage_data()
    {
        columns<QString, QString>("locale", "language");
        QTest::newRow("Germany") << "de_DE"
                                 << "de";
        QTest::newRow("Switzerland, in German") << "de_CH"
                                                << "de";
        QTest::newRow("Canada, in French") << "fr_CA"
                                           << "fr";
        QTest::newRow("Japan") << "ja_JP"
                               << "ja";
        QTest::newRow("Britain") << "en_GB"
                                 << "en";
        QTest::newRow("a language without texts") << "es_ES"
                                                  << "en";
        QTest::newRow("none") << "C"
                              << "en";
    }
    void personsHaveTheirLanguage()
    {
        QFETCH(QString, locale);
        QTEST(Corvale_Qt::translationLanguage(QLocale(locale)), "language");
    }

    //! A language takes the place of the one before; the library installs none by itself.
    void languagesReplaceEachOther()
    {
        const auto clear = [] {
            return QCoreApplication::translate("Corvale_Qt::RVXScope", "Clear");
        };
        QCOMPARE(clear(), QString("Clear"));
        QVERIFY(Corvale_Qt::installTranslations(QLocale("fr")));
        QCOMPARE(clear(), QString("Effacer"));
        QVERIFY(Corvale_Qt::installTranslations(QLocale("de")));
        QCOMPARE(clear(), QString("Leeren"));
        QVERIFY(Corvale_Qt::installTranslations(QLocale("es")));
        QCOMPARE(clear(), QString("Clear"));
    }

    void iconFontIsUsable()
    {
        if (!CORVALE_QT_HAS_ICON_FONT)
            QSKIP("built without the icon font");
        const QString path = ":/resources/fonts/materialdesignicons-webfont.ttf";
        const int id = QFontDatabase::addApplicationFont(path);
        QCOMPARE(QFontDatabase::applicationFontFamilies(id), QStringList("Material Design Icons"));
        QRawFont font(path, 16);
        QVERIFY(font.isValid());
        QFontDatabase::removeApplicationFont(id);
    }
};

CORVALE_QT_TEST_MAIN(tst_Resources)
#include "tst_Resources.moc"
