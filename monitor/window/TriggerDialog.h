// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/readings/StreamHeader.h"
#include <corvale_qt/numerics/SweepTrigger.h>

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace Corvale_Qt {
class RVXScopePlotView;
} // namespace Corvale_Qt

namespace Monitor {

/*! Sets the trigger of a scope's sweeps. What is typed holds at once, as on an instrument; a text that is not a number is reported and
    changes nothing. */
class TriggerDialog : public QDialog
{
    Q_OBJECT

public:
    explicit TriggerDialog(Corvale_Qt::RVXScopePlotView &view, QWidget *parent = nullptr);
    //! Offers the channels of a stream.
    void setHeader(const StreamHeader &header);

private:
    void addFields();
    QLineEdit *addNumber(const char *name, const QString &toolTip);
    void showTrigger(const Corvale_Qt::SweepTrigger &trigger);
    void apply();
    void showState();

    Corvale_Qt::RVXScopePlotView &m_view;
    QComboBox *m_mode;
    QComboBox *m_channel;
    QLineEdit *m_level;
    QComboBox *m_edge;
    QLineEdit *m_hysteresis;
    QSpinBox *m_before;
    QLineEdit *m_holdOff;
    QLabel *m_state;
    QPushButton *m_arm;
    bool m_isShowing = false; //!< the fields change because the trigger does
};

} // namespace Monitor
