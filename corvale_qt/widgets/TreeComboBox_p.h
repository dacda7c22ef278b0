// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/widgets/TreeComboBox.h"
#include "corvale_qt/widgets/TreeWalk_p.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QPersistentModelIndex>
#include <QPoint>
#include <QTreeView>
#include <QVector>

#include <functional>

class QComboBox;

namespace Corvale_Qt {

//! The tree in the popup of a combo box. It reports a new model, since QComboBox::setModel() is not virtual.
class PopupTree final : public QTreeView
{
    Q_OBJECT

public:
    //! Calls \a modelChanged after each change of the model.
    PopupTree(QComboBox *combo, std::function<void()> modelChanged);

    void setModel(QAbstractItemModel *model) override;
    //! Hides all columns except \a column.
    void showOnly(int column);
    //! Returns the width that the widest item needs, in pixels, including scroll bar and frame.
    int neededWidth();
    //! Makes \a item current, and opens or closes its branch.
    void toggle(const QModelIndex &item);

private:
    void growPopup();
    int heightOfItems(int mostItems) const;

    QComboBox *const m_combo;
    const std::function<void()> m_modelChanged;
};

//! Keeps the current item while the model and QComboBox change, and handles the events of the popup.
class TreeComboBoxPrivate
{
public:
    explicit TreeComboBoxPrivate(TreeComboBox *combo)
        : q(combo)
        , tree(new PopupTree(combo, [this] {
            watchModel();
        }))
    {
    }
    //! Disconnects from the model: one that is a child of the combo box is deleted later.
    ~TreeComboBoxPrivate() { stopWatching(); }

    void setCurrent(QModelIndex index);
    void baseChanged(int row);
    void afterChange();

    //! Records the mouse press, at \a globalPosition, that opens the popup.
    void noteClick(const QPoint &globalPosition);
    bool popupMouse(QEvent::Type type, const QMouseEvent &event);
    bool popupKey(QEvent::Type type, const QKeyEvent &event);

    //! Moves by \a steps shown leaves, downwards if positive, but not beyond the last.
    void walk(int steps);
    /*! Handles a key that moves to another leaf; returns false for any other key. With modifiers (not \a isPlain)
        such a key does nothing, because QComboBox would go to a branch. */
    bool walkByKey(int key, bool isPlain);
    //! Goes to the leaf whose text begins with what was typed. Returns false if a blank \a text is typed first.
    bool typed(const QString &text);

    TreeComboBox *const q;
    PopupTree *const tree;
    QPersistentModelIndex current;
    //! The user or the host chose the current item. If false, it is the first leaf, also after changes of the model.
    bool isChosen = false;
    //! The model is changing. Until it has changed, the choices that QComboBox makes are ignored.
    bool modelIsChanging = false;
    //! This class is setting the current row or the model of QComboBox.
    bool isSetting = false;
    int wheelAngle = 0;

private:
    void watchModel();
    void watch(const QAbstractItemModel &model);
    void stopWatching();
    void afterReset();
    void modelGone();
    bool isEndOfOpeningClick(const QPoint &globalPosition) const;
    void pickFromPopup(const QModelIndex &leaf);
    void pick(const QModelIndex &leaf);
    void walkToEnd(int step);
    QModelIndex leafBeginningWith(const QString &text, bool isNext) const;

    //! Whether the index announced last was valid; the current one may have become invalid without a signal.
    bool hadCurrent = false;
    QPoint clickedAt;
    QElapsedTimer sinceClick;
    //! The letters that were typed without a pause.
    QString typedText;
    QElapsedTimer sinceTyped;
    TreePath pathBeforeReset;
    QVector<QMetaObject::Connection> watches;
};

} // namespace Corvale_Qt
