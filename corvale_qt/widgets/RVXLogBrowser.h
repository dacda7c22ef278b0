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

/*! A titled pane of log lines, with a clear button and a frame for controls of the host. Lines that hold an error
    or a warning keyword are coloured and announced, so that a host can raise an indicator.

    The view follows the newest line unless the user has scrolled up; then what is read stays in its place, until
    the end comes into sight again. Of a long text the end and what is in sight are coloured first, the rest while the
    program has nothing else to do.

    There is no limit to the lines at first, and a program that runs for days fills its memory with them: set
    maximumBlockCount, to 10000 for example, and the oldest lines drop off.

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
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(bool readOnly READ readOnly WRITE setReadOnly)
    Q_PROPERTY(int maximumBlockCount READ maximumBlockCount WRITE setMaximumBlockCount)
    Q_PROPERTY(
        bool clearTextButtonVisible READ clearTextButtonVisible WRITE setClearTextButtonVisible)
    Q_PROPERTY(bool syntaxHighlighting READ syntaxHighlighting WRITE setSyntaxHighlighting)
    Q_PROPERTY(bool wholeBlockSyntaxHighlighting READ wholeBlockSyntaxHighlighting WRITE
                   setWholeBlockSyntaxHighlighting)
    Q_PROPERTY(QColor errorColor READ errorColor WRITE setErrorColor)
    Q_PROPERTY(QColor warningColor READ warningColor WRITE setWarningColor)

public:
    explicit RVXLogBrowser(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~RVXLogBrowser() override;

    //! The text of titleLabel().
    QString title() const;
    void setTitle(const QString &title);

    /*! Appends a paragraph that shows \a line as it is: no markup in it takes effect, and control characters other
        than tabs are shown as their symbols. Where there are line feeds in it, each of its lines becomes a
        paragraph; a line of more than 4096 characters goes on in further ones. A keyword in a line is announced
        once, after all are there. */
    void appendLine(const QString &line);
    void clear();
    void setTextCursor(const QTextCursor &cursor);
    //! True at first.
    bool readOnly() const;
    void setReadOnly(bool readOnly);
    //! Whether typed characters replace those under the cursor, when the text is not read-only.
    void setOverwriteMode(bool overwrite);
    /*! The most paragraphs that are kept; 0, as at first, for no limit. From a limit of 200 on, the oldest drop off
        by the hundredth of it, so that a little less than the limit may be there. */
    int maximumBlockCount() const;
    void setMaximumBlockCount(int maximum);

    //! See RVXLogBrowserSyntaxHighlighter, for this and the following. Replaces the whole list.
    void addErrorKeywords(const QStringList &keywords);
    //! Replaces the whole list.
    void addWarningKeywords(const QStringList &keywords);
    QColor errorColor() const;
    void setErrorColor(const QColor &color);
    QColor warningColor() const;
    void setWarningColor(const QColor &color);
    void setErrorWarningColorsForNonWhiteBackground();
    void setErrorWarningColorsForWhiteBackground();
    bool wholeBlockSyntaxHighlighting() const;
    void setWholeBlockSyntaxHighlighting(bool on);
    //! What setSyntaxHighlighting() was told last; true at first.
    bool syntaxHighlighting() const;
    /*! Records \a on, and switches the highlighter on when it is true. False does not switch it off: kept for
        hosts already built. */
    void setSyntaxHighlighting(bool on);

    //! The parts are owned by this widget.
    QLabel *titleLabel() const;
    QTextBrowser *textBrowser() const;
    QPushButton *clearTextButton() const;
    //! An empty frame below the clear button, for the host to put a layout with its controls into.
    QFrame *auxFrame() const;
    bool clearTextButtonVisible() const;
    void setClearTextButtonVisible(bool visible);

Q_SIGNALS:
    //! A line holds an error keyword; it stands in the text when this is emitted. Before syntaxWarning().
    void syntaxError();
    //! A line holds a warning keyword.
    void syntaxWarning();

protected:
    //! The layout beside the text, with the clear button and the frame for the host.
    QVBoxLayout *buttonLayout() const;
    void paintEvent(QPaintEvent *event) override;

private Q_SLOTS:
    void handleClearPushButton();

private:
    Q_DECLARE_PRIVATE(RVXLogBrowser)
    const QScopedPointer<RVXLogBrowserPrivate> d_ptr;
};

} // namespace Corvale_Qt
