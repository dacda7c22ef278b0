// SPDX-License-Identifier: LGPL-2.1-or-later
/*! \file
    Draws a picture of each widget of the library for the reference pages, and writes the text that puts each picture on the
    page of its class:  corvale_qt_widget_pictures FOLDER */
#include "designer/Previews.h"
#include "designer/WidgetTable.h"
#include <corvale_qt/RVXMultichannelDeviceModel>
#include <corvale_qt/RVXScopePlotView>
#include <corvale_qt/units/Units.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QTextStream>
#include <QTimer>

#include <cmath>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

//! A display shows the newest reading when its timer has ticked; all of them have after this time, in milliseconds.
constexpr int kSettled = 600;

struct Exhibit
{
    QString className;
    std::unique_ptr<QWidget> window; //!< an object of the class, or what has one as a visible part
};

//! Returns the object of the class; null if the window shows none.
QWidget *shownWidget(const Exhibit &exhibit)
{
    const QByteArray name = "Corvale_Qt::" + exhibit.className.toLatin1();
    if (exhibit.window->inherits(name))
        return exhibit.window.get();
    for (QWidget *part : exhibit.window->findChildren<QWidget *>())
        if (part->inherits(name) && part->isVisible())
            return part;
    return nullptr;
}

//! Returns a view with bars and their fit, below which there is a legend.
QWidget *histogram()
{
    static const Corvale_Qt::Units::nA nA;
    constexpr int kStrips = 16;
    auto *view = new Corvale_Qt::RVXScopePlotView;
    auto *model = new Corvale_Qt::RVXMultichannelDeviceModel(kStrips, view);
    model->SetUnits(&nA);
    double row[kStrips];
    for (int strip = 0; strip < kStrips; ++strip)
        row[strip] = 1e-9 * std::exp(-0.5 * std::pow((strip - 8.3) / 2.1, 2));
    model->appendRow(0.0, row);
    view->setModel(model);
    view->SetPlotMode(Corvale_Qt::RVXScopePlotView::HistogramMode);
    view->enableHistogramItem(Corvale_Qt::RVXScopePlotView::RegressionItem,
                              1,
                              {0.1, 10, 1e-11, 1e-11},
                              true);
    view->setLegendVisible(true);
    return view;
}

//! Returns every widget of the library, filled and shown.
std::vector<Exhibit> exhibits()
{
    std::vector<Exhibit> all;
    const auto show = [](QWidget *window, const QSize &size) {
        window->resize(size.expandedTo(window->minimumSizeHint()));
        window->show();
        return std::unique_ptr<QWidget>(window);
    };
    for (const WidgetDescription &description : widgetTable()) {
        QWidget *widget = description.create(nullptr);
        if (description.preview)
            description.preview(widget);
        all.push_back({description.className, show(widget, description.size)});
    }
    // Parts of a view, which no form holds.
    for (const char *part : {"ScopeLegend", "RVX_HistogramItemAxisWidget"})
        all.push_back({part, show(histogram(), {480, 300})});
    return all;
}

//! Returns whether a picture shows more than a background.
bool hasContents(const QImage &picture)
{
    QSet<QRgb> colors;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            colors.insert(picture.pixel(x, y));
    return colors.size() > 2;
}

//! Writes the pictures and pictures.dox, which Doxygen reads. Returns whether all could be written and show something.
bool write(const std::vector<Exhibit> &all, const QDir &folder)
{
    QFile file(folder.filePath("pictures.dox"));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QTextStream text(&file);
    for (const Exhibit &exhibit : all) {
        QWidget *widget = shownWidget(exhibit);
        const QImage picture = widget ? widget->grab().toImage() : QImage();
        if (!hasContents(picture)
            || !picture.save(folder.filePath(exhibit.className + ".png"), "PNG")) {
            std::fprintf(stderr, "There is no picture of %s.\n", qPrintable(exhibit.className));
            return false;
        }
        text << "/*! \\class Corvale_Qt::" << exhibit.className << "\n    \\image html "
             << exhibit.className << ".png\n*/\n";
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication::setStyle("fusion");
    QApplication application(argc, argv);
    if (QApplication::arguments().size() != 2) {
        std::fputs("Usage: corvale_qt_widget_pictures FOLDER\n", stderr);
        return 2;
    }
    const QDir folder(QApplication::arguments().at(1));
    folder.mkpath(".");
    const std::vector<Exhibit> all = exhibits();
    QTimer::singleShot(kSettled, &application, [&] {
        QApplication::exit(write(all, folder) ? 0 : 1);
    });
    return QApplication::exec();
}
