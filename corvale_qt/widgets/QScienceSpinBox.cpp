// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/QScienceSpinBox.h"

#include <QKeyEvent>
#include <QPointer>
#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
//! The base class rounds each value to its decimals; with all that a double can have it rounds nothing off.
constexpr int kAllDecimals =
    std::numeric_limits<double>::max_exponent10 + std::numeric_limits<double>::digits10;

//! What can still become a number by typing on.
bool canBecomeNumber(const QString &text)
{
    static const QRegularExpression beginning(
        QStringLiteral(R"(\A[+-]?\d*\.?\d*([eE][+-]?\d*)?\z)"));
    return beginning.match(text).hasMatch();
}

//! "1.500e-09" -> "1.5e-9", "2.000e+00" -> "2"
QString shortened(QString text)
{
    const int e = text.indexOf(QLatin1Char('e'));
    QString mantissa = text.left(e);
    if (mantissa.contains(QLatin1Char('.'))) {
        while (mantissa.endsWith(QLatin1Char('0')))
            mantissa.chop(1);
        if (mantissa.endsWith(QLatin1Char('.')))
            mantissa.chop(1);
    }
    const int exponent = text.mid(e + 1).toInt();
    return exponent == 0 ? mantissa : mantissa + QLatin1Char('e') + QString::number(exponent);
}

} // namespace

QScienceSpinBox::QScienceSpinBox(QWidget *parent)
    : QDoubleSpinBox(parent)
{
    QDoubleSpinBox::setDecimals(kAllDecimals);
    setRange(-kLargest, kLargest);
}

QScienceSpinBox::~QScienceSpinBox() = default;

void QScienceSpinBox::setDecimals(int decimals)
{
    m_decimals = qBound(0, decimals, 16);
    // The text is made anew where the base class takes a suffix, even the same one.
    const QString same = suffix();
    setSuffix(same);
}

void QScienceSpinBox::setStepFactor(double factor)
{
    if (factor > 1 && std::isfinite(factor))
        m_stepFactor = factor;
}

QString QScienceSpinBox::textFromValue(double value) const
{
    if (!std::isfinite(value))
        return QString::number(value);
    QString text = shortened(QString::number(value, 'e', m_decimals));
    return text.replace(QLatin1Char('.'), locale().decimalPoint());
}

//! Without prefix, suffix and blanks, with a point for the decimal sign of the box's locale, or the application's.
QString QScienceSpinBox::plainNumber(const QString &text) const
{
    QString number = text;
    if (!prefix().isEmpty() && number.startsWith(prefix()))
        number.remove(0, prefix().size());
    if (!suffix().isEmpty() && number.endsWith(suffix()))
        number.chop(suffix().size());
    return number.trimmed()
        .replace(locale().decimalPoint(), QLatin1Char('.'))
        .replace(QLocale().decimalPoint(), QLatin1Char('.'));
}

double QScienceSpinBox::valueFromText(const QString &text) const
{
    const QString number = plainNumber(text);
    // What was only shown has not been typed: the digits behind the shown ones stay.
    if (number == plainNumber(textFromValue(value())))
        return value();
    bool ok = false;
    const double typed = number.toDouble(&ok);
    return ok && std::isfinite(typed) ? typed : value();
}

QValidator::State QScienceSpinBox::validate(QString &input, int & /*pos*/) const
{
    if (!specialValueText().isEmpty() && input == specialValueText())
        return QValidator::Acceptable;
    const QString number = plainNumber(input);
    if (!canBecomeNumber(number))
        return QValidator::Invalid;
    bool ok = false;
    const double typed = number.toDouble(&ok);
    if (!ok)
        return QValidator::Intermediate;
    return typed >= minimum() && typed <= maximum() ? QValidator::Acceptable
                                                    : QValidator::Intermediate;
}

void QScienceSpinBox::fixup(QString & /*input*/) const
{
    // Not the base class's, which takes out group separators: "1.5" would become 15 in some
    // locales.
}

//! The page keys, and Ctrl with an arrow or the wheel, ask for ten steps.
int QScienceSpinBox::stepsWithinADecade(int steps) const
{
    constexpr int many = 10;
    if (qAbs(steps) < many)
        return steps;
    constexpr double rounding = 1e-9;
    const double inADecade = 1 / std::log10(m_stepFactor) + rounding;
    const int most = int(qBound(1.0, inADecade, double(many)));
    return steps > 0 ? most : -most;
}

void QScienceSpinBox::stepBy(int steps)
{
    const double now = value();
    double next = now + steps * singleStep();
    if (m_steppingMode == MultiplicativeSteps && now != 0) {
        const int taken = stepsWithinADecade(steps);
        next = now * std::pow(m_stepFactor, now > 0 ? taken : -taken);
    }
    const QPointer<QScienceSpinBox> alive = this;
    setValue(qBound(minimum(), next, maximum()));
    if (alive)
        selectAll();
}

void QScienceSpinBox::keyPressEvent(QKeyEvent *event)
{
    const QPointer<QScienceSpinBox> alive = this;
    QDoubleSpinBox::keyPressEvent(event);
    if (!alive)
        return;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT returnKeyPressed();
}

} // namespace Corvale_Qt
