// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QLabel>

namespace Corvale_Qt {
class RVXScope;
} // namespace Corvale_Qt

namespace Monitor {

/*! Says on an empty chart that the first sweep is not complete yet, and how many of its readings have come. A slow instrument takes
    minutes for it, and an empty chart looks as if nothing came. */
class SweepNotice : public QLabel
{
    Q_OBJECT

public:
    //! The notice lies on \a scope, and is hidden while there is a sweep to see. \a scope has its model already.
    explicit SweepNotice(Corvale_Qt::RVXScope &scope);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void refresh();
    void place();

    Corvale_Qt::RVXScope &m_scope;
};

} // namespace Monitor
