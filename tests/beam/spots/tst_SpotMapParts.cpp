// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/GaussianRadialGradientBrush.h"
#include "corvale_qt/beam/spots/RingedMap_p.h"
#include "corvale_qt/beam/spots/RowSelection_p.h"
#include "corvale_qt/beam/spots/SpotCover_p.h"
#include "corvale_qt/beam/spots/SpotHitTest_p.h"
#include "corvale_qt/beam/spots/SpotList_p.h"
#include "corvale_qt/beam/spots/SpotPictureCache_p.h"
#include "tests/beam/spots/SpotMapInTest.h"
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

//! A selection, what it said of each change, and the rows that a view remembers.
struct Watched
{
    explicit Watched(QAbstractItemModel *model)
        : selection(model)
    {
        QObject::connect(&selection, &Selection::selectionChanged,
                         [this](const QItemSelection &selected, const QItemSelection &deselected) {
                             changes << "+" + cellsOf(selected).join(' ') + " -"
                                     + cellsOf(deselected).join(' ');
                             rows.selectionChanged(selected);
                         });
    }
    //! Returns a row for each that the view remembers, as selectedRows() does.
    QVector<int> remembered()
    {
        QVector<int> all;
        for (const RowSpan &span : rows.rows(selection, QModelIndex())) {
            for (int row = span.first; row <= span.last; ++row)
                all << row;
        }
        return all;
    }
    QVector<int> selectedRows() const
    {
        QSet<int> all;
        for (const QModelIndex &index : selection.selection().indexes())
            all << index.row();
        QVector<int> sorted(all.begin(), all.end());
        std::sort(sorted.begin(), sorted.end());
        return sorted;
    }
    Selection selection;
    QStringList changes;
    RowSelection rows;
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

//! Each call of the drawing function, such as "from 3 of 5".
QStringList drawn;

void drawNothing(QPainter &, const SpotList &spots, int first, const SpotStyle &)
{
    drawn << QString("from %1 of %2").arg(first).arg(spots.size());
}

SpotStyle styleOf(const SpotList &spots)
{
    return {QSize(60, 60), 1.0, QRectF(0, 0, 60, 60), spots.largestDose(), Qt::white, Qt::black};
}

Spot spotAt(float x, float dose)
{
    return {x, 30, dose, 3};
}

//! Returns a spot anywhere on a map of 60 x 60 or beside it, narrow or wide, with a dose of any kind.
Spot randomSpot(QRandomGenerator &random)
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    const float doses[] = {-1, 0, -0.0F, 1e-30F, 1, 5, 9, 1e38F, nan};
    const float sigmas[] = {0.01F, 0.3F, 1, 3, 11, 1e30F, 0, nan};
    const auto place = [&] {
        return random.bounded(40) == 0 ? 3e38F : float(random.bounded(100.0) - 20);
    };
    const float x = place(), y = place(), dose = doses[random.bounded(9)];
    return {x, y, dose,
            sigmas[random.bounded(20) == 0 ? 5 + random.bounded(3) : random.bounded(5)]};
}

//! Returns a map with each of its rings, without a thought for those above it.
QImage eachRingDrawn(const RingedMap::Scene &scene, const RowSpans &rows)
{
    RingPictures pictures(scene.color, scene.pixelRatio);
    const SpotHitTest places(scene.spots, scene.bounds, QRect(QPoint(), scene.size));
    QImage image = scene.map;
    QPainter painter(&image);
    painter.drawImage(0, 0, scene.path);
    for (const RowSpan &span : rows) {
        for (int row = span.first; row <= span.last; ++row) {
            const QPointF centre = places.pixelOf(row);
            const double radius = places.radiusOf(row);
            const SelectionRing ring = pictures.ringOf(row, centre, radius);
            if (ring.pixels.isEmpty())
                pictures.drawLarge(painter, centre, radius);
            else
                painter.drawImage(ring.pixels.topLeft(), pictures.picture(ring).image);
        }
    }
    return image;
}

QImage drawnBy(std::unique_ptr<SpotLayer> layer, const SpotList &spots, const SpotStyle &style)
{
    SpotPictureCache picture(std::move(layer));
    picture.update(spots, style);
    return picture.image();
}

} // namespace

//! What the spot map is made of: its list, its brushes, the rows that are selected, and the picture that it keeps.
class tst_SpotMapParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void staysAlignedWithAPlainList()
    {
        QRandomGenerator random(3);
        const auto newSpot = [&random]() -> Spot {
            const float broken[] = {float(qQNaN()), float(qInf())};
            Spot spot{float(random.bounded(20)), float(random.bounded(20)),
                      float(random.bounded(9)), 1};
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
            spots << Spot{float(random.bounded(100.0)), float(random.bounded(100.0)), 1,
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
            if (step % 13 == 12) { // the rows that were selected move
                table.removeRow(first);
                table.insertRow(rowsOfTable / 2);
                ours.rows.forget();
                ours.changes = plain.changes = QStringList();
            }
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
                if (step % 6 == 5) // by the host
                    ours.selection.select(same, command);
                else
                    ours.rows.select(ours.selection, QModelIndex(), rows, command);
                plain.selection.select(same, command);
            }
            QCOMPARE(cellsOf(ours.selection.selection()), cellsOf(plain.selection.selection()));
            QCOMPARE(ours.changes, plain.changes);
            QCOMPARE(ours.remembered(), ours.selectedRows());
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

    void onlyWhatIsNewIsDrawn()
    {
        SpotPictureCache picture(makePaintedLayer(makeImageBuffer(), drawNothing));
        SpotList spots;
        spots.assign({spotAt(1, 5), spotAt(2, 1)});
        const auto update = [&] {
            drawn.clear();
            picture.update(spots, styleOf(spots));
            return drawn.join(", ");
        };
        QCOMPARE(update(), QString("from 0 of 2"));
        QCOMPARE(update(), QString());
        const quint64 version = picture.version();
        update();
        QCOMPARE(picture.version(), version);
        spots.insert(2, {spotAt(3, 1)});
        spots.insert(3, {spotAt(4, 1)});
        QCOMPARE(update(), QString("from 2 of 4"));
        QVERIFY(picture.version() > version);
        // Several changes are one redraw.
        spots.insert(0, {spotAt(3, 1)});
        spots.remove(2, 1);
        spots.replace(0, spotAt(8, 1));
        QCOMPARE(update(), QString("from 0 of 4"));
        // A new largest dose is another style.
        spots.insert(4, {spotAt(5, 9)});
        QCOMPARE(update(), QString("from 0 of 5"));
        picture.reset();
        QCOMPARE(update(), QString("from 0 of 5"));
    }

    void aPartDrawnAnewEqualsTheWhole()
    {
        QRandomGenerator random(5);
        // The last picture is large enough to be shaded in several bands.
        for (const auto &[ratio, steps] :
             {std::pair(1, 400), std::pair(2, 400), std::pair(14, 12)}) {
            SpotPictureCache picture(makeShadedLayer());
            SpotList spots;
            SpotStyle style = styleOf(spots);
            style.pixels *= ratio;
            style.pixelRatio = ratio;
            style.fullScaleDose = 6;
            for (int step = 0; step < steps; ++step) {
                const int row = random.bounded(spots.size() + 1);
                if (step % 5 == 4 && row < spots.size())
                    spots.remove(row, 1);
                else if (step % 5 < 2 || row == spots.size())
                    spots.insert(step % 5 == 0 ? spots.size() : row, {randomSpot(random)});
                else
                    spots.replace(row, randomSpot(random));
                if (step % 50 == 49) // wide spots would cover all in the end
                    spots.remove(0, spots.size() - 5);
                picture.update(spots, style);
                QCOMPARE(
                    largestDifference(picture.image(), drawnBy(makeShadedLayer(), spots, style)),
                    0);
            }
        }
    }

    //! Rows of any length, beginning anywhere: each pixel as the formula says, and not a bit of another one.
    void pixelsAreCoveredAlikeOnEveryProcessor()
    {
        constexpr int width = 40;
        QRandomGenerator random(8);
        std::vector<float> alongX(width + SpotCover::slack);
        for (float &gauss : alongX)
            gauss = float(random.bounded(1.0));
        std::vector<SpotRow> rows;
        for (int first = 0; first < width; ++first) {
            for (int behind = first; behind <= width; ++behind)
                rows.push_back({float(random.bounded(1.0)), first, behind});
        }
        std::vector<float> before(rows.size() * width + SpotCover::slack);
        for (float &part : before)
            part = float(random.bounded(1.0));
        const SpotCover spot{alongX.data(), rows.data(), int(rows.size()), 1.7F, 0.06F};
        std::vector<float> expected = before;
        for (std::size_t y = 0; y < rows.size(); ++y) {
            for (int x = rows[y].first; x < rows[y].behind; ++x) {
                float &part = expected[y * width + std::size_t(x)];
                part = spot.covered(part, alongX[std::size_t(x)] * rows[y].height);
            }
        }
        for (const CoverPixels cover : {plainCover(), fastestCover()}) {
            std::vector<float> pixels = before;
            cover(pixels.data(), width, spot);
            QVERIFY(pixels == expected);
        }
    }

    //! Any spot, as wide as a map can show it, alone and below another one, against a painter with the spots' brushes.
    void aSpotIsThatOfItsBrush()
    {
        int alone = 0, both = 0;
        for (const float sigma : {0.3F, 0.8F, 2.0F, 5.0F, 6.0F, 6.7F, 8.25F, 8.5F, 11.5F}) {
            for (const float dose : {-1.0F, 0.5F, 4.0F, 9.0F}) {
                for (const float above : {0.0F, -2.0F, 5.0F}) {
                    SpotList spots;
                    spots.assign({{30.3F, 29.6F, dose, sigma}, {29.0F, 30.0F, above, sigma}});
                    SpotStyle style = styleOf(spots);
                    style.pixels = QSize(300, 270);
                    style.fullScaleDose = 6;
                    style.background = QColor(20, 60, 20);
                    auto painter = makePaintedLayer(makeImageBuffer(), drawSpots);
                    int &largest = above == 0.0F ? alone : both;
                    const QImage ours = drawnBy(makeShadedLayer(), spots, style);
                    const QImage painted = drawnBy(std::move(painter), spots, style);
                    largest = std::max(largest, largestDifference(ours, painted));
                }
            }
        }
        QVERIFY2(alone <= 2, qPrintable(QString::number(alone)));
        QVERIFY2(both <= 3, qPrintable(QString::number(both)));
    }

    void keptRingsAreThoseDrawnAnew_data()
    {
        columns<double, double, double>("ratio", "largest", "empty"); // in the middle
        row("small", 1.0, 12.0, 0.0);
        row("crowded at the edges, one of them within a byte of bits", 1.0, 8.0, 196.0);
        row("wider than a word of bits", 1.0, 45.0, 0.0);
        row("some too large for a picture", 1.0, 140.0, 0.0);
        row("three device pixels to two", 1.5, 20.0, 0.0);
        row("doubled pixels", 2.0, 40.0, 0.0);
    }

    //! Rings of all sizes, of which later ones hide many and some come and go, look as if each of them were drawn.
    void keptRingsAreThoseDrawnAnew()
    {
        QFETCH(double, ratio);
        QFETCH(double, empty);
        QRandomGenerator random(7);
        QVector<Spot> all;
        for (int i = 0; i < 150; ++i) {
            // Some reach beyond the edges.
            const double sigma = (1 + random.bounded(5)) * cell<double>("largest") / 5;
            const double right = random.bounded(220.0 - empty) - 10 + empty;
            all << Spot{float(i % 2 == 0 ? right : right - empty),
                        float(random.bounded(170.0) - 10), 1, float(sigma)};
        }
        SpotList spots;
        spots.assign(all);
        const QSize size(197, 150);
        const QRectF bounds(0, 0, 200, 150);
        QImage map((QSizeF(size) * ratio).toSize(), QImage::Format_RGB32);
        map.fill(Qt::darkCyan);
        QImage path(map.size(), QImage::Format_ARGB32_Premultiplied);
        path.fill(QColor(255, 0, 0, 60));
        RingedMap kept, anew;
        RowSpans rows{{0, 149}};
        for (int step = 0; step < 16; ++step) {
            const RingedMap::Scene scene{
                map, step < 8 ? QImage() : path, spots, bounds, size, ratio, Qt::yellow};
            const QImage picture = kept.image(scene, rows).copy();
            anew.reset();
            QCOMPARE(picture, anew.image(scene, rows));
            if (step % 8 == 0)
                QCOMPARE(picture, eachRingDrawn(scene, rows));
            // A ring or a few come or go, or a spot or the map changes.
            const int first = random.bounded(80);
            rows = step % 4 == 2 ? RowSpans{{0, first}, {first + 2, first + 60}}
                                 : RowSpans{{0, 90}, {93, 99 + step / 2}, {120, 120 + step}};
            if (step % 5 == 3)
                spots.replace(first, all[step]);
            if (step % 6 == 4)
                map.setPixel(5, step, 0);
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_SpotMapParts)
#include "tst_SpotMapParts.moc"
