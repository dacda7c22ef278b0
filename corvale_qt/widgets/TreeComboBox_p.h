// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/*
 * ---------------------------------------------------------------------------
 *  Not part of the interface: for TreeComboBox alone.
 *  It may change or go without notice.
 * ---------------------------------------------------------------------------
 */

#include "corvale_qt/widgets/PopupTree_p.h"
#include "corvale_qt/widgets/TreeComboBox.h"
#include "corvale_qt/widgets/TreeWalk_p.h"

#include <QEvent>
#include <QPersistentModelIndex>
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

    bool popupMouse(QEvent::Type type, const QMouseEvent &event);
    bool popupKey(QEvent::Type type, const QKeyEvent &event);

    //! Over so many shown leaves, downwards for a positive number, but not beyond the last.
    void walk(int steps);
    void walkToEnd(int step);
    //! The next shown leaf, beginning again at the top, whose text begins so.
    void walkToText(const QString &text);

    TreeComboBox *const q;
    PopupTree *const tree;
    QPersistentModelIndex current;
    //! Somebody chose the current item; otherwise it is the first leaf, whatever comes into the model.
    bool isChosen = false;
    //! The model is changing, and QComboBox follows it in its own way, which is set right afterwards.
    bool modelIsChanging = false;
    int wheelAngle = 0;

private:
    void watchModel();
    void watch(const QAbstractItemModel &model);
    void stopWatching();
    void afterReset();
    void modelGone();
    void letQComboBoxPick();
    void pick(const QModelIndex &leaf);

    //! The last index announced; the current one may have gone without a word.
    bool hadCurrent = false;
    //! QComboBox is told what is current.
    bool isSetting = false;
    //! QComboBox is about to take the popup's current item.
    bool isPicking = false;
    TreePath pathBeforeReset;
    QVector<QMetaObject::Connection> watches;
};

} // namespace Corvale_Qt
