// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/LimitsDialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

namespace Monitor {

using Corvale_Qt::ChannelLimits;

namespace {

constexpr int limitColumns = 4;
constexpr QSize limitsDialogSize(640, 420);

//! Returns the width that a table needs with its frame and a scroll bar, so that no title is cut with a large font.
int widthOfTable(const QTableWidget &table)
{
    int width = table.verticalHeader()->sizeHint().width() + 2 * table.frameWidth()
        + table.verticalScrollBar()->sizeHint().width();
    for (int column = 0; column < table.columnCount(); ++column)
        width += table.horizontalHeader()->sectionSizeHint(column);
    return width;
}

} // namespace

LimitsDialog::LimitsDialog(const StreamHeader &header, QWidget *parent)
    : QDialog(parent)
    , m_header(header)
    , m_table(new QTableWidget(header.channels.size(), limitColumns, this))
    , m_fault(new QLabel(this))
{
    setWindowTitle(tr("Limits"));
    const QString text = header.channels.isEmpty()
        ? tr("Limits are set for the channels of a stream, and there are none yet.")
        : tr("Readings beyond a limit are a warning or an alarm. An empty cell means no limit. "
             "Numbers have a decimal point.");
    auto *explanation = new QLabel(text, this);
    explanation->setWordWrap(true);
    m_fault->setTextFormat(Qt::PlainText);
    m_fault->setWordWrap(true);
    m_fault->setObjectName(QStringLiteral("fault"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    m_table->setObjectName(QStringLiteral("limitsTable"));
    m_table->setAccessibleName(tr("Limits of each channel"));
    m_table->setHorizontalHeaderLabels(
        {tr("Low alarm"), tr("Low warning"), tr("High warning"), tr("High alarm")});
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setStretchLastSection(
        true); // which would cut its title on a small screen
    m_table->horizontalHeader()->setMinimumSectionSize(
        m_table->horizontalHeader()->sectionSizeHint(limitColumns - 1));
    m_table->setTabKeyNavigation(false); // Tab leads from cell to cell while one is edited
    fill();
    connect(m_table, &QTableWidget::cellChanged, this, &LimitsDialog::check);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_fault);
    layout->addWidget(buttons);
    const QMargins around = layout->contentsMargins();
    resize(
        limitsDialogSize.expandedTo({widthOfTable(*m_table) + around.left() + around.right(), 0}));
    m_table->setFocus();
    check();
}

void LimitsDialog::fill()
{
    QStringList names;
    for (int row = 0; row < m_header.channels.size(); ++row) {
        const Channel &channel = m_header.channels[row];
        names.append(channel.unit.isEmpty() ? channel.name
                                            : tr("%1 in %2").arg(channel.name, channel.unit));
        const QStringList limits = limitsText(m_header.limitsOf(row)).split(QLatin1Char(','));
        for (int column = 0; column < limitColumns; ++column)
            m_table->setItem(row, column, new QTableWidgetItem(limits.value(column)));
    }
    m_table->setVerticalHeaderLabels(names);
}

std::optional<ChannelLimits> LimitsDialog::limitsIn(int row, QString *fault) const
{
    QStringList texts;
    for (int column = 0; column < limitColumns; ++column) {
        texts.append(m_table->item(row, column)->text());
        if (!limitFromText(texts.last())) {
            *fault = tr("\"%1\" is not a number with a decimal point").arg(texts.last());
            return std::nullopt;
        }
    }
    return limitsFromText(texts.join(QLatin1Char(',')), fault);
}

//! Says what is wrong with the first row that is not readable.
void LimitsDialog::check()
{
    QString text;
    for (int row = 0; row < m_table->rowCount() && text.isEmpty(); ++row) {
        QString fault;
        if (!limitsIn(row, &fault))
            text = tr("%1: %2.").arg(m_header.channels[row].name, fault);
    }
    m_fault->setText(text);
    m_ok->setEnabled(text.isEmpty());
}

NamedLimits LimitsDialog::changed() const
{
    NamedLimits changed;
    QString fault;
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const std::optional<ChannelLimits> limits = limitsIn(row, &fault);
        const bool isOther = limits && *limits != m_header.limitsOf(row);
        if (isOther)
            changed.insert(m_header.channels[row].name, *limits);
    }
    return changed;
}

} // namespace Monitor
