// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/LineSource.h"
#include "monitor/sources/PieceByPiece.h"
#include "monitor/sources/SocketEnd.h"

#include <QTcpSocket>

namespace Monitor {

/*! Lines from an instrument that listens on the network. An instrument with a question is asked repeatedly: again once
    its answer has come and the interval is over. If an instrument that used to answer is silent for usualSilence, or
    for three intervals if they are longer, the source connects again. */
class TcpClientSource : public LineSource
{
    Q_OBJECT

public:
    //! Seconds between two questions.
    static constexpr double usualInterval = 0.1;
    //! Seconds that an instrument which used to answer may be silent at least.
    static constexpr double usualSilence = 30.0;
    //! Seconds after which the host is looked for by its name once more.
    static constexpr double longestLookup = 30.0;
    //! What to ask the instrument, and how often.
    struct Question
    {
        QByteArray text; //!< without the line end; empty if the instrument talks by itself
        double every; //!< interval in seconds
    };

    TcpClientSource(Clock &clock,
                    const QString &host,
                    quint16 port,
                    const Question &question,
                    QObject *parent = nullptr);
    ~TcpClientSource() override;
    QString description() const override;
    QString remedy() const override;

protected:
    void open() override;
    void close() override;
    void poll() override;

private:
    void socketConnected();
    bool readPiece();
    void socketFailed();
    void giveUpLookup();
    void ask();

    const QString m_host;
    const quint16 m_port;
    const Question m_question;
    QTcpSocket m_socket;
    PieceByPiece m_pieces;
    SocketEnd m_end;
    double m_openedAt = 0.0;
    double m_askedAt = 0.0;
    bool m_answered = true;
    bool m_up = false;
};

} // namespace Monitor
