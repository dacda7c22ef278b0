// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXTableView.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

class tst_RVXTableView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_model.clear();
        for (int row = 0; row < 3; ++row)
            for (int column = 0; column < 3; ++column)
                m_model.setItem(row, column,
                                new QStandardItem(QString("%1%2").arg(row).arg(column)));
        m_view = std::make_unique<RVXTableView>();
        m_view->setModel(&m_model);
        m_view->resize(400, 200);
        m_view->show();
    }
    void cleanup() { m_view.reset(); }

    void buttonFollowsTheHeaders()
    {
        auto *button = new QPushButton("C");
        QSignalSpy clicked(m_view.get(), &RVXTableView::cornerButtonClicked);
        QVERIFY(!m_view->cornerButton());
        m_view->setCornerButton(button);
        QVERIFY(button->isVisible());
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(clicked.size(), 1);
        QVERIFY(m_view->selectionModel()->selectedIndexes().isEmpty());

        m_view->verticalHeader()->setFixedWidth(77);
        m_view->horizontalHeader()->setFixedHeight(33);
        QTRY_COMPARE(button->size(), QSize(77, 33));
        m_view->setLayoutDirection(Qt::RightToLeft);
        QTRY_COMPARE(button->geometry().right(), m_view->verticalHeader()->geometry().right());

        m_view->verticalHeader()->hide();
        QTRY_VERIFY(!button->isVisible());
        m_view->verticalHeader()->show();
        QTRY_VERIFY(button->isVisible());
        m_view->horizontalHeader()->hide();
        QTRY_VERIFY(!button->isVisible());
    }

    //! Hidden while it was seen, or while a header was hidden.
    void buttonThatTheHostHid()
    {
        for (const bool withoutHeader : {false, true}) {
            auto *button = new QPushButton("C");
            m_view->setCornerButton(button);
            m_view->verticalHeader()->setHidden(withoutHeader);
            QTRY_COMPARE(button->isVisible(), !withoutHeader);
            button->hide();
            m_view->verticalHeader()->hide();
            m_view->verticalHeader()->show();
            m_view->verticalHeader()->setFixedWidth(77);
            QTRY_COMPARE(button->width(), 77);
            QVERIFY(!button->isVisible());
            button->show();
            m_view->verticalHeader()->setFixedWidth(78);
            QTRY_COMPARE(button->width(), 78);
            QVERIFY(button->isVisible());
        }
    }

    void builtInCornerSelectsAll()
    {
        auto *first = new QPushButton;
        QPointer<QAbstractButton> second = new QPushButton;
        m_view->setCornerButton(first);
        m_view->setCornerButton(second);
        QCOMPARE(m_view->cornerButton(), second.data());
        delete second;
        QVERIFY(!m_view->cornerButton());
        QWidget *corner = m_view->childAt(3, 3);
        QVERIFY(qobject_cast<QAbstractButton *>(corner));
        QTest::mouseClick(corner, Qt::LeftButton);
        QCOMPARE(m_view->selectionModel()->selectedIndexes().size(), 9);
    }

    void copiesWhatIsSeen()
    {
        m_model.item(0, 1)->setText("a\tb \"c\"");
        m_view->horizontalHeader()->moveSection(2, 0);
        m_view->selectAll();
        m_view->setRowHidden(1, true);
        QTest::keySequence(m_view.get(), QKeySequence::Copy);
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 QString("02\t00\t\"a\tb \"\"c\"\"\"\n22\t20\t21\n"));
    }

    void copiesAPatchwork()
    {
        QGuiApplication::clipboard()->setText("before");
        QTest::keySequence(m_view.get(), QKeySequence::Copy);
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("before"));
        for (const auto &cell : {m_model.index(0, 0), m_model.index(2, 2)})
            m_view->selectionModel()->select(cell, QItemSelectionModel::Select);
        QTest::keySequence(m_view.get(), QKeySequence::Copy);
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("00\t\n\t22\n"));
    }

private:
    QStandardItemModel m_model;
    std::unique_ptr<RVXTableView> m_view;
};

CORVALE_QT_TEST_MAIN(tst_RVXTableView)
#include "tst_RVXTableView.moc"
