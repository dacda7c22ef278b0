// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/Symbols.h"

#include <QAbstractButton>
#include <QApplication>
#include <QIconEngine>
#include <QMap>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace Monitor {

namespace {

//! Lines on a grid of 24 by 24, drawn with a pen of width 2.
const QMap<QString, QByteArray> &shapes()
{
    static const QMap<QString, QByteArray> all = {
        {"open", "M3 19V5h6l2 3h9v3M3 19l4-8h15l-3 8z"},
        {"connect", "M4 12h5M15 12h5M9 7v10h3a5 5 0 0 0 0-10zM15 9v6"},
        {"again", "M5 12a7 7 0 1 0 2-5M7 3v4h4"},
        {"close", "M6 6l12 12M18 6L6 18"},
        {"record", "M12 5a7 7 0 1 0 .01 0zM12 10a2 2 0 1 0 .01 0z"},
        {"picture", "M3 5h18v14H3zM3 17l6-6 4 4 3-3 5 5M8 8.5h.01"},
        {"print", "M7 9V3h10v6M7 17H4V9h16v8h-3M7 14h10v7H7z"},
        {"save", "M5 4h11l3 3v13H5zM8 4v5h7V4M8 20v-6h8v6"},
        {"float", "M8 4h12v12H8zM8 8H4v12h12v-4"},
        {"settings", "M4 7h8M16 7h4M14 4v6M4 17h4M12 17h8M10 14v6"},
        {"quit", "M10 4H4v16h6M10 12h10M16 8l4 4-4 4"},
        {"copy", "M9 9h11v11H9zM15 9V4H4v11h5"},
        {"undo", "M9 5L4 10l5 5M4 10h10a5 5 0 0 1 0 10h-4"},
        {"clear", "M5 7h14M9 7V4h6v3M7 7l1 13h8l1-13"},
        {"pause", "M8 5v14M16 5v14"},
        {"time", "M12 4a8 8 0 1 0 .01 0zM12 8v4l3 3"},
        {"fullscreen", "M4 9V4h5M15 4h5v5M20 15v5h-5M9 20H4v-5"},
        {"numbers", "M5 8l3-2v12M13 6h6v5h-6v7h6"},
        {"zero", "M4 19h16M12 4v11M8 11l4 4 4-4"},
        {"background", "M3 18c5 0 5-12 9-12s4 12 9 12M3 21h18"},
        {"help", "M9 9a3 3 0 1 1 4 3c-1 .5-1 1-1 2.500M12 18h.01"},
    };
    return all;
}

class SymbolEngine : public QIconEngine
{
public:
    explicit SymbolEngine(const QByteArray &shape)
        : m_shape(shape)
    {
    }
    QIconEngine *clone() const override { return new SymbolEngine(m_shape); }
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const QPalette palette = QApplication::palette();
        const QColor colour = mode == QIcon::Disabled
            ? palette.color(QPalette::Disabled, QPalette::WindowText)
            : mode == QIcon::Selected ? palette.color(QPalette::HighlightedText)
                                      : palette.color(QPalette::WindowText);
        QSvgRenderer renderer(
            "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 24 24\"><path fill=\"none\" "
            "stroke-width=\"2\" stroke-linecap=\"round\" stroke-linejoin=\"round\" stroke=\""
            + colour.name().toLatin1() + "\" d=\"" + m_shape + "\"/></svg>");
        renderer.render(painter, rect);
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), mode, state);
        return picture;
    }

private:
    const QByteArray m_shape;
};

} // namespace

QIcon symbol(const QString &name)
{
    const QByteArray shape = shapes().value(name);
    return shape.isEmpty() ? QIcon() : QIcon(new SymbolEngine(shape));
}

void giveSymbols(QWidget *part)
{
    // Buttons that parts of the library and of Qt have, by their object names.
    static const QMap<QString, QString> symbols = {{"clearButton", "clear"},
                                                   {"saveButton", "save"},
                                                   {"confButton", "settings"},
                                                   {"zeroButton", "zero"},
                                                   {"clearPushButton", "clear"},
                                                   {"qt_dockwidget_closebutton", "close"},
                                                   {"qt_dockwidget_floatbutton", "float"}};
    for (QAbstractButton *button : part->findChildren<QAbstractButton *>())
        if (symbols.contains(button->objectName()))
            button->setIcon(symbol(symbols.value(button->objectName())));
}

} // namespace Monitor
