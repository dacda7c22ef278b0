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
//! The base class rounds each value to its decimals. With as many decimals as a double can have, it does not round.
constexpr int kAllDecimals =
    std::numeric_limits<double>::max_exponent10 + std::numeric_limits<double>::digits10;

//! Returns whether more typing can turn \a text into a number.
bool canBecomeNumber(const QString &text)
{
    static const QRegularExpression beginning(
        QStringLiteral(R"(\A[+-]?\d*\.?\d*([eE][+-]?\d*)?\z)"));
    return beginning.match(text).hasMatch();
}

//! "1.500e-09" -> "1.5e-9", "2.000e+00" -> "2"
QString shortened(const QString &text)
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
    // Setting a suffix, even the same one, makes the base class update the text.
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

/*! Returns \a text without prefix, suffix and blanks, and with a point in place of the decimal sign of the spin
    box's or the application's locale. */
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
    // If the user has not changed the text, the digits that are not shown are kept.
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
    // The base class would remove group separators: in some locales "1.5" would become 15.
}

//! Limits the ten steps of a page key, or of Ctrl with arrow key or wheel, to at most one decade.
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
