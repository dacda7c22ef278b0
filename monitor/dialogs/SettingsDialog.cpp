// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/SettingsDialog.h"

#include "monitor/dialogs/Explanation.h"
#include "monitor/dialogs/FieldRow.h"
#include "monitor/dialogs/ScrolledPage.h"
#include "monitor/dialogs/VerdictPage.h"
#include "monitor/nexus/NexusFiles.h"
#include "monitor/readings/DetectorPresets.h"
#include "monitor/session/RotationText.h"
#include <corvale_qt/settings/Translations.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QStandardItemModel>
#include <QTabWidget>

#include <algorithm>
#include <cmath>

namespace Monitor {

namespace {

constexpr double slowest = 0.01, fastest = 10000.0;

QLineEdit *newEdit(QWidget *parent, const char *name, const QString &placeholder)
{
    auto *edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(name));
    edit->setPlaceholderText(placeholder);
    return edit;
}

//! Adds a field with a line below that explains it. The row may have more than the editor, which the label leads to.
void addField(QFormLayout *layout,
              const QString &label,
              QWidget *editor,
              const QString &explanation,
              QWidget *row = nullptr)
{
    editor->setToolTip(explanation);
    addFieldRow(layout, label, row ? row : editor, editor);
    layout->addRow(QString(), new Explanation(explanation));
}

QString numberOrNothing(double number)
{
    constexpr int digits = 10;
    return std::isfinite(number) ? QString::number(number, 'g', digits) : QString();
}

//! Returns the name that a language has in that language, like "Deutsch".
QString nameOfLanguage(const QString &code)
{
    const bool isEnglish = code == QLatin1String("en"); // Qt would say American English
    QString name = isEnglish ? QStringLiteral("English") : QLocale(code).nativeLanguageName();
    name.replace(0, 1, name.at(0).toUpper());
    return name;
}

//! Reads a number into \a number; an empty text gives \a otherwise. Returns false if the text is not a number.
bool readNumber(const QLineEdit *edit, double otherwise, double *number)
{
    const QString text = edit->text().trimmed();
    bool isNumber = true;
    *number = text.isEmpty() ? otherwise : text.toDouble(&isNumber);
    return isNumber && !std::isnan(*number);
}

//! Returns the height of the tallest page, so that the dialog opens with all of each page.
int highest(const QTabWidget &pages)
{
    int height = 0;
    for (int page = 0; page < pages.count(); ++page)
        height = std::max(height, pages.widget(page)->sizeHint().height());
    return height;
}

} // namespace

SettingsDialog::SettingsDialog(const MonitorOptions &options,
                               const QString &settingsFile,
                               QWidget *parent)
    : QDialog(parent)
    , m_former(options)
    , m_start(new QComboBox(this))
    , m_language(new QComboBox(this))
    , m_speed(new QDoubleSpinBox(this))
    , m_unpaced(new QCheckBox(tr("As fast as &possible"), this))
    , m_loop(new QCheckBox(tr("Play a file &again and again"), this))
    , m_from(newEdit(this, "from", tr("its first reading")))
    , m_to(newEdit(this, "to", tr("its last reading")))
    , m_low(newEdit(this, "low", tr("as the source says")))
    , m_high(newEdit(this, "high", tr("as the source says")))
    , m_detector(newEdit(this, "detector", tr("as the source says")))
    , m_minimumSum(newEdit(this, "minimumSum", tr("no limit")))
    , m_folder(newEdit(this, "folder", tr("record nothing by itself")))
    , m_rotation(newEdit(this, "rotation", tr("never")))
    , m_segments(new QComboBox(this))
    , m_verdicts(new VerdictPage(this))
    , m_fault(new QLabel(this))
{
    setObjectName(QStringLiteral("settingsDialog"));
    setWindowTitle(tr("Settings"));
    auto *pages = new QTabWidget(this);
    pages->addTab(new ScrolledPage(newStartPage(settingsFile)), tr("&Start"));
    pages->addTab(new ScrolledPage(newFilePage()), tr("&Files"));
    pages->addTab(new ScrolledPage(newReadingsPage()), tr("R&eadings"));
    pages->addTab(m_verdicts, tr("&Verdicts"));
    pages->addTab(new ScrolledPage(newRecordPage()), tr("Re&cordings"));
    m_fault->setTextFormat(Qt::PlainText);
    m_fault->setWordWrap(true);
    m_fault->setObjectName(QStringLiteral("fault"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_unpaced, &QCheckBox::toggled, m_speed, &QWidget::setDisabled);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(pages);
    layout->addWidget(m_fault);
    layout->addWidget(buttons);
    fill();
    constexpr int columns = 96;
    const int width = fontMetrics().averageCharWidth() * columns;
    const int around = sizeHint().height() - pages->currentWidget()->sizeHint().height();
    const int height = std::max(layout->heightForWidth(width), around + highest(*pages));
    resize(width, std::min(height, screen()->availableSize().height()));
}

QWidget *SettingsDialog::newStartPage(const QString &settingsFile)
{
    m_start->addItems({tr("A simulated beam"), tr("The last source"), tr("No source")});
    m_start->setObjectName(QStringLiteral("start"));
    auto *page = new QWidget(this);
    auto *layout = new QFormLayout(page);
    addField(layout,
             tr("&Open:"),
             m_start,
             tr("What a start shows if the command line names no source."));
    m_language->addItem(tr("As the desktop"), QString());
    for (const QString &code : Corvale_Qt::translationLanguages())
        m_language->addItem(nameOfLanguage(code), code);
    m_language->setObjectName(QStringLiteral("language"));
    addField(
        layout,
        tr("&Language:"),
        m_language,
        tr("Takes effect at the next start. Numbers and files are the same in every language."));
    auto *file = new QLabel(settingsFile, page);
    file->setTextFormat(Qt::PlainText);
    file->setWordWrap(true);
    file->setTextInteractionFlags(Qt::TextSelectableByMouse);
    addField(layout,
             tr("Kept in:"),
             file,
             tr("--settings FILE on the command line chooses another file, and another window."));
    return page;
}

QWidget *SettingsDialog::newFilePage()
{
    m_speed->setObjectName(QStringLiteral("speed"));
    m_speed->setRange(slowest, fastest);
    m_speed->setDecimals(2);
    m_speed->setSuffix(tr(" times as recorded"));
    auto *page = new QWidget(this);
    auto *layout = new QFormLayout(page);
    layout->addRow(tr("Spee&d:"), m_speed);
    layout->addRow(QString(), m_unpaced);
    layout->addRow(QString(), m_loop);
    layout->addRow(tr("F&rom:"), m_from);
    addField(layout,
             tr("&To:"),
             m_to,
             tr("Times of the file, in seconds, or numbers of readings that have no times. They "
                "hold for files that are opened from now on, "
                "until the end of the program."));
    return page;
}

QWidget *SettingsDialog::newReadingsPage()
{
    auto *page = new QWidget(this);
    auto *layout = new QFormLayout(page);
    layout->addRow(tr("Lowest &limit:"), m_low);
    addField(layout,
             tr("&Highest limit:"),
             m_high,
             tr("In the unit of the readings; those outside are over range, from the next source "
                "on. Empty: as the source says."));
    addField(layout,
             tr("&Detector:"),
             m_detector,
             tr("A file that describes the detector, or a preset. Empty: what the source says, "
                "otherwise positions in cells."),
             withDetectors(m_detector));
    addField(
        layout,
        tr("&No beam below:"),
        m_minimumSum,
        tr("A sum of readings, in their unit. Below it, the position displays say \"no beam\"."));
    return page;
}

QWidget *SettingsDialog::newRecordPage()
{
    auto *page = new QWidget(this);
    auto *layout = new QFormLayout(page);
    addField(layout,
             tr("Fo&lder:"),
             m_folder,
             tr("Every source that is opened is recorded to a new file in this folder, named after "
                "its date and time in UTC. Empty: only File > Record."),
             withBrowse(m_folder));
    addField(layout,
             tr("&New file after:"),
             m_rotation,
             tr("A time or a size: 1h, 30min, 100M, 2G."));
    m_segments->setObjectName(QStringLiteral("segments"));
    m_segments->addItem(tr("stays text"), int(SegmentForm::Text));
    m_segments->addItem(tr("is compressed (zstd)"), int(SegmentForm::Zstd));
    m_segments->addItem(tr("becomes HDF5 (NeXus)"), int(SegmentForm::Hdf5));
    if (!nexusMissing().isEmpty()) { // it stays what was chosen, but nobody chooses it here
        const int last = m_segments->count() - 1;
        m_segments->setItemData(last, nexusMissing(), Qt::ToolTipRole);
        if (auto *items = qobject_cast<QStandardItemModel *>(m_segments->model()))
            items->item(last)->setEnabled(false);
    }
    addField(
        layout,
        tr("A co&mplete file:"),
        m_segments,
        tr("What becomes of a file once nothing more is written to it. The monitor reads all of "
           "them."));
    return page;
}

QWidget *SettingsDialog::withBrowse(QLineEdit *edit)
{
    auto *button = new QPushButton(tr("&Browse..."), this);
    button->setAutoDefault(false);
    auto *row = new QWidget(this);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(edit, 1);
    layout->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, edit] {
        browse(edit, true);
    });
    return row;
}

void SettingsDialog::browse(QLineEdit *edit, bool folder)
{
    const QString path = folder
        ? QFileDialog::getExistingDirectory(this, tr("Folder for recordings"), edit->text())
        : QFileDialog::getOpenFileName(this,
                                       tr("Description of a detector"),
                                       edit->text(),
                                       tr("Detectors (*.json);;All files (*)"));
    if (!path.isEmpty())
        edit->setText(path);
}

//! Adds a button beside the field, with a menu: a file, or one of the presets.
QWidget *SettingsDialog::withDetectors(QLineEdit *edit)
{
    auto *row = new QWidget(this);
    auto *button = new QPushButton(tr("Ch&oose"), row);
    button->setObjectName(QStringLiteral("presets"));
    button->setAutoDefault(false);
    auto *menu = new QMenu(button);
    const QStringList names = detectorPresets();
    for (const QString &name : names)
        connect(menu->addAction(presetText(name)), &QAction::triggered, edit, [edit, name] {
            edit->setText(name);
        });
    menu->addSeparator();
    connect(menu->addAction(tr("&File...")), &QAction::triggered, this, [this, edit] {
        browse(edit, false);
    });
    button->setMenu(menu);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(edit, 1);
    layout->addWidget(button);
    return row;
}

void SettingsDialog::fill()
{
    m_start->setCurrentIndex(int(m_former.start));
    m_language->setCurrentIndex(qMax(0, m_language->findData(m_former.language)));
    m_unpaced->setChecked(m_former.file.speed == 0.0);
    m_speed->setValue(m_former.file.speed > 0.0 ? m_former.file.speed : 1.0);
    m_loop->setChecked(m_former.file.loop);
    m_from->setText(numberOrNothing(m_former.file.from));
    m_to->setText(numberOrNothing(m_former.file.to));
    if (m_former.hasRange()) {
        m_low->setText(numberOrNothing(m_former.rangeLow));
        m_high->setText(numberOrNothing(m_former.rangeHigh));
    }
    m_detector->setText(m_former.detectorFile);
    if (m_former.minimumSum != 0.0)
        m_minimumSum->setText(numberOrNothing(m_former.minimumSum));
    m_verdicts->setLimits(m_former.verdictLimits);
    m_folder->setText(m_former.recordFolder);
    m_rotation->setText(m_former.rotation);
    m_segments->setCurrentIndex(qMax(0, m_segments->findData(int(m_former.segments))));
}

MonitorOptions SettingsDialog::options() const
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    MonitorOptions options = m_former;
    options.start = MonitorOptions::Start(m_start->currentIndex());
    options.language = m_language->currentData().toString();
    options.file.speed = m_unpaced->isChecked() ? 0.0 : m_speed->value();
    options.file.loop = m_loop->isChecked();
    readNumber(m_from, -infinity, &options.file.from);
    readNumber(m_to, infinity, &options.file.to);
    readNumber(m_low, 0.0, &options.rangeLow);
    readNumber(m_high, 0.0, &options.rangeHigh);
    options.detectorFile = m_detector->text().trimmed();
    readNumber(m_minimumSum, 0.0, &options.minimumSum);
    options.verdictLimits = m_verdicts->limits();
    options.recordFolder = m_folder->text().trimmed();
    options.rotation = m_rotation->text().trimmed();
    options.segments = SegmentForm(m_segments->currentData().toInt());
    return options;
}

//! Returns what is wrong with the fields and what would be right; empty if they make sense.
QString SettingsDialog::fault() const
{
    double number = 0.0;
    for (const QLineEdit *edit : {m_from, m_to, m_low, m_high, m_minimumSum})
        if (!readNumber(edit, 0.0, &number))
            return tr("\"%1\" is not a number. Write it with a decimal point, like 1.5 or -1e-6.")
                .arg(edit->text());
    const MonitorOptions wanted = options();
    if (wanted.file.from > wanted.file.to)
        return tr("There is nothing between %1 and %2: the first time must be the earlier one.")
            .arg(wanted.file.from)
            .arg(wanted.file.to);
    const bool anyLimit = !m_low->text().trimmed().isEmpty() || !m_high->text().trimmed().isEmpty();
    const bool bothLimits =
        !m_low->text().trimmed().isEmpty() && !m_high->text().trimmed().isEmpty();
    if (anyLimit && !(bothLimits && wanted.hasRange()))
        return tr("Limits need two numbers, the lower one first; or leave both fields empty.");
    Recorder::Options record;
    if (!wanted.rotation.isEmpty() && !setRotation(&record, wanted.rotation))
        return tr("\"%1\" is neither a time nor a size. Write 1h, 30min, 100M or 2G.")
            .arg(wanted.rotation);
    if (wanted.detectorFile.isEmpty())
        return {};
    Corvale_Qt::DetectorFault detectorFault;
    detectorNamed(wanted.detectorFile, &detectorFault);
    return detectorFault.isEmpty() ? QString() : detectorFault.message();
}

void SettingsDialog::accept()
{
    m_fault->setText(fault());
    if (m_fault->text().isEmpty())
        QDialog::accept();
}

} // namespace Monitor
