// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/TestMain.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QIcon>
#include <QPainter>
#include <QRawFont>
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

} // namespace

class tst_Resources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void iconsAreReadable_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QRgb>("ground");
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
        for (const char *name : {"document-save",
                                 "edit-clear",
                                 "configure",
                                 "edit-rename",
                                 "edit-clear-locationbar-rtl",
                                 "align-vertical-bottom-out"}) {
            const QIcon fallback(QString(":/resources/icons/%1.svg").arg(name));
            QVERIFY2(!QIcon::fromTheme(name, fallback).pixmap(16).isNull(), name);
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
