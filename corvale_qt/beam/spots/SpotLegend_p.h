// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/beam/spots/SpotMapView.h"

#include <QWidget>

namespace Corvale_Qt {

/*! Says what the colours of a spot map mean: a bar with the colours of the doses from 0 to the largest one, or in a difference
    the colours below and above the target, with doses at its ends. Its accessible name has the texts at the ends. */
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
    void refresh();
    QString endText(bool right) const;
    bool isDifference() const;
    QString withUnit(double dose) const;
    QBrush barBrush(const QRectF &bar) const;

    const SpotMapView &m_view;
    QString m_unit;
};

} // namespace Corvale_Qt
