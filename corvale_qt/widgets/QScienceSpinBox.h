// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QDoubleSpinBox>

namespace Corvale_Qt {

/*! A spin box for numbers of any size. It shows and accepts scientific notation ("1.5e-9").

    A decimal point is accepted in every locale, as is the decimal sign of the locale. The value keeps all digits that
    were set or typed; `decimals` only limits how many are shown. */
class CORVALE_QT_EXPORT QScienceSpinBox : public QDoubleSpinBox
{
    Q_OBJECT
    //! Largest number of digits shown after the first one, 0 to 16; 4 by default.
    Q_PROPERTY(int decimals READ decimals WRITE setDecimals)
    //! What a step does to the value; AdditiveSteps by default.
    Q_PROPERTY(SteppingMode steppingMode READ steppingMode WRITE setSteppingMode)
    //! Factor of a multiplicative step, above 1; 10 by default.
    Q_PROPERTY(double stepFactor READ stepFactor WRITE setStepFactor)

public:
    //! What a step with arrow key, page key or wheel does to the value.
    enum SteppingMode : int {
        AdditiveSteps = 0, //!< A step adds singleStep.
        /*! A step multiplies by stepFactor; ten steps at once multiply by at most one decade, or by one step if
            that is more. From 0 a step adds singleStep. */
        MultiplicativeSteps = 1,
    };
    Q_ENUM(SteppingMode)

    //! Creates a spin box that accepts any finite number and shows 0.
    explicit QScienceSpinBox(QWidget *parent = nullptr);
    ~QScienceSpinBox() override;

    //! Returns the largest number of digits that are shown after the first one.
    int decimals() const { return m_decimals; }
    //! Sets how many digits are shown at most after the first one, limited to 0 to 16. The value does not change.
    void setDecimals(int decimals);
    //! Returns what a step does to the value.
    SteppingMode steppingMode() const { return m_steppingMode; }
    //! Sets what a step does to the value.
    void setSteppingMode(SteppingMode mode) { m_steppingMode = mode; }
    //! Returns the factor of a multiplicative step.
    double stepFactor() const { return m_stepFactor; }
    //! Sets the factor of a multiplicative step. A factor that is not finite or not above 1 is ignored.
    void setStepFactor(double factor);

    QString textFromValue(double value) const override;
    double valueFromText(const QString &text) const override;
    QValidator::State validate(QString &input, int &pos) const override;
    void fixup(QString &input) const override;
    void stepBy(int steps) override;

Q_SIGNALS:
    //! Emitted when the user presses Return or Enter, after the value has been set from the text.
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
