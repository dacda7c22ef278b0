// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXPositionPlot.h"
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/beam/spots/RVXPositionErrorPlot.h"
#include "corvale_qt/beam/spots/SpotMapWidget.h"
#include "corvale_qt/models/RVXMultichannelDeviceModel.h"
#include "corvale_qt/scope/RVXScope.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/RVXStatisticsSetupPage.h"
#include "corvale_qt/settings/Translations.h"
#include "corvale_qt/units/LibraryTexts_p.h"
#include "corvale_qt/units/Units.h"
#include "corvale_qt/widgets/RVXLogBrowser.h"
#include "tests/support/Contrast.h"
#include "tests/support/TestMain.h"

#include <QSvgRenderer>

using namespace Corvale_Qt;

namespace {

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
    QStringList translations; //!< one, or those of the singular and the plural
    bool hasForms = false;
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
            entries.last().hasForms = xml.attributes().hasAttribute(QLatin1String("numerus"));
        } else if (xml.name() == QLatin1String("source")) {
            entries.last().source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            entries.last().isFinished = !xml.attributes().hasAttribute(QLatin1String("type"));
            if (!entries.last().hasForms)
                entries.last().translations.append(xml.readElementText());
        } else if (xml.name() == QLatin1String("numerusform")) {
            entries.last().translations.append(xml.readElementText());
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

using MakeWidget = QWidget *(*)();

template<typename Widget>
QWidget *make()
{
    return new Widget;
}

//! Returns the controls of a form that accept the focus.
QVector<QWidget *> controlsOf(const QWidget &form)
{
    QVector<QWidget *> controls;
    for (QWidget *widget : form.findChildren<QWidget *>()) {
        const bool isPartOfAnother = widget->objectName().startsWith("qt_");
        if (widget->isVisibleTo(&form) && widget->focusPolicy() != Qt::NoFocus && !isPartOfAnother)
            controls << widget;
    }
    return controls;
}

/*! Returns the name by which a screen reader announces a control. For a combo box Qt returns the current text, so this
    returns the name of its label. */
QString nameOf(const QAccessibleInterface &accessible)
{
    if (accessible.role() != QAccessible::ComboBox)
        return accessible.text(QAccessible::Name);
    const auto labels = accessible.relations(QAccessible::Label);
    return labels.isEmpty() ? QString() : labels.first().first->text(QAccessible::Name);
}

//! Returns what a screen reader says of a chart: "name | description".
QString speechOf(QWidget *chart)
{
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(chart);
    if (accessible->role() != QAccessible::Chart)
        return "no chart";
    return accessible->text(QAccessible::Name) + " | " + accessible->text(QAccessible::Description);
}

//! Returns the chart in a window; null if there is none.
QWidget *chartIn(const QWidget &window)
{
    for (QWidget *widget : window.findChildren<QWidget *>())
        if (QAccessible::queryAccessibleInterface(widget)->role() == QAccessible::Chart)
            return widget;
    return nullptr;
}

} // namespace

Q_DECLARE_METATYPE(MakeWidget)

//! The files in the library's resources, and its forms as people use them.
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
        QFETCH(QRgb, ground);
        for (int size : {16, 32})
            QVERIFY2(readablePixels(QIcon(cell("path")), size, ground) * 8 >= size * size,
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
        const QString path = cell("path");
        const QVector<CatalogEntry> entries = entriesOf(path);
        QVERIFY(entries.size() > (path.endsWith("_en.ts") ? 15 : 300));
        QStringList faults;
        for (const CatalogEntry &entry : entries) {
            const QString &source = entry.source;
            if (!entry.isFinished || entry.translations.isEmpty())
                faults.append("not translated: " + source);
            for (const QString &text : entry.translations) {
                // A form that is for 1 alone need not say the number.
                const bool isOne = entry.hasForms && !text.contains("%n") && source.contains("%n");
                if (text.trimmed().isEmpty() != source.trimmed().isEmpty()
                    || (entry.hasForms && text.contains("(s)"))
                    || fixedParts(isOne ? "%n" + text : text) != fixedParts(source))
                    faults.append(source + " -> " + text);
            }
        }
        QVERIFY2(faults.isEmpty(), qPrintable("\n" + faults.join('\n')));
    }

    void personsHaveTheirLanguage_data()
    {
        tableFrom(R"(
            | locale | language
            Germany                  | de_DE | de
            Switzerland, in German   | de_CH | de
            Canada, in French        | fr_CA | fr
            Japan                    | ja_JP | ja
            Britain                  | en_GB | en
            a language without texts | es_ES | en
            none                     | C     | en
        )");
    }
    void personsHaveTheirLanguage()
    {
        QTEST(Corvale_Qt::translationLanguage(QLocale(cell("locale"))), "language");
    }

    //! A number has its form in English too, where no translation is installed.
    void numbersHaveTheirForms()
    {
        const auto frames = [](int number) {
            return Corvale_Qt::tr("background of %n frame(s) subtracted", nullptr, number);
        };
        QCOMPARE(frames(1), QString("background of 1 frame subtracted"));
        QCOMPARE(frames(2), QString("background of 2 frames subtracted"));
        QVERIFY(Corvale_Qt::installTranslations(QLocale("de")));
        QCOMPARE(frames(2), QString("Untergrund aus 2 Bildern abgezogen"));
        QVERIFY(Corvale_Qt::installTranslations(QLocale("en")));
        QCOMPARE(frames(0), QString("background of 0 frames subtracted"));
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

    void initTestCase() { QAccessible::setActive(true); } // as while a screen reader runs

    void enterInADialog_data() { addForms(); }
    //! Enter in a field must not press a button of the form.
    void enterInADialog()
    {
        QFETCH(MakeWidget, makeForm);
        QDialog dialog;
        auto *layout = new QVBoxLayout(&dialog);
        QWidget *form = makeForm();
        layout->addWidget(form);
        QStringList pressed;
        for (auto *button : form->findChildren<QAbstractButton *>()) {
            button->show(); // including the factory reset
            connect(button, &QAbstractButton::clicked, this,
                    [&pressed, button] { pressed << button->objectName(); });
        }
        dialog.show();
        for (QWidget *control : controlsOf(*form))
            QTest::keyClick(control, Qt::Key_Return);
        QCOMPARE(pressed.join(' '), QString());
    }

    void namesOfControls_data() { addForms(); }
    //! Every control has a name for screen readers, and no two names of one form are the same.
    void namesOfControls()
    {
        QFETCH(MakeWidget, makeForm);
        const std::unique_ptr<QWidget> form(makeForm());
        QStringList heard;
        for (QWidget *control : controlsOf(*form)) {
            if (control->inherits("QFrame")) // text, tables and plots
                continue;
            QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(control);
            QVERIFY2(accessible->role() != QAccessible::Client, qPrintable(control->objectName()));
            const QString name = nameOf(*accessible);
            QVERIFY2(!name.isEmpty(), qPrintable(control->objectName()));
            heard << QString("%1 %2").arg(accessible->role()).arg(name);
        }
        QStringList distinct = heard;
        distinct.removeDuplicates();
        QCOMPARE(heard, distinct);
    }

    void namesOfTheScopesChoices()
    {
        const std::unique_ptr<QWidget> scope(make<RVXScope>());
        QStringList names;
        for (const char *combo : {"scaleYCombo", "averagingCombo", "comboBox_period"})
            names << nameOf(
                *QAccessible::queryAccessibleInterface(scope->findChild<QWidget *>(combo)));
        QCOMPARE(names.join(", "), QString("Y range, Running average, Acquisition period"));

        auto *bar = scope->findChild<QTabBar *>("modeSelect");
        bar->setCurrentIndex(1);
        QAccessibleInterface *tabs = QAccessible::queryAccessibleInterface(bar);
        QCOMPARE(nameOf(*tabs), QString("Plot mode: Scope"));
        QCOMPARE(nameOf(*tabs->child(2)), QString("Plot mode: Histogram"));
    }

    //! A chart says what it shows, whether it stands still, and the newest value of each channel that is shown.
    void aScopeSpeaks()
    {
        const Units::nA unit;
        RVXMultichannelDeviceModel model(3);
        model.setChannels(
            {{"left", &unit, &unit}, {"hidden", &unit, &unit}, {"right", &unit, &unit}});
        RVXScopePlotView view;
        QCOMPARE(speechOf(&view), QString("Scope plot | Strip, live"));
        view.setModel(&model);
        for (int row = 1; row <= 20; ++row) {
            const double values[] = {1.0 * row, 2.0 * row, 3.0 * row};
            model.appendRow(row, values);
        }
        view.setChannelLimits(3, limitsUpTo(50));
        model.setData(model.index(0, 2), Qt::Unchecked, Qt::CheckStateRole);
        const double last[] = {21, 42, 63};
        model.appendRow(21, last);
        const QString values =
            QAccessible::queryAccessibleInterface(&view)->text(QAccessible::Value);
        QVERIFY2(values.startsWith("left (nA), 21"), qPrintable(values));
        QVERIFY2(values.contains("nA; right (nA), 63"), qPrintable(values));
        QVERIFY2(values.endsWith("High alarm"), qPrintable(values));
        QVERIFY2(!values.contains("hidden"), qPrintable(values));

        view.resize(400, 300);
        view.show();
        view.zoomTo(QRectF(QPointF(2, 0), QPointF(10, 60)));
        QVERIFY(view.isHeld());
        QCOMPARE(speechOf(&view), "Scope plot | Strip, held. " + values);
    }

    void beamDisplaysSpeak()
    {
        RVXPositionPlot position;
        QWidget *chart = chartIn(position);
        QVERIFY(chart);
        QCOMPARE(speechOf(chart), QString("Position | no position yet"));
        position.setData(1.5, -0.3);
        QTRY_COMPARE(speechOf(chart),
                     QString("Position | newest position. X Position 1.5; Y Position -0.3"));
        position.showNoBeam();
        QTRY_COMPARE(speechOf(chart), QString("Position | no beam"));

        RVXSpectrogram profile;
        const QString words = speechOf(chartIn(profile));
        QVERIFY2(words.startsWith("Beam profile | No Data"), qPrintable(words));
        SpotMapWidget map;
        QCOMPARE(speechOf(chartIn(map)), QString("Spot map | No spots"));
    }

private:
    static ChannelLimits limitsUpTo(double highAlarm)
    {
        ChannelLimits limits;
        limits.highAlarm = highAlarm;
        return limits;
    }
    static void addForms()
    {
        QTest::addColumn<MakeWidget>("makeForm");
        QTest::newRow("scope") << MakeWidget(make<RVXScope>);
        QTest::newRow("statistics page") << MakeWidget(make<RVXStatisticsSetupPage>);
        QTest::newRow("log browser")
            << MakeWidget([]() -> QWidget * { return new RVXLogBrowser(nullptr, {}); });
        QTest::newRow("beam profile") << MakeWidget(make<RVXSpectrogram>);
        QTest::newRow("position errors") << MakeWidget(make<RVXPositionErrorPlot>);
        QTest::newRow("spot map") << MakeWidget(make<SpotMapWidget>);
    }
};

CORVALE_QT_TEST_MAIN(tst_Resources)
#include "tst_Resources.moc"
