// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/LineForms.h"

#include <QComboBox>
#include <QIntValidator>
#include <QLineEdit>
#include <QSerialPortInfo>
#include <QSpinBox>
#include <QUrl>
#include <QUrlQuery>

namespace Monitor {

namespace {

const QString clientScheme = QStringLiteral("tcp");
const QString serverScheme = QStringLiteral("tcp-listen");
const QString serialPrefix = QStringLiteral("serial:");
const QString askKey = QStringLiteral("ask");
const QString everyKey = QStringLiteral("every");
const QString silenceKey = QStringLiteral("silence");
const QString baudKey = QStringLiteral("baud");

constexpr int lastPort = 65535;
constexpr int usualPort = 5000;
constexpr int usualRate = 115200;

QSpinBox *newPortBox(QWidget *parent)
{
    auto *port = new QSpinBox(parent);
    port->setObjectName(QStringLiteral("port"));
    port->setRange(1, lastPort);
    port->setValue(usualPort);
    return port;
}

QLineEdit *newTimeEdit(QWidget *parent, const char *name, const QString &placeholder)
{
    auto *edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(name));
    edit->setPlaceholderText(placeholder);
    return edit;
}

QString silenceText()
{
    return SourceForm::tr(
        "Connect again if a source that used to talk says nothing for this long, like 30s. Empty: "
        "wait for ever, as there may be no beam.");
}

void addIfAny(QUrlQuery *query, const QString &key, const QString &value)
{
    if (!value.isEmpty())
        query->addQueryItem(key, QString::fromLatin1(QUrl::toPercentEncoding(value)));
}

QString withQuery(const QString &text, const QUrlQuery &query)
{
    return query.isEmpty() ? text : text + QLatin1Char('?') + query.query(QUrl::FullyEncoded);
}

QString decoded(const QUrlQuery &query, const QString &key)
{
    return query.queryItemValue(key, QUrl::FullyDecoded);
}

} // namespace

TcpClientForm::TcpClientForm(QWidget *parent)
    : SourceForm(parent)
    , m_host(new QLineEdit(this))
    , m_port(newPortBox(this))
    , m_question(newTimeEdit(this, "ask", tr("the instrument talks by itself")))
    , m_every(newTimeEdit(this, "every", QStringLiteral("100ms")))
    , m_silence(newTimeEdit(this, "silence", tr("wait for ever")))
{
    m_host->setObjectName(QStringLiteral("host"));
    m_host->setPlaceholderText(QStringLiteral("10.0.0.7"));
    addField(tr("&Host:"), m_host, tr("The name or the address of the instrument."));
    addField(tr("&Port:"),
             m_port,
             tr("The number of the TCP port; the instrument's manual has it."));
    addField(tr("&Ask:"),
             m_question,
             tr("What to send for each reading, like READ?, if the instrument answers only when "
                "asked."));
    addField(tr("E&very:"), m_every, tr("How often to ask: 100ms, 1s. Unused without a question."));
    addField(tr("S&ilence:"), m_silence, silenceText());
    for (QLineEdit *edit : {m_host, m_question, m_every, m_silence})
        connect(edit, &QLineEdit::textChanged, this, &SourceForm::edited);
    connect(m_port, qOverload<int>(&QSpinBox::valueChanged), this, &SourceForm::edited);
}

QString TcpClientForm::title() const
{
    return tr("Network instrument");
}

QString TcpClientForm::source() const
{
    const QString host = m_host->text().trimmed();
    if (host.isEmpty())
        return {};
    QUrlQuery query;
    addIfAny(&query, askKey, m_question->text());
    if (!m_question->text().isEmpty())
        addIfAny(&query, everyKey, m_every->text().trimmed());
    addIfAny(&query, silenceKey, m_silence->text().trimmed());
    const bool isBareV6 = host.contains(QLatin1Char(':')) && !host.startsWith(QLatin1Char('['));
    const QString place = isBareV6 ? QStringLiteral("[%1]").arg(host) : host;
    return withQuery(QStringLiteral("tcp://%1:%2").arg(place, QString::number(m_port->value())),
                     query);
}

bool TcpClientForm::setSource(const QString &text)
{
    const QUrl url(text);
    if (url.scheme() != clientScheme)
        return false;
    const QUrlQuery query(url);
    m_host->setText(url.host());
    m_port->setValue(url.port());
    m_question->setText(decoded(query, askKey));
    m_every->setText(decoded(query, everyKey));
    m_silence->setText(decoded(query, silenceKey));
    return true;
}

TcpServerForm::TcpServerForm(QWidget *parent)
    : SourceForm(parent)
    , m_address(new QComboBox(this))
    , m_port(newPortBox(this))
    , m_silence(newTimeEdit(this, "silence", tr("wait for ever")))
{
    m_address->setEditable(true);
    m_address->setObjectName(QStringLiteral("address"));
    m_address->addItems({QStringLiteral("127.0.0.1"), QStringLiteral("0.0.0.0")});
    addField(tr("&Address:"),
             m_address,
             tr("127.0.0.1 lets only programs of this machine connect, 0.0.0.0 every machine of "
                "the network."));
    addField(tr("&Port:"),
             m_port,
             tr("The TCP port that this program opens and the other one connects to."));
    addField(tr("S&ilence:"), m_silence, silenceText());
    connect(m_address, &QComboBox::currentTextChanged, this, &SourceForm::edited);
    connect(m_port, qOverload<int>(&QSpinBox::valueChanged), this, &SourceForm::edited);
    connect(m_silence, &QLineEdit::textChanged, this, &SourceForm::edited);
}

QString TcpServerForm::title() const
{
    return tr("Wait for a program");
}

QString TcpServerForm::source() const
{
    QUrlQuery query;
    addIfAny(&query, silenceKey, m_silence->text().trimmed());
    const QString address = m_address->currentText().trimmed();
    return address.isEmpty()
        ? QString()
        : withQuery(
            QStringLiteral("tcp-listen://%1:%2").arg(address, QString::number(m_port->value())),
            query);
}

bool TcpServerForm::setSource(const QString &text)
{
    const QUrl url(text);
    if (url.scheme() != serverScheme)
        return false;
    m_address->setCurrentText(url.host());
    m_port->setValue(url.port());
    m_silence->setText(decoded(QUrlQuery(url), silenceKey));
    return true;
}

SerialForm::SerialForm(QWidget *parent)
    : SourceForm(parent)
    , m_port(new QComboBox(this))
    , m_rate(new QComboBox(this))
    , m_silence(newTimeEdit(this, "silence", tr("wait for ever")))
{
    m_port->setEditable(true);
    m_port->setObjectName(QStringLiteral("device"));
    listPorts();
    m_rate->setEditable(true);
    m_rate->setObjectName(QStringLiteral("rate"));
    m_rate->setValidator(new QIntValidator(1, 100000000, m_rate));
    for (const int rate :
         {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200, 230400, 460800, 921600})
        m_rate->addItem(QString::number(rate));
    m_rate->setCurrentText(QString::number(usualRate));
    addField(tr("P&ort:"),
             m_port,
             tr("The ports of this machine, or the path of another one. Reading one needs the "
                "group dialout."));
    addField(tr("&Rate:"),
             m_rate,
             tr("Bits per second, as the instrument is set; 8 data bits, no parity, 1 stop bit."));
    addField(tr("S&ilence:"), m_silence, silenceText());
    connect(m_port, &QComboBox::currentTextChanged, this, &SourceForm::edited);
    connect(m_rate, &QComboBox::currentTextChanged, this, &SourceForm::edited);
    connect(m_silence, &QLineEdit::textChanged, this, &SourceForm::edited);
}

void SerialForm::listPorts()
{
    const QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo &port : ports) {
        m_port->addItem(port.systemLocation());
        m_port->setItemData(
            m_port->count() - 1,
            QStringLiteral("%1 %2").arg(port.manufacturer(), port.description()).trimmed(),
            Qt::ToolTipRole);
    }
    m_port->setCurrentIndex(ports.isEmpty() ? -1 : 0);
    m_port->lineEdit()->setPlaceholderText(
        ports.isEmpty() ? tr("no port found; for example /dev/ttyUSB0") : QString());
}

QString SerialForm::title() const
{
    return tr("Serial port");
}

QString SerialForm::source() const
{
    const QString device = m_port->currentText().trimmed();
    if (device.isEmpty())
        return {};
    QUrlQuery query;
    query.addQueryItem(baudKey, m_rate->currentText());
    addIfAny(&query, silenceKey, m_silence->text().trimmed());
    return withQuery(serialPrefix + device, query);
}

bool SerialForm::setSource(const QString &text)
{
    if (!text.startsWith(serialPrefix))
        return false;
    const QString rest = text.mid(serialPrefix.size());
    const int mark = rest.indexOf(QLatin1Char('?'));
    const QUrlQuery query(mark < 0 ? QString() : rest.mid(mark + 1));
    m_port->setCurrentText(rest.left(mark));
    const QString rate = query.queryItemValue(baudKey);
    m_rate->setCurrentText(rate.isEmpty() ? QString::number(usualRate) : rate);
    m_silence->setText(decoded(query, silenceKey));
    return true;
}

} // namespace Monitor
