// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QAbstractItemModel>
#include <QStringList>

/*! Records what a model announces, in order, so that one comparison shows a behaviour: "insert 3-3?, insert 3-3!" is an
    insertion of row 3, announced ("?") and done ("!"). */
class ModelLog : public QObject
{
public:
    explicit ModelLog(const QAbstractItemModel *model, QObject *parent = nullptr)
        : QObject(parent)
    {
        const auto rows = [this](const char *what, const char *end) {
            return [this, what, end](const QModelIndex &, int first, int last) {
                add(QStringLiteral("%1 %2-%3%4").arg(what).arg(first).arg(last).arg(end));
            };
        };
        using M = QAbstractItemModel;
        connect(model, &M::rowsAboutToBeInserted, this, rows("insert", "?"));
        connect(model, &M::rowsInserted, this, rows("insert", "!"));
        connect(model, &M::rowsAboutToBeRemoved, this, rows("remove", "?"));
        connect(model, &M::rowsRemoved, this, rows("remove", "!"));
        connect(model, &M::rowsAboutToBeMoved, this, rows("move", "?"));
        connect(model, &M::rowsMoved, this, rows("move", "!"));
        connect(model, &M::columnsAboutToBeInserted, this, rows("insert column", "?"));
        connect(model, &M::columnsInserted, this, rows("insert column", "!"));
        connect(model, &M::columnsAboutToBeRemoved, this, rows("remove column", "?"));
        connect(model, &M::columnsRemoved, this, rows("remove column", "!"));
        connect(model, &M::columnsAboutToBeMoved, this, rows("move column", "?"));
        connect(model, &M::columnsMoved, this, rows("move column", "!"));
        connect(model, &M::modelAboutToBeReset, this, [this] { add("reset?"); });
        connect(model, &M::modelReset, this, [this] { add("reset!"); });
        connect(model, &M::layoutAboutToBeChanged, this, [this] { add("layout?"); });
        connect(model, &M::layoutChanged, this, [this] { add("layout!"); });
        connect(model, &M::headerDataChanged, this, [this](Qt::Orientation, int first, int last) {
            add(QStringLiteral("header %1-%2").arg(first).arg(last));
        });
        connect(model, &M::dataChanged, this,
                [this](const QModelIndex &from, const QModelIndex &to, const QVector<int> &roles) {
                    add(QStringLiteral("changed (%1,%2)-(%3,%4)%5")
                            .arg(from.row())
                            .arg(from.column())
                            .arg(to.row())
                            .arg(to.column())
                            .arg(roles.isEmpty() ? "" : " with roles"));
                });
    }

    //! Returns what was announced since the last call, separated by commas.
    QString take()
    {
        QString text = m_lines.join(", ");
        m_lines.clear();
        return text;
    }

private:
    void add(const QString &line) { m_lines.append(line); }

    QStringList m_lines;
};
