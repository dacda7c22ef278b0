// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/dialogs/SourceForm.h"

class QComboBox;
class QLineEdit;
class QSpinBox;

namespace Monitor {

//! An instrument that listens on the network.
class TcpClientForm : public SourceForm
{
    Q_OBJECT

public:
    explicit TcpClientForm(QWidget *parent);
    QString title() const override;
    QString source() const override;
    bool setSource(const QString &text) override;

private:
    QLineEdit *m_host;
    QSpinBox *m_port;
    QLineEdit *m_question;
    QLineEdit *m_every;
    QLineEdit *m_silence;
};

//! A program that connects to this one.
class TcpServerForm : public SourceForm
{
    Q_OBJECT

public:
    explicit TcpServerForm(QWidget *parent);
    QString title() const override;
    QString source() const override;
    bool setSource(const QString &text) override;

private:
    QComboBox *m_address;
    QSpinBox *m_port;
    QLineEdit *m_silence;
};

//! An instrument on a serial port.
class SerialForm : public SourceForm
{
    Q_OBJECT

public:
    explicit SerialForm(QWidget *parent);
    QString title() const override;
    QString source() const override;
    bool setSource(const QString &text) override;

private:
    void listPorts();

    QComboBox *m_port;
    QComboBox *m_rate;
    QLineEdit *m_silence;
};

} // namespace Monitor
