// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QColor>
#include <QStringList>
#include <QWidget>

class QFrame;
class QLabel;
class QPushButton;
class QTextBrowser;
class QTextCursor;
class QVBoxLayout;

namespace Corvale_Qt {

class RVXLogBrowserPrivate;

/*! A titled log view with a clear button and a frame for controls of the host. Error and warning keywords are coloured,
    and a signal is emitted for each line that contains one, so that a host can raise an indicator.

    The view follows the newest line until the user scrolls up. It then keeps its place until the end is visible again.
    In a long text the end and the visible lines are coloured first, and the rest while the program is idle.

    By default the number of lines is not limited, so a program that runs for days fills its memory: set
    maximumBlockCount, for example to 10000, to drop the oldest lines.

    \code
    auto *log = new RVXLogBrowser(window);
    log->setMaximumBlockCount(10000);
    log->addErrorKeywords({"ERROR", "FATAL"});
    connect(log, &RVXLogBrowser::syntaxError, indicator, &Indicator::raise);
    log->appendLine("high voltage: ERROR 12");
    \endcode */
class CORVALE_QT_EXPORT RVXLogBrowser : public QWidget
{
    Q_OBJECT
    //! Text of titleLabel().
    Q_PROPERTY(QString title READ title WRITE setTitle)
    //! Whether the user cannot edit the text; true by default.
    Q_PROPERTY(bool readOnly READ readOnly WRITE setReadOnly)
    //! Largest number of paragraphs that are kept; 0, the default, means no limit.
    Q_PROPERTY(int maximumBlockCount READ maximumBlockCount WRITE setMaximumBlockCount)
    //! Whether the clear button is shown; true by default.
    Q_PROPERTY(
        bool clearTextButtonVisible READ clearTextButtonVisible WRITE setClearTextButtonVisible)
    //! Last value given to setSyntaxHighlighting(); true by default. False does not switch the highlighter off.
    Q_PROPERTY(bool syntaxHighlighting READ syntaxHighlighting WRITE setSyntaxHighlighting)
    //! Whether a keyword colours its whole line; false by default.
    Q_PROPERTY(bool wholeBlockSyntaxHighlighting READ wholeBlockSyntaxHighlighting WRITE
                   setWholeBlockSyntaxHighlighting)
    //! Colour of error keywords.
    Q_PROPERTY(QColor errorColor READ errorColor WRITE setErrorColor)
    //! Colour of warning keywords.
    Q_PROPERTY(QColor warningColor READ warningColor WRITE setWarningColor)

public:
    //! Creates an empty read-only log with the title "widget title".
    explicit RVXLogBrowser(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~RVXLogBrowser() override;

    //! Returns the text of titleLabel().
    QString title() const;
    //! Sets the text of titleLabel() and the accessible name of the text.
    void setTitle(const QString &title);

    /*! Appends \a line as plain text: markup has no effect, and control characters other than tabs are shown as their
        symbols. Each line of a text with line feeds becomes a paragraph; a line of more than 4096 characters
        continues in further paragraphs. After the whole text has been appended, each of its lines that contains a
        keyword emits syntaxError() or syntaxWarning() once, or both. */
    void appendLine(const QString &line);
    //! Removes all lines; the view follows the newest line again.
    void clear();
    //! Sets the text cursor of textBrowser(); \a cursor must belong to its document.
    void setTextCursor(const QTextCursor &cursor);
    //! Returns whether the user cannot edit the text.
    bool readOnly() const;
    //! Sets whether the user cannot edit the text.
    void setReadOnly(bool readOnly);
    //! Sets whether typed characters replace those after the cursor. This has an effect unless the text is read-only.
    void setOverwriteMode(bool overwrite);
    //! Returns the largest number of paragraphs that are kept, or 0 for no limit.
    int maximumBlockCount() const;
    /*! Keeps at most \a maximum paragraphs; 0 removes the limit. With a limit of 200 or more, a hundredth of the
        limit is dropped at a time, so that the log may hold slightly fewer paragraphs than the limit. */
    void setMaximumBlockCount(int maximum);

    //! Replaces all error keywords; RVXLogBrowserSyntaxHighlighter describes how they are found.
    void addErrorKeywords(const QStringList &keywords);
    //! Replaces all warning keywords; RVXLogBrowserSyntaxHighlighter describes how they are found.
    void addWarningKeywords(const QStringList &keywords);
    //! Returns the colour of error keywords.
    QColor errorColor() const;
    //! Sets the colour of error keywords in lines that are appended from now on.
    void setErrorColor(const QColor &color);
    //! Returns the colour of warning keywords.
    QColor warningColor() const;
    //! Sets the colour of warning keywords in lines that are appended from now on.
    void setWarningColor(const QColor &color);
    //! Sets bright colours for a dark or coloured background; these are the default.
    void setErrorWarningColorsForNonWhiteBackground();
    //! Sets darker colours for a white background.
    void setErrorWarningColorsForWhiteBackground();
    //! Returns whether a keyword colours its whole line.
    bool wholeBlockSyntaxHighlighting() const;
    //! Sets whether a keyword colours its whole line; a keyword at the beginning of a line colours only itself.
    void setWholeBlockSyntaxHighlighting(bool on);
    //! Returns the last value given to setSyntaxHighlighting(), which is true at first.
    bool syntaxHighlighting() const;
    /*! Stores \a on, and switches the highlighter on if it is true. False does not switch it off: this is kept for
        hosts that are already built. */
    void setSyntaxHighlighting(bool on);

    //! Returns the label of the title; this widget owns it.
    QLabel *titleLabel() const;
    //! Returns the view of the lines; this widget owns it.
    QTextBrowser *textBrowser() const;
    //! Returns the clear button; this widget owns it.
    QPushButton *clearTextButton() const;
    //! Returns an empty frame below the clear button, in which the host can lay out its own controls.
    QFrame *auxFrame() const;
    //! Returns whether the clear button is shown, if this widget is.
    bool clearTextButtonVisible() const;
    //! Shows or hides the clear button.
    void setClearTextButtonVisible(bool visible);

Q_SIGNALS:
    //! Emitted when a line with an error keyword has been appended, before syntaxWarning() of the same line.
    void syntaxError();
    //! Emitted when a line with a warning keyword has been appended.
    void syntaxWarning();

protected:
    //! Returns the layout beside the text, which holds the clear button and the frame for the host.
    QVBoxLayout *buttonLayout() const;
    void paintEvent(QPaintEvent *event) override;

private Q_SLOTS:
    void handleClearPushButton();

private:
    Q_DECLARE_PRIVATE(RVXLogBrowser)
    const QScopedPointer<RVXLogBrowserPrivate> d_ptr;
};

} // namespace Corvale_Qt
