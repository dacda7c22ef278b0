// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/LatestValuePanel.h"

#include "monitor/session/Session.h"
#include "monitor/window/Baseline.h"
#include "monitor/window/LimitMarks.h"
#include "monitor/window/Look.h"
#include "monitor/window/StaleMarks.h"
#include "monitor/window/ValueDelegate.h"
#include "monitor/window/ValueTable.h"
#include <corvale_qt/proxies/RVXLatestPlotDataProxyModel.h>
#include <corvale_qt/proxies/RVXZeroingProxyModel.h>

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

//! Returns the shortest text that reads back as the same number.
QString allDigits(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

} // namespace

LatestValuePanel::LatestValuePanel(Session &session, QWidget *parent)
    : QWidget(parent)
    , m_session(session)
    , m_zeroed(new Corvale_Qt::RVXZeroingProxyModel(this))
    , m_latest(new Corvale_Qt::RVXLatestPlotDataProxyModel(this))
    , m_marks(new StaleMarks(this))
    , m_baseline(new QLabel(this))
    , m_table(new ValueTable(this))
{
    m_latest->setSiPrefix(true);
    m_zeroed->setSourceModel(&session.model());
    m_latest->setSourceModel(m_zeroed);
    auto *limits = new LimitMarks(session.alarms(), this);
    limits->setSourceModel(m_latest);
    m_marks->setSourceModel(limits);
    m_table->setObjectName(QStringLiteral("latestValues"));
    m_table->setAccessibleName(tr("Latest values"));
    m_table->setModel(m_marks);
    m_table->setItemDelegate(new ValueDelegate(session.model(), m_table));
    m_table->setShowGrid(false);
    m_baseline->setObjectName(QStringLiteral("valueState"));
    m_baseline->setAlignment(Qt::AlignCenter);
    m_baseline->setWordWrap(true);
    Look::dress(m_baseline, Look::State::Processed);
    m_baseline->hide();
    m_table->setDragEnabled(true);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    m_table->viewport()->installEventFilter(this);
    connect(m_table, &QAbstractItemView::activated, this, &LatestValuePanel::toggle);

    auto *all = new QPushButton(tr("&All"), this);
    all->setToolTip(tr("Show all channels"));
    auto *none = new QPushButton(tr("N&one"), this);
    none->setToolTip(tr("Show no channel"));
    connect(all, &QPushButton::clicked, this, [this] {
        checkAll(true);
    });
    connect(none, &QPushButton::clicked, this, [this] {
        checkAll(false);
    });
    connect(&session, &Session::staleChanged, m_marks, &StaleMarks::setStale);
    connect(&session, &Session::streamStarted, this, &LatestValuePanel::fitNames);
    connect(&session, &Session::limitsChanged, this, &LatestValuePanel::fitNames);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(all);
    buttons->addWidget(none);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Look::gap / 2, Look::gap / 2, Look::gap / 2, Look::gap / 2);
    layout->setSpacing(Look::gap / 2);
    layout->addWidget(m_baseline);
    layout->addWidget(m_table);
    layout->addLayout(buttons);
}

QAbstractItemModel *LatestValuePanel::values() const
{
    return m_marks;
}

void LatestValuePanel::setValueUnit(const QString &symbol)
{
    m_latest->setValueUnit(symbol);
}

void LatestValuePanel::follow(Baseline *baseline)
{
    connect(baseline, &Baseline::changed, this, [this, baseline] {
        m_zeroed->setZeros(baseline->zeros());
        m_baseline->setText(baseline->text());
        m_baseline->setVisible(!baseline->text().isEmpty());
    });
}

void LatestValuePanel::copyValues() const
{
    const MultichannelDeviceModel &model = m_session.model();
    const int last = model.rowCount() - 1;
    QStringList lines;
    if (last > 0 && model.header().hasTimes)
        lines.append(QStringLiteral("time\t%1\ts").arg(allDigits(model.doubleData(last, 0))));
    for (int row = 0; row < m_marks->rowCount(); ++row) {
        const QModelIndex value = m_marks->index(row, 1);
        const double number =
            value.data(Corvale_Qt::RVXAbstractPlotDataModel::NumericValueRole).toDouble();
        const QString unit = model.header().channels.value(row).unit;
        const bool isReading = last > 0 && std::isfinite(number);
        lines.append(
            m_marks->index(row, 0).data().toString() + QLatin1Char('\t')
            + (isReading ? allDigits(number) + QLatin1Char('\t') + unit : value.data().toString()));
    }
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

QSize LatestValuePanel::sizeHint() const
{
    return {minimumSizeHint().width() + leastNameWidth() / 2, 400};
}

//! The names get the room that they need, the values the rest, and at least enough for a number.
void LatestValuePanel::fitNames()
{
    m_leastNameWidth.reset();
    updateGeometry(); // limits have words beside the values
    const int room = m_table->viewport()->width() - valueWidth();
    const int least = leastNameWidth();
    m_table->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    m_table->resizeColumnToContents(0);
    m_table->setColumnWidth(0, std::clamp(m_table->columnWidth(0), least, std::max(room, least)));
}

int LatestValuePanel::valueWidth() const
{
    const QString number = QStringLiteral(" -0.0000e-00 ");
    const QFont figures = Look::figures(font());
    int width = QFontMetrics(figures).horizontalAdvance(number);
    if (m_session.statistics().header().limits.isEmpty())
        return width;
    QFont loud = figures; // what is beyond a limit is bold
    loud.setBold(true);
    for (const QString &word : LimitMarks::words())
        width = std::max(width, QFontMetrics(loud).horizontalAdvance(word + number));
    return width;
}

/*! Short names can be read whole beside their box and colour, however narrow the panel becomes. Layouts ask for the width again and
    again, and to measure all names takes long. */
int LatestValuePanel::leastNameWidth() const
{
    if (!m_leastNameWidth) {
        const int digit = fontMetrics().horizontalAdvance(QLatin1Char('0'));
        const QAbstractItemView &table = *m_table;
        m_leastNameWidth = std::clamp(table.sizeHintForColumn(0), 8 * digit, 13 * digit);
    }
    return *m_leastNameWidth;
}

QSize LatestValuePanel::minimumSizeHint() const
{
    const int scrollBar = m_table->verticalScrollBar()->sizeHint().width();
    const int ofTable = leastNameWidth() + valueWidth() + scrollBar + 8;
    return {std::max(ofTable, QWidget::minimumSizeHint().width()), 100};
}

void LatestValuePanel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitNames();
    QWidget::changeEvent(event);
}

//! Fits the columns to the room of the table, which a scroll bar takes some of when many channels come.
bool LatestValuePanel::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        fitNames();
    return QWidget::eventFilter(watched, event);
}

void LatestValuePanel::toggle(const QModelIndex &cell)
{
    const QModelIndex name = m_marks->index(cell.row(), 0);
    const bool shown = name.data(Qt::CheckStateRole).toInt() != Qt::Unchecked;
    m_marks->setData(name, shown ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void LatestValuePanel::checkAll(bool on)
{
    MultichannelDeviceModel &model = m_session.model();
    for (int column = 1; column < model.columnCount(); ++column)
        model.setData(model.index(0, column), on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
}

} // namespace Monitor
