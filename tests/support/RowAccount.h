// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QAbstractItemModel>

/*! Counts the rows of a model by its announcements, and compares the count with rowCount() at every end signal that is
    not within an insertion. */
class RowAccount : public QObject
{
public:
    explicit RowAccount(const QAbstractItemModel *model)
        : m_model(model)
        , m_rows(model->rowCount())
    {
        using M = QAbstractItemModel;
        connect(model, &M::rowsAboutToBeInserted, this, [this] { ++m_open; });
        connect(model, &M::rowsInserted, this, [this](const QModelIndex &, int first, int last) {
            --m_open;
            m_rows += last - first + 1;
            compare("insertion");
        });
        connect(model, &M::rowsRemoved, this, [this](const QModelIndex &, int first, int last) {
            m_rows -= last - first + 1;
            compare("removal");
        });
        connect(model, &M::modelReset, this, [this] { m_rows = m_model->rowCount(); });
    }

    //! Returns the first difference, or an empty text.
    QString error() const { return m_error; }

private:
    void compare(const char *after)
    {
        if (m_error.isEmpty() && m_open == 0 && m_rows != m_model->rowCount())
            m_error = QStringLiteral("after an %1: %2 rows announced, there are %3")
                          .arg(after)
                          .arg(m_rows)
                          .arg(m_model->rowCount());
    }

    const QAbstractItemModel *m_model;
    int m_rows;
    int m_open = 0;
    QString m_error;
};
