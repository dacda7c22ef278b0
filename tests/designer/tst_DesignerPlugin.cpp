// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

#include <QDesignerFormEditorInterface>
#include <QFormBuilder>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

namespace {

//! Returns the installed plugin if the environment names it, otherwise that of the build.
QString pluginFile()
{
    return qEnvironmentVariable("CORVALE_QT_INSTALLED_PLUGIN", DESIGNER_PLUGIN);
}

//! Returns a form with a widget of each class, named after it.
QByteArray formWith(const QStringList &classes)
{
    QString form =
        "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\">";
    for (const QString &name : classes)
        form += QString("<widget class=\"Corvale_Qt::%1\" name=\"%1\">"
                        "<property name=\"toolTip\"><string>tip of %1</string></property></widget>")
                    .arg(name);
    return (form + "</widget></ui>").toUtf8();
}

int colorsOf(const QPixmap &picture)
{
    const QImage image = picture.toImage();
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colors.insert(image.pixel(x, y));
    return colors.size();
}

std::unique_ptr<QWidget> loadByUiLoader(QByteArray form)
{
    QBuffer buffer(&form);
    buffer.open(QIODevice::ReadOnly);
    QUiLoader loader;
    loader.clearPluginPaths();
    loader.addPluginPath(QFileInfo(pluginFile()).path());
    return std::unique_ptr<QWidget>(loader.load(&buffer));
}

std::unique_ptr<QWidget> loadByFormBuilder(QByteArray form)
{
    QBuffer buffer(&form);
    buffer.open(QIODevice::ReadOnly);
    QFormBuilder builder;
    builder.setPluginPath({QFileInfo(pluginFile()).path()});
    return std::unique_ptr<QWidget>(builder.load(&buffer));
}

} // namespace

class tst_DesignerPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QPluginLoader loader(pluginFile());
        auto *plugin = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
        QVERIFY2(plugin, qPrintable(pluginFile() + ": " + loader.errorString()));
        m_widgets = plugin->customWidgets();
    }

    void everyWidgetIsThere()
    {
        QStringList names;
        for (const auto *widget : qAsConst(m_widgets))
            names << widget->name();
        for (const QString &name : kClasses)
            QVERIFY2(names.removeOne("Corvale_Qt::" + name), qPrintable(name));
        QCOMPARE(names.join(' '), QString());
    }

    void formsGetTheRealClasses_data()
    {
        QTest::addColumn<bool>("byUiLoader");
        QTest::newRow("QUiLoader") << true;
        QTest::newRow("QFormBuilder") << false;
    }
    //! For a class that they cannot create, both loaders silently create a plain QWidget.
    void formsGetTheRealClasses()
    {
        QFETCH(bool, byUiLoader);
        const QByteArray form = formWith(kClasses);
        const auto window = byUiLoader ? loadByUiLoader(form) : loadByFormBuilder(form);
        QVERIFY(window);
        for (const QString &name : kClasses) {
            const auto *widget = window->findChild<QWidget *>(name);
            QVERIFY2(widget, qPrintable(name));
            QCOMPARE(QString(widget->metaObject()->className()), "Corvale_Qt::" + name);
            QCOMPARE(widget->toolTip(), "tip of " + name);
        }
        window->resize(600, 400);
        window->grab();
    }

    //! A form sets the properties of a scope, and a preview keeps its samples while they are edited.
    void propertiesOfAScope()
    {
        const QByteArray form =
            R"(<ui version="4.0"><class>Form</class><widget class="Corvale_Qt::RVXScope" name="Form">
            <property name="plotTabs"><set>Corvale_Qt::RVXScope::ScopeTab|Corvale_Qt::RVXScope::SplitTab</set></property>
            <property name="plotMode"><enum>Corvale_Qt::RVXScope::SplitMode</enum></property>
            <property name="yScaleMode"><enum>Corvale_Qt::RVXScope::AbsoluteRanges</enum></property>
            <property name="averaging"><number>100</number></property>
            <property name="period"><number>1000</number></property>
            <property name="timeSpan"><double>2.5</double></property>
            <property name="markersEnabled"><bool>true</bool></property>
            </widget></ui>)";
        const auto text = [](const QWidget &widget) {
            return QString("mode %1 of %2, list %3, average %4, period %5, %6 s")
                .arg(widget.property("plotMode").toInt())
                .arg(widget.findChild<QTabBar *>("modeSelect")->count())
                .arg(widget.property("yScaleMode").toInt())
                .arg(widget.property("averaging").toInt())
                .arg(widget.property("period").toInt())
                .arg(widget.property("timeSpan").toDouble());
        };
        for (const auto &load : {loadByUiLoader, loadByFormBuilder}) {
            const auto scope = load(form);
            QVERIFY(scope);
            QCOMPARE(text(*scope), QString("mode 5 of 2, list 2, average 100, period 1000, 2.5 s"));
        }

        const auto widget = std::find_if(m_widgets.begin(), m_widgets.end(), [](const auto *each) {
            return each->name().endsWith("RVXScope");
        });
        const auto preview = createInDesigner(*widget);
        const QMetaObject *type = preview->metaObject();
        for (int i = type->propertyOffset(); i < type->propertyCount(); ++i) {
            const QMetaProperty property = type->property(i);
            QVERIFY2(property.isDesignable(), property.name());
            if (property.isWritable())
                QVERIFY2(property.write(preview.get(), property.read(preview.get())),
                         property.name());
        }
        QVERIFY(preview->setProperty("period", 100));
        QTRY_COMPARE((preview->show(), preview->findChild<QLabel *>("bufferSizeLabel")->text()),
                     QString("200 Samples"));
    }

    void newWidget_data() { addWidgets(); }
    //! A widget that Designer drops on a form can be loaded, fits into its size, and has pages if it is a container.
    void newWidget()
    {
        auto *widget = fetchWidget();
        QVERIFY(!widget->toolTip().isEmpty());
        QCOMPARE(widget->group(), QString("Corvale"));
        QVERIFY(colorsOf(widget->icon().pixmap(24)) >= 2);
        // The code that uic writes for a form includes this file.
        const QByteArray header = fileContents(INCLUDE_FOLDER "/" + widget->includeFile());
        QVERIFY2(header.contains("/" + widget->name().section("::", -1).toLatin1() + ".h\""),
                 qPrintable(widget->includeFile()));

        QString form = widget->domXml();
        form.replace(QRegularExpression("<ui [^>]*>"), "<ui version=\"4.0\"><class>Form</class>");
        const auto made = loadByUiLoader(form.toUtf8());
        QVERIFY2(made, qPrintable(form));
        QCOMPARE(QString(made->metaObject()->className()), widget->name());
        QCOMPARE(made->size().expandedTo(made->minimumSizeHint()), made->size());
        if (auto *tabs = qobject_cast<QTabWidget *>(made.get()))
            QCOMPARE(tabs->count(), 2);
        QCOMPARE(widget->isContainer(), qobject_cast<QTabWidget *>(made.get()) != nullptr);
    }

    void preview_data() { addWidgets(); }
    //! A widget shows data on a form in Designer but not in a program.
    void preview()
    {
        auto *widget = fetchWidget();
        const std::unique_ptr<QWidget> plain(widget->createWidget(nullptr));
        const auto filled = createInDesigner(widget);
        for (QWidget *each : {plain.get(), filled.get()}) {
            each->resize(each->sizeHint().expandedTo(QSize(300, 300)));
            each->show();
        }
        QTRY_VERIFY(colorsOf(filled->grab()) > 2);
        const bool showsEnoughByItself = qobject_cast<QAbstractSpinBox *>(plain.get())
            || qobject_cast<QTabWidget *>(plain.get()) || widget->name().endsWith("SetupPage");
        if (!showsEnoughByItself)
            QTRY_VERIFY(filled->grab().toImage() != plain->grab().toImage());
    }

    //! A profile shows the results of a frame only after a delay.
    void previewOfAProfileHasResults()
    {
        for (auto *widget : qAsConst(m_widgets)) {
            if (!widget->name().endsWith("Spectrogram"))
                continue;
            const auto profile = createInDesigner(widget);
            const auto *mean = profile->findChild<QDoubleSpinBox *>("doubleSpinBox_meanx");
            QVERIFY(mean);
            // The beam is on the 18th of 32 strips, which are 2 mm wide.
            QTRY_VERIFY(qAbs(mean->value() - 3.0) < 0.1);
        }
    }

private:
    static std::unique_ptr<QWidget> createInDesigner(QDesignerCustomWidgetInterface *widget)
    {
        QDesignerFormEditorInterface core;
        widget->initialize(&core);
        std::unique_ptr<QWidget> created(widget->createWidget(nullptr));
        widget->initialize(nullptr);
        return created;
    }
    void addWidgets()
    {
        QTest::addColumn<int>("number");
        for (int i = 0; i < m_widgets.size(); ++i)
            QTest::newRow(qPrintable(m_widgets.at(i)->name())) << i;
    }
    QDesignerCustomWidgetInterface *fetchWidget()
    {
        QFETCH(int, number);
        return m_widgets.at(number);
    }

    const QStringList kClasses =
        QString("RVXScope RVXScopePlotView RVXStatisticsSetupPage RVXSpectrogram RVXPositionPlot "
                "RVXSplitPlot RVXPositionErrorPlot SpotMapView SpotMapWidget RVXLogBrowser "
                "IntStepSpinBox QScienceSpinBox TimeSpanBox TreeComboBox RVXPopOutTabWidget "
                "RVXTableView")
            .split(' ');
    QList<QDesignerCustomWidgetInterface *> m_widgets;
};

CORVALE_QT_TEST_MAIN(tst_DesignerPlugin)
#include "tst_DesignerPlugin.moc"
