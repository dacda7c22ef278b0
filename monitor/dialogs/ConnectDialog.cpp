// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/ConnectDialog.h"

#include "monitor/dialogs/SourceForm.h"
#include "monitor/sources/SourceFactory.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace Monitor {

ConnectDialog::ConnectDialog(Clock &clock, const FileSource::Options &options, QWidget *parent)
    : QDialog(parent)
    , m_options(options)
    , m_test(clock)
    , m_names(new QComboBox(this))
    , m_keepButton(new QPushButton(tr("&Keep"), this))
    , m_forgetButton(new QPushButton(tr("For&get"), this))
    , m_kinds(new QListWidget(this))
    , m_forms(newSourceForms(this))
    , m_pages(new QWidget(this))
    , m_text(new QLabel(this))
    , m_report(new QPlainTextEdit(this))
    , m_testButton(new QPushButton(tr("&Test"), this))
{
    setObjectName(QStringLiteral("connectDialog"));
    setWindowTitle(tr("Connect"));
    m_report->setReadOnly(true);
    m_report->setObjectName(QStringLiteral("report"));
    m_report->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_report->setPlaceholderText(
        tr("Test shows the first lines of the source and what they are read as."));
    m_report->setTabChangesFocus(true);
    m_report->setMinimumHeight(m_report->fontMetrics().height() * 5);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setObjectName(QStringLiteral("asText"));

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    m_connectButton = buttons->addButton(tr("&Connect"), QDialogButtonBox::AcceptRole);
    buttons->addButton(m_testButton, QDialogButtonBox::ActionRole);
    m_testButton->setAutoDefault(false);
    m_connectButton->setDefault(true);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(newKeptRow());
    layout->addWidget(newForms(), 3);
    layout->addWidget(m_text);
    layout->addWidget(m_report, 1);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &ConnectDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_testButton, &QPushButton::clicked, this, &ConnectDialog::test);
    connect(&m_test, &SourceTest::changed, this, [this] {
        m_report->setPlainText(m_test.report());
    });
    showKept();
    refresh();
    constexpr int columns = 110, lines = 36;
    resize(fontMetrics().averageCharWidth() * columns, fontMetrics().height() * lines);
}

//! Returns the list of kinds beside the fields of the chosen kind, which scroll where the screen is small.
QWidget *ConnectDialog::newForms()
{
    auto *pages = new QVBoxLayout(m_pages);
    pages->setContentsMargins(0, 0, 0, 0);
    for (SourceForm *page : m_forms) {
        m_kinds->addItem(page->title());
        pages->addWidget(page);
        connect(page, &SourceForm::edited, this, &ConnectDialog::refresh);
    }
    pages->addStretch(1);
    m_kinds->setObjectName(QStringLiteral("kinds"));
    m_kinds->setAccessibleName(tr("Kind of source"));
    m_kinds->setFixedWidth(m_kinds->sizeHintForColumn(0)
                           + m_kinds->verticalScrollBar()->sizeHint().width());
    auto *scroll = new QScrollArea(this);
    scroll->setWidget(m_pages);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus); // Tab leads from the kinds to the first field
    scroll->setMinimumSize(m_pages->fontMetrics().averageCharWidth() * 70,
                           m_pages->fontMetrics().height() * 10);
    auto *both = new QWidget(this);
    auto *layout = new QHBoxLayout(both);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_kinds);
    layout->addWidget(scroll, 1);
    connect(m_kinds, &QListWidget::currentRowChanged, this, [this](int row) {
        for (int page = 0; page < m_forms.size(); ++page)
            m_forms.at(page)->setVisible(page == row); // a hidden one takes no room
        refresh();
    });
    m_kinds->setCurrentRow(0);
    return both;
}

QLayout *ConnectDialog::newKeptRow()
{
    auto *label = new QLabel(tr("Na&me:"), this);
    label->setBuddy(m_names);
    m_names->setEditable(true);
    m_names->setInsertPolicy(QComboBox::NoInsert);
    m_names->setObjectName(QStringLiteral("names"));
    m_names->setToolTip(tr("Connections that were kept. Type a name and choose Keep to add one."));
    m_names->lineEdit()->setPlaceholderText(tr("a name for this connection, if it is to be kept"));
    for (QPushButton *button : {m_keepButton, m_forgetButton})
        button->setAutoDefault(false);
    auto *layout = new QHBoxLayout;
    layout->addWidget(label);
    layout->addWidget(m_names, 1);
    layout->addWidget(m_keepButton);
    layout->addWidget(m_forgetButton);
    connect(m_names, qOverload<int>(&QComboBox::activated), this, &ConnectDialog::takeKept);
    connect(m_names, &QComboBox::editTextChanged, this, &ConnectDialog::refresh);
    connect(m_keepButton, &QPushButton::clicked, this, &ConnectDialog::keep);
    connect(m_forgetButton, &QPushButton::clicked, this, &ConnectDialog::forget);
    return layout;
}

SourceForm *ConnectDialog::form() const
{
    return m_forms.at(qMax(0, m_kinds->currentRow()));
}

QString ConnectDialog::source() const
{
    return form()->source();
}

void ConnectDialog::setSource(const QString &text)
{
    const auto known = std::find_if(m_forms.begin(), m_forms.end(), [&](SourceForm *page) {
        return page->setSource(text);
    });
    if (known != m_forms.end())
        m_kinds->setCurrentRow(int(known - m_forms.begin()));
    refresh();
}

void ConnectDialog::setKept(const QVector<Kept> &kept)
{
    m_kept = kept;
    showKept();
}

void ConnectDialog::showKept()
{
    const QString typed = m_names->currentText();
    m_names->clear();
    for (const Kept &entry : qAsConst(m_kept))
        m_names->addItem(entry.name);
    m_names->setEditText(typed);
    refresh();
}

void ConnectDialog::takeKept(int index)
{
    if (index >= 0 && index < m_kept.size())
        setSource(m_kept.at(index).source);
}

void ConnectDialog::keep()
{
    const QString name = m_names->currentText().trimmed();
    const int known = m_names->findText(name);
    if (known >= 0)
        m_kept[known].source = source();
    else
        m_kept.append({name, source()});
    showKept();
}

void ConnectDialog::forget()
{
    const int known = m_names->findText(m_names->currentText().trimmed());
    if (known >= 0)
        m_kept.remove(known);
    m_names->clearEditText();
    showKept();
}

void ConnectDialog::refresh()
{
    const QString text = source();
    if (text != m_described) { // what was reported is of another source
        m_described = text;
        m_test.stop();
        m_report->clear();
    }
    const QString name = m_names->currentText().trimmed();
    m_text->setText(text.isEmpty() ? tr("Fill in the empty field, to test or to connect.")
                                   : tr("On the command line: corvale-monitor \"%1\"").arg(text));
    m_keepButton->setEnabled(!name.isEmpty() && !text.isEmpty());
    m_forgetButton->setEnabled(m_names->findText(name) >= 0);
    m_testButton->setEnabled(!text.isEmpty() && form()->canBeTested());
    if (m_connectButton)
        m_connectButton->setEnabled(!text.isEmpty());
}

void ConnectDialog::test()
{
    const QString text = source();
    const bool isOnlyOnce = !text.startsWith(QLatin1String("sim:")) && !QFileInfo(text).isFile();
    if (text == m_openSource && isOnlyOnce)
        m_report->setPlainText(tr("This source is open: its readings are in the window."));
    else
        m_test.start(text, m_options);
}

//! Closes the dialog with a source that can be made; otherwise says what is wrong with it.
void ConnectDialog::accept()
{
    m_test.stop();
    SourceFactory factory(m_test.clock(), m_options);
    if (factory.make(source()))
        QDialog::accept();
    else
        m_report->setPlainText(factory.errorString());
}

} // namespace Monitor
