// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QMetaObject>
#include <QObject>
#include <QVector>

class QAbstractItemModel;

namespace Corvale_Qt {

/*! Tells when a model, or one below it in a chain of proxies, announces another unit. Proxies show the unit of their source, but do
    not pass the announcement on. */
class UnitsWatch : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~UnitsWatch() override;

    //! Listens to \a model and the models below it instead of the former ones; null for none.
    void follow(const QAbstractItemModel *model);

Q_SIGNALS:
    void changed();

private:
    void stop();

    QVector<QMetaObject::Connection> m_connections;
};

} // namespace Corvale_Qt
