// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/profile/RVXSpectrogram.h"
#include "corvale_qt/beam/profile/ResultBoxes_p.h"

#include "ui_RVXSpectrogram.h"

#include <cmath>
#include <limits>

namespace Corvale_Qt {

namespace {

//! Shows \a number, or the box's special text if it is not finite or beyond the box's range.
void showNumber(QDoubleSpinBox *box, double number)
{
    const bool shown =
        std::isfinite(number) && number >= box->minimum() && number <= box->maximum();
    const bool rounded = std::abs(number) < 0.5 * std::pow(10.0, -box->decimals());
    box->setValue(!shown ? box->minimum() : rounded ? 0.0 : number); // not "-0.000"
}

//! Returns a style whose text and background are both fixed, so that the label is readable in light and dark themes.
QString labelStyle(BeamValidity validity)
{
    switch (validity) {
    case BeamValidity::Valid:
        return QStringLiteral("background: #1b5e20; color: white; padding: 3px;");
    case BeamValidity::FitPoor:
        return QStringLiteral("background: #ffb300; color: black; padding: 3px;");
    case BeamValidity::NotValid:
        break;
    }
    return QStringLiteral("background: #b71c1c; color: white; padding: 3px;");
}

//! Colours a label. To set the style sheet that a widget has already would still lay out the side bar.
void showValidity(QLabel *label, BeamValidity validity)
{
    const QString style = labelStyle(validity);
    if (label->styleSheet() != style)
        label->setStyleSheet(style);
}

} // namespace

ResultBoxes::ResultBoxes(const Ui::RVXSpectrogram &ui)
    : m_ui(ui)
{
}

void ResultBoxes::clear()
{
    for (QDoubleSpinBox *box : m_ui.groupBox_calculations->findChildren<QDoubleSpinBox *>())
        box->setValue(box->minimum());
    showNoNumbers(QStringLiteral("NaN"));
    m_ui.label_valid->setText(RVXSpectrogram::tr("[+ Data Validity]"));
    m_ui.label_valid->setStyleSheet(QString());
    m_ui.label_valid->setToolTip(QString());
}

void ResultBoxes::showNoNumbers(const QString &text)
{
    for (QDoubleSpinBox *box : m_ui.groupBox_calculations->findChildren<QDoubleSpinBox *>()) {
        if (box->specialValueText() != text)
            box->setSpecialValueText(text);
    }
}

void ResultBoxes::setLengthUnits(const QString &x, const QString &y)
{
    const auto set = [](std::initializer_list<QDoubleSpinBox *> boxes, const QString &unit) {
        const QString suffix = unit.isEmpty() ? unit : QLatin1Char(' ') + unit;
        for (QDoubleSpinBox *box : boxes) {
            if (box->suffix() != suffix)
                box->setSuffix(suffix);
        }
    };
    set({m_ui.doubleSpinBox_meanx, m_ui.doubleSpinBox_dx, m_ui.xorigin_doubleSpinBox}, x);
    set({m_ui.doubleSpinBox_meany, m_ui.doubleSpinBox_dy, m_ui.yorigin_doubleSpinBox}, y);
    set({m_ui.doubleSpinBox_major, m_ui.doubleSpinBox_minor}, x == y ? x : QString());
}

void ResultBoxes::setAmountUnit(const AmountUnit &unit)
{
    for (AmountBox *box : {m_ui.integral_QScienceSpinBox, m_ui.max_QScienceSpinBox})
        box->setUnit(unit);
}

void ResultBoxes::show(const JudgedFrame &frame, bool all)
{
    const SpectrogramCalc &calc = frame.beam.calc;
    const auto ifValid = [&calc](double number) {
        return calc.valid ? number : std::numeric_limits<double>::quiet_NaN();
    };
    showNumber(m_ui.doubleSpinBox_meanx, calc.meanX);
    showNumber(m_ui.doubleSpinBox_meany, calc.meanY);
    // A detector of one plane tells nothing about a shape.
    const bool isShape =
        calc.meanX != SpectrogramCalc::invalid && calc.meanY != SpectrogramCalc::invalid;
    const double none = std::numeric_limits<double>::quiet_NaN();
    showNumber(m_ui.doubleSpinBox_elongation, isShape ? ifValid(calc.elongation) : none);
    if (!all)
        return;
    showNumber(m_ui.doubleSpinBox_dx, calc.sigmaX);
    showNumber(m_ui.doubleSpinBox_dy, calc.sigmaY);
    showNumber(m_ui.doubleSpinBox_major, calc.sigmaMajor);
    showNumber(m_ui.doubleSpinBox_minor, calc.sigmaMinor);
    showNumber(m_ui.doubleSpinBox_rotation, isShape ? ifValid(frame.beam.axisRotation) : none);
    m_ui.integral_QScienceSpinBox->showAmount(ifValid(calc.integral));
    m_ui.max_QScienceSpinBox->showAmount(ifValid(calc.max));
    showVerdict(frame);
}

ChartWords ResultBoxes::words() const
{
    QStringList numbers;
    for (const auto &[name, box] :
         {std::pair(RVXSpectrogram::tr("Mean X"), m_ui.doubleSpinBox_meanx),
          std::pair(RVXSpectrogram::tr("Mean Y"), m_ui.doubleSpinBox_meany),
          std::pair(RVXSpectrogram::tr("σ X"), m_ui.doubleSpinBox_dx),
          std::pair(RVXSpectrogram::tr("σ Y"), m_ui.doubleSpinBox_dy)})
        if (!box->isHidden()) // as those of a plane that the detector does not have are
            numbers.append(QStringLiteral("%1 %2").arg(name, box->text()));
    return {m_ui.label_title->text() + QStringLiteral(", ") + m_ui.label_valid->text(),
            numbers.join(QStringLiteral("; "))};
}

void ResultBoxes::keepRoomForReasons()
{
    QLabel *label = m_ui.label_valid;
    label->setWordWrap(true);
    label->setMinimumHeight(3 * label->fontMetrics().lineSpacing() + 8);
}

void ResultBoxes::showVerdict(const JudgedFrame &frame)
{
    QLabel *label = m_ui.label_valid;
    if (!frame.isJudged) {
        const bool valid = frame.beam.calc.valid;
        label->setText(valid ? RVXSpectrogram::tr("DATA VALID")
                             : RVXSpectrogram::tr("DATA NOT VALID"));
        showValidity(label, valid ? BeamValidity::Valid : BeamValidity::NotValid);
        return;
    }
    const BeamVerdict &verdict = frame.verdict;
    const QStringList lines = QStringList(verdict.text()) + verdict.reasons + verdict.notes;
    keepRoomForReasons();
    constexpr int mostLines = 3;
    const int more = lines.size() - mostLines;
    QString text = QStringList(lines.mid(0, mostLines)).join(QLatin1Char('\n'));
    if (more > 0)
        text += RVXSpectrogram::tr(" (and %1 more)").arg(more);
    label->setText(text);
    label->setToolTip(lines.join(QLatin1Char('\n')));
    showValidity(label, verdict.validity);
}

} // namespace Corvale_Qt
