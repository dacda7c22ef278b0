// SPDX-License-Identifier: LGPL-2.1-or-later
// Channels are dragged from a table of current readings into a table of their samples, which is saved as one file.

#include "../common/RunExample.h"
#include <corvale_qt/AbstractChannelModelFactory>
#include <corvale_qt/RVXLatestPlotDataProxyModel>
#include <corvale_qt/RVXMultichannelProxyModel>
#include <corvale_qt/RVXSingleChannelDataModel>

#include <QApplication>
#include <QFileDialog>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>

#include <cmath>

using namespace Corvale_Qt;

namespace {

// A channel with its name and the readings that its device would send.
class NamedChannel : public RVXSingleChannelDataModel
{
public:
    using RVXSingleChannelDataModel::RVXSingleChannelDataModel;
    QVariant deviceSpecificData(const QModelIndex &index, int role) const override
    {
        if (index.row() == 0 && index.column() == 1 && role == Qt::DisplayRole)
            return channelName();
        return RVXSingleChannelDataModel::deviceSpecificData(index, role);
    }
    void timerEvent(QTimerEvent *) override
    {
        AddData(m_now, 1e-9 * (1.0 + std::sin(m_now + qHash(channelName(), 1) % 7)));
        m_now += 0.2;
    }

private:
    double m_now = 0.2; // 0 would start a new acquisition
};

// The factory that a proxy asks for the models of dropped names.
class ChannelFactory : public AbstractChannelModelFactory
{
public:
    QAbstractItemModel *createModel(const QStringList &names, int *column, QObject *parent) override
    {
        auto *channel = new NamedChannel(parent);
        channel->setChannelName(names.value(0));
        channel->setProperty("channel", names.value(0)); // for channelNames()
        channel->startTimer(200);
        if (column)
            *column = 1;
        return channel;
    }
};

QTableView *addTable(QGridLayout *layout, int column, QAbstractItemModel *model, const char *title)
{
    auto *table = new QTableView;
    table->setModel(model);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    layout->addWidget(new QLabel(title), 0, column);
    layout->addWidget(table, 1, column);
    return table;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    RVXMultichannelProxyModel all, merged;
    RVXLatestPlotDataProxyModel latest;
    all.setChannelModelFactory(new ChannelFactory);
    merged.setChannelModelFactory(new ChannelFactory);
    all.setChannelNames(
        {"Faraday cup", "Halo left", "Halo right", "Ion chamber 1", "Ion chamber 2"});
    merged.addChannel("Faraday cup");
    latest.setSourceModel(&all);
    QWidget window;
    auto *layout = new QGridLayout(&window);
    addTable(layout, 0, &latest, "Drag channels from here ...")->setDragEnabled(true);
    addTable(layout, 1, &merged, "... and drop them here")->setAcceptDrops(true);
    auto *save = new QPushButton("&Save as CSV ...");
    layout->addWidget(save, 2, 1, Qt::AlignRight);
    QObject::connect(save, &QPushButton::clicked, &window, [&] {
        const QString name = QFileDialog::getSaveFileName(&window, QString(), "channels.csv");
        if (!name.isEmpty() && !merged.SaveDataToFile(name))
            QMessageBox::warning(&window, window.windowTitle(), "Error saving data file.");
    });

    window.resize(900, 300);
    return runExample(window);
}
