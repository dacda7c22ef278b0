// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/plot/RVXDiscontinuousPlotCurve.h"
#include "tests/support/TestMain.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_layout.h>

using namespace Corvale_Qt;

namespace {

const double kNan = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

/*! A canvas of 101 x 101 pixels that shows 0 to 100 on either axis, one pixel a unit. */
class Canvas
{
public:
    explicit Canvas(const QVector<QPointF> &samples,
                    QwtPlotCurve::CurveStyle style = QwtPlotCurve::Lines)
    {
        auto *canvas = new QwtPlotCanvas(&m_plot);
        canvas->setFrameStyle(QFrame::NoFrame);
        m_plot.setCanvas(canvas);
        m_plot.setCanvasBackground(Qt::white);
        m_plot.plotLayout()->setCanvasMargin(0);
        m_plot.enableAxis(QwtPlot::xBottom, false);
        m_plot.enableAxis(QwtPlot::yLeft, false);
        m_plot.setAxisScale(QwtPlot::xBottom, 0, 100);
        m_plot.setAxisScale(QwtPlot::yLeft, 0, 100);
        curve = new RVXDiscontinuousPlotCurve;
        curve->setPen(Qt::black);
        curve->setStyle(style);
        curve->setSamples(samples);
        curve->attach(&m_plot);
        m_plot.resize(101, 101);
        m_plot.replot();
        m_image = canvas->grab().toImage();
    }

    //! The columns that have a dark pixel, as runs: "10-20 35".
    QString inked() const
    {
        QStringList runs;
        int first = -1;
        for (int x = 0; x <= m_image.width(); ++x) {
            const bool dark = x < m_image.width() && columnIsDark(x);
            if (dark && first < 0)
                first = x;
            if (!dark && first >= 0) {
                runs << (first == x - 1 ? QString::number(first)
                                        : QString("%1-%2").arg(first).arg(x - 1));
                first = -1;
            }
        }
        return runs.join(' ');
    }
    bool isDark(int x, int y) const { return qGray(m_image.pixel(x, 100 - y)) < 128; }

    RVXDiscontinuousPlotCurve *curve; // belongs to the plot

private:
    bool columnIsDark(int x) const
    {
        for (int y = 0; y < m_image.height(); ++y) {
            if (qGray(m_image.pixel(x, y)) < 128)
                return true;
        }
        return false;
    }

    QwtPlot m_plot;
    QImage m_image;
};

} // namespace

class tst_RVXDiscontinuousPlotCurve : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesBreakAtMissingSamples_data()
    {
        tableFrom(R"(
            | samples | inked
            none missing          | 10,50 40,50 90,20                | 10-90
            one missing           | 10,50 30,50 50,nan 70,50 90,50   | 10-30 70-90
            infinite              | 10,50 30,50 50,inf 60,-inf 70,50 90,50 | 10-30 70-90
            time missing          | 10,50 30,50 nan,50 70,50 90,50   | 10-30 70-90
            point between gaps    | 10,nan 30,50 50,nan 70,50 90,inf | 30 70
            gaps at both ends     | 10,nan 30,50 50,60 90,nan        | 30-50
            all missing           | 10,nan inf,3                     |
            none at all           |                                  |
            one                   | 42,42                            | 42
        )");
    }
    void linesBreakAtMissingSamples()
    {
        QFETCH(QString, samples);
        QVector<QPointF> points;
        for (const QString &sample : samples.split(' ', Qt::SkipEmptyParts))
            points << QPointF(sample.section(',', 0, 0).toDouble(),
                              sample.section(',', 1).toDouble());
        QTEST(Canvas(points).inked(), "inked");
    }

    void otherStylesSkipThemToo()
    {
        const QVector<QPointF> samples{{10, 50}, {30, kNan}, {50, 50}, {70, 50}};
        QCOMPARE(Canvas(samples, QwtPlotCurve::Sticks).inked(), QString("10 50 70"));
        QCOMPARE(Canvas(samples, QwtPlotCurve::Dots).inked(), QString("10 50 70"));
        QCOMPARE(Canvas(samples, QwtPlotCurve::Steps).inked(), QString("50-70"));
    }

    void valuesFarAwayAreLines()
    {
        const Canvas canvas({{20, 50}, {40, 50}, {60, 1e300}, {80, 50}});
        QVERIFY(canvas.isDark(30, 50));
        QVERIFY(canvas.isDark(40, 90)); // straight up, as far as a pixel can tell
        QVERIFY(canvas.isDark(79, 90) || canvas.isDark(80, 90));
        QVERIFY(!canvas.isDark(60, 50));
    }

    void theBoundsHoldWhatIsFinite()
    {
        RVXDiscontinuousPlotCurve curve;
        curve.setSamples({{kNan, kNan}, {1, 5}, {2, kInf}, {3, -4}, {kInf, 8}});
        QCOMPARE(curve.boundingRect(), QRectF(QPointF(1, -4), QPointF(3, 5)));
        curve.setSamples({{1, kNan}});
        QVERIFY(curve.boundingRect().width() < 0);
        curve.setSamples(QVector<QPointF>{{1, 2}, {3, 5}});
        QCOMPARE(curve.boundingRect(), QRectF(1, 2, 2, 3));
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXDiscontinuousPlotCurve)
#include "tst_RVXDiscontinuousPlotCurve.moc"
