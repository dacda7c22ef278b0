// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/TestMain.h"
#include <corvale_qt/KLinkItemSelectionModel>
#include <corvale_qt/KModelIndexProxyMapper>
#include <corvale_qt/KWordWrap>

#include <QSortFilterProxyModel>
#include <QStringListModel>

//! A host reaches the three classes, and what they link to, by way of this library alone.
class tst_KdeClasses : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void selectionIsSharedThroughAProxy()
    {
        QStringListModel source({"b", "c", "a"});
        QSortFilterProxyModel sorted;
        sorted.setSourceModel(&source);
        sorted.sort(0);
        QItemSelectionModel selection(&source);
        KLinkItemSelectionModel linked(&sorted, &selection);

        linked.select(sorted.index(0, 0), QItemSelectionModel::Select);

        QCOMPARE(selection.selectedIndexes(), QModelIndexList({source.index(2, 0)}));
    }

    void indexesMapThroughAProxy()
    {
        QStringListModel source({"b", "a"});
        QSortFilterProxyModel sorted;
        sorted.setSourceModel(&source);
        sorted.sort(0);
        const KModelIndexProxyMapper mapper(&source, &sorted);
        QCOMPARE(mapper.mapLeftToRight(source.index(1, 0)), sorted.index(0, 0));
    }

    void textIsWrapped()
    {
        QFontMetrics metrics(QFont("DejaVu Sans", 9));
        const KWordWrap wrap =
            KWordWrap::formatText(metrics, QRect(0, 0, 60, 400), 0, "centre of gravity");
        QVERIFY(wrap.boundingRect().height() > metrics.height());
    }
};

CORVALE_QT_TEST_MAIN(tst_KdeClasses)
#include "tst_KdeClasses.moc"
