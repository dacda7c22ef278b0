// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/LocalForms.h"

#include "monitor/sources/SourceFactory.h"

#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QUrlQuery>

#include <limits>

namespace Monitor {

namespace {

const QString simulatorPrefix = QStringLiteral("sim:");

} // namespace

SimulatorForm::SimulatorForm(QWidget *parent)
    : SourceForm(parent)
    , m_instrument(new QComboBox(this))
    , m_seed(new QSpinBox(this))
{
    m_instrument->setObjectName(QStringLiteral("instrument"));
    m_instrument->addItem(tr("Strip detector, 32 and 32 strips"), QStringLiteral("strips"));
    m_instrument->addItem(tr("Pixel detector, 12 by 12"), QStringLiteral("pixels"));
    m_instrument->addItem(tr("Ionisation chamber with 4 sectors"), QStringLiteral("ic4"));
    m_instrument->addItem(tr("Spots of a treatment field"), QStringLiteral("spots"));
    m_seed->setRange(0, std::numeric_limits<int>::max());
    m_seed->setSpecialValueText(tr("usual"));
    addField(tr("&Instrument:"), m_instrument, tr("The beam is computed; no hardware is needed."));
    addField(tr("S&eed:"), m_seed, tr("Another number gives another beam and other noise."));
    connect(m_instrument,
            qOverload<int>(&QComboBox::currentIndexChanged),
            this,
            &SourceForm::edited);
    connect(m_seed, qOverload<int>(&QSpinBox::valueChanged), this, &SourceForm::edited);
}

QString SimulatorForm::title() const
{
    return tr("Simulated beam");
}

QString SimulatorForm::source() const
{
    const QString seed =
        m_seed->value() > 0 ? QStringLiteral("?seed=%1").arg(m_seed->value()) : QString();
    return simulatorPrefix + m_instrument->currentData().toString() + seed;
}

bool SimulatorForm::setSource(const QString &text)
{
    const int mark = text.indexOf(QLatin1Char('?'));
    const QString name = text.left(mark).mid(simulatorPrefix.size());
    const int instrument = m_instrument->findData(name);
    if (!text.startsWith(simulatorPrefix) || instrument < 0)
        return false;
    m_instrument->setCurrentIndex(instrument);
    const QUrlQuery query(mark < 0 ? QString() : text.mid(mark + 1));
    m_seed->setValue(query.queryItemValue(QStringLiteral("seed")).toInt());
    return true;
}

FileForm::FileForm(QWidget *parent)
    : SourceForm(parent)
    , m_path(new QLineEdit(this))
{
    m_path->setObjectName(QStringLiteral("path"));
    auto *browse = new QPushButton(tr("&Browse..."), this);
    browse->setAutoDefault(false);
    auto *row = new QWidget(this);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_path, 1);
    layout->addWidget(browse);
    addField(tr("&File:"),
             m_path,
             tr("A recording of this program, a file saved by the library, or a table with a line "
                "of names and a "
                "line for each time."),
             row);
    connect(browse, &QPushButton::clicked, this, &FileForm::browse);
    connect(m_path, &QLineEdit::textChanged, this, &SourceForm::edited);
}

QString FileForm::title() const
{
    return tr("File");
}

QString FileForm::source() const
{
    return m_path->text().trimmed();
}

bool FileForm::setSource(const QString &text)
{
    const QString path = SourceFactory::filePath(text);
    if (path.isEmpty())
        return false;
    m_path->setText(path);
    return true;
}

void FileForm::browse()
{
    const QString path =
        QFileDialog::getOpenFileName(this,
                                     tr("Choose a recording"),
                                     m_path->text(),
                                     tr("Tables (*.csv *.txt *.dat);;All files (*)"));
    if (!path.isEmpty())
        m_path->setText(path);
}

StandardInputForm::StandardInputForm(QWidget *parent)
    : SourceForm(parent)
{
    addText(
        tr("Reads the lines, or grey images (PGM), that another program writes into this one:\n\n  "
           "  instrument | "
           "corvale-monitor -\n\n"
           "What was read is gone, so this source cannot be tested and cannot be opened twice."));
}

QString StandardInputForm::title() const
{
    return tr("Standard input");
}

QString StandardInputForm::source() const
{
    return QStringLiteral("-");
}

bool StandardInputForm::setSource(const QString &text)
{
    return text == source();
}

} // namespace Monitor
