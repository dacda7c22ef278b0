// SPDX-License-Identifier: LGPL-2.1-or-later
// Plays a treatment plan spot by spot and layer by layer, beside the plan. Page Up and Page Down change the layer.
//     spot_map [plan.csv]      columns: beam,layer,energy_MeV,spot,x_mm,y_mm,mu,sigma_x_mm,sigma_y_mm

#include "../common/RunExample.h"
#include <corvale_qt/SpotMapView>
#include <corvale_qt/SpotMapWidget>

#include <QApplication>
#include <QFile>
#include <QSplitter>
#include <QStandardItemModel>
#include <QTimer>

#include <cmath>

using namespace Corvale_Qt;
using Spot = SpotMapView::MapSpot;
using Plan = QVector<QVector<Spot>>; // the spots of each layer

namespace {

Plan readPlan(const QString &fileName)
{
    Plan plan;
    QFile file(fileName);
    if (!fileName.isEmpty() && file.open(QIODevice::ReadOnly))
        file.readLine(); // the names of the columns
    QByteArrayList previous;
    while (file.isOpen() && !file.atEnd()) {
        const QByteArrayList fields = file.readLine().split(',');
        QVector<float> number;
        for (const QByteArray &field : fields)
            number << field.toFloat();
        if (fields.mid(0, 2) != previous) // another beam, or another layer
            plan << QVector<Spot>();
        plan.last() << Spot{number.value(4), number.value(5), number.value(6), number.value(7)};
        previous = fields.mid(0, 2);
    }
    if (plan.isEmpty()) {
        qInfo("No plan, so here is a square field.");
        plan.resize(1);
        for (int row = 0; row < 11; ++row) {
            for (int column = 0; column < 11; ++column)
                plan[0] << Spot{column * 6.0F - 30.0F, row * 6.0F - 30.0F, 20.0F, 4.0F};
        }
    }
    return plan;
}

void append(QStandardItemModel &model, const Spot &spot, float doseFactor)
{
    QList<QStandardItem *> row; // in the order of SpotMapView::MapColumn, which counts from 1
    for (const float value : {0.0F, spot.sigma, spot.x, spot.y, spot.dose * doseFactor}) {
        row << new QStandardItem;
        row.last()->setData(value, Qt::UserRole);
    }
    model.appendRow(row);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const Plan plan = readPlan(QApplication::arguments().value(1));
    QStandardItemModel planned, delivered;
    QSplitter window;
    auto *left = new SpotMapWidget(&window);
    auto *right = new SpotMapWidget(&window);
    left->spotMapView()->setModel(&planned);
    left->spotMapView()->setPathColor(QColor(255, 190, 0));
    right->spotMapView()->setModel(&delivered);
    right->setDiffTarget(left);
    int layer = 0;
    const auto step = [&](int layers) {
        layer = qBound(0, layer + layers, plan.size() - 1);
        planned.clear();
        delivered.clear();
        for (const Spot &spot : plan[layer])
            append(planned, spot, 1.0F);
        left->setTitle(QString("Planned, layer %1").arg(layer + 1));
        right->setTitle(QString("Delivered, layer %1").arg(layer + 1));
    };
    step(0);
    QObject::connect(left, &SpotMapWidget::layerChange, &window, step);
    QObject::connect(right, &SpotMapWidget::layerChange, &window, step);
    QTimer beam;
    QObject::connect(&beam, &QTimer::timeout, &window, [&] {
        if (delivered.rowCount() == plan[layer].size())
            step(+1);
        const Spot &spot = plan[layer].at(delivered.rowCount());
        append(delivered, spot, 1.0F + 0.1F * std::sin(spot.x)); // a dose that wavers
        right->setXvalue(QString::number(double(spot.x), 'f', 2));
        right->setYvalue(QString::number(double(spot.y), 'f', 2));
        right->setDoseValue(QString::number(double(spot.dose), 'f', 2));
    });
    beam.start(20);
    window.resize(1000, 560);
    return runExample(window);
}
