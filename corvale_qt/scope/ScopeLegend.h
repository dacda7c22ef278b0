// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QListView>

#include <memory>

namespace Corvale_Qt {

class RVXScopePlotView;
class ScopeLegendPrivate;

/*! The legend of a scope plot view: the line, the name and the newest value of each channel.

    While the mouse is over a channel, or the keyboard has moved to it, its trace is drawn above the others. A click, Space or
    Enter hides the channel or shows it again, as its check box in other views does. Values are read when the legend is
    painted, for the channels that can be seen in it, and at most once for each picture of the plot.

    RVXScopePlotView::legendVisible shows one below the plot; a host can place others wherever it wants.

    \code
    auto *legend = new ScopeLegend(scope.plotView());
    layout->addWidget(legend);
    \endcode */
class CORVALE_QT_EXPORT ScopeLegend : public QListView
{
    Q_OBJECT

public:
    //! Creates the legend of a view, which is not owned and may be deleted first.
    explicit ScopeLegend(RVXScopePlotView *view, QWidget *parent = nullptr);
    ~ScopeLegend() override;

    //! Returns a size with room for all channels in at most three lines.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    Q_DECLARE_PRIVATE(ScopeLegend)
    const std::unique_ptr<ScopeLegendPrivate> d_ptr;
};

} // namespace Corvale_Qt
