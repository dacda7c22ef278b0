// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/SpotMapView.h"

#include <QBrush>
#include <QString>
#include <QVector>
#include <QWidget>

namespace Corvale_Qt {

/*! Says what the colours of a spot map mean: a bar with the colours of the doses from 0 to the largest one, in a difference
    the colours below and above the target, and both over each other where the map shows both. They are those of a spot that
    overlaps no other: spots that do are brighter, and their differences darker. Its accessible name has the texts at the ends. */
class SpotLegend : public QWidget
{
    Q_OBJECT

public:
    //! \a view must outlive the legend.
    explicit SpotLegend(const SpotMapView &view, QWidget *parent = nullptr);

    //! Sets the unit of the doses; may be empty.
    void setUnit(const QString &unit);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    //! A bar and the texts at its ends.
    struct Scale
    {
        QString left;
        QString right;
        QGradientStops colors;
    };

    void refresh();
    QVector<Scale> scales() const;
    Scale doses() const;
    //! The map adds its differences with this opacity to what lies below.
    Scale differences(const QColor &below, double opacity) const;
    void paint(QPainter &painter, const Scale &scale, const QRect &row) const;
    int heightOfScale() const;
    QString withUnit(double dose) const;

    const SpotMapView &m_view;
    QString m_unit;
};

} // namespace Corvale_Qt
