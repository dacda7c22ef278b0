// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;

namespace Corvale_Qt {
class RVXScope;
} // namespace Corvale_Qt

namespace Monitor {

/*! Asks for the range and the unit of the scope's y axis. What is entered takes effect at once; the dialog may stay open while
    readings come. */
class ValueAxisDialog : public QDialog
{
    Q_OBJECT

public:
    //! The scope must outlive the dialog.
    explicit ValueAxisDialog(Corvale_Qt::RVXScope &scope, QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void applyRange();
    void applyAutomatic();
    void applyUnit();
    void showRange();
    void showUnits();

    Corvale_Qt::RVXScope &m_scope;
    QLineEdit *m_minimum;
    QLineEdit *m_maximum;
    QComboBox *m_unit;
    QLabel *m_refusal;
};

} // namespace Monitor
