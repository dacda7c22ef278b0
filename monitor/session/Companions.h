// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/session/Session.h"
#include "monitor/session/StreamClock.h"
#include "monitor/sources/SourceNames.h"

#include <memory>
#include <vector>

namespace Monitor {

/*! The instruments that are read beside the one of a session, the lead. Each has a session, and so a reader, a model, limits and a
    recording of its own; nothing is merged. They are paused and recorded together with the lead, and are closed when the lead gets
    another source. A session without companions does not notice this class. */
class Companions : public QObject
{
    Q_OBJECT

public:
    //! One of the sources that are read together.
    struct Member
    {
        QString name; //!< differs from the names of the others
        Session *session;
        const StreamClock *clock;
        const Session *lead;

        //! Returns whether the lead is recorded, but this source is not, as its file could not be begun.
        bool isLeftOutOfRecording() const { return lead->recorder() && !session->recorder(); }
    };

    //! The lead must outlive the companions.
    explicit Companions(Session &lead, QObject *parent = nullptr);
    ~Companions() override;

    //! Sets the name of the lead among companions.
    void setLeadName(const QString &name);
    /*! Adds a source, which is not started yet, under that name, or one with a number if another member has it. Readings that
        arrive must be dated by their arrival: Source::isLive(). */
    Session &add(const NamedAddress &source, std::unique_ptr<Source> reader);
    //! Closes a companion; does nothing if there is none with that session. Must not be called from a slot of its source.
    void close(Session *session);
    //! Closes all companions.
    void closeAll();

    bool isEmpty() const { return m_companions.empty(); }
    //! Returns the lead, then the companions in the order in which they were added.
    std::vector<Member> members() const;
    //! Returns the names and the addresses of the companions, in the order in which they were added.
    QVector<NamedAddress> addresses() const;
    //! Returns the name of a session; empty if the lead is alone.
    QString nameOf(const Session *session) const;
    //! Returns the latest moment of a member whose clock is in step, in seconds since 1970; nothing if there is none.
    std::optional<double> present() const;
    //! Returns a line for each recording of companions that is incomplete or could not begin, also of those that are closed.
    QStringList incompleteRecordings() const;

Q_SIGNALS:
    //! Emitted when there is another companion, before its source is started.
    void added(Monitor::Session &session);
    //! Emitted before a companion goes.
    void closing(Monitor::Session &session);
    //! Emitted when the members or their names are others.
    void changed();

private:
    struct Companion;

    std::vector<std::unique_ptr<Companion>>::iterator find(const Session *session);
    QString freeName(const NamedAddress &source) const;
    void recordAsLead();
    void record(Companion &companion);
    void nameLead();
    void listenTo(const StreamClock &clock, Session &session);
    void noteOrigin(const StreamClock &clock, Session &session) const;
    void noteStep(const StreamClock &clock, Session &session) const;

    Session &m_lead;
    StreamClock m_leadClock;
    QString m_leadName;
    std::vector<std::unique_ptr<Companion>> m_companions;
    QStringList m_incompleteRecordings; //!< of companions that are closed, or that could not begin
};

} // namespace Monitor
