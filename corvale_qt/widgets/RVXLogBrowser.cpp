// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXLogBrowser.h"

#include "corvale_qt/widgets/LogText_p.h"
#include "corvale_qt/widgets/RVXLogBrowserSyntaxHighlighter.h"

#include "ui_RVXLogBrowser.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QStyleOption>
#include <QTextBlock>
#include <QTextCursor>

namespace Corvale_Qt {

class RVXLogBrowserPrivate
{
public:
    explicit RVXLogBrowserPrivate(RVXLogBrowser *browser)
        : q(browser)
    {
        ui.setupUi(browser);
        highlighter = new RVXLogBrowserSyntaxHighlighter(document());
        connectHighlighter();
        followTheEnd();
    }

    QTextDocument *document() const { return ui.textBrowser->document(); }
    QScrollBar *scrollBar() const { return ui.textBrowser->verticalScrollBar(); }
    void append(const QString &line);

    RVXLogBrowser *const q;
    Ui::RVXLogBrowser ui;
    RVXLogBrowserSyntaxHighlighter *highlighter = nullptr;
    bool syntaxHighlighting = true;

private:
    //! What becomes of the highlighter's signals.
    enum class Relay {
        AtOnce,
        Ignore,
        Remember
    };

    void connectHighlighter();
    void followTheEnd();
    void insertLine(const QString &line);
    void dropOldLines();
    qreal topOf(const QTextCursor &cursor) const;

    Relay relay = Relay::AtOnce;
    bool errorSeen = false;
    bool warningSeen = false;
    bool following = true;
};

void RVXLogBrowserPrivate::connectHighlighter()
{
    QObject::connect(highlighter, &RVXLogBrowserSyntaxHighlighter::syntaxError, q, [this] {
        errorSeen = errorSeen || relay == Relay::Remember;
        if (relay == Relay::AtOnce)
            Q_EMIT q->syntaxError();
    });
    QObject::connect(highlighter, &RVXLogBrowserSyntaxHighlighter::syntaxWarning, q, [this] {
        warningSeen = warningSeen || relay == Relay::Remember;
        if (relay == Relay::AtOnce)
            Q_EMIT q->syntaxWarning();
    });
}

//! Keeps the newest line in sight, whatever changes the height of text or view, until the user scrolls up.
void RVXLogBrowserPrivate::followTheEnd()
{
    QObject::connect(scrollBar(), &QScrollBar::rangeChanged, q, [this](int, int maximum) {
        if (following)
            scrollBar()->setValue(maximum);
    });
    QObject::connect(scrollBar(), &QScrollBar::valueChanged, q, [this](int value) {
        following = value >= scrollBar()->maximum();
    });
}

qreal RVXLogBrowserPrivate::topOf(const QTextCursor &cursor) const
{
    return document()->documentLayout()->blockBoundingRect(cursor.block()).top();
}

/*! Each time lines drop off the document lays out anew all that are left: 15 ms with 10000 of them. So they go
    by the hundredth of the limit, which makes this 0.2 ms for a line; small limits are left to the
   document. */
void RVXLogBrowserPrivate::dropOldLines()
{
    const int limit = document()->maximumBlockCount();
    const int portion = limit / 100;
    if (portion < 2 || document()->blockCount() < limit)
        return;
    QTextCursor old(document());
    old.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor, portion);
    old.removeSelectedText();
}

/*! Adding a block makes the highlighter go over the line before it, and over the first line when the oldest
    ones drop off. These have been announced when they came, so only the new line's own text is
   listened to. */
void RVXLogBrowserPrivate::insertLine(const QString &line)
{
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    relay = Relay::Ignore;
    dropOldLines();
    if (!document()->isEmpty())
        cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    relay = Relay::Remember;
    cursor.insertText(line, QTextCharFormat());
    relay = Relay::AtOnce;
}

void RVXLogBrowserPrivate::append(const QString &line)
{
    const bool stay = !following;
    const QTextCursor inSight = stay ? ui.textBrowser->cursorForPosition(QPoint()) : QTextCursor();
    const qreal before = stay ? topOf(inSight) : 0;

    errorSeen = false;
    warningSeen = false;
    insertLine(line);
    if (stay)
        scrollBar()->setValue(scrollBar()->value() + qRound(topOf(inSight) - before));
    else
        scrollBar()->setValue(scrollBar()->maximum());

    // Not before the edit is over: the host may answer with a line of its own, or clear all of
    // them.
    const bool isWarning = warningSeen;
    const QPointer<RVXLogBrowser> alive = q;
    if (errorSeen)
        Q_EMIT q->syntaxError();
    if (isWarning && alive)
        Q_EMIT q->syntaxWarning();
}

RVXLogBrowser::RVXLogBrowser(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , d_ptr(new RVXLogBrowserPrivate(this))
{
    connect(clearTextButton(), SIGNAL(clicked()), this, SLOT(handleClearPushButton()));
}

RVXLogBrowser::~RVXLogBrowser()
{
    Q_D(RVXLogBrowser);
    // The parts outlive the private data, and may change their size while they go.
    d->scrollBar()->disconnect(this);
    d->highlighter->disconnect(this);
}

QString RVXLogBrowser::title() const
{
    return titleLabel()->text();
}

void RVXLogBrowser::setTitle(const QString &title)
{
    titleLabel()->setText(title);
}

void RVXLogBrowser::appendLine(const QString &line)
{
    Q_D(RVXLogBrowser);
    d->append(literalText(line));
}

void RVXLogBrowser::clear()
{
    textBrowser()->clear();
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
    d->document()->setMaximumBlockCount(maximum);
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
