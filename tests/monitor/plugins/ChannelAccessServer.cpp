// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/monitor/plugins/ChannelAccessServer.h"

#include <QDataStream>
#include <QNetworkDatagram>

namespace {

// Commands.
constexpr quint16 version = 0, eventAdd = 1, eventCancel = 2, search = 6, clearChannel = 12,
                  readNotify = 15, createChannelCommand = 18, accessRights = 22, echo = 23,
                  createFailed = 26;
constexpr quint16 minorVersion = 13;
constexpr quint32 success = 1;
// Types of values.
constexpr quint16 typeDouble = 6, typeTimeDouble = 20, typeControlDouble = 34;
constexpr int headerSize = 16, longHeaderSize = 24;
constexpr quint16 longSize = 0xffff;

//! Returns the text without the zeros that fill its place.
QByteArray textOf(const QByteArray &payload)
{
    return payload.left(int(qstrnlen(payload.constData(), uint(payload.size()))));
}

} // namespace

ChannelAccessServer::ChannelAccessServer(const QHash<QByteArray, Variable> &variables, quint16 port)
    : m_variables(variables)
{
    // A free port of both kinds is not found at the first try always.
    for (int tries = 0; tries < 20 && !isListening(); ++tries) {
        m_tcp.close();
        m_udp.close();
        if (m_tcp.listen(QHostAddress::LocalHost, port))
            m_udp.bind(QHostAddress::LocalHost, m_tcp.serverPort());
    }
    connect(&m_tcp, &QTcpServer::newConnection, this, &ChannelAccessServer::accept);
    connect(&m_udp, &QUdpSocket::readyRead, this, &ChannelAccessServer::answerSearches);
}

ChannelAccessServer::~ChannelAccessServer()
{
    for (QTcpSocket *socket : m_clients.keys()) {
        socket->disconnect(this);
        socket->abort();
    }
}

QByteArray ChannelAccessServer::message(const Header &header, const QByteArray &payload)
{
    QByteArray padded = payload;
    padded.append((8 - payload.size() % 8) % 8, '\0');
    const bool isLong = padded.size() >= longSize || header.count >= longSize;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << header.command << (isLong ? longSize : quint16(padded.size())) << header.type
           << (isLong ? quint16(0) : quint16(header.count)) << header.first << header.second;
    if (isLong)
        stream << quint32(padded.size()) << header.count;
    return bytes + padded;
}

//! Reads a header. Returns its length; 0 if it has not come as a whole.
int ChannelAccessServer::parse(const QByteArray &bytes, Header *header)
{
    if (bytes.size() < headerSize)
        return 0;
    QDataStream stream(bytes);
    quint16 size = 0, count = 0;
    stream >> header->command >> size >> header->type >> count >> header->first >> header->second;
    header->size = size;
    header->count = count;
    if (size != longSize || count != 0)
        return headerSize;
    if (bytes.size() < longHeaderSize)
        return 0;
    stream >> header->size >> header->count;
    return longHeaderSize;
}

//! A datagram may carry several searches. Names that are not known get no answer.
void ChannelAccessServer::answerSearches()
{
    while (!m_isStopped && m_udp.hasPendingDatagrams()) {
        const QNetworkDatagram datagram = m_udp.receiveDatagram();
        QByteArray rest = datagram.data();
        QByteArray answers;
        Header header;
        while (const int length = parse(rest, &header)) {
            const QByteArray name = textOf(rest.mid(length, int(header.size)));
            rest = rest.mid(length + int(header.size));
            if (header.command != search || !m_variables.contains(name))
                continue;
            QByteArray payload;
            QDataStream(&payload, QIODevice::WriteOnly) << minorVersion;
            constexpr quint32 senderOfThis = 0xffffffff;
            answers += message({search, 0, port(), 0, senderOfThis, header.first}, payload);
        }
        if (!answers.isEmpty())
            m_udp.writeDatagram(message({version, 0, 0, minorVersion, 0, 0}) + answers,
                                datagram.senderAddress(), quint16(datagram.senderPort()));
    }
}

void ChannelAccessServer::accept()
{
    while (QTcpSocket *socket = m_isStopped ? nullptr : m_tcp.nextPendingConnection()) {
        m_clients.insert(socket, {});
        socket->write(message({version, 0, 0, minorVersion, 0, 0}));
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            m_clients.remove(socket);
            socket->deleteLater();
        });
    }
}

void ChannelAccessServer::read(QTcpSocket *socket)
{
    if (m_isStopped)
        return;
    Client &client = m_clients[socket];
    client.received += socket->readAll();
    Header header;
    while (const int length = parse(client.received, &header)) {
        if (client.received.size() < length + int(header.size))
            return;
        const QByteArray payload = client.received.mid(length, int(header.size));
        client.received.remove(0, length + int(header.size));
        answer(socket, client, header, payload);
    }
}

void ChannelAccessServer::answer(QTcpSocket *socket, Client &client, const Header &header,
                                 const QByteArray &payload)
{
    const QByteArray name = client.channels.value(header.first);
    switch (header.command) {
    case createChannelCommand:
        createChannel(socket, client, header, textOf(payload));
        break;
    case eventAdd:
        client.subscriptions.append({header.first, header.second, header.type, header.count});
        send(socket, client, client.subscriptions.last());
        break;
    case eventCancel:
        client.subscriptions.erase(
            std::remove_if(client.subscriptions.begin(), client.subscriptions.end(),
                           [&](const Subscription &one) { return one.id == header.second; }),
            client.subscriptions.end());
        socket->write(message({eventAdd, 0, header.type, 0, header.first, header.second}));
        break;
    case readNotify: {
        const quint32 count =
            header.count ? header.count : quint32(m_variables.value(name).values.size());
        socket->write(message({readNotify, 0, header.type, count, success, header.second},
                              valuesOf(name, header.type, count)));
        break;
    }
    case clearChannel:
        client.channels.remove(header.first);
        socket->write(message({clearChannel, 0, 0, 0, header.first, header.second}));
        break;
    case echo:
        socket->write(message({echo, 0, 0, 0, 0, 0}));
        break;
    default:
        break; // the names of user and machine, and other things that need no answer
    }
}

void ChannelAccessServer::createChannel(QTcpSocket *socket, Client &client, const Header &header,
                                        const QByteArray &name)
{
    if (!m_variables.contains(name)) {
        socket->write(message({createFailed, 0, 0, 0, header.first, 0}));
        return;
    }
    constexpr quint32 mayRead = 1;
    client.channels.insert(++m_lastChannel, name);
    const Variable variable = m_variables.value(name);
    const auto count =
        variable.claimedCount ? variable.claimedCount : quint32(variable.values.size());
    socket->write(message({accessRights, 0, 0, 0, header.first, mayRead}));
    socket->write(
        message({createChannelCommand, 0, typeDouble, count, header.first, m_lastChannel}));
}

QByteArray ChannelAccessServer::valuesOf(const QByteArray &name, quint16 type, quint32 count) const
{
    const Variable variable = m_variables.value(name);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    if (type != typeDouble)
        stream << variable.status << variable.severity;
    if (type == typeTimeDouble)
        stream << variable.seconds << variable.nanoseconds << quint32(0);
    if (type == typeControlDouble) {
        stream << quint16(3) << quint16(0);
        stream.writeRawData(variable.unit.leftJustified(8, '\0', true).constData(), 8);
        stream << 1.0 << 0.0 << variable.highAlarm << variable.highWarning << variable.lowWarning
               << variable.lowAlarm << 1.0 << 0.0;
    }
    for (quint32 i = 0; i < count; ++i)
        stream << variable.values.value(int(i));
    return bytes;
}

void ChannelAccessServer::send(QTcpSocket *socket, const Client &client,
                               const Subscription &subscription) const
{
    const QByteArray name = client.channels.value(subscription.channel);
    const quint32 count =
        subscription.count ? subscription.count : quint32(m_variables.value(name).values.size());
    socket->write(message({eventAdd, 0, subscription.type, count, success, subscription.id},
                          valuesOf(name, subscription.type, count)));
}

void ChannelAccessServer::post(const QByteArray &name, const Variable &variable)
{
    m_variables.insert(name, variable);
    for (auto client = m_clients.constBegin(); client != m_clients.constEnd(); ++client)
        for (const Subscription &subscription : client->subscriptions)
            if (client->channels.value(subscription.channel) == name)
                send(client.key(), *client, subscription);
}

int ChannelAccessServer::subscriptions() const
{
    int count = 0;
    for (const Client &client : m_clients)
        count += client.subscriptions.size();
    return count;
}

void ChannelAccessServer::setStopped(bool isStopped)
{
    m_isStopped = isStopped;
    if (isStopped)
        return;
    answerSearches();
    accept();
    for (QTcpSocket *socket : m_clients.keys())
        read(socket);
}
