// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QVector>

namespace Corvale_Qt {
class RVXScope;
class RVXZeroingProxyModel;
} // namespace Corvale_Qt

namespace Monitor {

class Session;

/*! What is subtracted from the readings before they are shown: a zero (the newest reading of each channel) or a background (a
    mean of many). It is taken on the scope, and zeros() hands it to the other displays. Recordings hold what was measured. */
class Baseline : public QObject
{
    Q_OBJECT

public:
    enum class Kind {
        None,
        Zero,
        Background,
    };
    //! The number of readings whose mean is a background; fewer if fewer have come.
    static constexpr int backgroundLength = 100;

    Baseline(Session &session, Corvale_Qt::RVXScope &scope, QObject *parent = nullptr);

    Kind kind() const { return m_kind; }
    //! Returns the state as it is shown beside the numbers; empty if nothing is subtracted.
    QString text() const;
    //! Returns what is subtracted from each channel, in its base unit; empty if nothing is.
    QVector<double> zeros() const;

    //! Takes the newest reading of each channel as its zero.
    void takeZero();
    //! Takes the mean of the newest readings of each channel as its background.
    void takeBackground();
    //! Subtracts nothing any more.
    void remove();

Q_SIGNALS:
    //! Emitted when something else is subtracted, or nothing any more.
    void changed();

private:
    Corvale_Qt::RVXZeroingProxyModel *proxy() const;
    QVector<double> newestMeans() const;
    void follow();
    void correctKind(Kind before, Kind now);

    Session &m_session;
    Corvale_Qt::RVXScope &m_scope;
    Kind m_kind = Kind::None;
    QVector<double> m_zeros;
    bool m_takingBackground = false;
};

} // namespace Monitor
