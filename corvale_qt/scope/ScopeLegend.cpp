// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/ScopeLegend.h"

#include "corvale_qt/scope/LegendDelegate_p.h"
#include "corvale_qt/scope/LegendModel_p.h"
#include "corvale_qt/scope/RVXScopePlotView.h"

#include <qwt_plot_canvas.h>

#include <QKeyEvent>
#include <QPointer>
#include <QTimer>

#include <algorithm>

namespace Corvale_Qt {

namespace {

constexpr int mostLines = 3;
constexpr int refreshInterval = 100; // milliseconds; nobody reads values faster

} // namespace

class ScopeLegendPrivate
{
public:
    ScopeLegendPrivate(ScopeLegend *legend, RVXScopePlotView *theView)
        : q(legend)
        , view(theView)
        , delegate(new LegendDelegate(legend))
    {
    }

    //! Shows the channels of the view's model, which may be another one than before.
    void followModel()
    {
        QAbstractItemModel *const source = view ? view->model() : nullptr;
        if (source == shown && (source != nullptr) == hadSource)
            return;
        shown = source;
        hadSource = source != nullptr;
        model.setSource(source);
        q->updateGeometry();
    }
    //! Measures anew when the model's names or its limits need other room.
    void followModelChanges()
    {
        const auto measure = [this] {
            q->scheduleDelayedItemsLayout(); // for other names
            q->updateGeometry();
        };
        QObject::connect(&model, &QAbstractItemModel::modelReset, q, measure);
        QObject::connect(
            &model,
            &QAbstractItemModel::dataChanged,
            q,
            [measure](const QModelIndex &, const QModelIndex &, const QVector<int> &roles) {
                if (roles.isEmpty()) // the word of a limit has its room
                    measure();
            });
    }
    //! Shows what the view is set to, and what its pictures show.
    void followView()
    {
        refresh.setParent(q); // children of the widget tell whether it rests
        refresh.setSingleShot(true);
        refresh.setInterval(refreshInterval);
        QObject::connect(&refresh, &QTimer::timeout, q, [this] {
            showValues();
        });
        model.takeLook(view);
        QObject::connect(view, &RVXScopePlotView::siPrefixChanged, q, [this](bool on) {
            model.setSiPrefix(on);
        });
        QObject::connect(view, &RVXScopePlotView::lightCanvasChanged, q, [this](bool light) {
            model.setOnWhite(light);
        });
        QObject::connect(view,
                         &RVXScopePlotView::valueUnitChanged,
                         &model,
                         &LegendModel::setValueUnit);
        QObject::connect(view,
                         &RVXScopePlotView::channelAxesChanged,
                         &model,
                         &LegendModel::changeAll);
        QObject::connect(view,
                         &RVXScopePlotView::limitStateChanged,
                         &model,
                         &LegendModel::changeLimitState);
        QObject::connect(view,
                         &RVXScopePlotView::channelLimitsChanged,
                         &model,
                         &LegendModel::changeAll);
        // The canvas is painted for each picture, and with another model.
        for (QwtPlotCanvas *canvas : view->findChildren<QwtPlotCanvas *>())
            canvas->installEventFilter(q);
        followModel();
    }
    //! Has the rows painted that can be seen and whose values have changed.
    void showValues()
    {
        const QRect seen = q->viewport()->rect();
        for (int row = 0; row < model.rowCount(); ++row) {
            const QModelIndex index = model.index(row);
            if (q->visualRect(index).intersects(seen) && delegate->hasNewValue(index))
                q->update(index);
        }
    }
    void raise(const QModelIndex &index)
    {
        if (view)
            view->setRaisedChannel(index.isValid() ? index.row() + 1 : 0);
    }
    int lineHeight() const
    {
        const int measured = q->sizeHintForRow(0);
        return measured > 0 ? measured : q->fontMetrics().height() + 4;
    }
    //! Returns how many lines the channels take in a width, at most as many as the legend shows.
    int lines(int width) const
    {
        const int one = std::max(q->sizeHintForIndex(model.index(0)).width(), 1); // all are equal
        const int inALine = std::max((width - 2) / one, 1);
        return std::clamp((model.rowCount() + inALine - 1) / inALine, 1, mostLines);
    }

    ScopeLegend *const q;
    QPointer<RVXScopePlotView> view;
    LegendModel model;
    LegendDelegate *const delegate; //!< the legend owns it
    QTimer refresh; //!< runs after a picture, so that values are painted less often than pictures
    QPointer<QAbstractItemModel> shown;
    bool hadSource = false; //!< also after the source was deleted
};

ScopeLegend::ScopeLegend(RVXScopePlotView *view, QWidget *parent)
    : QListView(parent)
    , d_ptr(new ScopeLegendPrivate(this, view))
{
    Q_D(ScopeLegend);
    setAccessibleName(tr("Legend"));
    setToolTip(tr(
        "The channels with their newest values. A click, Space or Enter hides a channel or shows "
        "it again."));
    setFlow(QListView::LeftToRight);
    setWrapping(true);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setMouseTracking(true);
    viewport()->setBackgroundRole(QPalette::Window); // it belongs to the plot above
    setFrameStyle(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    setItemDelegate(d->delegate);
    setModel(&d->model);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(false);
    setSizePolicy(policy);
    connect(this, &QAbstractItemView::entered, this, [d](const QModelIndex &index) {
        d->raise(index);
    });
    d->followModelChanges();
    if (view)
        d->followView();
}

ScopeLegend::~ScopeLegend() = default;

bool ScopeLegend::eventFilter(QObject *watched, QEvent *event)
{
    Q_D(ScopeLegend);
    if (event->type() == QEvent::Paint && qobject_cast<QwtPlotCanvas *>(watched)) {
        d->followModel();
        if (!d->refresh.isActive())
            d->refresh.start();
    }
    return QListView::eventFilter(watched, event);
}

void ScopeLegend::paintEvent(QPaintEvent *event)
{
    // Qt puts the layout off to a later turn of the event loop, and a picture taken before it would have an empty legend.
    executeDelayedItemsLayout();
    QListView::paintEvent(event);
}

QSize ScopeLegend::sizeHint() const
{
    Q_D(const ScopeLegend);
    return {QListView::sizeHint().width(), d->lines(width()) * d->lineHeight() + 2};
}

QSize ScopeLegend::minimumSizeHint() const
{
    Q_D(const ScopeLegend);
    return {50, d->lineHeight() + 2};
}

void ScopeLegend::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (currentIndex().isValid())
            toggleChannel(model(), currentIndex());
        event->accept();
        return;
    }
    QListView::keyPressEvent(event);
}

void ScopeLegend::leaveEvent(QEvent *event)
{
    Q_D(ScopeLegend);
    QListView::leaveEvent(event);
    d->raise(hasFocus() ? currentIndex() : QModelIndex());
}

void ScopeLegend::focusInEvent(QFocusEvent *event)
{
    Q_D(ScopeLegend);
    QListView::focusInEvent(event);
    const bool byKey = event->reason() == Qt::TabFocusReason
        || event->reason() == Qt::BacktabFocusReason || event->reason() == Qt::ShortcutFocusReason;
    if (byKey && !currentIndex().isValid())
        setCurrentIndex(model()->index(0, 0));
    d->raise(currentIndex());
}

void ScopeLegend::focusOutEvent(QFocusEvent *event)
{
    Q_D(ScopeLegend);
    QListView::focusOutEvent(event);
    d->raise(QModelIndex());
}

void ScopeLegend::resizeEvent(QResizeEvent *event)
{
    QListView::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        updateGeometry();
}

void ScopeLegend::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    Q_D(ScopeLegend);
    QListView::currentChanged(current, previous);
    if (hasFocus())
        d->raise(current);
}

} // namespace Corvale_Qt
