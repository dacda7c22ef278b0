// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/statistics/RVX_StatisticsHistogramItem.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/scope/StatisticsPage.h"
#include "tests/support/BracketTranslator.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

//! The controls of the statistics page and their effect on views and listeners.
class tst_RVXStatisticsSetupPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults()
    {
        RVXStatisticsSetupPage page;
        QCOMPARE(stateOf(page), QString(defaultState));
        QCOMPARE(child<QDoubleSpinBox>(page, "peakthreshold")->value(), 1e-15);
        QCOMPARE(child<QDoubleSpinBox>(page, "peakthreshold")->text(), QString("1e-15"));
        QCOMPARE(child<QDoubleSpinBox>(page, "sumthreshold")->value(), 1e-14);
        QVERIFY(child<QWidget>(page, "factoryResetPushButton")->isHidden());
        QVERIFY(page.styleSheet().startsWith("/* Don't shrink editor font */"));
        QCOMPARE(page.gaussianLayout()->objectName(), QString("gaussianLayout"));
        QCOMPARE(page.layout(), qobject_cast<QVBoxLayout *>(page.QWidget::layout()));
    }

    void controlsToParameters()
    {
        RVXStatisticsSetupPage page;
        page.show();
        Announcements announced(page);
        const auto press = [&page](const char *control, Qt::Key key) {
            QTest::keyClick(child<QWidget>(page, control), key);
        };
        toggleGroup(page, "CoGCBox");
        QCOMPARE(announced.takeCoG(), QString("1x on 0 0.1 10, 1 peaks"));
        type(page, "CoGThresholdEdit", "25");
        QVERIFY(announced.takeCoG().endsWith("on 0 0.25 10, 1 peaks"));
        press("CoGWindowEdit", Qt::Key_Up);
        QCOMPARE(announced.takeCoG(), QString("1x on 0 0.25 11, 1 peaks"));
        press("CoGWindowRadio", Qt::Key_Space);
        QCOMPARE(announced.takeCoG(), QString("1x on 1 0.25 11, 1 peaks"));
        press("CoGThresholdRadio", Qt::Key_Space);
        QCOMPARE(announced.takeCoG(), QString("1x on 0 0.25 11, 1 peaks"));
        QCOMPARE(announced.takeFit(), QString());

        page.enable_regression();
        QCOMPARE(announced.takeFit(), QString("1x on 0.1 10 1e-15 1e-14 2 5, 1 peaks"));
        type(page, "RegressionThresholdEdit", "50");
        type(page, "RegressionWindowEdit", "1024");
        type(page, "peakthreshold", "2.5e-10");
        QVERIFY(announced.takeFit().endsWith("on 0.5 1024 2.5e-10 1e-14 2 5, 1 peaks"));
        type(page, "sumthreshold", "1e-9");
        QVERIFY(announced.takeFit().endsWith("on 0.5 1024 2.5e-10 1e-09 2 5, 1 peaks"));
        QCOMPARE(announced.takeCoG(), QString());

        toggleGroup(page, "fullStatsCBox");
        press("Chi2WindowEdit", Qt::Key_Down);
        QCOMPARE(announced.takeFit(), QString("2x on 0.5 1024 2.5e-10 1e-09 2 4, 1 peaks"));
        QCOMPARE(announced.takeCoG(), QString("2x on 0 0.25 11, 1 peaks"));
        press("peaksEdit", Qt::Key_Down);
        QCOMPARE(announced.takeCoG(), QString("1x on 0 0.25 11, 2 peaks"));
        QCOMPARE(announced.takeFit(), QString("1x on 0.5 1024 2.5e-10 1e-09 2 4, 2 peaks"));
        toggleGroup(page, "CoGCBox");
        toggleGroup(page, "regressionCBox");
        QCOMPARE(announced.takeCoG() + announced.takeFit(),
                 QString("1x off, 2 peaks1x off, 2 peaks"));

        QStringList chosen;
        for (const int n : {1, 2, 4, 8, 3, 0, -1, 16}) {
            page.set_peaks(n);
            chosen << child<QComboBox>(page, "peaksEdit")->currentText();
            QVERIFY(announced.takeCoG().startsWith("1x off"));
            QVERIFY(announced.takeFit().startsWith("1x off"));
        }
        QCOMPARE(chosen.join(' '), QString("1 2 4 8 1 1 1 1"));
    }

    //! The full statistics also enable the threshold and the window of either group, whatever happens around the page.
    void editorsFollowTheirGroups()
    {
        QWidget host;
        RVXStatisticsSetupPage page(&host);
        const auto enabled = [&] {
            QStringList names;
            const QString all = "CoGThresholdEdit CoGWindowEdit CoGWindowRadio "
                                "RegressionThresholdEdit RegressionWindowEdit peakthreshold "
                                "Chi2WindowEdit";
            for (const QString &name : all.split(' ')) {
                if (child<QWidget>(page, name.toLatin1())->isEnabled())
                    names << name;
            }
            return names.join(' ');
        };
        const QString ofFullStatistics("CoGThresholdEdit CoGWindowEdit RegressionThresholdEdit "
                                       "RegressionWindowEdit Chi2WindowEdit");
        QCOMPARE(enabled(), QString());
        toggleGroup(page, "CoGCBox");
        QCOMPARE(enabled(), QString("CoGThresholdEdit CoGWindowEdit CoGWindowRadio"));
        toggleGroup(page, "CoGCBox");
        toggleGroup(page, "fullStatsCBox");
        QCOMPARE(enabled(), ofFullStatistics);
        host.show();
        QCOMPARE(enabled(), ofFullStatistics);
        host.setEnabled(false);
        QCOMPARE(enabled(), QString());
        type(page, "CoGWindowEdit", "11"); // by a program, while the operator is locked out
        toggleGroup(page, "CoGCBox");
        toggleGroup(page, "CoGCBox");
        host.setEnabled(true);
        QCOMPARE(enabled(), ofFullStatistics);
        page.hide();
        page.setParent(nullptr);
        page.show();
        QCOMPARE(enabled(), ofFullStatistics);
        toggleGroup(page, "fullStatsCBox");
        page.setEnabled(false);
        page.setEnabled(true);
        QCOMPARE(enabled(), QString());
    }

    void viewsFollow()
    {
        RVXStatisticsSetupPage page;
        auto first = std::make_unique<RVXScopePlotView>();
        RVXScopePlotView second;
        const auto items = [](const RVXScopePlotView &view) {
            return QString("%1 cog, %2 fit")
                .arg(view.histogramItems(RVXScopePlotView::CenterOfGravityItem).size())
                .arg(view.histogramItems(RVXScopePlotView::RegressionItem).size());
        };
        page.addPlotView(first.get());
        page.addPlotView(nullptr);
        page.set_peaks(4);
        toggleGroup(page, "CoGCBox");
        QCOMPARE(items(*first), QString("4 cog, 0 fit"));
        page.addPlotView(&second); // follows immediately
        QCOMPARE(items(second), QString("4 cog, 0 fit"));
        first.reset(); // the page must not use it any more
        page.enable_regression();
        page.set_peaks(8);
        QCOMPARE(items(second), QString("8 cog, 8 fit"));
        toggleGroup(page, "CoGCBox");
        QCOMPARE(items(second), QString("0 cog, 8 fit"));

        // A view that is a child of the page is deleted after the page's private part.
        auto *host = new RVXStatisticsSetupPage;
        host->addPlotView(new RVXScopePlotView(host));
        delete host;
    }

    //! The choices of the page and what they make of a small profile, worked out by hand.
    void throughToTheHistogram()
    {
        ModelView view(8);
        view.model.show({1, 0, 4, 8, 4, 0, 0, 3});
        view.SetPlotMode(RVXScopePlotView::HistogramMode);
        RVXStatisticsSetupPage page;
        page.addPlotView(&view);
        int lines = 0;
        const auto results = [&](RVXScopePlotView::HistogramItemTypes type) {
            view.settle();
            QStringList texts;
            for (const auto *item : view.histogramItems(type)) {
                const QString message = item->statusMessage();
                texts << (message.isEmpty() ? QString::number(item->position(), 'f', 2) : message);
                lines = item->label().count('\n');
            }
            return texts.join(' ');
        };
        const auto cog = RVXScopePlotView::CenterOfGravityItem;
        const auto fit = RVXScopePlotView::RegressionItem;
        toggleGroup(page, "CoGCBox");
        toggleGroup(page, "regressionCBox");
        type(page, "CoGThresholdEdit", "30");
        QCOMPARE(results(cog), QString("4.63")); // 88 / 19, not the 1
        page.set_peaks(2);
        QCOMPARE(results(cog), QString("3.67 6.29")); // 44 / 12 and 44 / 7
        page.set_peaks(1);
        QCOMPARE(results(fit), QString("4.00")); // 4, 8, 4 are symmetric
        type(page, "sumthreshold", "21");
        QCOMPARE(results(fit), QString("Signal below threshold."));
        const int brief = lines;
        toggleGroup(page, "fullStatsCBox");
        results(fit);
        QCOMPARE(lines, brief + 5);
    }

    void keyboard()
    {
        RVXStatisticsSetupPage page;
        for (const char *name : {"CoGCBox", "regressionCBox", "fullStatsCBox"})
            toggleGroup(page, name);
        page.show();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        child<QWidget>(page, "peaksEdit")->setFocus();
        QStringList visited;
        for (int i = 0; i < 12; ++i) {
            visited << page.focusWidget()->objectName();
            QTest::keyClick(page.focusWidget(), Qt::Key_Tab);
        }
        // Tab moves to the radio button that is on; the arrow keys reach the other one.
        QCOMPARE(
            visited.join(' '),
            QString(
                "peaksEdit CoGCBox CoGThresholdRadio CoGThresholdEdit CoGWindowEdit regressionCBox "
                "RegressionThresholdEdit RegressionWindowEdit peakthreshold sumthreshold "
                "fullStatsCBox "
                "Chi2WindowEdit"));
    }

    void translation()
    {
        RVXStatisticsSetupPage page, untitled;
        page.setWindowTitle("the host's");
        page.set_peaks(4);
        const BracketTranslator translator;
        QCOMPARE(child<QGroupBox>(page, "CoGCBox")->title(), QString("<Center of Gravity>"));
        QCOMPARE(child<QAbstractButton>(page, "factoryResetPushButton")->text(),
                 QString("<factory reset>"));
        QCOMPARE(child<QComboBox>(page, "peaksEdit")->currentText(), QString("4"));
        QCOMPARE(page.windowTitle(), QString("the host's"));
        QCOMPARE(untitled.windowTitle(), QString("<Data Analysis>"));
    }

    void nothingIsClipped()
    {
        RVXStatisticsSetupPage page;
        page.resize(1, 1);
        page.show();
        for (QWidget *widget : page.findChildren<QWidget *>()) {
            if (!widget->isVisible() || widget->objectName().startsWith("qt_"))
                continue;
            const QSize needed = widget->minimumSizeHint();
            QVERIFY2(widget->width() >= needed.width() && widget->height() >= needed.height(),
                     qPrintable(widget->objectName()));
        }
        QVERIFY(child<QSpinBox>(page, "CoGThresholdEdit")->font().pointSize() == 13);
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXStatisticsSetupPage)
#include "tst_RVXStatisticsSetupPage.moc"
