// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/LimitTexts.h"
#include "monitor/readings/StreamHeader.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTableWidget;

namespace Monitor {

//! A table in which an operator types the limits of each channel. It cannot be accepted while a cell is not readable.
class LimitsDialog : public QDialog
{
    Q_OBJECT

public:
    //! Shows the limits of the channels of \a header.
    explicit LimitsDialog(const StreamHeader &header, QWidget *parent = nullptr);

    //! Returns the limits of the channels that were changed.
    NamedLimits changed() const;

private:
    void fill();
    void check();
    std::optional<Corvale_Qt::ChannelLimits> limitsIn(int row, QString *fault) const;

    const StreamHeader m_header;
    QTableWidget *m_table;
    QLabel *m_fault;
    QPushButton *m_ok;
};

} // namespace Monitor
