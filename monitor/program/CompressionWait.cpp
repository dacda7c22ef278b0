// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/program/CompressionWait.h"

#include "monitor/core/Text.h"
#include "monitor/recording/SegmentCompressor.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace Monitor {

namespace {

constexpr int refreshInterval = 100; // ms
constexpr int percent = 100;

} // namespace

CompressionWait::CompressionWait(SegmentCompressor &compressor, QWidget *parent)
    : QDialog(parent)
    , m_compressor(compressor)
    , m_text(new QLabel(this))
    , m_bar(new QProgressBar(this))
{
    setObjectName(QStringLiteral("compressionWait"));
    setWindowTitle(tr("Compressing the recording"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_bar->setMaximum(percent);
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("&Quit without compressing"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    layout->addWidget(m_bar);
    layout->addWidget(buttons);
    auto *poll = new QTimer(this);
    connect(poll, &QTimer::timeout, this, &CompressionWait::refresh);
    poll->start(refreshInterval);
    refresh();
    constexpr int columns = 60;
    resize(fontMetrics().averageCharWidth() * columns, sizeHint().height());
}

void CompressionWait::wait()
{
    const bool isRejected = !m_compressor.pending().isEmpty() && exec() == Rejected;
    if (isRejected)
        m_compressor.cancel();
    else
        m_compressor.finish();
}

void CompressionWait::refresh()
{
    const QStringList pending = m_compressor.pending();
    if (pending.isEmpty()) {
        accept();
        return;
    }
    const QString name = QFileInfo(pending.first()).fileName();
    const int waiting = pending.size() - 1;
    m_text->setText(
        (waiting > 0 ? Text::counted("%1 is being compressed, and %n more file(s) is/are waiting. "
                                     "Nothing is lost if you do not wait.",
                                     nullptr,
                                     waiting)
                     : tr("%1 is being compressed. Nothing is lost if you do not wait."))
            .arg(name));
    m_bar->setValue(int(m_compressor.progress() * percent));
}

} // namespace Monitor
