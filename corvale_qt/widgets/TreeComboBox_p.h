// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/widgets/PopupTree_p.h"
#include "corvale_qt/widgets/TreeComboBox.h"
#include "corvale_qt/widgets/TreeWalk_p.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QPersistentModelIndex>
#include <QPoint>
#include <QVector>

namespace Corvale_Qt {

//! Keeps the current item through whatever the model and QComboBox do, and takes the popup's events.
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
    //! A model that is a child of the combo box is deleted after this.
    ~TreeComboBoxPrivate() { stopWatching(); }

    void setCurrent(QModelIndex index);
    void baseChanged(int row);
    void afterChange();

    //! The press of a click, at \a globalPosition, that opens the popup.
    void noteClick(const QPoint &globalPosition);
    bool popupMouse(QEvent::Type type, const QMouseEvent &event);
    bool popupKey(QEvent::Type type, const QKeyEvent &event);

    //! Moves by \a steps visible leaves, downwards for a positive number, but not beyond the last.
    void walk(int steps);
    //! Whether \a key is one that walks. With other modifiers it does nothing, where QComboBox would go to a branch.
    bool walkByKey(int key, bool isPlain);
    //! Goes to the leaf whose text begins as what was typed; false where \a text is a blank that begins nothing.
    bool typed(const QString &text);

    TreeComboBox *const q;
    PopupTree *const tree;
    QPersistentModelIndex current;
    //! Somebody chose the current item; otherwise it is the first leaf, whatever comes into the model.
    bool isChosen = false;
    //! The model is changing, and QComboBox follows it in its own way, which is set right afterwards.
    bool modelIsChanging = false;
    //! QComboBox is told what is current, or what its model is.
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

    //! The last index announced; the current one may have gone without a word.
    bool hadCurrent = false;
    QPoint clickedAt;
    QElapsedTimer sinceClick;
    //! What was typed without a pause.
    QString typedText;
    QElapsedTimer sinceTyped;
    TreePath pathBeforeReset;
    QVector<QMetaObject::Connection> watches;
};

} // namespace Corvale_Qt
