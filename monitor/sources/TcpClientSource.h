// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/sources/LineSource.h"

#include <QTcpSocket>

namespace Monitor {

/*! Lines from an instrument that listens. With a question, it is asked again and again: the next time when its
    answer has come and the interval is over. One that used to answer and does not for usualSilence, or three
    intervals if they are longer, is connected anew. */
class TcpClientSource : public LineSource
{
    Q_OBJECT

public:
    static constexpr double usualInterval = 0.1;
    //! An instrument that is asked, and used to answer, may take so long at least.
    static constexpr double usualSilence = 30.0;
    struct Question
    {
        QByteArray text; //!< without the end of line; empty where the instrument talks by itself
        double every; //!< seconds
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
    void socketReadable();
    void socketFailed();
    void ask();

    const QString m_host;
    const quint16 m_port;
    const Question m_question;
    QTcpSocket m_socket;
    double m_askedAt = 0.0;
    bool m_answered = true;
    bool m_up = false;
};

} // namespace Monitor
