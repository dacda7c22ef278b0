// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QRectF>
#include <QWidget>

#include <memory>

namespace Corvale_Qt {

class SpotMapView;
class SpotMapWidgetPrivate;

/*! A spot map with a title, scales in millimetres along its edges, a pane for what the host wants to tell
    of the beam, and, while there is a map to compare with, buttons for what is shown.

    Page Up and Page Down ask the host for another layer.

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
    explicit SpotMapWidget(QWidget *parent = nullptr);
    ~SpotMapWidget() override;

    //! The map itself, for its model and its colours.
    SpotMapView *spotMapView() const;

    //! Texts are shown as they are, never as markup.
    void setTitle(const QString &title);
    void setXvalue(const QString &value);
    void setYvalue(const QString &value);
    void setDoseValue(const QString &value);
    //! The widget whose map this one is compared with; it is not owned. Null ends the comparison.
    void setDiffTarget(SpotMapWidget *target);

Q_SIGNALS:
    //! +1 for Page Up, -1 for Page Down.
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
