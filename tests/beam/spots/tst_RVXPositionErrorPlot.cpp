// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/RVXPositionErrorPlot.h"
#include "tests/beam/spots/SpotTable.h"
#include "tests/support/ModelWatch.h"
#include "tests/support/TestMain.h"

#include <qwt_plot.h>
#include <qwt_scale_div.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>

using namespace Corvale_Qt;

namespace {

QList<QStandardItem *> errorRow(double x, double y, double energy)
{
    QList<QStandardItem *> items;
    for (const double value : {0.0, energy, 1.0, x, y, 10.0, 20.0}) {
        items << new QStandardItem;
        items.last()->setData(value, Qt::UserRole);
    }
    return items;
}

QString fields(const QWidget &plot)
{
    QStringList texts;
    for (const char *name : {"doubleSpinBox_xmean", "doubleSpinBox_ymean", "doubleSpinBox_Energy"})
        texts << plot.findChild<QLineEdit *>(name)->text();
    return texts.join(' ');
}

//! A picture of the plot, with the colours of its points.
class Picture
{
public:
    explicit Picture(RVXPositionErrorPlot &plot)
        : m_plot(plot.findChild<QwtPlot *>())
        , m_image(plot.grab().toImage())
        , m_origin(m_plot->canvas()->mapTo(&plot, QPoint()))
        , m_ratio(plot.devicePixelRatioF())
    {
    }

    QColor at(double x, double y, QPointF offset = QPointF()) const
    {
        const QPointF point(m_plot->canvasMap(QwtPlot::xBottom).transform(x),
                            m_plot->canvasMap(QwtPlot::yLeft).transform(y));
        return m_image.pixelColor(((m_origin + point + offset) * m_ratio).toPoint());
    }

private:
    QwtPlot *m_plot;
    QImage m_image;
    QPointF m_origin;
    double m_ratio;
};

QColor highlight(const QWidget &widget)
{
    return widget.palette().color(QPalette::Highlight);
}

} // namespace

class tst_RVXPositionErrorPlot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void screenReadersHearTheErrors()
    {
        RVXPositionErrorPlot plot;
        const auto heard = [&plot](QAccessible::Text kind) {
            return QAccessible::queryAccessibleInterface(&plot)->text(kind);
        };
        QCOMPARE(heard(QAccessible::Name), QString("Spot Position Error"));
        QCOMPARE(heard(QAccessible::Description), QString("no spots"));
        QStandardItemModel model;
        model.appendRow(errorRow(0.5, -1.0, 100));
        model.appendRow(errorRow(2.5, -1.0, 100));
        plot.setModel(&model);
        plot.setTolerance(2, 2);
        QCOMPARE(heard(QAccessible::Value),
                 QString("mean X error 1.500 mm; mean Y error -1.000 mm"));
        const QString said = heard(QAccessible::Description);
        QVERIFY2(said.startsWith("Spots: 2; outside of the tolerance: 1. mean"), qPrintable(said));
    }

    void toleranceSetsTheAxes_data()
    {
        columns<float, float, QString>("tx", "ty", "axes");
        row("2.4 and 0.6, rounded up", 2.0F, 0.5F, "-3 3 step 1, -1 1 step 1");
        // 1.2F x 5.0F is 6.00000024 before it is rounded to single precision, and 6 after.
        row("in single precision", 5.0F, 2.5F, "-6 6 step 1, -3 3 step 1");
        row("a large one", 1000.0F, 80.0F, "-1200 1200 step 1, -96 96 step 1");
        const QString before = "-4 4 step 1, -4 4 step 1";
        row("0 is ignored", 0.0F, 1.0F, before);
        row("a negative one is ignored", 1.0F, -1.0F, before);
        row("NaN is ignored", float(qQNaN()), 1.0F, before);
        row("one of metres is ignored", 1.0F, 1e30F, before);
    }
    void toleranceSetsTheAxes()
    {
        RVXPositionErrorPlot plot;
        plot.setTolerance(3.0F, 3.0F);
        plot.setTolerance(cell<float>("tx"), cell<float>("ty"));
        QStringList axes;
        for (const int axis : {QwtPlot::xBottom, QwtPlot::yLeft}) {
            const QwtScaleDiv div = plot.findChild<QwtPlot *>()->axisScaleDiv(axis);
            const QList<double> ticks = div.ticks(QwtScaleDiv::MajorTick);
            const QString text = "%1 %2 step %3";
            axes << text.arg(div.lowerBound()).arg(div.upperBound()).arg(ticks[1] - ticks[0]);
        }
        QTEST(axes.join(", "), "axes");
    }

    void axesFitWhateverTheTolerance()
    {
        RVXPositionErrorPlot plot;
        plot.grab();
        const auto *qwtPlot = plot.findChild<QwtPlot *>();
        for (const int axis : {QwtPlot::xBottom, QwtPlot::yLeft})
            QCOMPARE(qwtPlot->axisInterval(axis), QwtInterval(-1, 1)); // there is nothing to follow
        plot.setSamples(QPolygonF(QVector<QPointF>{{-7, 3}, {8, 3.5}}));
        QVERIFY(qwtPlot->axisInterval(QwtPlot::xBottom).contains(8));
        QVERIFY(qwtPlot->axisInterval(QwtPlot::xBottom).width() < 40);
        for (float tolerance : {1.0F, 12.0F, 100.0F, 1000.0F}) {
            plot.setTolerance(tolerance, tolerance);
            const QSize least = plot.minimumSizeHint();
            QVERIFY2(least.width() <= 400 && least.height() <= 400,
                     qPrintable(QString("%1 x %2").arg(least.width()).arg(least.height())));
            QVERIFY(plot.sizeHint().width() <= 480 && plot.sizeHint().height() <= 480);
            plot.resize(least);
            // There are gaps between the labels of the lower axis.
            const QImage image = plot.grab().toImage();
            const double ratio = image.devicePixelRatioF();
            const auto *axis = qwtPlot->axisWidget(QwtPlot::xBottom);
            const QRect area(axis->mapTo(&plot, QPoint(0, 0)), axis->size());
            const int top = int(ratio * (area.top() + 14)); // below the ticks
            const int bottom = top + int(ratio * (QFontMetrics(axis->font()).ascent() - 4));
            int gaps = 0;
            bool inGap = true;
            for (int x = int(ratio * area.left()); x < int(ratio * area.right()); ++x) {
                bool empty = true;
                for (int y = top; y < bottom; ++y)
                    empty = empty && qGray(image.pixel(x, y)) > 200;
                gaps += empty && !inGap;
                inGap = empty;
            }
            QVERIFY2(gaps >= 4 && gaps < area.width() / 4, qPrintable(QString::number(gaps)));
        }
    }

    void meansAndEnergyFollowTheModel()
    {
        QStandardItemModel model(0, 7);
        ModelWatch watch(&model);
        RVXPositionErrorPlot plot;
        QCOMPARE(fields(plot), QString("N/A N/A N/A"));
        plot.setModel(&model);
        model.appendRow(errorRow(1.0, -0.5, 120.04));
        model.appendRow(errorRow(0.0, 0.25, 119.96));
        QCOMPARE(fields(plot), QString("0.500 -0.125 120.0"));
        model.insertRow(0, errorRow(qQNaN(), 0.25, 70.0));
        QCOMPARE(fields(plot), QString("0.500 0.000 120.0"));
        model.item(2, 3)->setData("no number", Qt::UserRole);
        model.item(2, 1)->setData(qInf(), Qt::UserRole);
        QCOMPARE(fields(plot), QString("1.000 0.000 N/A"));
        model.removeRow(2);
        QCOMPARE(fields(plot), QString("1.000 -0.125 120.0"));
        // A mean that is rounded to 0 has no sign.
        model.item(1, 4)->setData(-0.2501, Qt::UserRole);
        QCOMPARE(fields(plot), QString("1.000 0.000 120.0"));
        model.clear();
        QCOMPARE(fields(plot), QString("N/A N/A N/A"));
        QCOMPARE(watch.complaints(), QString());
    }

    void rowsAndDotsStayAligned()
    {
        QStandardItemModel model(0, 7);
        RVXPositionErrorPlot plot;
        plot.resize(500, 500);
        plot.setTolerance(20, 20);
        plot.setModel(&model);
        plot.show();
        QRandomGenerator random(5);
        for (int step = 0; step < 200; ++step) {
            editAtRandom(model, random, 3, [&random] {
                return errorRow(random.bounded(20.0), -random.bounded(20.0), 100);
            });
        }
        plot.grab();
        double sum = 0.0;
        for (int row = 0; row < model.rowCount(); ++row) {
            sum += model.item(row, 3)->data(Qt::UserRole).toDouble();
            const auto *qwtPlot = plot.findChild<QwtPlot *>();
            const double x = model.item(row, 3)->data(Qt::UserRole).toDouble();
            const int pixel = qRound(qwtPlot->canvasMap(QwtPlot::xBottom).transform(x))
                + qwtPlot->canvas()->mapTo(&plot, QPoint()).x();
            const QRect rect = plot.visualRect(model.index(row, 0));
            QVERIFY(qAbs(rect.center().x() - pixel) <= 1);
            QVERIFY(plot.indexAt(rect.center()).isValid());
        }
        QVERIFY(model.rowCount() > 5);
        QCOMPARE(fields(plot).section(' ', 0, 0), QString::number(sum / model.rowCount(), 'f', 3));
    }

    void aModelMayBeDeletedFirst()
    {
        auto *model = new QStandardItemModel(0, 7);
        RVXPositionErrorPlot plot;
        plot.setModel(model);
        model->appendRow(errorRow(1, 1, 100));
        delete model;
        QCOMPARE(fields(plot), QString("N/A N/A N/A"));
        plot.grab();
    }

    void nothingIsCutOffInAnyFont()
    {
        QStandardItemModel model(0, 7);
        model.appendRow(errorRow(-12.3456, 12.3456, 249.96));
        RVXPositionErrorPlot plot;
        plot.setModel(&model);
        plot.setFont(QFont("DejaVu Sans", 16));
        plot.show();
        plot.resize(plot.minimumSizeHint());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        plot.resize(plot.minimumSizeHint());
        for (const auto *label : plot.findChildren<QLabel *>())
            QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(label->text()));
        for (const auto *field : plot.findChildren<QLineEdit *>())
            QVERIFY(field->fontMetrics().horizontalAdvance(field->text()) + 8 <= field->width());
    }

    void theNewestDotStandsOut()
    {
        QStandardItemModel model(0, 7);
        RVXPositionErrorPlot plot;
        plot.resize(500, 500);
        plot.setTolerance(2, 2);
        plot.setModel(&model);
        model.appendRow(errorRow(-0.5, 0.5, 100));
        model.appendRow(errorRow(0.5, -0.5, 100));
        const Picture picture(plot);
        QCOMPARE(picture.at(0.5, -0.5), highlight(plot));
        QCOMPARE(picture.at(0.5, -0.5, QPointF(3.5, 0)), highlight(plot));
        const QColor older = picture.at(-0.5, 0.5);
        QVERIFY(older != highlight(plot) && older.red() == older.blue() && older.red() < 220);
        QVERIFY(picture.at(-0.5, 0.5, QPointF(3.5, 0)).red() > 240);
        // The highlight moves to the newest dot.
        model.appendRow(errorRow(-0.5, 0.5, 100));
        QCOMPARE(Picture(plot).at(-0.5, 0.5), highlight(plot));
        QVERIFY(Picture(plot).at(0.5, -0.5) != highlight(plot));
        // A newest dot without a position leaves no dot highlighted.
        model.appendRow(errorRow(qQNaN(), 0.5, 100));
        QVERIFY(Picture(plot).at(-0.5, 0.5) != highlight(plot));
    }

    void theToleranceIsABlackFrame()
    {
        RVXPositionErrorPlot plot;
        plot.resize(500, 500);
        plot.setTolerance(2, 0.5);
        plot.setSamples(QPolygonF(QVector<QPointF>{QPointF(0, 0)}));
        const Picture picture(plot);
        for (const QPointF &point :
             {QPointF(-2, 0.1), QPointF(2, 0.1), QPointF(0.3, -0.5), QPointF(0.3, 0.5)}) {
            int darkest = 255; // rounding may put the line on a neighbouring pixel
            for (const double right : {-1.0, 0.0, 1.0})
                for (const double down : {-1.0, 0.0, 1.0})
                    darkest = qMin(darkest, picture.at(point.x(), point.y(), {right, down}).red());
            QVERIFY(darkest < 20);
        }
        QCOMPARE(picture.at(1.5, 0.2), QColor(Qt::white));
        QCOMPARE(picture.at(0, 0), highlight(plot));
        // An error beyond the axes is still seen.
        plot.setTolerance(2, 2);
        plot.setSamples(QPolygonF(QVector<QPointF>{QPointF(1e6, 0.25)}));
        const Picture beyond(plot);
        int colored = 0;
        for (int dx = 5; dx > -16; --dx)
            colored += beyond.at(3, 0.25, QPointF(dx, 0)).red() < 180;
        QVERIFY(colored >= 2);
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXPositionErrorPlot)
#include "tst_RVXPositionErrorPlot.moc"
