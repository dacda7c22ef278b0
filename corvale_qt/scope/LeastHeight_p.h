// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include <QObject>
#include <QSize>

class QAbstractScrollArea;

namespace Corvale_Qt {

/*! Tells the layout around a scroll area that its minimumSizeHint() has changed because of what lies in its viewport. Qt does not,
    since most scroll areas scroll what has no room; a chart would lose its time axis. */
class LeastHeight : public QObject
{
    Q_OBJECT

public:
    //! Watches \a area, which becomes the parent.
    explicit LeastHeight(QAbstractScrollArea *area);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAbstractScrollArea *const m_area;
    QSize m_told;
};

} // namespace Corvale_Qt
