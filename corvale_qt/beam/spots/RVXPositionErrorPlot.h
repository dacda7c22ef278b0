// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QAbstractItemView>

#include <memory>

class QPolygonF;

namespace Corvale_Qt {

class RVXPositionErrorPlotPrivate;

/*! Shows how far the spots of a model lie from where they were planned: one dot per row, the newest highlighted,
    against a frame of tolerance, with the mean error of all spots and the beam energy of the newest one.

    A row is read with Qt::UserRole:

    | column | 1 | 2 | 3 | 4 | 5 | 6 |
    |---|---|---|---|---|---|---|
    | holds | energy, MeV | spot number | X error, mm | Y error, mm | planned X, mm | planned Y, mm |

    A dot beyond the axes is an empty circle at their edge. What is no number, or not finite, is neither drawn
    nor part of a mean; "N/A" stands where there is nothing to show.

    \code
    auto *plot = new RVXPositionErrorPlot(parent);
    plot->setTolerance(2.0F, 1.5F);
    plot->setModel(errors);
    \endcode */
class CORVALE_QT_EXPORT RVXPositionErrorPlot : public QAbstractItemView
{
    Q_OBJECT

public:
    //! One row of the model, its fields in the order in which they are read; lengths in millimetres.
    struct PositionErrorSpot
    {
        double xError = 0.0;
        double yError = 0.0;
        double plannedX = 0.0;
        double plannedY = 0.0;
        double spotNumber = 0.0;
        //! MeV
        double energy = 0.0;
    };

    explicit RVXPositionErrorPlot(QWidget *parent = nullptr);
    ~RVXPositionErrorPlot() override;

    //! Shows these points, x and y errors in millimetres, until the model changes.
    void setSamples(const QPolygonF &samples);
    /*! Half the sides of the tolerance frame in millimetres; the axes reach 1.2 times as far, to the next
        whole millimetre. Both must be above 0 and not above 1000, otherwise nothing changes. Without a
        tolerance the axes follow the dots. */
    void setTolerance(float tx, float ty);

    void setModel(QAbstractItemModel *model) override;
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

    // The views' own interface.
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

protected:
    //! Drops all spots, until the model changes.
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
