// SPDX-License-Identifier: LGPL-2.1-or-later
// The titles of merged channels.
#include "corvale_qt/models/RVXSingleChannelDataModel.h"
#include "corvale_qt/proxies/RVXAveragingProxyModel.h"
#include "corvale_qt/proxies/RVXLatestPlotDataProxyModel.h"
#include "corvale_qt/proxies/RVXMultichannelProxyModel.h"
#include "tests/support/BufferModel.h"
#include "tests/support/ModelLog.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

//! A model whose second channel has a title.
class TitledModel : public BufferModel
{
public:
    TitledModel()
        : BufferModel(2)
    {
    }
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override
    {
        const bool isTitle = index.row() == 0 && index.column() == 2 && role == Qt::DisplayRole;
        return isTitle ? QStringLiteral("halo left") : BufferModel::data(index, role);
    }
};

//! Returns the titles of all channels as the header row and as the header give them, which must be the same.
QString titles(const QAbstractItemModel &model)
{
    QStringList row;
    QStringList header;
    for (int column = 1; column < model.columnCount(); ++column) {
        row << model.index(0, column).data().toString();
        header << model.headerData(column, Qt::Horizontal).toString();
    }
    return row == header ? row.join(", ") : row.join(", ") + " but " + header.join(", ");
}

} // namespace

class tst_MergedNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titlesAreNumbersOrNames()
    {
        RVXSingleChannelDataModel named;
        named.setChannelName("cup 1");
        named.AddData(1, 7);
        RVXSingleChannelDataModel nameless;
        RVXSingleChannelDataModel withProperty;
        withProperty.setChannelName("hidden by the property");
        withProperty.setProperty("channel", "QV1/current");
        TitledModel titled;
        titled.setProperty("channel", "of no use for two channels");
        RVXAveragingProxyModel average;
        average.setSourceModel(&named);
        RVXMultichannelProxyModel inner;
        inner.addSourceModel(&nameless, 1);
        inner.addSourceModel(&named, 1);

        RVXMultichannelProxyModel merged;
        const QAbstractItemModelTester tester(&merged);
        for (QAbstractItemModel *source : {static_cast<QAbstractItemModel *>(&named),
                                           static_cast<QAbstractItemModel *>(&nameless),
                                           static_cast<QAbstractItemModel *>(&withProperty),
                                           static_cast<QAbstractItemModel *>(&average)})
            merged.addSourceModel(source, 1);
        merged.addSourceModel(&titled, 1);
        merged.addSourceModel(&titled, 2);
        merged.addSourceModel(&inner, 1);
        merged.addSourceModel(&inner, 2);
        merged.addSourceModel(&named, 9); // a column that the model does not have
        QCOMPARE(titles(merged), QString("1, 1, 1, 1, ch1, halo left, 1, 1, "));

        merged.setShowNames(true);
        QCOMPARE(titles(merged),
                 QString("cup 1, 1, QV1/current, cup 1, ch1, halo left, 1, cup 1, "));
        QCOMPARE(merged.headerData(0, Qt::Horizontal), inner.headerData(0, Qt::Horizontal));
        QCOMPARE(merged.index(1, 1).data(), named.index(1, 1).data());

        // A table of readings on top shows, and drags, the names.
        RVXLatestPlotDataProxyModel latest;
        latest.setSourceModel(&merged);
        QCOMPARE(latest.index(0, 0).data().toString(), QString("cup 1"));
        merged.setShowNames(false);
        QCOMPARE(titles(merged), QString("1, 1, 1, 1, ch1, halo left, 1, 1, "));
    }

    void changesAreAnnounced()
    {
        RVXSingleChannelDataModel first;
        RVXSingleChannelDataModel second;
        RVXAveragingProxyModel average;
        average.setSourceModel(&second);
        RVXMultichannelProxyModel merged;
        merged.setShowNames(true);
        merged.setShowNames(false);
        merged.addSourceModel(&first, 1);
        merged.addSourceModel(&average, 1);
        ModelLog log(&merged);
        QSignalSpy spy(&merged, &RVXMultichannelProxyModel::showNamesChanged);

        QVERIFY(merged.setProperty("showNames", true));
        QVERIFY(merged.setProperty("showNames", true));
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.first().first().toBool(), true);
        QCOMPARE(log.take(), QString("header 1-2, changed (0,1)-(0,2) with roles"));
        second.setChannelName("cup 2");
        second.setChannelName("cup 2");
        QCOMPARE(log.take(), QString("header 2-2, changed (0,2)-(0,2) with roles"));
        QCOMPARE(titles(merged), QString("1, cup 2"));
    }
};

CORVALE_QT_TEST_MAIN(tst_MergedNames)
#include "tst_MergedNames.moc"
