// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/models/RVXPlotColors.h"
#include "corvale_qt/models/StyleSheetColors.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

class tst_RVXPlotColors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anyIndexHasAColour()
    {
        QCOMPARE(RVXPlotColors::color(9), RVXPlotColors::color(1));
        QCOMPARE(RVXPlotColors::color(-1), QColor(179, 102, 255));
        QCOMPARE(RVXPlotColors::color(std::numeric_limits<int>::min()), QColor(Qt::cyan));
    }

    //! No two of 64 channels have the same colour and dashes, and each can be seen on black.
    void channelsCanBeToldApart()
    {
        for (const auto palette : {RVXPlotColors::ManyColors, RVXPlotColors::ColorBlindSafe}) {
            QSet<QString> looks;
            for (int i = 0; i < 64; ++i) {
                QString look = RVXPlotColors::color(i, palette).name();
                for (const qreal dash : RVXPlotColors::dashes(i, palette))
                    look += ' ' + QString::number(dash);
                looks << look;
                QVERIFY(RVXPlotColors::color(i, palette).lightnessF() > 0.29);
            }
            QCOMPARE(looks.size(), 64);
            QVERIFY(RVXPlotColors::dashes(0, palette).isEmpty());
            QCOMPARE(RVXPlotColors::color(-1, palette), RVXPlotColors::color(1023, palette));
        }
        QVERIFY(RVXPlotColors::dashes(63, RVXPlotColors::EightColors).isEmpty());
    }

    void styleSheetsTakeThem()
    {
        QCOMPARE(resource::rgbStyleSheetFromColor(Qt::black), QString("rgb( 0,0,0)"));
        QCOMPARE(resource::colorRgbStyleSheetFromColor(QColor(255, 128, 0)),
                 QString("color: rgb( 255,128,0);"));
    }
};

CORVALE_QT_TEST_MAIN(tst_RVXPlotColors)
#include "tst_RVXPlotColors.moc"
