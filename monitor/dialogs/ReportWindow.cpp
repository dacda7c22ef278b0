// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/ReportWindow.h"

#include "monitor/core/LoggedText.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace Monitor {

namespace {

constexpr qint64 largestReport = qint64(1024) * 1024;

QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly)
        ? QString::fromUtf8(file.read(largestReport))
        : ReportWindow::tr("%1 cannot be opened: %2")
              .arg(path, LoggedText::ofSystem(file.errorString()).now());
}

} // namespace

ReportWindow::ReportWindow(const QString &path, QWidget *parent)
    : QDialog(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("report"));
    setWindowTitle(tr("Report of the crash"));
    auto *where = new QLabel(path, this);
    where->setTextFormat(Qt::PlainText);
    where->setWordWrap(true);
    where->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *text = new QPlainTextEdit(contentOf(path), this);
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton *copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, this, [text] {
        QGuiApplication::clipboard()->setText(text->toPlainText());
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(where);
    layout->addWidget(text);
    layout->addWidget(buttons);
    text->setFocus();
    constexpr int columns = 90, lines = 30;
    resize(fontMetrics().averageCharWidth() * columns, fontMetrics().height() * lines);
}

} // namespace Monitor
