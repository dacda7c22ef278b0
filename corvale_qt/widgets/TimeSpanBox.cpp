// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/TimeSpanBox.h"

#include "corvale_qt/widgets/TimeSpan.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QToolTip>

#include <functional>
#include <utility>

namespace Corvale_Qt {

namespace {

constexpr double minute = 60.0, hour = 60.0 * minute, day = 24.0 * hour;
//! The spans in the list.
constexpr double presets[] = {1.0,
                              5.0,
                              10.0,
                              30.0,
                              minute,
                              5 * minute,
                              15 * minute,
                              hour,
                              8 * hour,
                              day,
                              7 * day,
                              TimeSpan::all};

constexpr int refusalTime = 8000; // ms

bool isReturn(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

//! Takes Return out of a line edit, which would go on with the key although a slot that heard of it has deleted the edit.
class ReturnTaker : public QObject
{
public:
    ReturnTaker(QLineEdit *edit, std::function<void()> confirm)
        : QObject(edit)
        , m_confirm(std::move(confirm))
    {
        edit->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress
            || !isReturn(static_cast<const QKeyEvent *>(event)->key()))
            return false;
        const std::function<void()> confirm = m_confirm; // may delete this
        confirm();
        return true;
    }

private:
    const std::function<void()> m_confirm;
};

} // namespace

class TimeSpanBoxPrivate
{
public:
    explicit TimeSpanBoxPrivate(TimeSpanBox *box)
        : q(box)
    {
    }

    void fill();
    void showSpan();
    bool takeText();
    void confirm();
    void refuse(const QString &reason);

    TimeSpanBox *const q;
    double span = minute;
};

//! Lists the spans in the language of the application.
void TimeSpanBoxPrivate::fill()
{
    const QSignalBlocker blocker(q);
    q->clear();
    for (const double preset : presets)
        q->addItem(TimeSpan::text(preset));
    q->setAccessibleName(TimeSpanBox::tr("Time span"));
    showSpan();
}

//! Shows the span that applies, instead of what was typed.
void TimeSpanBoxPrivate::showSpan()
{
    const QSignalBlocker blocker(q);
    const QString text = TimeSpan::text(span);
    q->setCurrentIndex(q->findText(text));
    q->setEditText(text);
}

//! Applies the text. Returns false if it was refused, or if a slot that heard of the change deleted the box.
bool TimeSpanBoxPrivate::takeText()
{
    const QString text = q->currentText();
    if (text == TimeSpan::text(span)) // whose digits may be fewer than those of the span
        return true;
    QString reason;
    const std::optional<double> seconds = TimeSpan::fromText(text, &reason);
    if (!seconds) {
        refuse(reason);
        return false;
    }
    const QPointer<TimeSpanBox> box(q);
    q->setSpan(*seconds);
    if (box)
        showSpan();
    return box;
}

void TimeSpanBoxPrivate::confirm()
{
    if (takeText())
        Q_EMIT q->entryFinished();
}

void TimeSpanBoxPrivate::refuse(const QString &reason)
{
    showSpan();
    q->lineEdit()->selectAll();
    const QString plain = Qt::mightBeRichText(reason) ? reason.toHtmlEscaped() : reason;
    QToolTip::showText(q->mapToGlobal(q->rect().bottomLeft()), plain, q, QRect(), refusalTime);
    Q_EMIT q->refused(reason);
}

TimeSpanBox::TimeSpanBox(QWidget *parent)
    : QComboBox(parent)
    , d_ptr(new TimeSpanBoxPrivate(this))
{
    Q_D(TimeSpanBox);
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr); // it would make "15 min" of "15"
    setSizeAdjustPolicy(AdjustToContents);
    setMaxVisibleItems(int(std::size(presets)));
    setToolTip(tr("Time that the chart shows: choose one, or type 90 s, 2 h, 1.5 min or all."));
    d->fill();
    // Arrow keys and wheel step through the list, so this does not end the entry.
    connect(this, QOverload<int>::of(&QComboBox::activated), this, [d] {
        d->takeText();
    });
    new ReturnTaker(lineEdit(), [d] {
        d->confirm();
    });
    connect(lineEdit(), &QLineEdit::editingFinished, this, [d] {
        d->takeText();
    });
}

TimeSpanBox::~TimeSpanBox() = default;

double TimeSpanBox::span() const
{
    Q_D(const TimeSpanBox);
    return d->span;
}

void TimeSpanBox::setSpan(double seconds)
{
    Q_D(TimeSpanBox);
    if (!TimeSpan::isPossible(seconds) || seconds == d->span)
        return;
    d->span = seconds;
    d->showSpan();
    Q_EMIT spanChanged(seconds);
}

void TimeSpanBox::hidePopup()
{
    const bool wasOpen = view()->isVisible();
    QComboBox::hidePopup();
    if (wasOpen) // the choice is announced after this
        QMetaObject::invokeMethod(this, &TimeSpanBox::entryFinished, Qt::QueuedConnection);
}

void TimeSpanBox::keyPressEvent(QKeyEvent *event)
{
    Q_D(TimeSpanBox);
    if (isReturn(event->key())) {
        event->accept();
        d->confirm(); // last, since a slot may delete the box
        return;
    }
    if (event->key() != Qt::Key_Escape) {
        QComboBox::keyPressEvent(event);
        return;
    }
    d->showSpan();
    Q_EMIT entryFinished();
}

void TimeSpanBox::changeEvent(QEvent *event)
{
    Q_D(TimeSpanBox);
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        d->fill();
}

} // namespace Corvale_Qt
