// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/proxies/RVXZeroingProxyModel.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/Mouse.h"
#include "tests/support/PaintCounter.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using View = RVXScopePlotView;

namespace {

//! A view that a user moves in, while rows come in and the oldest leave.
class WalkedView : public ModelView
{
public:
    explicit WalkedView(int channels = 1, int rows = 1000, int capacity = 1000)
        : ModelView(channels, rows, capacity)
    {
        setInteractive(true);
        settle();
    }

    QWidget *canvas() { return qwtPlot()->canvas(); }
    void wheel(double xValue, double yValue, int angle, Qt::KeyboardModifiers modifiers = {})
    {
        turnWheel(canvas(), at(xValue, yValue), angle, modifiers);
        settle();
    }
    //! Presses at a place of the canvas and releases at another, with moves in between.
    void drag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mousePress(canvas(), Qt::LeftButton, modifiers, from);
        for (int i = 1; i <= 4; ++i)
            moveMouse(canvas(), from + (to - from) * i / 4, Qt::LeftButton, modifiers);
        QTest::mouseRelease(canvas(), Qt::LeftButton, modifiers, to);
        settle();
    }
    void hover(double xValue, double yValue)
    {
        moveMouse(canvas(), at(xValue, yValue));
        settle();
    }
    //! Returns the text of the mark of a held view; empty while it is hidden.
    QString mark()
    {
        settle();
        auto *frame = canvas()->findChild<QFrame *>("heldMark");
        return frame && frame->isVisible() ? frame->findChild<QLabel *>()->text() : QString();
    }
    void clickLive()
    {
        QTest::mouseClick(canvas()->findChild<QToolButton *>("liveButton"), Qt::LeftButton);
    }
    //! Returns the times of the first and the last drawn sample.
    QString drawn()
    {
        const QList<QwtPlotCurve *> shown = curves();
        if (shown.isEmpty())
            return QString();
        const int last = int(shown[0]->dataSize()) - 1;
        return QString("%1..%2").arg(shown[0]->sample(0).x()).arg(shown[0]->sample(last).x());
    }
};

//! Returns whether an interval is the expected one, but for the rounding of a pixel.
bool isNear(const QwtInterval &x, double left, double right, double tolerance)
{
    return qAbs(x.minValue() - left) <= tolerance && qAbs(x.maxValue() - right) <= tolerance;
}

} // namespace

class tst_ScopeNavigation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The chart of a host that asked for nothing does not change.
    void aFreshViewStaysAsItIs()
    {
        ModelView view(1, 300);
        QCOMPARE(view.isInteractive() || view.isCursorEnabled() || view.hasMarkerDetails(), false);
        QCOMPARE(view.timeAxis(), View::Seconds);
        const QString before = view.xText();
        turnWheel(view.qwtPlot()->canvas(), QPoint(100, 100), 120);
        for (Qt::Key key : {Qt::Key_Plus, Qt::Key_Home, Qt::Key_Left, Qt::Key_Up})
            view.press(key);
        QCOMPARE(view.xText(), before);
        QVERIFY(!view.isHeld());
        QVERIFY(view.qwtPlot()->canvas()->children().size() <= 2); // the pickers
    }

    void theWheelZoomsAboutThePointer()
    {
        WalkedView view;
        const QwtInterval before = view.x();
        view.wheel(900, 1, 120);
        QVERIFY(isNear(view.x(), 900 - 0.8 * (900 - before.minValue()),
                       900 + 0.8 * (before.maxValue() - 900), 0.4));
        const QwtInterval y = view.y();
        view.wheel(900, 1, 240, Qt::ControlModifier);
        QVERIFY(isNear(view.y(), 1 - 0.64 * (1 - y.minValue()), 1 + 0.64 * (y.maxValue() - 1),
                       0.01 * y.width()));
        QVERIFY(view.isHeld());
        view.press(Qt::Key_Backspace); // turns of the wheel in one direction are one step
        QCOMPARE(view.y().width(), y.width());
        QVERIFY(!view.isHeld());
        QCOMPARE(view.x(), before);
    }

    // The samples of the picture stay in it while the buffer rolls on, until they have left the buffer.
    void aHeldPictureStandsStillWhileRowsComeAndLeave()
    {
        WalkedView view;
        QSignalSpy held(&view, &View::heldChanged);
        view.zoomToX(800.5, 900.5);
        const QImage before = view.ScopeTestView::canvas();
        QCOMPARE(view.drawn(), QString("800..901"));
        view.stream(500);
        QCOMPARE(view.xText(), QString("800.5..900.5"));
        QCOMPARE(view.drawn(), QString("800..901"));
        QCOMPARE(view.ScopeTestView::canvas(), before);
        QCOMPARE(view.mark(), QString("Held"));
        view.stream(350); // the buffer begins at 850 now
        QCOMPARE(view.drawn(), QString("850..901"));
        QCOMPARE(view.mark(), QString("Held: the readings begin at 850.0 s"));
        view.stream(300);
        QVERIFY(view.curves().isEmpty());
        QCOMPARE(view.xText(), QString("800.5..900.5"));
        view.clickLive();
        QCOMPARE(view.x().maxValue(), 2149.0);
        QCOMPARE(view.mark(), QString());
        QTRY_COMPARE(held.size(), 2);
        QCOMPARE(held[0][0].toBool(), true);
        QCOMPARE(held[1][0].toBool(), false);
    }

    // The time of an instrument begins again, with the same stamps as the picture has.
    void aHeldPictureKeepsToItsAcquisition()
    {
        WalkedView view(1, 400, 5000);
        view.zoomToX(100.5, 200.5);
        const QImage before = view.ScopeTestView::canvas();
        QVector<ScopeTestModel::Row> again;
        for (int i = 0; i < 300; ++i)
            again << ScopeTestModel::Row{double(i), -5.0};
        view.model.append(again);
        QCOMPARE(view.ScopeTestView::canvas(), before);
        QCOMPARE(view.drawn(), QString("100..201"));
        view.press(Qt::Key_End);
        QCOMPARE(view.x().maxValue(), 299.0);
    }

    void aDragPansAndAClickPlacesAMarker()
    {
        WalkedView view;
        view.useMarkers();
        const QwtInterval before = view.x();
        const QPoint middle = view.canvas()->rect().center();
        view.drag(middle, middle + QPoint(2, 1)); // less than a drag
        QVERIFY(view.hasMarker(0) && !view.isHeld());
        const double marked = view.markerX(0);
        const double seconds = before.width() / view.canvas()->width();
        view.drag(middle, middle + QPoint(100, 0));
        QVERIFY(view.isHeld());
        QVERIFY(isNear(view.x(), before.minValue() - 100 * seconds,
                       before.maxValue() - 100 * seconds, 2 * seconds));
        QCOMPARE(view.markerX(0), marked);
        view.click(Qt::RightButton, 800, 1);
        QCOMPARE(view.markerX(1), 800.0);
        view.press(Qt::Key_Backspace);
        QCOMPARE(view.x(), before);
    }

    void aDoubleClickGoesBackAndMovesNoMarker()
    {
        WalkedView view;
        view.useMarkers();
        view.click(Qt::LeftButton, 900, 1);
        view.zoomTo(QRectF(880, 0, 40, 2));
        QCOMPARE(view.yText(), QString("0..2"));
        const QPoint place = view.at(890, 1);
        QTest::mouseClick(view.canvas(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(view.canvas(), Qt::LeftButton, {}, place);
        QVERIFY(!view.isHeld());
        QCOMPARE(view.yText(), QString("-10..10"));
        QCOMPARE(view.markerX(0), 900.0);
        view.undoZoom();
        QCOMPARE(view.xText(), QString("880..920"));
    }

    void shiftDragZoomsToARectangle_data()
    {
        tableFrom(R"(| int width | int height | bool x | bool y
            a rectangle | 200 | 100 | true | true
            a flat one | 200 | 2 | true | false
            a narrow one | 2 | 100 | false | true
            a click | 1 | 1 | false | false
        )");
    }
    void shiftDragZoomsToARectangle()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(bool, x);
        QFETCH(bool, y);
        WalkedView view;
        view.useMarkers();
        const QwtInterval beforeX = view.x();
        const QwtInterval beforeY = view.y();
        const QSizeF canvas = view.canvas()->size();
        view.drag(QPoint(300, 150), QPoint(300 + width, 150 + height), Qt::ShiftModifier);
        const double partX = x ? width / canvas.width() : 1.0;
        const double partY = y ? height / canvas.height() : 1.0;
        QVERIFY(qAbs(view.x().width() / beforeX.width() - partX) < 0.01);
        QVERIFY(qAbs(view.y().width() / beforeY.width() - partY) < 0.01);
        QCOMPARE(view.isHeld(), x);
        QVERIFY(!view.hasMarker(0));
        QCOMPARE(view.mark(), QString(x ? "Held" : y ? "Y zoomed" : ""));
    }

    // A drag that goes on over other samples does not take the picture back to where it was.
    void otherSamplesEndADrag()
    {
        WalkedView view;
        const QPoint from = view.at(500, 1);
        const auto moveTo = [&](int dx) {
            moveMouse(view.canvas(), from + QPoint(dx, 0), Qt::LeftButton);
        };
        QTest::mousePress(view.canvas(), Qt::LeftButton, Qt::NoModifier, from);
        moveTo(50);
        QVERIFY(view.isHeld());
        view.model.Clear();
        moveTo(60);
        QVERIFY(!view.isHeld());
        QTest::mouseRelease(view.canvas(), Qt::LeftButton, Qt::NoModifier, from);
        QVERIFY(!view.isHeld());
    }

    void escapeEndsADrag()
    {
        WalkedView view;
        const QwtInterval before = view.x();
        QTest::mousePress(view.canvas(), Qt::LeftButton, {}, QPoint(300, 100));
        moveMouse(view.canvas(), QPoint(400, 100), Qt::LeftButton);
        QVERIFY(view.isHeld());
        view.press(Qt::Key_Escape);
        QVERIFY(!view.isHeld());
        QCOMPARE(view.x(), before);
        QTest::mouseRelease(view.canvas(), Qt::LeftButton, {}, QPoint(400, 100));
        QCOMPARE(view.x(), before);
    }

    void keysMoveThePicture()
    {
        WalkedView view; // shows 744..999 of 0..999
        view.press(Qt::Key_Home);
        QVERIFY(isNear(view.x(), 0, 255, 0.01));
        view.press(Qt::Key_Plus);
        QVERIFY(isNear(view.x(), 127.5 - 89.25, 127.5 + 89.25, 0.5));
        view.press(Qt::Key_Minus);
        QVERIFY(isNear(view.x(), 0, 255, 0.5));
        view.press(Qt::Key_Right);
        QVERIFY(isNear(view.x(), 25.5, 280.5, 0.5));
        view.press(Qt::Key_PageDown);
        QVERIFY(isNear(view.x(), 255, 510, 0.5));
        view.press(Qt::Key_Left, Qt::ShiftModifier);
        QVERIFY(isNear(view.x(), 127.5, 382.5, 0.5));
        const QwtInterval y = view.y();
        view.press(Qt::Key_Up);
        QVERIFY(view.y().minValue() > y.minValue());
        view.press(Qt::Key_End);
        QVERIFY(!view.isHeld());
        QCOMPARE(view.x().maxValue(), 999.0);
        QCOMPARE(view.y(), y);
    }

    // The arrows belong to a marker that was placed, until Escape gives them back to the picture.
    void arrowsMoveAMarkerBeforeThePicture()
    {
        WalkedView view;
        view.useMarkers();
        view.press(Qt::Key_1);
        const double marked = view.markerX(0);
        view.press(Qt::Key_Left);
        QCOMPARE(view.markerX(0), marked - 1);
        QVERIFY(!view.isHeld());
        view.press(Qt::Key_Escape);
        view.press(Qt::Key_Left);
        QCOMPARE(view.markerX(0), marked - 1);
        QVERIFY(view.isHeld());
        view.press(Qt::Key_2);
        QVERIFY(view.hasMarker(1));
        view.press(Qt::Key_Delete);
        QVERIFY(!view.hasMarker(1));
    }

    void aPinchZooms()
    {
        WalkedView view;
        const double before = view.x().width();
        QPinchGesture pinch;
        pinch.setScaleFactor(2.0);
        pinch.setChangeFlags(QPinchGesture::ScaleFactorChanged);
        pinch.setCenterPoint(view.canvas()->mapToGlobal(view.at(900, 1)));
        QGestureEvent event({&pinch});
        QApplication::sendEvent(view.canvas(), &event);
        QVERIFY(qAbs(view.x().width() - 0.5 * before) < 0.5);
        QVERIFY(view.x().contains(900));
    }

    // A user stays near the samples, and never zooms to where doubles have no room.
    void zoomingHasItsEnds()
    {
        WalkedView view;
        for (int i = 0; i < 60; ++i)
            view.wheel(900, 1, -240);
        QVERIFY(view.x().width() < 2.1 * 999);
        for (int i = 0; i < 30; ++i)
            view.press(Qt::Key_PageUp);
        QVERIFY(view.x().maxValue() > 0.0);
        view.goLive();
        for (int i = 0; i < 200; ++i) {
            view.wheel(900.25, 1, 480);
            view.wheel(900.25, 1, 480, Qt::ControlModifier);
        }
        QVERIFY(view.x().width() > 0 && view.x().width() < 1e-6 && view.y().width() > 0);
        for (const QRectF &area : {QRectF(), QRectF(0, 0, qInf(), 1), QRectF(qQNaN(), 0, 1, 0)}) {
            const QString before = view.xText();
            view.zoomTo(area);
            QCOMPARE(view.xText(), before);
        }
        for (int i = 0; i < 100 && view.undoZoom(); ++i)
            QVERIFY(i < 40); // the stack is bounded
    }

    void theScrollBarHoldsThePicture()
    {
        WalkedView view;
        QScrollBar *bar = view.horizontalScrollBar();
        bar->setValue(bar->maximum() / 2);
        const QString before = view.xText();
        QVERIFY(view.isHeld());
        view.stream(200);
        QCOMPARE(view.xText(), before);
        bar->setValue(bar->maximum());
        view.settle();
        QVERIFY(!view.isHeld());
        QCOMPARE(view.x().maxValue(), 1199.0);
    }

    // The control that sets the span is not dead while the picture is held, and keeps what is looked at.
    void aSpanThatIsSetAppliesToAHeldPicture()
    {
        WalkedView view;
        view.zoomToX(400, 500);
        view.setTimeSpan(20.0);
        QCOMPARE(view.xText(), QString("440..460"));
        QVERIFY(view.isHeld());
        view.setTimeSpan(qInf());
        QVERIFY(!view.isHeld());
        QCOMPARE(view.xText(), QString("0..999"));
        view.press(Qt::Key_Backspace);
        QCOMPARE(view.xText(), QString("440..460"));
    }

    void aSweepIsHeld()
    {
        WalkedView view(1, 300, 2000);
        view.showMode(View::ScopeMode);
        QCOMPARE(view.xText(), QString("0..255"));
        view.wheel(100, 1, 120);
        const QString zoomed = view.xText();
        view.stream(600);
        QCOMPARE(view.xText(), zoomed);
        QCOMPARE(view.drawn(), QString("0..255"));
        view.press(Qt::Key_End);
        QTRY_COMPARE(view.xText(), QString("512..767"));
        view.showMode(View::StripMode);
        QVERIFY(!view.isHeld());
    }

    void theHistogramZoomsItsHeight()
    {
        WalkedView view(4, 10);
        view.showMode(View::HistogramMode);
        const QString channels = view.xText();
        const double before = view.y().width();
        view.wheel(2, 2, 120);
        QCOMPARE(view.xText(), channels);
        QVERIFY(qAbs(view.y().width() - 0.8 * before) < 0.01 * before);
        view.stream(50);
        QVERIFY(qAbs(view.y().width() - 0.8 * before) < 0.01 * before);
        QVERIFY(!view.isHeld());
        QCOMPARE(view.mark(), QString("Y zoomed"));
        view.SetYScaleMode(View::AutoScale); // a choice of the scale ends the zoom
        QCOMPARE(view.y().width(), before);
        QCOMPARE(view.mark(), QString());
    }

    void otherSamplesEndTheHold()
    {
        WalkedView view;
        view.zoomToX(800, 900);
        view.model.Clear();
        QVERIFY(!view.isHeld());
        view.append(300);
        view.zoomToX(1100, 1200);
        ScopeTestModel other(2);
        other.appendRows(50, 1.0, level);
        view.setModel(&other);
        QVERIFY(!view.isHeld());
        QVERIFY(!view.undoZoom());
        view.setModel(nullptr);
        view.zoomToX(1, 2);
        view.press(Qt::Key_Plus);
        QVERIFY(!view.isHeld());
    }

    // A window of one instrument says nothing about another, nor one of a sweep about the next of other channels.
    void whatTheWindowShowedMayGo()
    {
        ScopeTestModel first(1);
        first.appendRows(300, 1.0, level);
        ScopeTestModel second(1);
        second.appendRows(50, 1.0, level);
        RVXZeroingProxyModel proxy;
        proxy.setSourceModel(&first);
        WalkedView view;
        view.setModel(&proxy);
        view.zoomToX(200, 250);
        QVERIFY(view.isHeld());
        proxy.setSourceModel(&second);
        QVERIFY(!view.isHeld());

        auto gone = std::make_unique<ScopeTestModel>(1);
        gone->appendRows(300, 1.0, level);
        view.setModel(gone.get());
        view.zoomToX(200, 250);
        gone.reset();
        QVERIFY(!view.isHeld());
        QCOMPARE(view.mark(), QString());

        view.setModel(&view.model);
        view.model.pointsHint = 100;
        view.showMode(View::ScopeMode);
        view.append(200);
        view.settle();
        const double left = view.x().minValue();
        view.zoomToX(left + 10, left + 20);
        QVERIFY(view.isHeld());
        view.model.setChannels(2);
        QVERIFY(!view.isHeld());
    }

    // A range that begins below 0 has no place on a logarithmic axis.
    void anotherKindOfAxisEndsTheZoomOfY()
    {
        WalkedView view;
        view.zoomToX(900, 950);
        view.zoomToY(-5, -1);
        view.setLogarithmic(true);
        QVERIFY(view.y().maxValue() > 1.0);
        QVERIFY(view.isHeld());
    }

    // What a frame takes from the model is what is visible, wherever the window is in the buffer.
    void aHeldFrameTakesOnlyWhatIsVisible()
    {
        WalkedView view(1, 20000, 20000);
        view.zoomToX(5000.5, 5100.5);
        QCOMPARE(view.curves()[0]->dataSize(), size_t(102));
        view.stream(100);
        QCOMPARE(view.curves()[0]->dataSize(), size_t(102));
        QVERIFY(view.curves()[0]->testPaintAttribute(QwtPlotCurve::ClipPolygons));
    }

    void aSlotMayDeleteTheView()
    {
        auto *view = new WalkedView;
        QPointer<WalkedView> alive(view);
        connect(view, &View::heldChanged, [view] { delete view; });
        QTest::keyClick(view, Qt::Key_Home);
        QTRY_VERIFY(alive.isNull());
    }

    void theCursorReadsTheNearestSample()
    {
        WalkedView view(3);
        view.model.names = QStringList{"left", "right", "sum"};
        view.setCursorEnabled(true);
        view.check(2, false);
        const auto read = [&] {
            view.settle();
            auto *cursor = view.canvas()->findChild<QWidget *>("hoverCursor");
            QString text;
            const bool isThere = cursor && cursor->isVisible()
                && QMetaObject::invokeMethod(cursor, "text", Q_RETURN_ARG(QString, text));
            return isThere ? text.replace('\n', ", ") : QString();
        };
        QCOMPARE(read(), QString());
        view.hover(900.3, 1.0);
        QCOMPARE(read(), QString("900.0 s, left: 1 A, sum: 3 A"));
        view.zoomToX(880, 920);
        view.hover(900.6, 1.0);
        QCOMPARE(read(), QString("901.00 s, left: 1 A, sum: 3 A"));
        // A marker stands on the sample that is read, also on one before the pointer; without the cursor on the one behind.
        view.useMarkers();
        for (const bool reads : {true, false, true}) {
            view.setCursorEnabled(reads);
            view.click(Qt::LeftButton, 900.3, 1.0);
            view.settle();
            QCOMPARE(view.markerX(0), reads ? 900.0 : 901.0);
        }
        // Between two samples, the nearest one lies outside of the picture, here a few pixels beside the pointer.
        view.zoomToX(900.003, 900.303);
        view.hover(900.004, 1.0);
        QCOMPARE(read(), QString());
        view.zoomToX(900.697, 900.997);
        view.hover(900.996, 1.0);
        QCOMPARE(read(), QString());
        view.zoomToX(880, 920);
        view.hover(900.6, 1.0);
        PaintCounter paints(view.canvas());
        view.settle();
        QCOMPARE(paints.count, 0); // a cursor that rests leaves the plot alone
        view.stream(500);
        QCOMPARE(read(), QString("901.00 s, left: 1 A, sum: 3 A"));
        view.goLive(); // the pointer rests, the chart moves on below it
        QTRY_VERIFY(read().endsWith(" s, left: 1 A, sum: 3 A") && !read().startsWith("901.00"));
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(view.canvas(), &leave);
        QCOMPARE(read(), QString());
        view.showMode(View::HistogramMode);
        view.hover(3.2, 1.0);
        QVERIFY(read().endsWith(", sum: 3 A"));
        view.setCursorEnabled(false);
        QCOMPARE(read(), QString());
    }

    //! Each column is as wide as the values of its channels, which are aligned at its right edge.
    void theCursorHasColumns()
    {
        WalkedView view(12);
        view.resize(600, 220);
        view.setCursorEnabled(true);
        view.hover(900.0, 1.0);
        auto *cursor = view.canvas()->findChild<QWidget *>("hoverCursor");
        QVERIFY(cursor && cursor->isVisible());
        QVERIFY(cursor->height() < 12 * cursor->fontMetrics().lineSpacing());
        const QImage box = cursor->grab().toImage();
        const auto inkless = [&](int x) {
            for (int y = 0; y < box.height(); ++y)
                if (box.pixel(x, y) != box.pixel(0, 0))
                    return false;
            return true;
        };
        int right = box.width() - 1;
        while (right > 0 && inkless(right))
            --right;
        const double margin = (box.width() - 1 - right) / box.devicePixelRatio();
        QVERIFY2(margin >= 4.0 && margin <= 14.0, qPrintable(QString::number(margin)));
    }
};

CORVALE_QT_TEST_MAIN(tst_ScopeNavigation)
#include "tst_ScopeNavigation.moc"
