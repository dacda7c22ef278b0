// SPDX-License-Identifier: LGPL-2.1-or-later
// Does what a new host does first: it asks for the version, fills a model and shows it as a table, as a curve and as a
// file. It finds the resources that the library has compiled in.

#include <corvale_qt/RVXSeriesData>
#include <corvale_qt/RVXSingleChannelDataModel>
#include <corvale_qt/corvale_qt_version.h>
#include <corvale_qt/units/Units.h>

#ifdef WITH_KDE
#include <corvale_qt/KLinkItemSelectionModel>
#include <corvale_qt/KWordWrap>
#endif

#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QTableView>
#include <QTemporaryDir>
#include <QtDebug>

using namespace Corvale_Qt;

static_assert(CORVALE_QT_VERSION >= CORVALE_QT_VERSION_CHECK(2, 0, 0)
              && CORVALE_QT_VERSION < CORVALE_QT_VERSION_CHECK(3, 0, 0));

//! Whether the program runs with the library whose headers it was built with.
static bool isOfOneVersion()
{
    return libraryVersion() == CORVALE_QT_VERSION
        && libraryVersionString() == QByteArray(CORVALE_QT_VERSION_STRING);
}

//! Whether the library's icons are there, and can be drawn: those in SVG need a plugin of Qt at run time.
static bool hasResources()
{
    return QFile::exists(":/icons/cleartext.png")
        && !QIcon(":/resources/icons/configure.svg").pixmap(16).isNull();
}

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
    bool selected = true;
#ifdef WITH_KDE
    QItemSelectionModel selection(&model);
    const KLinkItemSelectionModel linked(&model, &selection);
    QFontMetrics metrics = table.fontMetrics();
    const KWordWrap wrapped = KWordWrap::formatText(metrics, QRect(0, 0, 60, 400), 0, "dose");
    selected = linked.linkedItemSelectionModel() == &selection && !wrapped.boundingRect().isEmpty();
#endif
    qInfo() << "saved" << saved << "drawn" << drawn << "named" << named << "selected" << selected
            << "one version" << isOfOneVersion() << "resources" << hasResources();
    return saved && drawn && named && selected && isOfOneVersion() && hasResources() ? 0 : 1;
}
