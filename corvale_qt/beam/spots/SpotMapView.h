// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/beam/spots/SpotDifferences.h"
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

    Each row is one spot. Its position, dose and sigma are read with Qt::UserRole from the columns of MapColumn,
    or from those that a column mapper returns. A spot is not drawn if one of its fields is not finite or its sigma
    is not above 0. The map is a square in the units of the model, usually millimetres, that holds each spot with
    2.6 sigma around its centre. A text in its upper left corner tells what cannot be shown.

    The opacity of a spot grows with its dose up to 1.5 times the largest dose of the map; a spot with a negative
    dose is blue. The picture is kept between two paints: a paint without changes copies it, spots added at the end
    are drawn over it, and after any other change it is drawn again once.

    The picture is painted with OpenGL if available, otherwise in memory. The environment variable
    CORVALE_QT_NO_OPENGL=1 turns OpenGL off.

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
    //! One spot. It is not drawn unless all fields are finite and sigma is above 0.
    struct MapSpot
    {
        float x = 0.0F; //!< position to the right, in the units of the map
        float y = 0.0F; //!< position upwards, in the units of the map
        float dose = 0.0F; //!< dose, in any unit
        float sigma = 0.0F; //!< standard deviation of the spot, in the units of the map
    };

    //! The logical columns from which a spot is read.
    enum MapColumn : int {
        SigmaColumn = 1,
        XColumn = 2,
        YColumn = 3,
        DoseColumn = 4,
    };
    Q_ENUM(MapColumn)

    //! What the map shows.
    enum DisplayMode : int {
        //! The spots.
        Data = 0,
        //! The difference: blue where the dose is above that of the target, red where it is below.
        Difference = 1,
        //! The spots, and over them the difference at half opacity.
        DifferenceOverlay = 2,
    };
    Q_ENUM(DisplayMode)

    //! Creates a map without spots that shows Data.
    explicit SpotMapView(QWidget *parent = nullptr);
    ~SpotMapView() override;

    /*! Returns the square that the map shows, in the units of the model; its top() is the smallest y. It is empty
        without spots. In a comparison it holds the spots of both maps. */
    QRectF bounds() const;
    //! Returns the largest dose of the spots that are drawn, at least 0.
    float maxDose() const;
    /*! Returns the dose to which the opacities of the spots relate: maxDose(), or in a comparison the largest dose of both
        maps. */
    float doseScale() const;
    //! Returns the colour of spots with a positive dose.
    QColor spotColor() const;
    //! Returns the background of the picture.
    QColor backgroundColor() const;
    //! Returns the mode set with setDisplayMode(), at first Data.
    DisplayMode displayMode() const;

    //! Sets the background of the picture, at first black. The alpha of \a color is ignored; an invalid one is black.
    void setBackgroundColor(const QColor &color);
    //! Sets the colour of spots with a positive dose, at first white. An invalid \a color is white.
    void setSpotColor(const QColor &color);
    /*! Sets the colour of a thin line that joins the spots in the order of their rows. It is transparent at first,
        and with an invalid \a color: then there is no line. */
    void setPathColor(const QColor &color);
    /*! Sets the mapper that gives the model's columns, and takes ownership of it. With null, the columns of the
        model are the logical ones. */
    void setColumnMapper(SpotMapViewColumnMapper *mapper);
    /*! Sets the view to compare with. It is not owned; a call with null or its deletion ends the comparison and
        sets the mode to Data. Both maps are drawn in bounds that hold the spots of both, and on one dose scale,
        which depends on the larger of their largest doses. Their colours are not used. Emits
        diffTargetChanged(). */
    void setDiffTarget(const SpotMapView *target);
    /*! Returns how the spots differ from those of the target, in numbers; SpotDifferences says which spots belong together.
        Without a target nothing is computed. The numbers do not depend on the display mode nor on what is visible, are
        computed when they are asked for, and kept until one of the maps changes. */
    SpotDifferences differences() const;

    void setModel(QAbstractItemModel *model) override;

    // The interface of item views.
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
    //! Sets what is shown, and emits displayModeChanged() if it changed. Without a target every mode shows the spots.
    void setDisplayMode(Corvale_Qt::SpotMapView::DisplayMode mode);
    //! Sets the display mode by its number. A number that is not a mode is ignored.
    void setDisplayMode(int mode);

    void reset() override;
    void setRootIndex(const QModelIndex &index) override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;
    void dataChanged(const QModelIndex &topLeft,
                     const QModelIndex &bottomRight,
                     const QVector<int> &roles = QVector<int>()) override;

Q_SIGNALS:
    //! Emitted when bounds() has changed to \a bounds.
    void boundsChanged(QRectF bounds);
    //! Emitted once when control returns to the event loop after doseScale() may have changed.
    void doseScaleChanged();
    //! Emitted when displayMode() has changed to \a mode.
    void displayModeChanged(Corvale_Qt::SpotMapView::DisplayMode mode);
    //! Emitted after setDiffTarget() and after the deletion of the target. \a present tells whether there is a target.
    void diffTargetChanged(bool present);
    /*! Emitted once when control returns to the event loop after differences() may have changed: after changes of the spots
        of either map and of the target. */
    void differencesChanged();
    //! Emitted by the destructor while the spots still exist, for the views that compare with this one.
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
