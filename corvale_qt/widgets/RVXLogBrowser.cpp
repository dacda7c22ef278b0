// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXLogBrowser.h"

#include "corvale_qt/widgets/LogColoring_p.h"
#include "corvale_qt/widgets/LogScroll_p.h"
#include "corvale_qt/widgets/LogText_p.h"
#include "corvale_qt/widgets/RVXLogBrowserSyntaxHighlighter.h"

#include "ui_RVXLogBrowser.h"

#include <QPainter>
#include <QPointer>
#include <QStyleOption>
#include <QTextCursor>
#include <QTimer>

namespace Corvale_Qt {

//! Appends lines to the document, drops the oldest lines beyond the limit, and has keywords coloured.
class RVXLogBrowserPrivate
{
public:
    explicit RVXLogBrowserPrivate(RVXLogBrowser *browser);

    QTextDocument *document() const { return ui.textBrowser->document(); }
    void append(const QString &text);
    void setMaximumBlockCount(int maximum);

    RVXLogBrowser *const q;
    Ui::RVXLogBrowser ui{};
    RVXLogBrowserSyntaxHighlighter *const highlighter;
    LogScroll scroll;
    bool syntaxHighlighting = true;

private:
    RVXLogBrowserSyntaxHighlighter *makeHighlighter();
    void insert(const QStringList &lines);
    void makeRoomFor(int blocks);
    void colorWhenIdle();

    LogColoring coloring;
    QTimer idle;
};

RVXLogBrowserPrivate::RVXLogBrowserPrivate(RVXLogBrowser *browser)
    : q(browser)
    , highlighter(makeHighlighter())
    , scroll(ui.textBrowser)
    , coloring(highlighter, ui.textBrowser)
{
    using Highlighter = RVXLogBrowserSyntaxHighlighter;
    QObject::connect(highlighter, &Highlighter::syntaxError, q, &RVXLogBrowser::syntaxError);
    QObject::connect(highlighter, &Highlighter::syntaxWarning, q, &RVXLogBrowser::syntaxWarning);
    idle.setSingleShot(true);
    QObject::connect(&idle, &QTimer::timeout, q, [this] {
        colorWhenIdle();
    });
}

RVXLogBrowserSyntaxHighlighter *RVXLogBrowserPrivate::makeHighlighter()
{
    ui.setupUi(q);
    return new RVXLogBrowserSyntaxHighlighter(document());
}

/*! Drops old blocks to make room for \a blocks new ones. When lines are dropped, the document lays out all remaining
    lines again, which takes 15 ms for 10000 lines. Dropping a hundredth of the limit at a time reduces this to 0.2 ms
    per line. */
void RVXLogBrowserPrivate::makeRoomFor(int blocks)
{
    const int limit = document()->maximumBlockCount();
    const int excess = document()->blockCount() + blocks - limit;
    if (limit <= 0 || excess <= 0 || document()->isEmpty())
        return;
    QTextCursor old(document());
    const int dropped = qMax(excess, limit / 100);
    if (dropped < document()->blockCount())
        old.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor, dropped);
    else
        old.select(QTextCursor::Document);
    old.removeSelectedText();
}

void RVXLogBrowserPrivate::insert(const QStringList &lines)
{
    QStringList parts;
    for (const QString &line : lines)
        parts << partsOfLine(line);
    const int limit = document()->maximumBlockCount();
    if (limit > 0 && parts.size() > limit)
        parts = parts.mid(parts.size() - limit);

    // Dropping lines highlights the first remaining block again, and a new block the one before it.
    const LogColoring::Quiet quiet(coloring);
    makeRoomFor(parts.size());
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    if (!document()->isEmpty())
        cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    coloring.insert(cursor, parts.join(QLatin1Char('\n')));
}

void RVXLogBrowserPrivate::append(const QString &text)
{
    const QStringList lines = logLines(text);
    scroll.keepDuring([&] {
        insert(lines);
    });
    if (coloring.isPending())
        idle.start();
    // After the edit, since the host may append another line or clear the log in answer.
    const QPointer<RVXLogBrowser> alive = q;
    for (auto line = lines.begin(); alive && line != lines.end(); ++line)
        coloring.announce(*line);
}

void RVXLogBrowserPrivate::setMaximumBlockCount(int maximum)
{
    scroll.keepDuring([&] {
        const LogColoring::Quiet quiet(coloring);
        document()->setMaximumBlockCount(maximum);
    });
}

void RVXLogBrowserPrivate::colorWhenIdle()
{
    scroll.keepDuring([this] {
        coloring.colorInSight();
        if (coloring.isPending())
            coloring.colorPortion();
    });
    if (coloring.isPending())
        idle.start();
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
    // The highlighter is deleted after the private data.
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
    // False does not switch the highlighter off: kept on purpose for hosts that are already built.
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

//! Paints the background of a style sheet, which a class derived from QWidget has to do itself.
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
