// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/beam/spots/PositionErrorStatistics.h"
#include "corvale_qt/corvale_qt_export.h"

#include <QAbstractItemView>

#include <memory>

class QPolygonF;

namespace Corvale_Qt {

class RVXPositionErrorPlotPrivate;

/*! Shows how far the spots of a model lie from their planned positions. There is one dot for each row, the newest
    one highlighted, and a frame that shows the tolerance. Fields below the plot show the mean error of all spots and
    the beam energy of the newest one.

    The fields of a row are read with Qt::UserRole:

    | column | 1 | 2 | 3 | 4 | 5 | 6 |
    |---|---|---|---|---|---|---|
    | holds | energy, MeV | spot number | X error, mm | Y error, mm | planned X, mm | planned Y, mm |

    A dot beyond the axes is drawn as an empty circle at the edge of the plot. An error that is not a finite number
    is neither drawn nor included in the mean. A field without a value shows "N/A".

    \code
    auto *plot = new RVXPositionErrorPlot(parent);
    plot->setTolerance(2.0F, 1.5F);
    plot->setModel(errors);
    \endcode */
class CORVALE_QT_EXPORT RVXPositionErrorPlot : public QAbstractItemView
{
    Q_OBJECT

public:
    //! One row of the model.
    struct PositionErrorSpot
    {
        double xError = 0.0; //!< error in X in millimetres; NaN if unknown
        double yError = 0.0; //!< error in Y in millimetres; NaN if unknown
        double plannedX = 0.0; //!< planned X in millimetres
        double plannedY = 0.0; //!< planned Y in millimetres
        double spotNumber = 0.0; //!< number of the spot in its plan
        double energy = 0.0; //!< beam energy in MeV
    };

    //! Creates a plot without a model, a tolerance or dots.
    explicit RVXPositionErrorPlot(QWidget *parent = nullptr);
    ~RVXPositionErrorPlot() override;

    //! Shows dots at \a samples, the X and Y errors in millimetres, until the model changes.
    void setSamples(const QPolygonF &samples);
    /*! Sets half the width \a tx and half the height \a ty of the tolerance frame, in millimetres. Both must be
        above 0 and at most 1000, otherwise nothing changes. The axes extend to 1.2 times the tolerance, rounded up
        to a whole millimetre. Without a tolerance they follow the dots. */
    void setTolerance(float tx, float ty);

    /*! Returns means, spreads, the worst error and how many spots are outside of the tolerance, in millimetres, of all rows of
        the model. They are computed when they are asked for, whether the plot is visible or not, and kept until a row
        or the tolerance changes. Spots are counted from the first row. */
    PositionErrorStatistics statistics() const;

    void setModel(QAbstractItemModel *model) override;
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

    // The interface of item views.
    QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint &point) const override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;
    void paintEvent(QPaintEvent *event) override;

public Q_SLOTS:
    void reset() override;
    void setRootIndex(const QModelIndex &index) override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;
    void dataChanged(const QModelIndex &topLeft,
                     const QModelIndex &bottomRight,
                     const QVector<int> &roles = QVector<int>()) override;

Q_SIGNALS:
    //! Emitted once when control returns to the event loop after rows or the tolerance, and with them statistics(), changed.
    void statisticsChanged();

protected:
    //! Removes all dots until the model changes.
    void clearSpotData();

    bool isIndexHidden(const QModelIndex &index) const override;
    int horizontalOffset() const override;
    int verticalOffset() const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) override;
    void changeEvent(QEvent *event) override;

private:
    Q_DECLARE_PRIVATE(RVXPositionErrorPlot)
    const std::unique_ptr<RVXPositionErrorPlotPrivate> d_ptr;
};

} // namespace Corvale_Qt
