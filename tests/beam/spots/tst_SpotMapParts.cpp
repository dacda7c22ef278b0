// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/GaussianRadialGradientBrush.h"
#include "corvale_qt/beam/spots/RowSelection_p.h"
#include "corvale_qt/beam/spots/SpotHitTest_p.h"
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

using Spot = SpotMapView::MapSpot;

namespace {

//! Returns the fields of all spots and what the list knows about them.
QString textOf(const SpotList &list)
{
    QString text;
    QDebug out(&text);
    out << list.extent() << list.largestDose() << list.drawableCount();
    for (int row = 0; row < list.size(); ++row)
        out << list.at(row).x << list.at(row).y << list.at(row).dose << list.at(row).sigma;
    return text;
}

} // namespace

using Selection = QItemSelectionModel;

namespace {

constexpr int rowsOfTable = 600;

//! Returns each selected cell, as often as it is there.
QStringList cellsOf(const QItemSelection &selection)
{
    QStringList cells;
    for (const QModelIndex &index : selection.indexes())
        cells << QString("%1/%2").arg(index.row(), 4).arg(index.column());
    cells.sort();
    return cells;
}

//! A selection, and what it said of each change.
struct Watched
{
    explicit Watched(QAbstractItemModel *model)
        : selection(model)
    {
        QObject::connect(&selection,
                         &Selection::selectionChanged,
                         [this](const QItemSelection &selected, const QItemSelection &deselected) {
                             changes << "+" + cellsOf(selected).join(' ') + " -"
                                     + cellsOf(deselected).join(' ');
                         });
    }
    Selection selection;
    QStringList changes;
};

} // namespace

using Brush = std::unique_ptr<GaussianRadialGradientBrush>;

namespace {

constexpr int side = 560; // ten pixels for each step of the gradient

//! Returns the opacity at a distance from the centre: exact every 1/56 within 2.6 sigma, linear between.
double opacityAt(double distance, double amplitude, double sigma)
{
    const auto exact = [&](int step) {
        const double r = step / 56.0;
        return r < 2.6 * sigma ? amplitude * std::exp(-r * r / (2 * sigma * sigma)) : 0.0;
    };
    const int step = int(distance * 56);
    const double part = distance * 56 - step;
    return (1 - part) * exact(step) + part * exact(step + 1);
}

QImage pictureOf(const QBrush &brush)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.scale(side, side);
    painter.fillRect(QRectF(0, 0, 1, 1), brush);
    return image;
}

} // namespace

//! What the spot map is made of: its list, its brushes, the rows that are selected.
class tst_SpotMapParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void staysAlignedWithAPlainList()
    {
        QRandomGenerator random(3);
        const auto newSpot = [&random]() -> Spot {
            const float broken[] = {float(qQNaN()), float(qInf())};
            Spot spot{float(random.bounded(20)),
                      float(random.bounded(20)),
                      float(random.bounded(9)),
                      1};
            if (random.bounded(6) == 0)
                spot.x = broken[random.bounded(2)];
            if (random.bounded(6) == 0)
                spot.sigma = -float(random.bounded(2));
            return spot;
        };
        SpotList list;
        QVector<Spot> plain;
        // First with few rows, then with enough for several blocks.
        for (int step = 0; step < 3000; ++step) {
            if (step == 2000) {
                QVector<Spot> many;
                for (int i = 0; i < 500; ++i)
                    many << newSpot();
                list.insert(qMin(1, plain.size()), many);
                plain = plain.mid(0, 1) + many + plain.mid(1);
            } else if (step == 2100) {
                list.remove(100, 270);
                plain.remove(100, 270);
            }
            const int row = random.bounded(plain.size() + 1);
            const quint64 rewrites = list.rewrites();
            switch (random.bounded(plain.size() % 250 > 12 ? 4 : 3)) {
            case 0: {
                const QVector<Spot> added{newSpot(), newSpot()};
                list.insert(row, added);
                QCOMPARE(list.rewrites() == rewrites, row == plain.size());
                plain.insert(row, added[1]);
                plain.insert(row, added[0]);
                break;
            }
            case 1:
                if (row < plain.size()) {
                    const Spot spot = newSpot();
                    list.replace(row, spot);
                    plain[row] = spot;
                    QVERIFY(!list.replace(row, spot));
                }
                break;
            default: {
                const int count = qMin(2, plain.size() - row);
                list.remove(row, count);
                plain.remove(row, count);
                break;
            }
            }
            SpotList fresh;
            fresh.assign(plain);
            QCOMPARE(textOf(list), textOf(fresh));
        }
    }

    void nearestIsWithinItsOwnSigma()
    {
        SpotList list;
        const float nan = float(qQNaN());
        list.assign({{0, 0, 1, 5}, {6, 0, 1, 0.5F}, {nan, 0, 1, 1}, {0, 0, 2, 5}});
        QCOMPARE(list.nearest(QPointF(1, 0)), 3);
        QCOMPARE(list.nearest(QPointF(4.9, 0)), 3);
        QCOMPARE(list.nearest(QPointF(5.6, 0)), 1);
        QCOMPARE(list.nearest(QPointF(5.4, 0)), -1);
    }

    //! A rubber band selects the spots whose square has its centre there, also at the pixel of an edge.
    void aRectangleHoldsTheSpotsWithTheirCentreInIt()
    {
        QRandomGenerator random(5);
        QVector<Spot> spots;
        for (int i = 0; i < 2000; ++i)
            spots << Spot{float(random.bounded(100.0)),
                          float(random.bounded(100.0)),
                          1,
                          float(random.bounded(3))};
        SpotList list;
        list.assign(spots);
        const SpotHitTest places(list, QRectF(-5, -5, 110, 110), QRect(7, 3, 330, 330));
        for (const int side : {4, 5, 9, 25, 60}) {
            const QRect rect(50 + side, 70, side * 4, side * 3);
            QVector<int> expected;
            for (int row = 0; row < list.size(); ++row) {
                if (rect.contains(places.spotRect(row, 2.6).center()))
                    expected << row;
            }
            QVERIFY(!expected.isEmpty());
            QCOMPARE(places.rowsIn(rect), expected);
        }
    }

    //! Rows at random, few or many, are selected and announced as the selection model does it by itself, one row after another.
    void hostsSeeWhatTheSelectionModelDoes()
    {
        QStandardItemModel table(rowsOfTable, 3);
        Watched ours(&table), plain(&table);
        QRandomGenerator random(3);
        for (int step = 0; step < 60; ++step) {
            const int share = 1 + random.bounded(9), first = random.bounded(rowsOfTable / 2);
            QVector<int> rows;
            for (int row = first; row < rowsOfTable && step % 7 != 5; ++row) {
                if (random.bounded(10) < share)
                    rows << row;
            }
            Selection::SelectionFlags command = Selection::ClearAndSelect | Selection::Rows;
            if (step % 5 == 3)
                command = Selection::Toggle | Selection::Rows;
            else if (step % 5 == 4)
                command.setFlag(Selection::Current);
            if (step % 11 == 10) // a host selects a single cell
                command.setFlag(Selection::Rows, false);
            QItemSelection same;
            for (const int row : qAsConst(rows))
                same.select(table.index(row, 0), table.index(row, 0));
            // The same rows once more are no change.
            for (int again = 0; again < (step % 3 == 0 ? 2 : 1); ++again) {
                selectRows(ours.selection, QModelIndex(), rows, command);
                plain.selection.select(same, command);
            }
            QCOMPARE(cellsOf(ours.selection.selection()), cellsOf(plain.selection.selection()));
            QCOMPARE(ours.changes, plain.changes);
            ours.changes.clear();
            plain.changes.clear();
        }
    }

    void opacityFollowsTheGaussian()
    {
        // Amplitude and sigma: narrower than a step, some steps, nearly all of the radius, wider than it.
        for (const auto &[amplitude, sigma] :
             {std::pair(1.0, 0.001), {0.7, 0.1}, {0.5, 0.38}, {0.95, 0.5}}) {
            const Brush brush(
                GaussianRadialGradientBrush::create({0.25, 0.5}, Qt::green, amplitude, sigma));
            const QImage image = pictureOf(*brush);
            for (int x = 0; x < side; ++x) {
                const double distance = std::hypot(x + 0.5 - side / 4.0, 0.5) / side;
                const double expected = 255 * opacityAt(distance, amplitude, sigma);
                // Qt paints a gradient from a table of 1024 colours.
                const double next = 255 * opacityAt(distance + 1.0 / 1024, amplitude, sigma);
                const QColor color = image.pixelColor(x, side / 2);
                QVERIFY(qAbs(color.green() - expected) < 2 + qAbs(next - expected));
                QCOMPARE(color.red() + color.blue(), 0);
            }
        }
    }

    void itCoversFivePointTwoSigma()
    {
        const Brush brush(GaussianRadialGradientBrush::create({0.3, 0.6}, Qt::white, 1.0, 0.1));
        QCOMPARE(brush->center(), QPointF(0.3, 0.6));
        const GaussianRadialGradientBrush copy = *brush;
        QCOMPARE(copy.boundingRect(), QRectF(0.04, 0.34, 0.52, 0.52));
    }

    void withoutAmplitudeItIsTransparent()
    {
        for (const double amplitude : {0.0, -1e-12, qQNaN(), qInf()}) {
            const Brush brush(
                GaussianRadialGradientBrush::create({0.3, 0.6}, Qt::red, amplitude, 0.1));
            QVERIFY(brush->boundingRect().isEmpty());
            QCOMPARE(pictureOf(*brush), pictureOf(Qt::NoBrush));
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_SpotMapParts)
#include "tst_SpotMapParts.moc"
