// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QHash>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUdpSocket>
#include <QVector>

/*! A small Channel Access server on the loopback: it answers searches, creates channels, tells units and limits, and sends
    values to those who subscribe. It speaks as much of version 4.13 of the public protocol as a server of variables of type double
    needs: no writing, no access security, no beacons. */
class ChannelAccessServer : public QObject
{
public:
    //! A process variable.
    struct Variable
    {
        QVector<double> values;
        quint32 claimedCount =
            0; //!< the number of values that is told instead of theirs, unless it is 0
        QByteArray unit;
        double lowAlarm = 0.0, lowWarning = 0.0, highWarning = 0.0, highAlarm = 0.0;
        quint16 status = 0;
        quint16 severity = 0;
        quint32 seconds = 1; //!< since 1990
        quint32 nanoseconds = 0;
    };

    //! Listens on the port for both protocols; on a free one for 0.
    explicit ChannelAccessServer(const QHash<QByteArray, Variable> &variables, quint16 port = 0);

    //! Closes all connections at once, as when a process is killed.
    ~ChannelAccessServer() override;

    bool isListening() const
    {
        return m_tcp.isListening() && m_udp.state() == QUdpSocket::BoundState;
    }
    quint16 port() const { return m_tcp.serverPort(); }
    //! Replaces a variable and sends its values to those who subscribed.
    void post(const QByteArray &name, const Variable &variable);
    Variable variable(const QByteArray &name) const { return m_variables.value(name); }
    int subscriptions() const;
    //! Stops, as a process that is stopped: what clients send is taken by their sockets and is not read until the server goes on.
    void setStopped(bool isStopped);

private:
    struct Header
    {
        quint16 command = 0;
        quint32 size = 0;
        quint16 type = 0;
        quint32 count = 0;
        quint32 first = 0;
        quint32 second = 0;
    };
    struct Subscription
    {
        quint32 channel;
        quint32 id;
        quint16 type;
        quint32 count;
    };
    //! What is known of one client.
    struct Client
    {
        QByteArray received;
        QHash<quint32, QByteArray> channels; //!< names by the server's ids
        QVector<Subscription> subscriptions;
    };

    static QByteArray message(const Header &header, const QByteArray &payload = {});
    static int parse(const QByteArray &bytes, Header *header);
    QByteArray valuesOf(const QByteArray &name, quint16 type, quint32 count) const;
    void answerSearches();
    void accept();
    void read(QTcpSocket *socket);
    void answer(QTcpSocket *socket, Client &client, const Header &header,
                const QByteArray &payload);
    void createChannel(QTcpSocket *socket, Client &client, const Header &header,
                       const QByteArray &name);
    void send(QTcpSocket *socket, const Client &client, const Subscription &subscription) const;

    QHash<QByteArray, Variable> m_variables;
    QTcpServer m_tcp;
    QUdpSocket m_udp;
    QHash<QTcpSocket *, Client> m_clients; //!< the sockets are children of the server's
    quint32 m_lastChannel = 0;
    bool m_isStopped = false;
};
