// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/support/TestMain.h"
#include <corvale_qt/KLinkItemSelectionModel>
#include <corvale_qt/KModelIndexProxyMapper>
#include <corvale_qt/KWordWrap>

//! A host gets the three classes, and the libraries they need, through this library alone.
class tst_KdeClasses : public QObject
{
    Q_OBJECT

    QStringListModel m_source{{"b", "c", "a"}};
    QSortFilterProxyModel m_sorted;

private Q_SLOTS:
    void init()
    {
        m_sorted.setSourceModel(&m_source);
        m_sorted.sort(0);
    }

    void selectionIsSharedThroughAProxy()
    {
        QItemSelectionModel selection(&m_source);
        KLinkItemSelectionModel linked(&m_sorted, &selection);
        linked.select(m_sorted.index(0, 0), QItemSelectionModel::Select);
        QCOMPARE(selection.selectedIndexes(), QModelIndexList({m_source.index(2, 0)}));
    }

    void indexesMapThroughAProxy()
    {
        const KModelIndexProxyMapper mapper(&m_source, &m_sorted);
        QCOMPARE(mapper.mapLeftToRight(m_source.index(2, 0)), m_sorted.index(0, 0));
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
