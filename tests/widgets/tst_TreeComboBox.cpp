// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/TreeComboBox.h"
#include "tests/support/Mouse.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

//! Appends "branch: leaf leaf; branch: leaf" to \a model.
void fill(QStandardItemModel &model, const QString &tree)
{
    for (const QString &branch : tree.split("; ")) {
        const QStringList parts = branch.split(": ");
        auto *item = new QStandardItem(parts.at(0));
        for (const QString &leaf : parts.value(1).split(' ', Qt::SkipEmptyParts))
            item->appendRow(new QStandardItem(leaf));
        model.appendRow(item);
    }
}

//! A model that can be refilled in one reset.
class ResetModel : public QStandardItemModel
{
public:
    void refill(const QString &tree)
    {
        beginResetModel();
        blockSignals(true);
        clear();
        fill(*this, tree);
        blockSignals(false);
        endResetModel();
    }
};

QString path(const QModelIndex &index)
{
    if (!index.isValid())
        return "(none)";
    const QString text = index.data().toString();
    return index.parent().isValid() ? path(index.parent()) + '/' + text : text;
}

} // namespace

class tst_TreeComboBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QApplication::setKeyboardInputInterval(60000);
        m_model = std::make_unique<ResetModel>();
        fill(*m_model, "A: a1 a2; B: b1 b2; C");
        m_combo = std::make_unique<TreeComboBox>();
        m_combo->setModel(m_model.get());
        m_combo->show();
        m_announced.clear();
        connect(m_combo.get(), &TreeComboBox::currentModelIndexChanged, this,
                [this](const QModelIndex &index) { m_announced << path(index); });
    }
    void cleanup()
    {
        m_combo.reset();
        m_model.reset();
    }

    void setByCode()
    {
        QStandardItemModel other;
        other.appendRow(new QStandardItem("x"));
        for (const QModelIndex &index : {item("B/b1"), item("B/b1"), other.index(0, 0)})
            m_combo->setCurrentModelIndex(index);
        QCOMPARE(m_combo->currentText(), QString("b1"));
        QCOMPARE(m_combo->currentIndex(), 0);
        m_combo->setCurrentIndex(2);
        m_combo->setCurrentModelIndex(QModelIndex());
        QCOMPARE(m_combo->currentText(), QString());
        QCOMPARE(announced(), QString("B/b1 C (none)"));
    }

    void branchesAreNeverCurrent()
    {
        m_combo->setCurrentModelIndex(item("B"));
        m_combo->setCurrentIndex(1);
        m_combo->QComboBox::setCurrentIndex(1);
        for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier})
            press({Qt::Key_Home, Qt::Key_End, Qt::Key_PageDown, Qt::Key_PageUp}, modifier);
        for (const auto key : {Qt::Key_F4, Qt::Key_Return}) {
            openPopup();
            tree()->setCurrentIndex(item("B"));
            QTest::keyClick(tree(), key);
        }
        QTest::keyClick(tree(), Qt::Key_Escape);
        QCOMPARE(path(m_combo->currentModelIndex()), QString("A/a1"));
        QCOMPARE(m_combo->currentText(), QString("a1"));
        QCOMPARE(announced(), QString());
    }

    void noModelEmpties()
    {
        m_combo->setModel(nullptr);
        QCOMPARE(m_combo->count(), 0);
        QCOMPARE(m_combo->currentText(), QString());
        QCOMPARE(announced(), QString("(none)"));
        press({Qt::Key_Down, Qt::Key_End, Qt::Key_C});
        m_combo->setModel(nullptr);
        m_combo->setModel(m_model.get());
        QCOMPARE(announced(), QString("A/a1"));
    }

    void mayBeDeletedInAnswer_data()
    {
        columns<QString, QString>("signal", "choice");
        for (const char *signal : {SIGNAL(currentModelIndexChanged(QModelIndex)),
                                   SIGNAL(activated(int)), SIGNAL(textActivated(QString))})
            for (const char *choice : {"key", "letter", "wheel", "Return", "click"})
                QTest::addRow("%s in %s", choice, signal) << QString(signal) << QString(choice);
        for (const char *choice : {"set", "row set", "model", "removal", "reset"})
            QTest::newRow(choice) << QString(SIGNAL(currentModelIndexChanged(QModelIndex)))
                                  << QString(choice);
    }
    void mayBeDeletedInAnswer()
    {
        QFETCH(QString, choice);
        if (choice == "Return" || choice == "click")
            openPopup();
        connect(m_combo.get(), cell("signal").toLatin1(), this, SLOT(deleteCombo()));
        const QModelIndex a2 = item("A/a2");
        if (choice == "key")
            sendKey(m_combo.get(), Qt::Key_Down);
        else if (choice == "letter")
            sendKey(m_combo.get(), Qt::Key_C, "c");
        else if (choice == "wheel")
            turn(-120);
        else if (choice == "Return") {
            tree()->setCurrentIndex(a2);
            sendKey(tree(), Qt::Key_Return);
        } else if (choice == "click") {
            tree()->setCurrentIndex(a2);
            const QPoint at = tree()->visualRect(a2).center();
            QMouseEvent release(QEvent::MouseButtonRelease, at, Qt::LeftButton, {}, {});
            QCoreApplication::sendEvent(tree()->viewport(), &release);
        } else if (choice == "set")
            m_combo->setCurrentModelIndex(a2);
        else if (choice == "row set")
            m_combo->setCurrentIndex(2);
        else if (choice == "model")
            m_combo->setModel(nullptr);
        else if (choice == "removal")
            m_model->removeRow(0);
        else if (choice == "reset")
            m_model->refill("X: x");
        QVERIFY(!m_combo);
    }

    void mouseInThePopup()
    {
        QSignalSpy activated(m_combo.get(), &QComboBox::textActivated);
        // The release that ends the opening click does not choose the item under the pointer.
        const QPoint pointer = m_combo->mapToGlobal(m_combo->rect().center());
        QTest::mousePress(m_combo.get(), Qt::LeftButton, {}, m_combo->rect().center());
        QVERIFY(QTest::qWaitForWindowExposed(tree()->window()));
        const QPoint current = tree()->visualRect(tree()->currentIndex()).center();
        QWidget *popup = tree()->window();
        popup->move(popup->pos() + pointer - tree()->viewport()->mapToGlobal(current));
        QTest::mouseRelease(tree()->viewport(), Qt::LeftButton, {}, current);
        QVERIFY(tree()->isVisible());
        QVERIFY(!tree()->isExpanded(item("B")));
        click("B");
        QVERIFY(tree()->isExpanded(item("B")));
        QVERIFY(tree()->isVisible());
        QCOMPARE(announced(), QString());
        QVERIFY2(tree()->visualRect(item("C")).bottom() < tree()->viewport()->height(),
                 "makes room");
        click("B/b2");
        QTRY_VERIFY(!tree()->isVisible());
        QCOMPARE(announced(), QString("B/b2"));
        QCOMPARE(m_combo->currentText(), QString("b2"));
        QCOMPARE(activated.size(), 1);

        openPopup();
        QCOMPARE(path(tree()->currentIndex()), QString("B/b2"));
        click("A");
        QVERIFY(!tree()->isExpanded(item("A")));
        QVERIFY(tree()->isVisible());
        QTest::keyClick(tree(), Qt::Key_Escape);
        QCOMPARE(path(m_combo->currentModelIndex()), QString("B/b2"));
    }

    void keysInThePopup()
    {
        QSignalSpy activated(m_combo.get(), &QComboBox::textActivated);
        openPopup();
        for (int i = 0; i < 2; ++i)
            QTest::keyClick(tree(), Qt::Key_Down);
        QCOMPARE(path(tree()->currentIndex()), QString("B"));
        QTest::keyClick(tree(), Qt::Key_Return);
        QVERIFY(tree()->isVisible());
        QVERIFY(tree()->isExpanded(item("B")));
        QTest::keyClick(tree(), Qt::Key_Down);
        QTest::keyClick(tree(), Qt::Key_Return);
        QTRY_VERIFY(!tree()->isVisible());
        QCOMPARE(announced(), QString("B/b1"));
        QCOMPARE(activated.size(), 1);
    }

    void keysWalkShownLeaves()
    {
        press({Qt::Key_Down, Qt::Key_Down});
        QCOMPARE(announced(), QString("A/a2 C")); // past the closed branch
        tree()->expandAll();
        press({Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_Down});
        QCOMPARE(announced(), QString("A/a1 A/a2 B/b1 A/a2 C"));
        press({Qt::Key_Home, Qt::Key_Up, Qt::Key_PageDown});
        QCOMPARE(announced(), QString("A/a1 C"));
        m_combo->setMaxVisibleItems(3);
        press({Qt::Key_PageUp, Qt::Key_PageUp});
        QCOMPARE(announced(), QString("A/a2 A/a1"));
        tree()->collapseAll();
        tree()->setRowHidden(2, QModelIndex(), true);
        m_combo->setCurrentModelIndex(QModelIndex());
        press({Qt::Key_Down});
        QCOMPARE(announced(), QString("(none) A/a1"));
    }

    void typing_data()
    {
        columns<QString, bool, QString>("keys", "inOneGo", "chosen");
        row("the whole name", "ch2.3", true, "One/ch1.1 Two/ch2.1 Two/ch2.3");
        row("a name with a blank", "in 2", true, "in 1 in 2");
        row("the same letter again", "ccc", true, "One/ch1.1 Two/ch2.1 Two/ch2.2");
        row("after a pause", "ci", false, "One/ch1.1 in 1");
        row("a name that does not exist", "cx", true, "One/ch1.1");
        row("in a closed branch", "DEEP", true, "Three/deep");
        row("a branch", "T", true, "");
    }
    void typing()
    {
        m_model->refill("0; One: ch1.1; Two: ch2.1 ch2.2 ch2.3; Three: deep");
        m_model->appendRow(new QStandardItem("in 1"));
        m_model->appendRow(new QStandardItem("in 2"));
        for (const char *open : {"One", "Two"})
            tree()->expand(item(open));
        m_combo->setCurrentModelIndex(item("0"));
        announced();
        QSignalSpy activated(m_combo.get(), &QComboBox::textActivated);
        QApplication::setKeyboardInputInterval(cell<bool>("inOneGo") ? 60000 : 0);
        QTest::keyClicks(m_combo.get(), cell("keys"));
        QCOMPARE(activated.size(), m_announced.size());
        QTEST(announced(), "chosen");
    }

    void wheelWalksByNotches()
    {
        for (const int angle : {-120, -60, -60, 120})
            turn(angle);
        QCOMPARE(announced(), QString("A/a2 C A/a2"));
    }

    void survivesAReset_data()
    {
        columns<QString, QString>("tree", "current");
        row("the same", "A: a1 a2; B: b1 b2; C", "B/b2");
        row("other rows", "X: x; B: b2 b1; A: b2", "B/b2");
        row("a text twice", "B: b2 b2", "B/b2");
        row("leaf gone", "A: a1; B: b1", "(none)");
        row("branch gone", "A: b2", "(none)");
    }
    void survivesAReset()
    {
        QFETCH(QString, current);
        m_combo->setCurrentModelIndex(item("B/b2"));
        m_model->refill(cell("tree"));
        QCOMPARE(path(m_combo->currentModelIndex()), current);
        QCOMPARE(announced(), "B/b2 " + current);
        QCOMPARE(m_combo->currentText(), m_combo->currentModelIndex().data().toString());
    }

    void changesOfTheModel()
    {
        m_combo->QComboBox::setCurrentIndex(2);
        m_model->insertRow(0, new QStandardItem("Z"));
        QCOMPARE(announced(), QString("C"));
        m_combo->setCurrentModelIndex(item("B/b2"));
        m_model->removeRow(1);
        QCOMPARE(path(m_combo->currentModelIndex()), QString("B/b2"));
        QCOMPARE(m_combo->currentText(), QString("b2"));
        m_model->item(1)->removeRow(1);
        QCOMPARE(announced(), QString("B/b2 (none)"));
        m_combo->setCurrentModelIndex(item("B/b1"));
        m_model.reset();
        QCOMPARE(announced(), QString("B/b1 (none)"));
    }

    void treeBuiltAfterwards()
    {
        QStandardItemModel model;
        m_combo->setModel(&model);
        auto *branch = new QStandardItem("N");
        model.appendRow(branch);
        branch->appendRow(new QStandardItem("n1"));
        QCOMPARE(path(m_combo->currentModelIndex()), QString("N/n1"));
        m_combo.reset();
    }

    //! A model that is a child of the combo box is deleted after the private data.
    void aModelMayBeItsOwn()
    {
        const QPointer<QAbstractItemModel> watched = m_model.get();
        m_model.release()->setParent(m_combo.get());
        m_combo.reset();
        QVERIFY(!watched);
        QCOMPARE(announced(), QString());
    }

    void widerLeavesFit()
    {
        const int narrow = m_combo->sizeHint().width();
        m_model->item(0)->child(0)->setText("a leaf with a long name");
        QVERIFY(m_combo->sizeHint().width() > narrow);
        QVERIFY(m_combo->sizeHint().width()
                > m_combo->fontMetrics().horizontalAdvance("a leaf with a long name"));
    }

public Q_SLOTS:
    void deleteCombo() { m_combo.reset(); }

private:
    //! Returns what was announced since the last call.
    QString announced()
    {
        QString texts = m_announced.join(' ');
        m_announced.clear();
        return texts;
    }
    void press(std::initializer_list<Qt::Key> keys, Qt::KeyboardModifiers modifiers = {})
    {
        for (const Qt::Key key : keys)
            QTest::keyClick(m_combo.get(), key, modifiers);
    }
    void turn(int angle) { turnWheel(m_combo.get(), m_combo->rect().center(), angle); }
    //! Sends no release, since the widget may be deleted by then.
    static void sendKey(QWidget *to, Qt::Key key, const QString &text = {})
    {
        QKeyEvent press(QEvent::KeyPress, key, {}, text);
        QCoreApplication::sendEvent(to, &press);
    }
    QTreeView *tree() const { return m_combo->treeView(); }
    //! Returns the index of "Branch" or "Branch/leaf".
    QModelIndex item(const QString &wanted) const
    {
        const QStringList texts = wanted.split('/');
        QModelIndex index;
        for (const QString &text : texts)
            index =
                m_model
                    ->match(m_model->index(0, 0, index), Qt::DisplayRole, text, 1, Qt::MatchExactly)
                    .value(0);
        return index;
    }
    void openPopup()
    {
        m_combo->showPopup();
        QVERIFY(QTest::qWaitForWindowExposed(tree()->window()));
        QCoreApplication::processEvents();
    }
    void click(const QString &wanted)
    {
        const QPoint at = tree()->visualRect(item(wanted)).center();
        QTest::mouseMove(tree()->viewport(), at);
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, at);
    }

    std::unique_ptr<ResetModel> m_model;
    std::unique_ptr<TreeComboBox> m_combo;
    QStringList m_announced;
};

CORVALE_QT_TEST_MAIN(tst_TreeComboBox)
#include "tst_TreeComboBox.moc"
