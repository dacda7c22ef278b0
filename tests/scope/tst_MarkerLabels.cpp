// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"
#include "tests/scope/ScopeTestView.h"
#include "tests/support/TestMain.h"
#include <corvale_qt/proxies/RVXLatestPlotDataProxyModel.h>

using namespace Corvale_Qt;
using View = RVXScopePlotView;

namespace {

//! Returns the rectangle around the two vertical lines of a label's frame; empty unless exactly two are found.
QRectF frameIn(const QImage &canvas)
{
    const QRgb color = RVXPlotColors::labelTextColor().rgb();
    const double ratio = canvas.devicePixelRatio();
    const double longerThanLetters = 40 * ratio;
    QRect frame;
    int lines = 0;
    int lastColumn = -2;
    for (int x = 0; x < canvas.width(); ++x) {
        int top = 0;
        for (int y = 0; y < canvas.height(); ++y) {
            if (canvas.pixel(x, y) == color)
                continue;
            if (y - top > longerThanLetters) {
                frame |= QRect(x, top, 1, y - top);
                lines += x > lastColumn + 1;
                lastColumn = x;
            }
            top = y + 1;
        }
    }
    return lines == 2 ? QRectF(frame.topLeft() / ratio, frame.size() / ratio) : QRectF();
}

} // namespace

class tst_MarkerLabels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void labelsFaceAwayFromEachOther()
    {
        ModelView view(1, 300);
        view.useMarkers();
        const auto sides = [&view] {
            QString text;
            for (int marker : {0, 1}) {
                const Qt::Alignment side = view.plotMarker(marker)->labelAlignment();
                text += side == (Qt::AlignLeft | Qt::AlignTop) ? "left "
                    : side == (Qt::AlignRight | Qt::AlignTop)  ? "right "
                                                               : "elsewhere ";
            }
            return text;
        };
        view.click(Qt::LeftButton, 120.0, 1.0);
        view.click(Qt::RightButton, 150.0, 1.0);
        QCOMPARE(sides(), QString("left right "));
        view.click(Qt::LeftButton, 180.0, 1.0);
        QCOMPARE(sides(), QString("right left "));
        view.click(Qt::LeftButton, 60.0, 1.0); // close to the left border
        QCOMPARE(sides(), QString("right right "));
    }

    void labelsCanBeRead_data()
    {
        columns<double, double, bool>("first", "second", "below");
        row("room for both", 100.0, 200.0, false);
        row("the second at the right border", 230.0, 290.0, false);
        row("both at the right border", 285.0, 290.0, true);
        row("both at the left border", 54.0, 50.0, true);
    }
    //! The frame of the selected label must be complete and must not cover the other label.
    void labelsCanBeRead()
    {
        ModelView view(1, 300);
        view.useMarkers();
        view.SelectPoint1(QPointF(cell<double>("first"), 1.0));
        view.SelectPoint2(QPointF(cell<double>("second"), 1.0));
        const QRectF frame = frameIn(view.canvas());
        const QSizeF size = view.plotMarker(1)->label().textSize();
        QVERIFY(qAbs(frame.width() - size.width()) <= 2.0);
        QVERIFY(qAbs(frame.height() - size.height()) <= 2.0);
        QTEST(frame.top() >= view.plotMarker(0)->label().textSize().height(), "below");
    }

    //! A label must disappear with its line instead of staying at the border of the canvas.
    void labelsStayWithTheirLines()
    {
        ModelView view(1, 300);
        view.useMarkers();
        view.click(Qt::LeftButton, 149.6, 1.0);
        view.click(Qt::RightButton, 99.6, 1.0);
        QVERIFY(view.markerText(1).contains("Period: 50"));
        view.append(70);
        QCOMPARE(view.markerText(1), QString());
        QVERIFY(view.markerText(0).contains("Channel 1"));
        view.append(70);
        QCOMPARE(view.markerText(0), QString());
        view.horizontalScrollBar()->setValue(0);
        QVERIFY(view.markerText(1).contains("Period: 50"));
    }

    void timesHaveEnoughDigits_data()
    {
        columns<double, double, QString>("start", "interval", "times");
        row("soon after the start", 0.0, 1.0, "2.000e+02 2.990e+02");
        row("a day later", 100000.0, 0.001, "100000.2 100000.299");
        row("with seconds since 1970", 1.7e9, 0.01, "1700000002 1700000002.99");
    }
    void timesHaveEnoughDigits()
    {
        QFETCH(double, start);
        QFETCH(double, interval);
        ModelView view(1);
        for (int i = 0; i < 300; ++i)
            view.model.append({{start + i * interval, 1.0}});
        view.useMarkers();
        view.SelectPoint1(QPointF(start + 200 * interval, 1.0));
        view.SelectPoint2(QPointF(start + 299 * interval, 1.0));
        const auto time = [&view](int marker) {
            return view.markerText(marker).section('\n', 0, 0).section(' ', 1);
        };
        QTEST(time(0) + ' ' + time(1), "times");
    }

    void signsStandInFront()
    {
        ModelView view(1);
        view.model.appendRows(300, 1.0, [](int, double) { return -5.0; });
        view.useMarkers();
        view.click(Qt::LeftButton, 149.6, -5.0);
        const QwtText label = view.plotMarker(0)->label();
        const auto picture = [&label](Qt::LayoutDirection direction) {
            QImage image(200, 60, QImage::Format_RGB32);
            image.fill(Qt::black);
            QPainter painter(&image);
            painter.setLayoutDirection(direction);
            label.draw(&painter, QRectF(QPointF(0, 0), label.textSize()));
            return image;
        };
        QVERIFY(label.text().endsWith("-5"));
        QCOMPARE(picture(Qt::RightToLeft), picture(Qt::LeftToRight));
    }

    void namesWithPlaceMarkersInThem()
    {
        ModelView view(1, 300);
        view.model.names = QStringList{"%2 <b>%4</b> %1"};
        view.useMarkers();
        view.click(Qt::LeftButton, 99.6, 1.0);
        view.click(Qt::RightButton, 199.6, 1.0);
        QCOMPARE(view.markerText(0), QString("s: 1.000e+02\nChannel %2 <b>%4</b> %1\n1"));
        QVERIFY(view.markerText(1).startsWith(
            "s: 2.000e+02\nChannel %2 <b>%4</b> %1\n1\n   Period: 100\n"));
    }

    void labelsOfMarkersHaveThePrefix()
    {
        ModelView view(1);
        // A noise of about 1 nA.
        view.model.appendRows(64, 0.001, [](int, double time) {
            return 1.8634e-7 + 1e-9 * (qRound(time * 1000) * 7 % 5 - 2);
        });
        view.enablePlotMarker(true);
        view.setSiPrefix(true);
        view.click(Qt::LeftButton, 0.02, 1.86e-7);
        view.click(Qt::RightButton, 0.06, 1.86e-7);
        QVERIFY2(view.markerText(0).endsWith(" nA"), qPrintable(view.markerText(0)));
        const QString text = view.markerText(1);
        for (const char *line :
             {"Period: 40.0000 ms", "Frequency: 25.0000 Hz", "Mean: 186.3", " nA"})
            QVERIFY2(text.contains(line), qPrintable(text));
        QVERIFY2(!text.contains("e-"), qPrintable(text));
    }

    //! A prefix outlasts readings a little below it, and the numbers between markers keep the one of the readings.
    void numbersBetweenMarkersHaveThePrefixOfTheReadings()
    {
        ModelView view(1);
        RVXLatestPlotDataProxyModel table;
        table.setSourceModel(&view.model);
        table.setSiPrefix(true);
        const auto newest = [&table] { return table.index(0, 1).data().toString(); };
        view.model.appendRows(1, 0.001, [](int, double) { return 1.05e-6; });
        QVERIFY2(newest().endsWith(" \u00b5A"), qPrintable(newest()));
        view.model.appendRows(64, 0.001, [](int, double time) {
            return 9e-7 + 1e-9 * (qRound(time * 1000) * 7 % 5 - 2);
        });
        QVERIFY2(newest().endsWith(" \u00b5A"), qPrintable(newest()));
        view.enablePlotMarker(true);
        view.setSiPrefix(true);
        view.click(Qt::LeftButton, 0.02, 9e-7);
        view.click(Qt::RightButton, 0.06, 9e-7);
        const QStringList lines = view.markerText(1).split('\n');
        for (const char *number : {"Mean: ", "RMS: "})
            QCOMPARE(lines.filter(number).join("").right(3), QString(" \u00b5A"));
    }
};

CORVALE_QT_TEST_MAIN(tst_MarkerLabels)
#include "tst_MarkerLabels.moc"
