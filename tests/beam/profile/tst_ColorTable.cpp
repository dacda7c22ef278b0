// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/ColorTable_p.h"
#include "tests/support/Rows.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

constexpr int steps = 400000;

} // namespace

class tst_ColorTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyColourIsTheMapsOwn_data()
    {
        columns<double, double, bool>("low", "high", "fixedColours");
        row("usual", 0.0, 1.0, false);
        row("charges", 0.0, 3.7e-11, false);
        row("not from zero", -2.5, 17.0, false);
        row("no range", 1.0, 1.0, false);
        row("range below what has a reciprocal", 0.0, 5e-324, false);
        row("enormous", 0.0, 1e300, false);
        row("bands", 0.0, 1.0, true);
    }
    void everyColourIsTheMapsOwn()
    {
        QFETCH(double, low);
        QFETCH(double, high);
        QFETCH(bool, fixedColours);
        QwtLinearColorMap map(Qt::black, Qt::red);
        // The map has a narrow peak within one interval of the table, and stops on and beside the borders.
        map.addColorStop(0.3, Qt::cyan);
        map.addColorStop(0.30003, Qt::white);
        map.addColorStop(0.30006, Qt::cyan);
        map.addColorStop(0.5, Qt::darkGreen);
        map.addColorStop(0.7, Qt::yellow);
        if (fixedColours)
            map.setMode(QwtLinearColorMap::FixedColors);
        const QwtInterval range(low, high);
        ColorTable table;
        // The table does not keep the colours of another map that differs little.
        QwtLinearColorMap other(Qt::black, Qt::red);
        other.addColorStop(0.5, Qt::darkGreen);
        table.setMap(other);
        table.setMap(map);

        QVector<double> values;
        const double width = high - low;
        for (int i = -10; i <= steps + 10; ++i) {
            const double value = low + width * i / steps;
            values << std::nextafter(value, -1e308) << value << std::nextafter(value, 1e308);
        }
        const double infinity = std::numeric_limits<double>::infinity();
        values << infinity << -infinity << std::nan("") << 1e308 << -1e308 << -0.0;
        QVector<QRgb> colors(values.size());
        table.lookUp(range, values.constData(), values.size(), colors.data());
        int different = 0;
        for (int i = 0; i < values.size(); ++i)
            different += colors[i] != map.rgb(range, values[i]);
        QCOMPARE(different, 0);
    }
};

CORVALE_QT_TEST_MAIN(tst_ColorTable)
#include "tst_ColorTable.moc"
