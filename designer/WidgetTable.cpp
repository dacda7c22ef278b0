// SPDX-License-Identifier: LGPL-2.1-or-later
#include "designer/WidgetTable.h"

#include "designer/Previews.h"
#include <corvale_qt/IntStepSpinBox>
#include <corvale_qt/QScienceSpinBox>
#include <corvale_qt/RVXLogBrowser>
#include <corvale_qt/RVXPopOutTabWidget>
#include <corvale_qt/RVXPositionErrorPlot>
#include <corvale_qt/RVXPositionPlot>
#include <corvale_qt/RVXScope>
#include <corvale_qt/RVXScopePlotView>
#include <corvale_qt/RVXSpectrogram>
#include <corvale_qt/RVXSplitPlot>
#include <corvale_qt/RVXStatisticsSetupPage>
#include <corvale_qt/RVXTableView>
#include <corvale_qt/SpotMapView>
#include <corvale_qt/SpotMapWidget>
#include <corvale_qt/TimeSpanBox>
#include <corvale_qt/TreeComboBox>

#include <QCoreApplication>

using namespace Corvale_Qt;

namespace {

template<typename Widget>
QWidget *make(QWidget *parent)
{
    return new Widget(parent);
}

const char kTwoPages[] =
    R"(  <widget class="QWidget" name="page"><attribute name="title"><string>Page 1</string></attribute></widget>
  <widget class="QWidget" name="page_2"><attribute name="title"><string>Page 2</string></attribute></widget>
)";

#define TIP(text) QT_TRANSLATE_NOOP("DesignerWidget", text)

std::vector<WidgetDescription> displays()
{
    const QSize plot(480, 440);
    return {
        {"RVXScope",
         "Scope",
         "scope",
         TIP("Channels of a plot model with an operator's controls: ranges, average, zero, modes"),
         {800, 500},
         make<RVXScope>,
         previewScope},
        {"RVXScopePlotView",
         "Scope Plot View",
         "scopePlotView",
         TIP("Channels of a plot model as strip chart, sweeps or histogram"),
         plot,
         make<RVXScopePlotView>,
         previewScopePlotView},
        {"RVXStatisticsSetupPage",
         "Beam Statistics Page",
         "statisticsSetupPage",
         TIP("Settings of the beam statistics that histograms show"),
         {400, 560},
         make<RVXStatisticsSetupPage>},
        {"RVXSpectrogram",
         "Beam Profile",
         "spectrogram",
         TIP("Beam profile of a strip pair or a pixel matrix, with means, widths and fit"),
         {800, 450},
         make<RVXSpectrogram>,
         previewSpectrogram},
        {"RVXPositionPlot",
         "Beam Position",
         "positionPlot",
         TIP("Latest beam position on an X/Y plane, with a trail"),
         plot,
         make<RVXPositionPlot>,
         previewPositionPlot},
        {"RVXSplitPlot",
         "Split Indicators",
         "splitPlot",
         TIP("Bars that extend from zero to a value"),
         {400, 160},
         make<RVXSplitPlot>,
         previewSplitPlot},
        {"RVXPositionErrorPlot",
         "Position Errors",
         "positionErrorPlot",
         TIP("Deviation of delivered spots from their planned positions, against a tolerance"),
         {500, 560},
         make<RVXPositionErrorPlot>,
         previewPositionErrorPlot},
        {"SpotMapView",
         "Spot Map View",
         "spotMapView",
         TIP("Spots of a model as Gaussian blobs, and their difference from another map"),
         {300, 300},
         make<SpotMapView>,
         previewSpotMapView},
        {"SpotMapWidget",
         "Spot Map",
         "spotMapWidget",
         TIP("Spot map with title, scales and beam values"),
         {400, 460},
         make<SpotMapWidget>,
         previewSpotMapWidget},
    };
}

std::vector<WidgetDescription> generalWidgets()
{
    const QSize field(120, 26);
    return {
        {"RVXLogBrowser",
         "Log Browser",
         "logBrowser",
         TIP("Log lines with coloured error and warning keywords, and a clear button"),
         {400, 200},
         make<RVXLogBrowser>,
         previewLogBrowser},
        {"RVXTableView",
         "Table View with Corner Button",
         "tableView",
         TIP("Table view with a button in its corner that copies its selection as text"),
         {320, 200},
         make<RVXTableView>,
         previewTableView},
        {"RVXPopOutTabWidget",
         "Pop-out Tab Widget",
         "popOutTabWidget",
         TIP("Tab widget whose pages can be moved to separate windows"),
         {300, 200},
         make<RVXPopOutTabWidget>,
         nullptr,
         true,
         kTwoPages},
        {"IntStepSpinBox",
         "Integer-Step Spin Box",
         "intStepSpinBox",
         TIP("Spin box that takes only multiples of its single step"),
         field,
         make<IntStepSpinBox>},
        {"QScienceSpinBox",
         "Science Spin Box",
         "scienceSpinBox",
         TIP("Spin box for numbers of any size, in scientific notation"),
         field,
         make<QScienceSpinBox>},
        {"TimeSpanBox",
         "Time Span Box",
         "timeSpanBox",
         TIP("Combo box for the length of time that a chart shows, chosen or typed: 90 s, 2 h, "
             "all"),
         field,
         make<TimeSpanBox>},
        {"TreeComboBox",
         "Tree Combo Box",
         "treeComboBox",
         TIP("Combo box whose popup is a tree"),
         field,
         make<TreeComboBox>,
         previewTreeComboBox},
    };
}

} // namespace

const std::vector<WidgetDescription> &widgetTable()
{
    static const std::vector<WidgetDescription> table = [] {
        std::vector<WidgetDescription> widgets = displays();
        const std::vector<WidgetDescription> general = generalWidgets();
        widgets.insert(widgets.end(), general.begin(), general.end());
        return widgets;
    }();
    return table;
}
