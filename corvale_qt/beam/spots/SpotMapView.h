// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QAbstractItemView>
#include <QColor>
#include <QRectF>

#include <memory>

namespace Corvale_Qt {

class SpotMapViewColumnMapper;
class SpotMapViewPrivate;

/*! Shows the spots of a model as Gaussian blobs on a square map, x to the right and y upwards, and how they
    differ from the spots of another view.

    One row is one spot; its position, dose and sigma are read with Qt::UserRole from the columns that
    MapColumn names, or that a column mapper gives. A spot whose fields are not all finite, or whose sigma
    is not above 0, keeps its row and is not drawn. The map is a square in the model's units (millimetres,
    where nothing else is said) that holds each spot's centre with 2.6 sigma around it. What cannot be shown is told
    in words in its upper left corner.

    A spot is the more opaque the higher its dose, up to 1.5 times the largest dose of the map; a negative
    dose is blue. The picture is kept: painting again costs a copy, a spot added at the end costs that spot,
    and anything else costs one redraw at the next paint.

    The picture is painted with OpenGL where that is to be had, else in memory; the environment variable
    CORVALE_QT_NO_OPENGL=1 asks for the latter.

    \code
    auto *view = new SpotMapView(parent);
    view->setModel(delivered);
    view->setDiffTarget(plannedView);
    view->setDisplayMode(SpotMapView::Difference);
    \endcode */
class CORVALE_QT_EXPORT SpotMapView : public QAbstractItemView
{
    Q_OBJECT

public:
    //! One spot; position and sigma in the map's units.
    struct MapSpot
    {
        float x = 0.0F;
        float y = 0.0F;
        float dose = 0.0F;
        float sigma = 0.0F;
    };

    //! The logical columns that a spot is read from.
    enum MapColumn {
        SigmaColumn = 1,
        XColumn = 2,
        YColumn = 3,
        DoseColumn = 4,
    };
    Q_ENUM(MapColumn)

    enum DisplayMode {
        //! The spots.
        Data = 0,
        //! Blue where the dose is above that of the target, red where it is below.
        Difference = 1,
        //! The spots with the difference over them at half opacity.
        DifferenceOverlay = 2,
    };
    Q_ENUM(DisplayMode)

    explicit SpotMapView(QWidget *parent = nullptr);
    ~SpotMapView() override;

    /*! The square that the map shows, in the model's units, top() being the smallest y; empty without
        spots. In a comparison it holds the spots of both maps. */
    QRectF bounds() const;
    //! The largest dose of the spots shown, never below 0.
    float maxDose() const;
    DisplayMode displayMode() const;

    //! The ground of the picture, black at first. Its opacity does not count.
    void setBackgroundColor(const QColor &color);
    //! White at first.
    void setSpotColor(const QColor &color);
    /*! Of a thin line that joins the spots in the order of their rows; transparent at first, as is an
        invalid colour: no line. */
    void setPathColor(const QColor &color);
    //! Where the fields of a spot lie. Takes ownership; null stands for the logical columns themselves.
    void setColumnMapper(SpotMapViewColumnMapper *mapper);
    /*! The view to compare with, which is not owned and should outlive this one; null, and its deletion,
        end the comparison and set the mode to Data. Both maps are compared in bounds that hold both, and on
        one dose scale, that of the larger largest dose. Colours play no part in it. */
    void setDiffTarget(const SpotMapView *target);

    void setModel(QAbstractItemModel *model) override;

    // The views' own interface.
    QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint &point) const override;
    bool isIndexHidden(const QModelIndex &index) const override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;
    void setupViewport(QWidget *viewport) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    //! Without a target, the spots are shown in every mode.
    void setDisplayMode(Corvale_Qt::SpotMapView::DisplayMode mode);
    //! The same by number; one that is no mode changes nothing.
    void setDisplayMode(int mode);

    void reset() override;
    void setRootIndex(const QModelIndex &index) override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;
    void dataChanged(const QModelIndex &topLeft,
                     const QModelIndex &bottomRight,
                     const QVector<int> &roles = QVector<int>()) override;

Q_SIGNALS:
    //! Only when they did change.
    void boundsChanged(QRectF bounds);
    void displayModeChanged(Corvale_Qt::SpotMapView::DisplayMode mode);
    //! Whether there is a view to compare with now.
    void diffTargetChanged(bool present);
    //! For the views that compare with this one: its spots are about to go.
    void aboutToBeDeleted(QPrivateSignal);

protected:
    int horizontalOffset() const override;
    int verticalOffset() const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    Q_DECLARE_PRIVATE(SpotMapView)
    const std::unique_ptr<SpotMapViewPrivate> d_ptr;
};

} // namespace Corvale_Qt
