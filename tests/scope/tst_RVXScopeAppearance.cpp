// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/scope/PanelDevice.h"
#include "tests/support/BracketTranslator.h"
#include "tests/support/Files.h"
#include "tests/support/Pixels.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

//! Returns the names of the visible controls that are too small for their contents.
QString clippedControls(const Panel &panel)
{
    QStringList names;
    for (const char *parent : {"frame", "configFrame"}) {
        for (const auto *widget : panel.control(parent)->findChildren<QWidget *>()) {
            const QSize needed = widget->minimumSizeHint();
            const bool clipped =
                widget->width() < needed.width() || widget->height() < needed.height();
            if (widget->isVisible() && clipped && !widget->objectName().startsWith("qt_"))
                names << widget->objectName();
        }
    }
    return names.join(' ');
}

QPalette darkPalette()
{
    const QColor dark(45, 45, 48);
    return QPalette(Qt::white,
                    dark,
                    Qt::lightGray,
                    Qt::black,
                    Qt::gray,
                    Qt::white,
                    Qt::white,
                    Qt::black,
                    dark);
}

//! Makes the application use an icon theme that has only a red edit-clear icon, until it is destroyed.
class PoorTheme
{
public:
    PoorTheme()
    {
        QDir(m_folder.path()).mkpath("poor/16x16");
        putFile(m_folder.filePath("poor/index.theme"),
                "[Icon Theme]\nName=poor\nDirectories=16x16\n[16x16]\nSize=16\n");
        QImage red(16, 16, QImage::Format_RGB32);
        red.fill(Qt::red);
        red.save(m_folder.filePath("poor/16x16/edit-clear.png"));
        QIcon::setThemeSearchPaths({m_folder.path()});
        QIcon::setThemeName("poor");
    }
    ~PoorTheme()
    {
        QIcon::setThemeSearchPaths(m_paths);
        QIcon::setThemeName(m_name);
    }
    Q_DISABLE_COPY(PoorTheme)

private:
    const QStringList m_paths = QIcon::themeSearchPaths();
    const QString m_name = QIcon::themeName();
    QTemporaryDir m_folder;
};

} // namespace

//! The appearance of the scope panel in several palettes, in another language and at scale factors of 1 and 2.
class tst_RVXScopeAppearance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void icons()
    {
        for (const bool poorTheme :
             {false, true}) { // without a theme, and with one that lacks most
            const auto theme = poorTheme ? std::make_unique<PoorTheme>() : nullptr;
            const Panel panel;
            const auto pixelsOfIcon = [&panel](const char *button, const auto &matches) {
                return countPixels(
                    panel.control<QAbstractButton>(button)->icon().pixmap(16).toImage(),
                    matches);
            };
            const auto isDrawn = [](const QColor &c) {
                return c.alpha() > 0;
            };
            const auto isRed = [](const QColor &c) {
                return c == QColor(Qt::red);
            };
            for (const char *name :
                 {"saveButton", "clearButton", "confButton", "zeroButton", "clearZeroButton"})
                QVERIFY2(pixelsOfIcon(name, isDrawn) > 20, name);
            QCOMPARE(pixelsOfIcon("clearButton", isRed), poorTheme ? 256 : 0);
            // Its name begins alike, but it has another function.
            QCOMPARE(pixelsOfIcon("clearZeroButton", isRed), 0);
        }
    }

    void translation()
    {
        DevicePanel panel(1, {{1, {5}}});
        panel.setWindowTitle("the host's");
        panel.choose("scaleYCombo", "50%");
        panel.choose("averagingCombo", "10x Avg");
        QTRY_COMPARE(panel.bufferSize(), QString("1 Samples"));
        const BracketTranslator translator;
        const auto *scales = panel.control<QComboBox>("scaleYCombo");
        QCOMPARE(panel.tabs(), QString("[<Strip>] <Scope> <Histogram>"));
        QCOMPARE(scales->itemText(1) + ' ' + scales->currentText(), QString("<Normalize> 50%"));
        QCOMPARE(panel.control<QComboBox>("averagingCombo")->currentText(), QString("<10x Avg>"));
        QCOMPARE(panel.bufferSize(), QString("<1 Samples>"));
        const auto *save = panel.control<QAbstractButton>("saveButton");
        QCOMPARE(save->text() + ": " + save->toolTip(),
                 QString("<Save>: <Save the data buffer to a file.>"));
        QCOMPARE(panel.windowTitle(), QString("the host's"));
    }

    //! The panel at its smallest, with all optional controls.
    void nothingIsClipped()
    {
        DevicePanel panel(1, {{1, {5}}, {2, {6}}});
        panel.setPositionEnabled(true);
        panel.setSplitEnabled(true);
        panel.setSpectrogramEnabled(true);
        panel.setDerivativeVisible(true);
        panel.SetPlotMode(RVXScope::StripMode);
        panel.control<QAbstractButton>("zeroButton")->click();
        panel.resize(1, 1);
        QTRY_COMPARE(panel.bufferSize(), QString("2 Samples"));
        QCOMPARE(clippedControls(panel), QString());
        panel.choose("averagingCombo", "1000x Avg");
        panel.click("confButton");
        panel.resize(1, 1);
        QCoreApplication::processEvents();
        QVERIFY(panel.control("stateLabel")->isVisible());
        QCOMPARE(clippedControls(panel), QString());
    }

    void zeroedStateIsReadable()
    {
        const auto isGreen = [](const QColor &c) {
            return c.green() > 220 && c.red() < 200 && c.blue() < 200;
        };
        const auto isBlack = [](const QColor &c) {
            return c.lightness() < 40;
        };
        for (const bool dark : {false, true}) {
            DevicePanel panel(1, {{1, {5}}, {2, {6}}});
            if (dark)
                panel.setPalette(darkPalette());
            const auto drawn = [&](const char *name, const std::function<bool(QColor)> &matches) {
                return countPixels(panel.control(name)->grab().toImage(), matches);
            };
            QCOMPARE(drawn("clearZeroButton", isGreen), 0);
            panel.click("zeroButton");
            QVERIFY(drawn("clearZeroButton", isGreen) > 100);
            panel.click("confButton");
            QCoreApplication::processEvents();
            QVERIFY(drawn("stateLabel", isGreen) > 300);
            QVERIFY(drawn("stateLabel", isBlack) > 20);
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXScopeAppearance)
#include "tst_RVXScopeAppearance.moc"
