// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QDoubleSpinBox>

namespace Corvale_Qt {

/*! A spin box for numbers of any size: shows and takes scientific notation ("1.5e-9").

    A decimal point is understood in every locale, and the locale's own decimal sign as well. The value keeps
    all digits that were set or typed; `decimals` limits what is shown. */
class CORVALE_QT_EXPORT QScienceSpinBox : public QDoubleSpinBox
{
    Q_OBJECT
    Q_PROPERTY(int decimals READ decimals WRITE setDecimals)
    Q_PROPERTY(SteppingMode steppingMode READ steppingMode WRITE setSteppingMode)
    Q_PROPERTY(double stepFactor READ stepFactor WRITE setStepFactor)

public:
    enum SteppingMode {
        AdditiveSteps = 0, //!< a step adds singleStep
        //! A step multiplies by stepFactor, ten at once by a decade at most; from 0 it adds singleStep.
        MultiplicativeSteps = 1,
    };
    Q_ENUM(SteppingMode)

    //! Takes any finite number; starts at 0.
    explicit QScienceSpinBox(QWidget *parent = nullptr);
    ~QScienceSpinBox() override;

    //! Digits shown behind the first one, at most; 0 to 16.
    int decimals() const { return m_decimals; }
    void setDecimals(int decimals);
    SteppingMode steppingMode() const { return m_steppingMode; }
    void setSteppingMode(SteppingMode mode) { m_steppingMode = mode; }
    //! 10 unless set; a factor that is not above 1 is ignored.
    double stepFactor() const { return m_stepFactor; }
    void setStepFactor(double factor);

    QString textFromValue(double value) const override;
    double valueFromText(const QString &text) const override;
    QValidator::State validate(QString &input, int &pos) const override;
    void fixup(QString &input) const override;
    void stepBy(int steps) override;

Q_SIGNALS:
    //! Return or Enter was pressed; the value is that of the text already.
    void returnKeyPressed();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    int stepsWithinADecade(int steps) const;
    QString plainNumber(const QString &text) const;

    int m_decimals = 4;
    SteppingMode m_steppingMode = AdditiveSteps;
    double m_stepFactor = 10.0;
};

} // namespace Corvale_Qt
