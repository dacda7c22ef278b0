// SPDX-License-Identifier: LGPL-2.1-or-later
// Does what a new host does first: it fills a model and shows it as a table, as a curve and as a file.

#include <corvale_qt/RVXSeriesData>
#include <corvale_qt/RVXSingleChannelDataModel>
#include <corvale_qt/units/Units.h>

#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <QApplication>
#include <QFile>
#include <QTableView>
#include <QTemporaryDir>
#include <QtDebug>

using namespace Corvale_Qt;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const Units::nA nA;
    RVXSingleChannelDataModel model;
    model.SetUnits(&nA);
    for (int i = 1; i <= 100; ++i)
        model.AddData(0.1 * i, 1e-9 * i);

    QTableView table;
    table.setModel(&model);
    QwtPlot plot;
    auto *curve = new QwtPlotCurve;
    curve->setSamples(new RVXSeriesData(model, 1, 1, -1));
    curve->attach(&plot);
    table.grab();
    plot.grab();

    QTemporaryDir folder;
    const QString fileName = folder.filePath("samples.csv");
    const bool saved = model.SaveDataToFile(fileName) && QFile(fileName).size() > 0;
    const bool drawn = qFuzzyCompare(curve->maxYValue(), 100.0);
    const bool named = table.model()->headerData(0, Qt::Horizontal) == "Time (s)";
    qInfo() << "saved" << saved << "drawn" << drawn << "named" << named;
    return saved && drawn && named ? 0 : 1;
}
