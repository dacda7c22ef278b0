// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QStringList>
#include <QVector>

#include <memory>

//! A client of a device, as any program of the control system is one: it knows nothing of the monitor.
class TangoClient
{
public:
    //! What was read of an attribute.
    struct Value
    {
        double number = 0.0; //!< of a scalar
        QVector<double> numbers; //!< of a spectrum
        QStringList texts;
        QString quality; //!< "VALID", "WARNING", "ALARM" or "INVALID"
        double time = 0.0; //!< in seconds since 1970
        QString fault; //!< why nothing was read
    };

    explicit TangoClient(const QString &device);
    ~TangoClient();

    Value read(const QString &attribute);
    //! Returns the number of a scalar if it is valid, otherwise NaN.
    double number(const QString &attribute);
    QString unit(const QString &attribute);
    //! Returns the state, like "ON"; what went wrong if there is none.
    QString state();
    QString status();
    //! Subscribes to changes of a scalar. Returns what went wrong.
    QString subscribe(const QString &attribute);
    //! Returns how many changes came since subscribe(), the value at the beginning among them.
    int changes() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
