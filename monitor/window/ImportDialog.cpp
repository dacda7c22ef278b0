// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ImportDialog.h"

#include "monitor/dialogs/ScrolledPage.h"
#include "monitor/input/ImportGuess.h"
#include "monitor/input/TablePreview.h"
#include "monitor/window/ScreenFit.h"
#include "monitor/window/WindowSettings.h"

#include <QComboBox>
#include <QCryptographicHash>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>

#include <algorithm>

namespace Monitor {

namespace {

using Header = ImportOptions::Header;
using ImportClock = ImportOptions::Clock;

//! Returns what is kept for a header; a header is known by its hash, whatever its length and signs.
QString keyOf(const QString &header)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(header.toUtf8(), QCryptographicHash::Sha1).toHex());
}

//! Returns whether most of the first rows of a table can be read; a damaged one among them does not count.
bool canRead(const QString &path, const ImportOptions &options)
{
    const TablePreview preview = TablePreview::of(path, options);
    const auto refused = std::min<qint64>(preview.refused, TablePreview::mostRows);
    return !preview.rows.isEmpty() && refused <= preview.rows.size();
}

void choose(QComboBox *box, const QVariant &data)
{
    box->setCurrentIndex(qMax(0, box->findData(data)));
}

} // namespace

std::optional<ImportOptions>
ImportDialog::optionsFor(const QString &path, WindowSettings *settings, QWidget *parent)
{
    const ImportGuess guess = ImportGuess::of(sampleOf(path));
    ImportOptions options;
    QString error;
    const QString kept =
        settings && !guess.header.isEmpty() ? settings->importFor(keyOf(guess.header)) : QString();
    // The same names may stand above other numbers; then the answer for them does not hold.
    if (!kept.isEmpty() && ImportOptions::fromText(kept, &options, &error)
        && canRead(path, options))
        return options;
    if (!guess.isNeeded)
        return ImportOptions();
    ImportDialog dialog(path, parent);
    return dialog.answer(guess.header, settings);
}

std::optional<ImportOptions> ImportDialog::otherOptions(const QString &path,
                                                        const ImportOptions &present,
                                                        WindowSettings *settings,
                                                        QWidget *parent)
{
    const QString header = ImportGuess::of(sampleOf(path)).header;
    ImportDialog dialog(path, parent);
    dialog.setReason(
        header.isEmpty()
            ? tr("The table is read again from its beginning. It has no line of names by which "
                 "others of its kind are known, so the answer holds for this time.")
            : tr("The table is read again from its beginning. The answer is kept for files with "
                 "the same header."));
    dialog.setOptions(present);
    return dialog.answer(header, settings);
}

//! Asks, and keeps the answer for the header unless that is empty.
std::optional<ImportOptions> ImportDialog::answer(const QString &header, WindowSettings *settings)
{
    fitToScreen(this);
    if (exec() != Accepted)
        return std::nullopt;
    if (settings && !header.isEmpty())
        settings->setImportFor(keyOf(header), options().text());
    return options();
}

ImportDialog::ImportDialog(const QString &path, QWidget *parent)
    : QDialog(parent)
    , m_path(path)
{
    setWindowTitle(tr("How is %1 read?").arg(QFileInfo(path).fileName()));
    addControls();
    const ImportGuess guess = ImportGuess::of(sampleOf(path));
    setReason(guess.reason.isEmpty()
                  ? tr("This table is read as it is.")
                  : tr("This is not a recording of the monitor: %1.").arg(guess.reason));
    setOptions(guess.options);
    resize(sizeHint()); // Qt would take two thirds of a small screen at most
}

ImportDialog::~ImportDialog() = default;

void ImportDialog::setReason(const QString &reason)
{
    findChild<QLabel *>(QStringLiteral("importReason"))->setText(reason);
}

QComboBox *ImportDialog::addChoice(const char *name, const QString &label, const QString &toolTip)
{
    auto *box = new QComboBox(this);
    box->setObjectName(QLatin1String(name));
    box->setToolTip(toolTip);
    findChild<QFormLayout *>()->addRow(label, box);
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ImportDialog::preview);
    return box;
}

QSpinBox *ImportDialog::addNumber(const char *name, const QString &label, int least)
{
    auto *box = new QSpinBox(this);
    box->setObjectName(QLatin1String(name));
    box->setRange(least, 1000000);
    findChild<QFormLayout *>()->addRow(label, box);
    connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this, &ImportDialog::preview);
    return box;
}

QLineEdit *ImportDialog::addLine(const char *name, const QString &label, const QString &toolTip)
{
    auto *edit = new QLineEdit(this);
    edit->setObjectName(QLatin1String(name));
    edit->setToolTip(toolTip);
    findChild<QFormLayout *>()->addRow(label, edit);
    connect(edit, &QLineEdit::textChanged, this, &ImportDialog::preview);
    return edit;
}

void ImportDialog::addControls()
{
    auto *layout = new QVBoxLayout(this);
    auto *reason = new QLabel(this);
    reason->setObjectName(QStringLiteral("importReason"));
    reason->setTextFormat(Qt::PlainText);
    reason->setWordWrap(true);
    layout->addWidget(reason);
    auto *columns = new QHBoxLayout;
    layout->addLayout(columns, 1);
    auto *controls = new QWidget;
    auto *form = new QFormLayout(controls);
    form->setContentsMargins(0, 0, 0, 0);
    auto *page = new ScrolledPage(controls, this); // so that a low screen has room for the buttons
    page->setNarrow();
    columns->addWidget(page);
    addColumnControls();
    addTimeControls();
    m_skip = addNumber("importSkip", tr("Lines to &skip first:"), 0);
    m_comment =
        addLine("importComment", tr("Co&mments begin with:"), tr("One sign; # always begins one"));
    m_comment->setMaxLength(1);
    makePreview();
    columns->addWidget(m_rows, 1);
    layout->addWidget(m_verdict);
    layout->addWidget(m_option);
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Open | QDialogButtonBox::Cancel, this);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(m_buttons);
}

void ImportDialog::addColumnControls()
{
    m_delimiter = addChoice("importDelimiter", tr("&Columns are separated by:"), {});
    m_delimiter->addItem(tr("commas, or blanks"), 0);
    m_delimiter->addItem(tr("commas"), int(','));
    m_delimiter->addItem(tr("semicolons"), int(';'));
    m_delimiter->addItem(tr("tabs"), int('\t'));
    m_delimiter->addItem(tr("blanks"), int(' '));
    m_delimiter->addItem(tr("bars"), int('|'));
    m_decimal = addChoice("importDecimal", tr("&Decimal sign:"), {});
    m_decimal->addItem(tr("point: 1.25"), false);
    m_decimal->addItem(tr("comma: 1,25"), true);
    m_header = addChoice("importHeader", tr("&Names of columns:"), {});
    m_header->addItem(tr("in the first line, if it is not all numbers"), int(Header::Seen));
    m_header->addItem(tr("in the first line"), int(Header::Names));
    m_header->addItem(tr("none"), int(Header::None));
}

void ImportDialog::addTimeControls()
{
    m_time = addChoice("importTime",
                       tr("&Time:"),
                       tr("Which column holds the time of a row, or that none does"));
    m_time->addItem(tr("in the column with such a name"), 0);
    m_time->addItem(tr("in the column with this number"), 1);
    m_time->addItem(tr("in no column; rows are equally spaced"), -1);
    m_timeColumn = addNumber("importTimeColumn", tr("Co&lumn of the time:"), 1);
    m_interval = addLine("importInterval",
                         tr("Time &between two rows:"),
                         tr("For a table without times, like 1ms, 0.02s or 1min"));
    m_clock = addChoice("importClock", tr("Times &are:"), {});
    m_clock->addItem(tr("numbers, in seconds or the unit of the name"), int(ImportClock::Seconds));
    m_clock->addItem(tr("dates; UTC where no zone is written"), int(ImportClock::Utc));
    m_clock->addItem(tr("dates; local time where no zone is written"), int(ImportClock::Local));
    m_format =
        addLine("importFormat",
                tr("&Form of dates:"),
                tr("Empty for ISO 8601 (2026-03-01T12:00:00.5), or like dd.MM.yyyy HH:mm:ss.zzz"));
    m_format->setPlaceholderText(QStringLiteral("ISO 8601"));
}

void ImportDialog::makePreview()
{
    m_rows = new QTableWidget(this);
    m_rows->setObjectName(QStringLiteral("importRows"));
    m_rows->setAccessibleName(tr("The first rows as they will be read"));
    m_rows->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_rows->setTabKeyNavigation(false);
    m_rows->setMinimumWidth(fontMetrics().averageCharWidth() * 32);
    m_rows->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    m_verdict = new QLabel(this);
    m_verdict->setObjectName(QStringLiteral("importVerdict"));
    m_verdict->setTextFormat(Qt::PlainText);
    m_verdict->setWordWrap(true);
    m_verdict->setMinimumHeight(3 * fontMetrics().height());
    m_verdict->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_option = new QLabel(this);
    m_option->setObjectName(QStringLiteral("importOption"));
    m_option->setTextFormat(Qt::PlainText);
    m_option->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

ImportOptions ImportDialog::options() const
{
    ImportOptions options;
    options.delimiter = char(m_delimiter->currentData().toInt());
    options.decimalComma = m_decimal->currentData().toBool();
    options.header = Header(m_header->currentData().toInt());
    const int time = m_time->currentData().toInt();
    options.timeColumn = time > 0 ? m_timeColumn->value() : time;
    options.clock = time < 0 ? ImportClock::Seconds : ImportClock(m_clock->currentData().toInt());
    options.format = options.clock == ImportClock::Seconds ? QString() : m_format->text();
    options.skippedLines = m_skip->value();
    if (!m_comment->text().isEmpty())
        options.comment = m_comment->text().at(0).toLatin1();
    ImportOptions interval;
    QString error;
    const QString text = m_interval->text().trimmed();
    if (time < 0 && ImportOptions::fromText(QLatin1String("interval=") + text, &interval, &error))
        options.interval = interval.interval;
    return options;
}

void ImportDialog::setOptions(const ImportOptions &options)
{
    m_isSetting = true;
    choose(m_delimiter, int(options.delimiter));
    choose(m_decimal, options.decimalComma);
    choose(m_header, int(options.header));
    choose(m_time, qBound(-1, options.timeColumn, 1));
    m_timeColumn->setValue(qMax(1, options.timeColumn));
    m_interval->setText(options.interval > 0.0 ? QStringLiteral("%1s").arg(options.interval)
                                               : QString());
    choose(m_clock, int(options.clock));
    m_format->setText(options.format);
    m_skip->setValue(options.skippedLines);
    m_comment->setText(options.comment != 0 ? QString(QLatin1Char(options.comment)) : QString());
    m_isSetting = false;
    preview();
    if (m_interval->isEnabled() && m_interval->text().isEmpty())
        m_interval->setFocus(); // it is all that is asked for
}

//! Shows what the first rows become, and whether the table can be opened so.
void ImportDialog::preview()
{
    if (m_isSetting)
        return;
    const ImportOptions options = this->options();
    m_timeColumn->setEnabled(options.timeColumn > 0);
    m_interval->setEnabled(options.timeColumn < 0);
    m_clock->setEnabled(options.timeColumn >= 0);
    m_format->setEnabled(options.clock != ImportClock::Seconds);
    const bool lacksInterval = options.timeColumn < 0 && !(options.interval > 0.0);
    ImportOptions shown = options;
    if (lacksInterval)
        shown.interval = 1.0; // the values are the same with any
    TablePreview preview = TablePreview::of(m_path, shown);
    for (QStringList &row : preview.rows)
        if (lacksInterval)
            row.first() = QStringLiteral("?");
    const bool readable = !lacksInterval && !preview.rows.isEmpty();
    m_buttons->button(QDialogButtonBox::Open)->setEnabled(readable);
    m_option->setText(options.isUsual()
                          ? QString()
                          : tr("On the command line: --import \"%1\"").arg(options.text()));
    showRows(lacksInterval ? tr("Please state the time between two rows, for example 1ms.")
                           : verdictOn(preview),
             preview.rows,
             preview.names);
}

QString ImportDialog::verdictOn(const TablePreview &preview)
{
    if (!preview.error.isEmpty())
        return tr("It cannot be read this way: %1.").arg(preview.error);
    if (preview.rows.isEmpty())
        return preview.refused > 0
            ? tr("None of its rows can be read this way; the first is %1").arg(preview.firstRefused)
            : tr("It contains no rows.");
    if (preview.refused > 0)
        return tr("%1 of the first lines cannot be read this way; the first is %2")
            .arg(preview.refused)
            .arg(preview.firstRefused);
    return preview.startTime.isEmpty()
        ? tr("All of the first rows can be read.")
        : tr("All of the first rows can be read. The time 0 is %1 (UTC).").arg(preview.startTime);
}

void ImportDialog::showRows(const QString &verdict,
                            const QVector<QStringList> &rows,
                            const QStringList &names)
{
    m_verdict->setText(verdict);
    m_rows->clear();
    m_rows->setRowCount(rows.size());
    m_rows->setColumnCount(rows.isEmpty() ? 0 : names.size());
    m_rows->setHorizontalHeaderLabels(names);
    for (int row = 0; row < rows.size(); ++row)
        for (int column = 0; column < rows[row].size(); ++column) {
            auto *item = new QTableWidgetItem(rows[row][column]);
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_rows->setItem(row, column, item);
        }
    m_rows->resizeColumnsToContents();
}

} // namespace Monitor
