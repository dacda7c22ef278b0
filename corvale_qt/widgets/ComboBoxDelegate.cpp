// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/ComboBoxDelegate.h"

#include <QComboBox>
#include <QPointer>
#include <QTimer>
#include <QVector>

#include <algorithm>

namespace Corvale_Qt {

namespace {

struct Choice
{
    QString text;
    QVariant value;
};

Choice choiceFrom(const QVariant &entry)
{
    const QVariantList pair = entry.toList();
    if (pair.size() == 2)
        return {pair.at(0).toString(), pair.at(1)};
    return {entry.toString(), entry};
}

//! Returns the position in \a among of the value that \a index stores, or -1.
int indexOf(const QVector<Choice> &among, const QModelIndex &index)
{
    const QVariant stored = index.data(Qt::EditRole);
    const auto isStored = [&stored](const Choice &choice) {
        return choice.value == stored;
    };
    const auto found = std::find_if(among.begin(), among.end(), isStored);
    return found == among.end() ? -1 : int(found - among.begin());
}

} // namespace

class ComboBoxDelegatePrivate
{
public:
    QVector<Choice> choicesFor(const QModelIndex &index) const
    {
        const QVariantList own = itemsRole < 0 ? QVariantList() : index.data(itemsRole).toList();
        if (own.isEmpty())
            return choices;
        QVector<Choice> result;
        for (const QVariant &entry : own)
            result.append(choiceFrom(entry));
        return result;
    }

    QVector<Choice> choices;
    int itemsRole = -1;
};

ComboBoxDelegate::ComboBoxDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
    , d_ptr(new ComboBoxDelegatePrivate)
{
}

ComboBoxDelegate::~ComboBoxDelegate() = default;

void ComboBoxDelegate::setItems(const QStringList &texts)
{
    Q_D(ComboBoxDelegate);
    d->choices.clear();
    for (const QString &text : texts)
        addItem(text, text);
}

void ComboBoxDelegate::addItem(const QString &text, const QVariant &value)
{
    Q_D(ComboBoxDelegate);
    d->choices.append({text, value});
}

void ComboBoxDelegate::setItemsRole(int role)
{
    Q_D(ComboBoxDelegate);
    d->itemsRole = role;
}

int ComboBoxDelegate::itemsRole() const
{
    Q_D(const ComboBoxDelegate);
    return d->itemsRole;
}

QWidget *ComboBoxDelegate::createEditor(QWidget *parent,
                                        const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    Q_D(const ComboBoxDelegate);
    Q_UNUSED(option)
    auto *combo = new QComboBox(parent);
    for (const Choice &choice : d->choicesFor(index))
        combo->addItem(choice.text, choice.value);

    const QPointer<ComboBoxDelegate> self = const_cast<ComboBoxDelegate *>(this);
    const QPointer<QComboBox> editor = combo;
    connect(combo, QOverload<int>::of(&QComboBox::activated), self, [self, editor] {
        Q_EMIT self->commitData(editor);
        // In answer to the choice the host may have deleted the delegate or the editor.
        if (self && editor)
            Q_EMIT self->closeEditor(editor);
    });
    // An editor that the user opened has the focus once it is in place; a persistent one does not.
    QTimer::singleShot(0, combo, [combo] {
        if (combo->hasFocus())
            combo->showPopup();
    });
    return combo;
}

void ComboBoxDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    Q_D(const ComboBoxDelegate);
    auto *combo = qobject_cast<QComboBox *>(editor);
    if (combo)
        combo->setCurrentIndex(indexOf(d->choicesFor(index), index));
}

void ComboBoxDelegate::setModelData(QWidget *editor,
                                    QAbstractItemModel *model,
                                    const QModelIndex &index) const
{
    const auto *combo = qobject_cast<QComboBox *>(editor);
    if (combo && combo->currentIndex() >= 0)
        model->setData(index, combo->currentData(), Qt::EditRole);
}

void ComboBoxDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    Q_D(const ComboBoxDelegate);
    QStyledItemDelegate::initStyleOption(option, index);
    const QVector<Choice> choices = d->choicesFor(index);
    const int stored = indexOf(choices, index);
    if (stored >= 0) {
        option->text = choices.at(stored).text;
        option->features |= QStyleOptionViewItem::HasDisplay;
    }
}

} // namespace Corvale_Qt
