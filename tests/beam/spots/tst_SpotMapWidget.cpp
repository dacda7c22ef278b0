// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/SpotMapView.h"
#include "corvale_qt/beam/spots/SpotMapWidget.h"
#include "tests/beam/spots/SpotTable.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestMain.h"

#include <qwt_scale_draw.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>

using namespace Corvale_Qt;

namespace {

//! Returns where a scale shows a value, in the coordinates of the scale's parent.
double endOnScale(const QwtScaleWidget *axis, double value)
{
    const double along = axis->scaleDraw()->scaleMap().transform(value);
    const bool horizontal = axis->scaleDraw()->orientation() == Qt::Horizontal;
    return along + (horizontal ? axis->x() : axis->y());
}

} // namespace

class tst_SpotMapWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scalesLineUpWithThePicture_data()
    {
        columns<QSize>("size");
        row("as it comes", QSize(420, 480));
        row("wide", QSize(900, 400));
        row("high", QSize(333, 801));
        row("small", QSize(10, 10));
    }

    void scalesLineUpWithThePicture()
    {
        QFETCH(QSize, size);
        SpotTable table("-30 -1234 10 3; 30 1234 10 3");
        SpotMapWidget widget;
        widget.spotMapView()->setModel(&table);
        widget.resize(size);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        const QRect map = widget.spotMapView()->geometry();
        const auto *x = widget.findChild<QwtScaleWidget *>("xAxis");
        const auto *y = widget.findChild<QwtScaleWidget *>("yAxis");
        QCOMPARE(widget.spotMapView()->viewport()->size(), map.size());
        QVERIFY(map.width() == map.height() && map.width() > 50);
        const auto endsMatch = [&] {
            const QRectF shown = widget.spotMapView()->bounds();
            const QRectF place = widget.spotMapView()->geometry();
            return qAbs(endOnScale(x, shown.left()) - place.left()) <= 1.0
                && qAbs(endOnScale(x, shown.right()) - place.right()) <= 1.0
                && qAbs(endOnScale(y, shown.top()) - place.bottom()) <= 1.0
                && qAbs(endOnScale(y, shown.bottom()) - place.top()) <= 1.0;
        };
        QVERIFY(endsMatch());
        // The scales fit into the area and touch the map.
        const QRect area = widget.findChild<QWidget *>("mapArea")->rect();
        QVERIFY(area.contains(x->geometry()) && area.contains(y->geometry()));
        QCOMPARE(x->y(), map.top() + map.height());
        QCOMPARE(y->x() + y->width(), map.left());
        // A title that is shorter than its scale takes one line.
        QCOMPARE(x->height(), x->dimForLength(x->width(), x->font()));
        QCOMPARE(y->width(), y->dimForLength(y->height(), y->font()));
        table.append("-123456 0 1 3"); // wider labels get more room
        QVERIFY(endsMatch() && area.contains(y->geometry()));
    }

    //! The legend's ends are the doses of the data, in their unit.
    void aLegendSaysWhatTheColoursMean()
    {
        SpotTable delivered("0 0 6 3; 9 0 3 3"), planned("0 0 12 3; 9 0 3 3");
        SpotMapWidget widget, target;
        widget.spotMapView()->setModel(&delivered);
        target.spotMapView()->setModel(&planned);
        QVERIFY(!widget.isLegendVisible());
        widget.setLegendVisible(true);
        widget.setDoseUnit("MU");
        QCOMPARE(widget.findChild<QLabel *>("dose_label")->text(), QString("dose(MU):"));
        auto *legend = widget.findChild<QWidget *>("legend");
        const auto ends = [legend] {
            return legend->accessibleName().replace(QChar(QChar::Nbsp), ' ');
        };
        QCOMPARE(ends(), QString("0 MU | one spot: 6 MU"));
        widget.setDiffTarget(&target);
        QCOMPARE(ends(), QString("0 MU | one spot: 6 MU"));
        widget.spotMapView()->setDisplayMode(SpotMapView::Difference);
        QCOMPARE(ends(), QString("one spot below the target: -10 MU | above: +10 MU"));
        delivered.append("0 9 24 3");
        QTRY_VERIFY(ends().endsWith("+20 MU"));
        // Pixels: the bar is red on the left, dark in the middle and blue on the right.
        widget.resize(700, 500);
        widget.show();
        const QImage bar = legend->grab().toImage();
        const int middle = bar.height() / 2;
        int reddest = 0, bluest = 0;
        for (int x = 0; x < bar.width(); ++x) {
            const QColor color = bar.pixelColor(x, middle);
            if (color.red() > 200 && color.blue() < 60)
                reddest = qMax(reddest, bar.width() - x);
            if (color.blue() > 200 && color.red() < 60)
                bluest = qMax(bluest, x);
        }
        QVERIFY(reddest > bar.width() / 2 && bluest > bar.width() / 2);
        // Over the map, differences are half as bright, and the doses have a bar as well.
        const int height = legend->sizeHint().height();
        widget.spotMapView()->setDisplayMode(SpotMapView::DifferenceOverlay);
        QCOMPARE(legend->sizeHint().height(), 2 * height);
        QVERIFY(ends().startsWith("0 MU | one spot: 24 MU; one spot below"));
        QTRY_COMPARE(legend->height(), 2 * height);
        const QImage bars = legend->grab().toImage();
        const auto reds = [&](int from, int to) {
            return countPixels(bars.copy(0, bars.height() * 3 / 4, bars.width(), 1),
                               [=](const QColor &color) {
                                   return color.red() >= from && color.red() < to
                                       && color.blue() + color.green() < 20;
                               });
        };
        QVERIFY(reds(100, 140) > 0 && reds(140, 256) == 0);
    }

    void aMapWithoutSpotsHasNoNumbers()
    {
        SpotMapWidget widget;
        widget.resize(400, 400);
        widget.show();
        const auto *x = widget.findChild<QwtScaleWidget *>("xAxis");
        QVERIFY(x->scaleDraw()->scaleDiv().ticks(QwtScaleDiv::MajorTick).isEmpty());
    }

    void buttonsChooseTheMode()
    {
        SpotMapWidget widget;
        SpotMapWidget target;
        widget.resize(500, 500);
        widget.show();
        auto *stack = widget.findChild<QStackedWidget *>("buttonStack");
        QCOMPARE(stack->currentWidget()->objectName(), QString("nobuttons"));
        widget.setDiffTarget(&target);
        QCOMPARE(stack->currentWidget()->objectName(), QString("buttons"));

        const QStringList names{"DataButton", "DifferenceButton", "DiffOverlayButton"};
        for (const int mode : {2, 1, 0}) {
            auto *button = widget.findChild<QPushButton *>(names[mode]);
            QTest::mouseClick(button, Qt::LeftButton);
            QCOMPARE(int(widget.spotMapView()->displayMode()), mode);
        }
        // The chosen one stands out in a dark palette, too, also when that comes later.
        QPalette dark(QColor(48, 50, 54));
        dark.setColor(QPalette::Highlight, QColor(86, 160, 235));
        widget.setPalette(dark);
        const auto ground = [&](int mode) {
            return widget.findChild<QPushButton *>(names[mode])->palette().color(QPalette::Button);
        };
        QVERIFY(ground(0).blue() > 120);
        QCOMPARE(ground(1), ground(2));
        QVERIFY(ground(1).blue() < 80);
        // The buttons follow the mode.
        widget.spotMapView()->setDisplayMode(SpotMapView::DifferenceOverlay);
        QVERIFY(widget.findChild<QPushButton *>("DiffOverlayButton")->isChecked());
        widget.setDiffTarget(nullptr);
        QCOMPARE(stack->currentWidget()->objectName(), QString("nobuttons"));
        QVERIFY(widget.findChild<QPushButton *>("DataButton")->isChecked());
    }

    void pagesAreLayersAndOtherKeysPassOn()
    {
        SpotTable table("0 0 1 1; 5 0 1 1");
        QWidget host;
        SpotMapWidget widget(&host);
        widget.spotMapView()->setModel(&table);
        QSignalSpy layers(&widget, &SpotMapWidget::layerChange);
        // The keys also work in child widgets, which have the focus.
        for (QWidget *receiver :
             {static_cast<QWidget *>(&widget), static_cast<QWidget *>(widget.spotMapView()),
              static_cast<QWidget *>(widget.findChild<QPushButton *>("DataButton"))}) {
            layers.clear();
            QTest::keyClick(receiver, Qt::Key_PageUp);
            QTest::keyClick(receiver, Qt::Key_PageDown);
            QTest::keyClick(receiver, Qt::Key_F5);
            QCOMPARE(layers, (QList<QVariantList>{{1}, {-1}}));
        }
        QKeyEvent other(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
        other.accept();
        QCoreApplication::sendEvent(&widget, &other);
        QVERIFY(!other.isAccepted());
    }

    void textsAreShownAsTheyAre()
    {
        SpotMapWidget widget;
        widget.setTitle("<b>Field 1</b>");
        widget.setXvalue("1.5");
        widget.setYvalue("-2.5");
        widget.setDoseValue("<i>7</i>");
        QStringList texts;
        for (const char *name : {"titleLabel", "x_value", "y_value", "dose_label", "dose_value"}) {
            const auto *label = widget.findChild<QLabel *>(name);
            texts << label->text();
            if (qstrcmp(name, "dose_label") != 0)
                QCOMPARE(label->textFormat(), Qt::PlainText);
        }
        QCOMPARE(texts.join('|'), QString("<b>Field 1</b>|1.5|-2.5|dose(Gp):|<i>7</i>"));
    }
};

CORVALE_QT_TEST_MAIN(tst_SpotMapWidget)
#include "tst_SpotMapWidget.moc"
