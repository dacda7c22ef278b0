// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/Files.h"
#include "tests/support/TestMain.h"

#include <QBuffer>
#include <QDesignerFormEditorInterface>
#include <QFileInfo>
#include <QFormBuilder>
#include <QIcon>
#include <QPluginLoader>
#include <QSet>
#include <QSpinBox>
#include <QTabWidget>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <memory>

namespace {

//! The plugin of the build, or the installed one where the environment names it.
QString pluginFile()
{
    return qEnvironmentVariable("CORVALE_QT_INSTALLED_PLUGIN", DESIGNER_PLUGIN);
}

//! A form with one widget of each of \a classes, named after its class.
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

int coloursOf(QWidget *widget)
{
    const QImage image = widget->grab().toImage();
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colours.insert(image.pixel(x, y));
    return colours.size();
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
    //! Both loaders put a plain QWidget where they cannot make a class, and say nothing.
    void formsGetTheRealClasses()
    {
        QFETCH(bool, byUiLoader);
        QByteArray form = formWith(kClasses);
        QBuffer buffer(&form);
        buffer.open(QIODevice::ReadOnly);
        const std::unique_ptr<QWidget> window(byUiLoader ? loadByUiLoader(buffer)
                                                         : loadByFormBuilder(buffer));
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

    void newWidget_data() { addWidgets(); }
    //! What Designer drops on a form: it loads, has the size meant, and pages where it is a container.
    void newWidget()
    {
        auto *widget = fetchWidget();
        QVERIFY(!widget->toolTip().isEmpty());
        QCOMPARE(widget->group(), QString("Corvale"));
        QVERIFY(!widget->icon().pixmap(24).isNull());
        QVERIFY(coloursOfIcon(widget->icon()) >= 2);
        // uic puts this into the code of the form.
        const QByteArray header = fileContents(INCLUDE_FOLDER "/" + widget->includeFile());
        QVERIFY2(header.contains("/" + widget->name().section("::", -1).toLatin1() + ".h\""),
                 qPrintable(widget->includeFile()));

        QString form = widget->domXml();
        form.replace(QRegularExpression("<ui [^>]*>"), "<ui version=\"4.0\"><class>Form</class>");
        QByteArray bytes = form.toUtf8();
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        const std::unique_ptr<QWidget> made(loadByUiLoader(buffer));
        QVERIFY2(made, qPrintable(form));
        QCOMPARE(QString(made->metaObject()->className()), widget->name());
        QCOMPARE(made->size().expandedTo(made->minimumSizeHint()), made->size());
        if (auto *tabs = qobject_cast<QTabWidget *>(made.get()))
            QCOMPARE(tabs->count(), 2);
        QCOMPARE(widget->isContainer(), qobject_cast<QTabWidget *>(made.get()) != nullptr);
    }

    void preview_data() { addWidgets(); }
    //! On a form in Designer a widget shows something; in a program it is as empty as its class makes it.
    void preview()
    {
        auto *widget = fetchWidget();
        const std::unique_ptr<QWidget> plain(widget->createWidget(nullptr));
        QDesignerFormEditorInterface core;
        widget->initialize(&core);
        const std::unique_ptr<QWidget> filled(widget->createWidget(nullptr));
        widget->initialize(nullptr);
        for (QWidget *each : {plain.get(), filled.get()}) {
            each->resize(each->sizeHint().expandedTo(QSize(300, 300)));
            each->show();
        }
        QTRY_VERIFY(coloursOf(filled.get()) > 2);
        const bool showsEnoughByItself = qobject_cast<QAbstractSpinBox *>(plain.get())
            || qobject_cast<QTabWidget *>(plain.get()) || widget->name().endsWith("SetupPage");
        if (!showsEnoughByItself)
            QTRY_VERIFY(filled->grab().toImage() != plain->grab().toImage());
    }

    //! It takes numbers at once, and shows them with a delay.
    void previewOfAProfileHasResults()
    {
        QDesignerFormEditorInterface core;
        for (auto *widget : qAsConst(m_widgets)) {
            if (!widget->name().endsWith("Spectrogram"))
                continue;
            widget->initialize(&core);
            const std::unique_ptr<QWidget> profile(widget->createWidget(nullptr));
            widget->initialize(nullptr);
            const auto *mean = profile->findChild<QDoubleSpinBox *>("doubleSpinBox_meanx");
            QVERIFY(mean);
            // A beam at the 18th of 32 strips that are 2 mm wide.
            QTRY_VERIFY(qAbs(mean->value() - 3.0) < 0.1);
        }
    }

private:
    QWidget *loadByUiLoader(QIODevice &form)
    {
        QUiLoader loader;
        loader.clearPluginPaths();
        loader.addPluginPath(QFileInfo(pluginFile()).path());
        return loader.load(&form);
    }
    QWidget *loadByFormBuilder(QIODevice &form)
    {
        QFormBuilder builder;
        builder.setPluginPath({QFileInfo(pluginFile()).path()});
        return builder.load(&form);
    }
    static int coloursOfIcon(const QIcon &icon)
    {
        QSet<QRgb> colours;
        const QImage image = icon.pixmap(24).toImage();
        for (int i = 0; i < image.width(); ++i)
            for (int j = 0; j < image.height(); ++j)
                colours.insert(image.pixel(i, j));
        return colours.size();
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

    const QStringList kClasses{
        "RVXScope",
        "RVXScopePlotView",
        "RVXStatisticsSetupPage",
        "RVXSpectrogram",
        "RVXPositionPlot",
        "RVXSplitPlot",
        "RVXPositionErrorPlot",
        "SpotMapView",
        "SpotMapWidget",
        "RVXLogBrowser",
        "IntStepSpinBox",
        "QScienceSpinBox",
        "TreeComboBox",
        "RVXPopOutTabWidget",
        "RVXTableView",
    };
    QList<QDesignerCustomWidgetInterface *> m_widgets;
};

CORVALE_QT_TEST_MAIN(tst_DesignerPlugin)
#include "tst_DesignerPlugin.moc"
