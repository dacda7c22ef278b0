// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QRectF>
#include <QWidget>

#include <memory>

namespace Corvale_Qt {

class SpotMapView;
class SpotMapWidgetPrivate;

/*! A spot map with a title, scales in millimetres along its edges, and fields for the position and dose of the
    beam, which the host fills. While the map is compared with another one, buttons choose the display mode.

    The keys Page Up and Page Down ask the host for another layer of the plan.

    \code
    SpotMapWidget delivered;
    delivered.setTitle("Delivered");
    delivered.spotMapView()->setModel(&spots);
    delivered.setDiffTarget(&planned);
    connect(&delivered, &SpotMapWidget::layerChange, plan, &Plan::stepLayer);
    \endcode */
class CORVALE_QT_EXPORT SpotMapWidget : public QWidget
{
    Q_OBJECT

public:
    //! Creates a widget whose map has no spots.
    explicit SpotMapWidget(QWidget *parent = nullptr);
    ~SpotMapWidget() override;

    //! Returns the map, whose model and colours the host sets. The widget owns it.
    SpotMapView *spotMapView() const;

    //! Sets the title above the map. As in all fields, the text is shown as plain text.
    void setTitle(const QString &title);
    //! Sets the text of the field for the x position of the beam.
    void setXvalue(const QString &value);
    //! Sets the text of the field for the y position of the beam.
    void setYvalue(const QString &value);
    //! Sets the text of the field for the dose.
    void setDoseValue(const QString &value);
    /*! Sets the unit of the doses, for example "MU", as the field and the legend show it. Without a call the field says Gp, as
        hosts know it. */
    void setDoseUnit(const QString &unit);
    //! Sets whether a legend below the map says what its colours mean; at first it does not.
    void setLegendVisible(bool visible);
    //! Returns whether there is a legend.
    bool isLegendVisible() const;
    //! Sets the widget to whose map this one is compared. It is not owned. Null ends the comparison.
    void setDiffTarget(SpotMapWidget *target);

Q_SIGNALS:
    //! Emitted when the user asks for another layer: \a step is +1 for Page Up and -1 for Page Down.
    void layerChange(int step);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void updateScale(QRectF bounds);

private:
    Q_DECLARE_PRIVATE(SpotMapWidget)
    const std::unique_ptr<SpotMapWidgetPrivate> d_ptr;
};

} // namespace Corvale_Qt
