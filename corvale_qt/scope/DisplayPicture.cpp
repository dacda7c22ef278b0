// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/DisplayPicture.h"

#include "corvale_qt/scope/LegendDelegate_p.h"
#include "corvale_qt/scope/LegendModel_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"
#include "corvale_qt/scope/ScopeLegend.h"

#include <qwt_plot_canvas.h>

#include <QFontInfo>
#include <QList>
#include <QPaintEngine>
#include <QPainter>
#include <QPicture>
#include <QPointer>
#include <QScrollBar>
#include <QStyleOptionViewItem>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace Corvale_Qt {

namespace {

constexpr int pictureMargin = 6; // around the lines of text

QPalette lightPalette()
{
    return {Qt::black,
            QColor(239, 239, 239),
            Qt::white,
            Qt::darkGray,
            Qt::gray,
            Qt::black,
            Qt::black,
            Qt::white,
            Qt::white};
}

QPalette darkPalette()
{
    const QColor text(230, 230, 230);
    const QColor ground(48, 50, 54);
    return {text,
            ground,
            ground.lighter(150),
            ground.darker(180),
            ground.darker(130),
            text,
            Qt::white,
            QColor(30, 32, 35),
            ground};
}

//! Returns the view itself, if the display is one, and those in it that can be seen.
QList<RVXScopePlotView *> viewsIn(QWidget *display)
{
    QList<RVXScopePlotView *> views;
    if (auto *view = qobject_cast<RVXScopePlotView *>(display))
        views.append(view);
    for (RVXScopePlotView *view : display->findChildren<RVXScopePlotView *>()) {
        if (view->isVisibleTo(display))
            views.append(view);
    }
    return views;
}

//! Gives a display other colours, as long as it lives.
class BorrowedColors
{
public:
    BorrowedColors(QWidget *display, DisplayPicture::Colors colors)
        : m_display(colors == DisplayPicture::Colors::AsShown ? nullptr : display)
    {
        if (!m_display)
            return;
        m_hadPalette = m_display->testAttribute(Qt::WA_SetPalette);
        m_palette = m_display->palette();
        const bool isLight = colors == DisplayPicture::Colors::Light;
        m_display->setPalette(isLight ? lightPalette() : darkPalette());
        const QList<RVXScopePlotView *> views = viewsIn(m_display);
        for (RVXScopePlotView *view : views) {
            m_canvases.push_back({view, view->hasLightCanvas()});
            view->setLightCanvas(isLight);
        }
    }
    ~BorrowedColors()
    {
        if (!m_display)
            return;
        for (const Canvas &canvas : m_canvases) {
            if (canvas.view)
                canvas.view->setLightCanvas(canvas.wasLight);
        }
        m_display->setPalette(m_hadPalette ? m_palette : QPalette());
    }
    Q_DISABLE_COPY(BorrowedColors)

private:
    struct Canvas
    {
        QPointer<RVXScopePlotView> view;
        bool wasLight;
    };

    const QPointer<QWidget> m_display;
    QPalette m_palette;
    bool m_hadPalette = false;
    std::vector<Canvas> m_canvases;
};

bool isPixels(const QPainter &painter)
{
    return painter.paintEngine()->type() == QPaintEngine::Raster;
}

/*! Draws a display and what lies in it as lines and letters, each widget by itself: what QWidget::render() draws of all of them
    is an image of all the dots on the page of a printer, and in other drawings loses what follows a clipped text, since the place
    of a widget is added to its clip once more. */
void drawStrokes(QPainter *painter, QWidget *widget, QWidget::RenderFlags flags)
{
    QPicture strokes;
    QPainter recorder(&strokes);
    widget->render(&recorder, QPoint(), QRegion(), flags);
    recorder.end();
    painter->save();
    painter->setClipRect(widget->rect(), Qt::IntersectClip);
    // A picture is played as large as it was on the screen, on paper as well.
    const double zoom = double(strokes.logicalDpiX()) / painter->device()->logicalDpiX();
    painter->scale(zoom, zoom);
    painter->drawPicture(0, 0, strokes);
    painter->restore();
    for (QObject *child : widget->children()) {
        auto *part = qobject_cast<QWidget *>(child);
        if (!part || part->isWindow() || !part->isVisibleTo(widget))
            continue;
        painter->save();
        painter->translate(part->pos());
        drawStrokes(painter, part, {});
        painter->restore();
    }
}

//! Takes away what belongs to the pointer, which no picture has, as long as it lives.
class WithoutPointer
{
public:
    explicit WithoutPointer(const QWidget *display)
    {
        for (const char *name : {"hoverCursor", "hoverLine"})
            for (QWidget *part : display->findChildren<QWidget *>(QLatin1String(name)))
                if (!part->isHidden())
                    m_parts.append(part);
        setShown(false);
    }
    ~WithoutPointer() { setShown(true); }
    Q_DISABLE_COPY(WithoutPointer)

private:
    void setShown(bool shown)
    {
        for (QWidget *part : qAsConst(m_parts))
            part->setVisible(shown);
    }

    QList<QWidget *> m_parts;
};

//! Covers the scroll bars of charts, which stand for nothing on paper.
void coverScrollBars(QPainter *painter, QWidget *display)
{
    const QList<RVXScopePlotView *> views = viewsIn(display);
    for (const RVXScopePlotView *view : views) {
        const QScrollBar *bar = view->horizontalScrollBar();
        if (bar->isVisibleTo(display))
            painter->fillRect(QRect(bar->mapTo(display, QPoint()), bar->size()),
                              display->palette().window());
    }
}

/*! Has plots draw their curves while it lives, where they would copy the pixels of the screen: pages and drawings then have lines,
    which stay sharp at any size. */
class DrawnCurves
{
public:
    DrawnCurves(QWidget *display, const QPainter &painter)
    {
        if (isPixels(painter))
            return;
        for (auto *canvas : display->findChildren<QwtPlotCanvas *>()) {
            if (canvas->testPaintAttribute(QwtPlotCanvas::BackingStore))
                m_canvases.push_back(canvas);
        }
        setCopied(false);
    }
    ~DrawnCurves() { setCopied(true); }
    Q_DISABLE_COPY(DrawnCurves)

private:
    void setCopied(bool copied)
    {
        for (const QPointer<QwtPlotCanvas> &canvas : m_canvases) {
            if (canvas)
                canvas->setPaintAttribute(QwtPlotCanvas::BackingStore, copied);
        }
    }

    std::vector<QPointer<QwtPlotCanvas>> m_canvases;
};

//! Returns a font of the same size in pixels of the screen: one in points would grow with the resolution of a printer.
QFont inPixels(QFont font)
{
    font.setPixelSize(QFontInfo(font).pixelSize());
    return font;
}

//! Returns whether a legend on the screen already lists all channels of a view.
bool showsWholeLegend(const RVXScopePlotView &view)
{
    const auto *legend = view.findChild<ScopeLegend *>();
    return legend && legend->isVisibleTo(&view) && legend->verticalScrollBar()->maximum() == 0;
}

//! The legend of a view in columns as wide as the picture has room for, without the channels that are hidden.
class PictureLegend
{
public:
    PictureLegend(const RVXScopePlotView &view, bool onWhite, int width)
    {
        m_option.font = inPixels(view.font());
        m_option.fontMetrics = QFontMetrics(m_option.font);
        m_model.takeLook(&view);
        m_model.setOnWhite(onWhite);
        m_model.setSource(view.model());
        for (int row = 0; row < m_model.rowCount(); ++row) {
            if (m_model.index(row).data(Qt::CheckStateRole).toInt() != Qt::Unchecked)
                m_rows.push_back(row);
        }
        if (m_rows.empty())
            return;
        m_cell = m_delegate.sizeHint(m_option, m_model.index(0));
        m_columns = std::max(width / std::max(m_cell.width(), 1), 1);
    }

    int height() const
    {
        const int lines = (int(m_rows.size()) + m_columns - 1) / m_columns;
        return lines * m_cell.height();
    }
    void paint(QPainter *painter, const QPoint &topLeft, const QPalette &palette) const
    {
        QStyleOptionViewItem option = m_option;
        option.palette = palette;
        option.state = QStyle::State_Enabled | QStyle::State_Active;
        for (int i = 0; i < int(m_rows.size()); ++i) {
            const QPoint cell(i % m_columns * m_cell.width(), i / m_columns * m_cell.height());
            option.rect = QRect(topLeft + cell, m_cell);
            m_delegate.paint(painter, option, m_model.index(m_rows[size_t(i)]));
        }
    }

private:
    LegendModel m_model;
    LegendDelegate m_delegate;
    QStyleOptionViewItem m_option;
    std::vector<int> m_rows;
    QSize m_cell;
    int m_columns = 1;
};

} // namespace

class DisplayPicturePrivate
{
public:
    bool hasHeading() const { return !title.isEmpty() || !note.isEmpty(); }
    int headingHeight() const
    {
        return hasHeading() ? QFontMetrics(titleFont()).height() + 2 * pictureMargin : 0;
    }
    QFont titleFont() const;
    std::vector<std::unique_ptr<PictureLegend>> legends() const;
    int shownHeight() const;
    void paintHeading(QPainter *painter) const;

    QPointer<QWidget> display;
    QString title;
    QString note;
    bool hasLegend = false;
    DisplayPicture::Colors colors = DisplayPicture::Colors::AsShown;
};

QFont DisplayPicturePrivate::titleFont() const
{
    QFont font = inPixels(display->font());
    font.setBold(true);
    return font;
}

//! Returns the legends that are painted below the display.
std::vector<std::unique_ptr<PictureLegend>> DisplayPicturePrivate::legends() const
{
    std::vector<std::unique_ptr<PictureLegend>> legends;
    const QList<RVXScopePlotView *> views = viewsIn(display);
    for (const RVXScopePlotView *view : views) {
        const bool hasChannels = view->plotMode() <= RVXScopePlotView::HistogramMode;
        if (!hasLegend || !hasChannels || showsWholeLegend(*view))
            continue;
        const bool onWhite = colors == DisplayPicture::Colors::AsShown
            ? view->hasLightCanvas()
            : colors == DisplayPicture::Colors::Light;
        legends.push_back(std::make_unique<PictureLegend>(*view, onWhite, display->width()));
    }
    return legends;
}

/*! Returns how much of the display's height the picture has: a legend at its foot that shows only some of the channels gives its place to
    the whole one. */
int DisplayPicturePrivate::shownHeight() const
{
    const auto *view = qobject_cast<const RVXScopePlotView *>(display.data());
    const auto *legend = view ? view->findChild<ScopeLegend *>() : nullptr;
    const bool isReplaced = legend && legend->isVisibleTo(view) && !legends().empty();
    return isReplaced ? legend->mapTo(view, QPoint()).y() : display->height();
}

void DisplayPicturePrivate::paintHeading(QPainter *painter) const
{
    const QRect place = QRect(0, 0, display->width(), headingHeight())
                            .adjusted(pictureMargin, 0, -pictureMargin, 0);
    painter->setPen(display->palette().color(QPalette::WindowText));
    painter->setFont(inPixels(display->font()));
    const int noteWidth = std::min(painter->fontMetrics().horizontalAdvance(note), place.width());
    painter->drawText(place,
                      Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(note, Qt::ElideRight, place.width()));
    painter->setFont(titleFont());
    const int room = std::max(place.width() - noteWidth - 2 * pictureMargin, 0);
    painter->drawText(place,
                      Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(title, Qt::ElideMiddle, room));
}

DisplayPicture::DisplayPicture(QWidget *display)
    : d(new DisplayPicturePrivate)
{
    d->display = display;
}

DisplayPicture::~DisplayPicture() = default;

void DisplayPicture::setTitle(const QString &title)
{
    d->title = title;
}

void DisplayPicture::setNote(const QString &note)
{
    d->note = note;
}

void DisplayPicture::setLegendVisible(bool visible)
{
    d->hasLegend = visible;
}

void DisplayPicture::setColors(Colors colors)
{
    d->colors = colors;
}

QSize DisplayPicture::size() const
{
    if (!d->display)
        return QSize(0, 0);
    int height = d->headingHeight() + d->shownHeight();
    for (const auto &legend : d->legends())
        height += legend->height() + pictureMargin;
    return {d->display->width(), height};
}

void DisplayPicture::paint(QPainter *painter) const
{
    if (!d->display)
        return;
    const QSize whole = size();
    const BorrowedColors colors(d->display, d->colors);
    const DrawnCurves curves(d->display, *painter);
    const WithoutPointer withoutPointer(d->display);
    const QPalette palette = d->display->palette();
    painter->save();
    if (whole != d->display->size())
        painter->fillRect(QRect(QPoint(), whole), palette.window());
    if (d->hasHeading())
        d->paintHeading(painter);
    painter->translate(0, d->headingHeight());
    if (isPixels(*painter))
        d->display->render(painter);
    else
        drawStrokes(painter, d->display, QWidget::DrawWindowBackground);
    coverScrollBars(painter, d->display);
    // Some drawings know no clips, so that what is cut off would go on below the display.
    painter->fillRect(QRect(QPoint(0, d->shownHeight()), whole), palette.window());
    painter->translate(0, -d->headingHeight());
    int y = d->headingHeight() + d->shownHeight() + pictureMargin;
    for (const auto &legend : d->legends()) {
        legend->paint(painter, {0, y}, palette);
        y += legend->height() + pictureMargin;
    }
    painter->restore();
}

} // namespace Corvale_Qt
