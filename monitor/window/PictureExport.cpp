// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/PictureExport.h"

#include "monitor/core/Text.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QPixmap>
#include <QSaveFile>
#include <QSvgGenerator>
#include <QWidget>

#include <algorithm>

namespace Monitor {

namespace {

bool drawPng(QWidget *widget, QIODevice *device)
{
    return widget->grab().save(device, "PNG");
}

bool drawSvg(QWidget *widget, QIODevice *device)
{
    QSvgGenerator generator;
    generator.setOutputDevice(device);
    generator.setSize(widget->size());
    generator.setViewBox(widget->rect());
    QPainter painter;
    if (!painter.begin(&generator))
        return false;
    widget->render(&painter);
    return painter.end();
}

bool drawPdf(QWidget *widget, QIODevice *device)
{
    constexpr int screenResolution = 96; // makes one unit of the page one pixel of the widget
    constexpr double pointsPerPixel = 72.0 / screenResolution;
    QPdfWriter writer(device);
    writer.setResolution(screenResolution);
    writer.setPageSize(QPageSize(QSizeF(widget->size()) * pointsPerPixel, QPageSize::Point));
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    widget->render(&painter);
    return painter.end();
}

} // namespace

QString PictureExport::fileFilter()
{
    return Text::tr("PNG (*.png);;SVG (*.svg);;PDF (*.pdf)");
}

bool PictureExport::save(QWidget *widget, const QString &path, QString *error)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        *error = Text::tr("%1 cannot be written: %2. Choose another file.")
                     .arg(path, file.errorString());
        return false;
    }
    bool drawn = false;
    if (suffix == QLatin1String("png"))
        drawn = drawPng(widget, &file);
    else if (suffix == QLatin1String("svg"))
        drawn = drawSvg(widget, &file);
    else if (suffix == QLatin1String("pdf"))
        drawn = drawPdf(widget, &file);
    else
        *error = Text::tr("%1: the name of a picture must end in .png, .svg or "
                          ".pdf")
                     .arg(path);
    if (drawn && file.commit())
        return true;
    if (error->isEmpty())
        *error = Text::tr("%1 cannot be written: %2. Choose another file.")
                     .arg(path, file.errorString());
    return false;
}

bool PictureExport::print(QWidget *widget, QPagedPaintDevice *page)
{
    QPainter painter;
    if (!painter.begin(page))
        return false;
    const double scale = std::min(double(page->width()) / widget->width(),
                                  double(page->height()) / widget->height());
    painter.scale(scale, scale);
    widget->render(&painter);
    return painter.end();
}

void PictureExport::copy(QWidget *widget)
{
    QGuiApplication::clipboard()->setPixmap(widget->grab());
}

} // namespace Monitor
