// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXLogBrowser_p.h"

#include <QPainter>
#include <QStyleOption>

namespace Corvale_Qt {

RVXLogBrowser::RVXLogBrowser(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , d_ptr(new RVXLogBrowserPrivate(this))
{
    connect(clearTextButton(), SIGNAL(clicked()), this, SLOT(handleClearPushButton()));
}

RVXLogBrowser::~RVXLogBrowser()
{
    Q_D(RVXLogBrowser);
    // It outlives the private data.
    d->highlighter->disconnect(this);
}

QString RVXLogBrowser::title() const
{
    return titleLabel()->text();
}

void RVXLogBrowser::setTitle(const QString &title)
{
    titleLabel()->setText(title);
    textBrowser()->setAccessibleName(title);
}

void RVXLogBrowser::appendLine(const QString &line)
{
    Q_D(RVXLogBrowser);
    d->append(line);
}

void RVXLogBrowser::clear()
{
    Q_D(RVXLogBrowser);
    textBrowser()->clear();
    d->scroll.follow();
}

void RVXLogBrowser::setTextCursor(const QTextCursor &cursor)
{
    textBrowser()->setTextCursor(cursor);
}

bool RVXLogBrowser::readOnly() const
{
    return textBrowser()->isReadOnly();
}

void RVXLogBrowser::setReadOnly(bool readOnly)
{
    textBrowser()->setReadOnly(readOnly);
}

void RVXLogBrowser::setOverwriteMode(bool overwrite)
{
    textBrowser()->setOverwriteMode(overwrite);
}

int RVXLogBrowser::maximumBlockCount() const
{
    Q_D(const RVXLogBrowser);
    return d->document()->maximumBlockCount();
}

void RVXLogBrowser::setMaximumBlockCount(int maximum)
{
    Q_D(RVXLogBrowser);
    d->setMaximumBlockCount(maximum);
}

void RVXLogBrowser::addErrorKeywords(const QStringList &keywords)
{
    Q_D(RVXLogBrowser);
    d->highlighter->addErrorKeywords(keywords);
}

void RVXLogBrowser::addWarningKeywords(const QStringList &keywords)
{
    Q_D(RVXLogBrowser);
    d->highlighter->addWarningKeywords(keywords);
}

QColor RVXLogBrowser::errorColor() const
{
    Q_D(const RVXLogBrowser);
    return d->highlighter->errorColor();
}

void RVXLogBrowser::setErrorColor(const QColor &color)
{
    Q_D(RVXLogBrowser);
    d->highlighter->setErrorColor(color);
}

QColor RVXLogBrowser::warningColor() const
{
    Q_D(const RVXLogBrowser);
    return d->highlighter->warningColor();
}

void RVXLogBrowser::setWarningColor(const QColor &color)
{
    Q_D(RVXLogBrowser);
    d->highlighter->setWarningColor(color);
}

void RVXLogBrowser::setErrorWarningColorsForNonWhiteBackground()
{
    Q_D(RVXLogBrowser);
    d->highlighter->setErrorWarningColorsForNonWhiteBackground();
}

void RVXLogBrowser::setErrorWarningColorsForWhiteBackground()
{
    Q_D(RVXLogBrowser);
    d->highlighter->setErrorWarningColorsForWhiteBackground();
}

bool RVXLogBrowser::wholeBlockSyntaxHighlighting() const
{
    Q_D(const RVXLogBrowser);
    return d->highlighter->wholeBlockSyntaxHighlighting();
}

void RVXLogBrowser::setWholeBlockSyntaxHighlighting(bool on)
{
    Q_D(RVXLogBrowser);
    d->highlighter->setWholeBlockSyntaxHighlighting(on);
}

bool RVXLogBrowser::syntaxHighlighting() const
{
    Q_D(const RVXLogBrowser);
    return d->syntaxHighlighting;
}

void RVXLogBrowser::setSyntaxHighlighting(bool on)
{
    Q_D(RVXLogBrowser);
    d->syntaxHighlighting = on;
    // Only on: kept on purpose, for hosts already built.
    if (on)
        d->highlighter->setEnabled(true);
}

QLabel *RVXLogBrowser::titleLabel() const
{
    Q_D(const RVXLogBrowser);
    return d->ui.titleLabel;
}

QTextBrowser *RVXLogBrowser::textBrowser() const
{
    Q_D(const RVXLogBrowser);
    return d->ui.textBrowser;
}

QPushButton *RVXLogBrowser::clearTextButton() const
{
    Q_D(const RVXLogBrowser);
    return d->ui.clearPushButton;
}

QFrame *RVXLogBrowser::auxFrame() const
{
    Q_D(const RVXLogBrowser);
    return d->ui.auxFrame;
}

bool RVXLogBrowser::clearTextButtonVisible() const
{
    return !clearTextButton()->isHidden();
}

void RVXLogBrowser::setClearTextButtonVisible(bool visible)
{
    clearTextButton()->setVisible(visible);
}

QVBoxLayout *RVXLogBrowser::buttonLayout() const
{
    Q_D(const RVXLogBrowser);
    return d->ui.buttonsVerticalLayout;
}

//! A style sheet's background needs this in a class derived from QWidget.
void RVXLogBrowser::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
}

void RVXLogBrowser::handleClearPushButton()
{
    clear();
}

} // namespace Corvale_Qt
