// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QVector>

namespace Corvale_Qt {
class RVXScope;
class RVXScopePlotView;
} // namespace Corvale_Qt

namespace Monitor {

class Session;
struct StreamHeader;
class WindowSettings;

/*! Keeps how the scope shows readings from one start to the next: the choices of its panel, the logarithm, the range of the right
    axis and the trigger of sweeps. Each is written when it changes, so that a program that is ended by force loses none.

    The range of the right axis belongs to a source, and to the unit that it was typed in.

    The trigger belongs to a channel. It comes back with the first stream that has a channel of the same name and unit; until
    then there is no trigger, so that no sweep waits for a channel that is not there. */
class ScopeMemory : public QObject
{
    Q_OBJECT

public:
    //! Sets the scope as it was. Session, scope and settings must outlive it.
    ScopeMemory(Session &session,
                Corvale_Qt::RVXScope &scope,
                WindowSettings &settings,
                QObject *parent);

private Q_SLOTS:
    void keepChoices();

private:
    void restoreRightRange();
    void keepRightRange();
    void addChoice(QObject *object, const char *property);
    void restoreTrigger(const StreamHeader &header);
    void keepTrigger();

    //! A property of the scope that is kept.
    struct Choice
    {
        QObject *object;
        const char *property;
        QString text; //!< of its value when it was read last
    };

    Session &m_session;
    Corvale_Qt::RVXScopePlotView &m_view;
    WindowSettings &m_settings;
    QVector<Choice> m_choices;
    bool m_restoresRange = false; //!< of the right axis; it is not to be kept then
    bool m_awaitsChannel = true; //!< of the trigger that was kept
};

} // namespace Monitor
