// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

class QModelIndex;

namespace Corvale_Qt {
class RVXTableView;
} // namespace Corvale_Qt

namespace Monitor {

class Session;
class StaleMarks;

/*! The newest value of each channel, with a check box that shows the channel in the plots. Enter toggles the box,
    because Space pauses. */
class LatestValuePanel : public QWidget
{
    Q_OBJECT

public:
    explicit LatestValuePanel(Session &session, QWidget *parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void checkAll(bool on);
    void toggle(const QModelIndex &cell);
    void fitNames();
    int valueWidth() const;
    int leastNameWidth() const;

    Session &m_session;
    StaleMarks *m_marks;
    Corvale_Qt::RVXTableView *m_table;
};

} // namespace Monitor
