// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/PictureExport.h"

#include "monitor/core/LoggedText.h"
#include "monitor/core/Text.h"
#include <corvale_qt/scope/DisplayPicture.h>

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QPixmap>
#include <QSaveFile>
#include <QSvgGenerator>

#include <algorithm>

namespace Monitor {

using Corvale_Qt::DisplayPicture;

namespace {

constexpr int screenResolution = 96; // makes one unit of a page or drawing one pixel of the screen

//! Returns the picture with the pixels of the screen.
QPixmap pixmapOf(const DisplayPicture &picture)
{
    const qreal ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap(picture.size() * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    picture.paint(&painter);
    return pixmap;
}

bool drawPng(const DisplayPicture &picture, QIODevice *device)
{
    return pixmapOf(picture).save(device, "PNG");
}

bool drawSvg(const DisplayPicture &picture, QIODevice *device)
{
    QSvgGenerator generator;
    generator.setOutputDevice(device);
    generator.setResolution(screenResolution); // fonts in points are as large as on the screen
    generator.setSize(picture.size());
    generator.setViewBox(QRect(QPoint(), picture.size()));
    QPainter painter;
    if (!painter.begin(&generator))
        return false;
    picture.paint(&painter);
    return painter.end();
}

bool drawPdf(const DisplayPicture &picture, QIODevice *device)
{
    constexpr double pointsPerPixel = 72.0 / screenResolution;
    QPdfWriter writer(device);
    writer.setResolution(screenResolution);
    writer.setPageSize(QPageSize(QSizeF(picture.size()) * pointsPerPixel, QPageSize::Point));
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    picture.paint(&painter);
    return painter.end();
}

} // namespace

QString PictureExport::fileFilter()
{
    return Text::tr("PNG (*.png);;SVG (*.svg);;PDF (*.pdf)");
}

bool PictureExport::save(const DisplayPicture &picture, const QString &path, QString *error)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        *error = Text::tr("%1 cannot be written: %2. Choose another file.")
                     .arg(path, LoggedText::ofSystem(file.errorString()).now());
        return false;
    }
    bool drawn = false;
    if (suffix == QLatin1String("png"))
        drawn = drawPng(picture, &file);
    else if (suffix == QLatin1String("svg"))
        drawn = drawSvg(picture, &file);
    else if (suffix == QLatin1String("pdf"))
        drawn = drawPdf(picture, &file);
    else
        *error = Text::tr("%1: the name of a picture must end in .png, .svg or "
                          ".pdf")
                     .arg(path);
    if (drawn && file.commit())
        return true;
    if (error->isEmpty())
        *error = Text::tr("%1 cannot be written: %2. Choose another file.")
                     .arg(path, LoggedText::ofSystem(file.errorString()).now());
    return false;
}

bool PictureExport::print(const DisplayPicture &picture, QPagedPaintDevice *page)
{
    QPainter painter;
    if (!painter.begin(page))
        return false;
    const double scale = std::min(double(page->width()) / picture.size().width(),
                                  double(page->height()) / picture.size().height());
    painter.scale(scale, scale);
    painter.setClipRect(QRect(QPoint(), picture.size())); // the rest of the page stays white
    picture.paint(&painter);
    return painter.end();
}

void PictureExport::copy(const DisplayPicture &picture)
{
    QGuiApplication::clipboard()->setPixmap(pixmapOf(picture));
}

} // namespace Monitor
