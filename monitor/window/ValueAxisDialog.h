// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDialog>

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace Corvale_Qt {
class RVXScope;
class RVXScopePlotView;
} // namespace Corvale_Qt

namespace Monitor {

/*! Asks for the range and the unit of the scope's y axes. What is entered takes effect at once; the dialog may stay open while
    readings come. The right axis is asked for while there is one, because channels of a second unit are shown. */
class ValueAxisDialog : public QDialog
{
    Q_OBJECT

public:
    //! The scope must outlive the dialog.
    explicit ValueAxisDialog(Corvale_Qt::RVXScope &scope, QWidget *parent = nullptr);

Q_SIGNALS:
    //! Emitted when a range was typed for the left axis, in the unit of the readings.
    void rangeTyped(double minimum, double maximum);
    //! Emitted when the axes are to follow the readings.
    void automaticChosen();

protected:
    void showEvent(QShowEvent *event) override;

private:
    //! What is asked for one axis.
    struct Axis
    {
        bool isRight;
        QLineEdit *minimum;
        QLineEdit *maximum;
        QComboBox *unit;
    };

    Axis makeAxis(bool isRight);
    void addFields(QFormLayout *form);
    void forgetTyped();
    bool isAskedFor(const Axis &axis) const;
    QString unitOf(const Axis &axis) const;
    bool takeRange(const Axis &axis);
    void applyRanges();
    void applyAutomatic();
    void applyUnit(const Axis &axis);
    void showAll();
    void showRange(const Axis &axis);
    void showUnits(const Axis &axis);

    Corvale_Qt::RVXScope &m_scope;
    Corvale_Qt::RVXScopePlotView &m_view;
    const Axis m_left;
    const Axis m_right;
    QWidget *m_rightFields; //!< with their labels
    QLabel *m_refusal;
};

} // namespace Monitor
