// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/ComboBoxDelegate.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;

namespace {

class Delegate : public ComboBoxDelegate
{
public:
    QString shown(const QModelIndex &index) const
    {
        QStyleOptionViewItem option;
        initStyleOption(&option, index);
        return option.text;
    }
};

} // namespace

class tst_ComboBoxDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_model.clear();
        m_model.appendRow({new QStandardItem, new QStandardItem("own")});
        m_model.setData(value(), 1);
        m_delegate = std::make_unique<Delegate>();
        m_delegate->addItem("2 nA", 0);
        m_delegate->addItem("20 nA", 1);
        m_delegate->addItem("200 nA", 2);
    }

    void showsTheTextOfTheValue()
    {
        QCOMPARE(m_delegate->shown(value()), QString("20 nA"));
        m_model.setData(value(), 7);
        QCOMPARE(m_delegate->shown(value()), QString("7"));
    }

    void choiceIsStoredAndEndsTheEdit()
    {
        QTableView view;
        const QPointer<QComboBox> combo = editorIn(view);
        QCOMPARE(combo->currentText(), QString("20 nA"));
        QTRY_VERIFY(combo->view()->isVisible());
        QTest::keyClick(combo->view(), Qt::Key_Down);
        QTest::keyClick(combo->view(), Qt::Key_Return);
        QCOMPARE(value().data(Qt::EditRole), QVariant(2));
        QTRY_VERIFY(!combo);
    }

    void delegateMayBeDeletedInAnswer()
    {
        QWidget parent;
        auto *combo = qobject_cast<QComboBox *>(m_delegate->createEditor(&parent, {}, value()));
        connect(m_delegate.get(), &QAbstractItemDelegate::commitData, this,
                [this] { m_delegate.reset(); });
        Q_EMIT combo->activated(1);
        QVERIFY(!m_delegate);
    }

    void escapeKeepsTheValue()
    {
        m_model.setData(value(), 7);
        QTableView view;
        QComboBox *combo = editorIn(view);
        QCOMPARE(combo->currentIndex(), -1);
        QTRY_VERIFY(combo->view()->isVisible());
        QTest::keyClick(combo->view(), Qt::Key_Escape);
        QTest::keyClick(combo, Qt::Key_Tab);
        QCOMPARE(value().data(Qt::EditRole), QVariant(7));
    }

    void cellsMayHaveTheirOwnChoices()
    {
        m_delegate->setItemsRole(Qt::UserRole);
        m_model.setData(value(), QVariantList{"any", QVariantList{"one", 1}}, Qt::UserRole);
        QCOMPARE(m_delegate->shown(value()), QString("one"));
        QWidget parent;
        const std::unique_ptr<QWidget> editor(m_delegate->createEditor(&parent, {}, value()));
        auto *combo = qobject_cast<QComboBox *>(editor.get());
        QCOMPARE(combo->count(), 2);
        combo->setCurrentIndex(0);
        m_delegate->setModelData(combo, &m_model, value());
        QCOMPARE(value().data(Qt::EditRole), QVariant("any"));

        m_model.setData(value(), QStringList{"x", "y"}, Qt::UserRole);
        m_model.setData(value(), "y");
        m_delegate->setEditorData(combo, value());
        const std::unique_ptr<QWidget> other(m_delegate->createEditor(&parent, {}, value()));
        m_delegate->setEditorData(other.get(), value());
        QCOMPARE(qobject_cast<QComboBox *>(other.get())->currentText(), QString("y"));
    }

private:
    QModelIndex value() const { return m_model.index(0, 0); }
    QComboBox *editorIn(QTableView &view)
    {
        view.setModel(&m_model);
        view.setItemDelegate(m_delegate.get());
        view.show();
        if (!QTest::qWaitForWindowActive(&view))
            qFatal("the view does not become active");
        view.setCurrentIndex(value());
        view.edit(value());
        return view.findChild<QComboBox *>();
    }

    QStandardItemModel m_model;
    std::unique_ptr<Delegate> m_delegate;
};

CORVALE_QT_TEST_MAIN(tst_ComboBoxDelegate)
#include "tst_ComboBoxDelegate.moc"
