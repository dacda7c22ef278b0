// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ComputedDialog.h"

#include "monitor/window/Look.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextCursor>

namespace Monitor {

using namespace Corvale_Qt;

namespace {

constexpr QSize computedDialogSize(720, 420);

QString title(const ComputedChannel &channel)
{
    return channel.unit.isEmpty() ? channel.name
                                  : QStringLiteral("%1 [%2]").arg(channel.name, channel.unit);
}

//! Returns whether a channel is the same after it was written as text, as settings and --compute have it.
bool canBeWritten(const ComputedChannel &channel)
{
    static const QRegularExpression signs(QStringLiteral("[][=]"));
    return !channel.name.contains(signs) && !channel.unit.contains(signs);
}

} // namespace

ComputedDialog::ComputedDialog(const QVector<ComputedChannel> &channels,
                               const StreamHeader &header,
                               QWidget *parent)
    : QDialog(parent)
    , m_header(header)
    , m_channels(channels)
    , m_list(new QListWidget(this))
    , m_remove(new QPushButton(tr("&Remove"), this))
    , m_name(newField("name",
                      tr("What the channel is called in charts, tables and recordings (Alt+N)")))
    , m_unit(newField("unit", tr("The symbol of its unit, such as nA; empty for none (Alt+U)")))
    , m_expression(new QPlainTextEdit(this))
    , m_fault(new QLabel(this))
{
    setWindowTitle(tr("Computed channels"));
    auto *explanationLabel = new QLabel(explanation(), this);
    explanationLabel->setTextFormat(Qt::PlainText); // names come from the stream
    explanationLabel->setWordWrap(true);
    m_fault->setObjectName(QStringLiteral("fault"));
    m_fault->setTextFormat(Qt::PlainText);
    m_fault->setWordWrap(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *halves = new QHBoxLayout;
    halves->addWidget(newList(), 1);
    halves->addWidget(newFields(), 2);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(explanationLabel);
    layout->addLayout(halves, 1);
    layout->addWidget(m_fault);
    layout->addWidget(buttons);
    resize(computedDialogSize);
    for (const ComputedChannel &channel : m_channels)
        m_list->addItem(title(channel));
    m_list->setCurrentRow(0);
    showChannel();
}

QString ComputedDialog::explanation() const
{
    if (m_header.channels.isEmpty())
        return tr(
            "There is no stream yet. Whether the expressions make sense is seen when one begins.");
    if (m_header.kind != StreamKind::Channels)
        return tr("This stream has no independent channels, from which others are computed.");
    QStringList names;
    for (int i = 0; i < m_header.measured(); ++i)
        names << m_header.channels[i].name;
    return tr("The stream has %1. An expression is like (A - B) / (A + B), avg(A, B) or "
              "fit_position([left plate] .. D).")
        .arg(names.join(QStringLiteral(", ")));
}

QLineEdit *ComputedDialog::newField(const char *name, const QString &toolTip)
{
    auto *field = new QLineEdit(this);
    field->setObjectName(QLatin1String(name));
    field->setToolTip(toolTip);
    connect(field, &QLineEdit::textChanged, this, &ComputedDialog::takeFields);
    return field;
}

QWidget *ComputedDialog::newList()
{
    auto *half = new QWidget(this);
    auto *add = new QPushButton(tr("&Add"), half);
    add->setToolTip(tr("Add a computed channel (Alt+A)"));
    add->setAutoDefault(false);
    m_remove->setToolTip(tr("Remove the selected channel (Alt+R)"));
    m_remove->setAutoDefault(false);
    m_list->setObjectName(QStringLiteral("computed"));
    m_list->setAccessibleName(tr("Computed channels"));
    connect(add, &QPushButton::clicked, this, &ComputedDialog::addChannel);
    connect(m_remove, &QPushButton::clicked, this, &ComputedDialog::removeChannel);
    connect(m_list, &QListWidget::currentRowChanged, this, &ComputedDialog::showChannel);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(m_remove);
    auto *layout = new QVBoxLayout(half);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
    return half;
}

QWidget *ComputedDialog::newFields()
{
    auto *half = new QWidget(this);
    auto *form = new QFormLayout(half);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(tr("&Name:"), m_name);
    form->addRow(tr("&Unit:"), m_unit);
    form->addRow(tr("&Expression:"), m_expression);
    m_expression->setObjectName(QStringLiteral("expression"));
    m_expression->setTabChangesFocus(true);
    m_expression->setToolTip(tr("+ - * / ^, comparisons, c ? a : b, sum, avg, min, max, sqrt, abs, "
                                "exp, ln, log10 and others; a "
                                "name that is not one word stands in brackets (Alt+E)"));
    connect(m_expression, &QPlainTextEdit::textChanged, this, &ComputedDialog::takeFields);
    return half;
}

void ComputedDialog::addChannel()
{
    m_channels.append(ComputedChannel());
    m_list->addItem(tr("New channel"));
    m_list->setCurrentRow(m_channels.size() - 1);
    m_name->setFocus();
}

void ComputedDialog::removeChannel()
{
    const int row = m_list->currentRow();
    if (row < 0)
        return;
    m_channels.removeAt(row);
    delete m_list->takeItem(row); // selects another one
    showChannel();
}

//! Shows the channel that is selected in the fields.
void ComputedDialog::showChannel()
{
    const int row = m_list->currentRow();
    const bool isAny = row >= 0 && row < m_channels.size();
    m_isShowing = true;
    const ComputedChannel channel = isAny ? m_channels[row] : ComputedChannel();
    m_name->setText(channel.name);
    m_unit->setText(channel.unit);
    m_expression->setPlainText(channel.expression);
    m_isShowing = false;
    for (QWidget *field : std::initializer_list<QWidget *>{m_name, m_unit, m_expression, m_remove})
        field->setEnabled(isAny);
    check();
}

void ComputedDialog::takeFields()
{
    const int row = m_list->currentRow();
    if (m_isShowing || row < 0)
        return;
    m_channels[row] = {m_name->text().trimmed(),
                       m_unit->text().trimmed(),
                       m_expression->toPlainText().replace(QLatin1Char('\n'), QLatin1Char(' '))};
    m_list->item(row)->setText(title(m_channels[row]));
    check();
}

void ComputedDialog::check()
{
    ExpressionFault fault;
    if (m_header.kind == StreamKind::Channels && !m_header.channels.isEmpty()) {
        QStringList names;
        for (int i = 0; i < m_header.measured(); ++i)
            names << m_header.channels[i].name;
        ChannelExpressions().compile(names, m_channels, &fault);
        const int most = StreamHeader::maxChannels - m_header.measured();
        if (fault.isEmpty() && m_channels.size() > most)
            fault = {most,
                     -1,
                     tr("there would be more than %1 channels").arg(StreamHeader::maxChannels)};
    }
    for (int i = 0; i < m_channels.size() && fault.isEmpty(); ++i)
        if (!canBeWritten(m_channels[i]))
            fault = {i, -1, tr("a name or a unit cannot have the signs =, [ and ]")};
    showFault(fault);
}

void ComputedDialog::showFault(const ExpressionFault &fault)
{
    const bool isOfField = fault.channel == m_list->currentRow();
    markPlace(!fault.isEmpty() && isOfField ? fault.position : -1);
    const QString name = m_channels.value(fault.channel).name;
    m_fault->setText(name.isEmpty() ? fault.message() : tr("%1: %2").arg(name, fault.message()));
    m_ok->setEnabled(fault.isEmpty());
}

//! Marks the expression from a character on to the end of the word there; nothing for -1.
void ComputedDialog::markPlace(int position)
{
    QList<QTextEdit::ExtraSelection> marks;
    if (position >= 0) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = m_expression->textCursor();
        const int end = m_expression->document()->characterCount() - 1;
        mark.cursor.setPosition(qMin(position, qMax(end - 1, 0)));
        mark.cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
        mark.cursor.movePosition(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
        mark.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        const QColor trouble = Look::ground(Look::State::Trouble);
        constexpr double faint = 0.35;
        mark.format.setUnderlineColor(trouble);
        mark.format.setBackground(Look::mixed(palette().color(QPalette::Base), trouble, faint));
        marks << mark;
    }
    m_expression->setExtraSelections(marks);
}

} // namespace Monitor
