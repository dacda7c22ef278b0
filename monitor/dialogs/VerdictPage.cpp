// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/dialogs/VerdictPage.h"

#include "monitor/dialogs/Explanation.h"
#include "monitor/dialogs/FieldRow.h"

#include <QDoubleSpinBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>

#include <algorithm>

namespace Monitor {

using Corvale_Qt::VerdictLimitField;
using Corvale_Qt::verdictLimitFields;
using Corvale_Qt::VerdictLimits;

namespace {

//! How a person sees a limit.
struct LimitText
{
    double VerdictLimits::*limit;
    const char *label;
    const char *meaning;
    double scale; //!< 100 for a limit in percent
};

constexpr double percent = 100.0;

//! In the order of the page: what makes a fit poor, then what makes a result not valid.
const std::array<LimitText, verdictLimitFields.size()> limitTexts = {{
    {&VerdictLimits::residualRms,
     QT_TRANSLATE_NOOP("Monitor::VerdictPage", "Res&iduals, poor:"),
     QT_TRANSLATE_NOOP("Monitor::VerdictPage",
                       "A fit whose residuals (rms over the peak) are larger is poor."),
     percent},
    {&VerdictLimits::rSquared,
     QT_TRANSLATE_NOOP("Monitor::VerdictPage", "R&2:"),
     QT_TRANSLATE_NOOP("Monitor::VerdictPage", "A fit with a smaller R2 is poor."),
     1.0},
    {&VerdictLimits::flaggedShare,
     QT_TRANSLATE_NOOP("Monitor::VerdictPage", "Cha&rge in bad cells:"),
     QT_TRANSLATE_NOOP("Monitor::VerdictPage",
                       "A fit is poor if this much of the charge lies in dead, hot or saturated "
                       "cells."),
     percent},
    {&VerdictLimits::background,
     QT_TRANSLATE_NOOP("Monitor::VerdictPage", "&Background:"),
     QT_TRANSLATE_NOOP("Monitor::VerdictPage",
                       "An estimate that does not subtract a background this large, over the peak, "
                       "is poor."),
     percent},
    {&VerdictLimits::worstResidualRms,
     QT_TRANSLATE_NOOP("Monitor::VerdictPage", "Resid&uals, not valid:"),
     QT_TRANSLATE_NOOP("Monitor::VerdictPage",
                       "A fit whose residuals (rms over the peak) are larger is not valid."),
     percent},
    {&VerdictLimits::widestSigma,
     QT_TRANSLATE_NOOP("Monitor::VerdictPage", "&Widest sigma:"),
     QT_TRANSLATE_NOOP("Monitor::VerdictPage",
                       "A result with a wider sigma, over the length of the detector, is not "
                       "valid."),
     percent},
    {&VerdictLimits::peakInNoise,
     QT_TRANSLATE_NOOP("Monitor::VerdictPage", "&Peak over noise:"),
     QT_TRANSLATE_NOOP(
         "Monitor::VerdictPage",
         "A peak that is lower than this many times the noise is not taken for a beam."),
     1.0},
}};

//! A field without the zeros that say nothing: 5 % and not 5.0000 %.
class LimitBox : public QDoubleSpinBox
{
public:
    QString textFromValue(double value) const override
    {
        constexpr int digits = 10;
        return QString::number(value, 'g', digits);
    }
};

QDoubleSpinBox *newBox(const LimitText &text)
{
    constexpr double largest = 1e6;
    constexpr int decimals = 4;
    auto *box = new LimitBox;
    box->setFocusPolicy(Qt::StrongFocus); // the wheel scrolls the page
    box->setRange(0.0, largest);
    box->setDecimals(decimals);
    box->setSingleStep(text.scale > 1.0 || text.limit == &VerdictLimits::peakInNoise ? 1.0 : 0.01);
    if (text.scale > 1.0)
        box->setSuffix(QStringLiteral(" %"));
    return box;
}

} // namespace

VerdictPage::VerdictPage(QWidget *parent)
    : ScrolledPage(nullptr, parent)
{
    auto *page = new QWidget(this);
    auto *form = new QFormLayout(page);
    form->addRow(new Explanation(tr(
        "Profile, histogram and report say \"DATA VALID\", \"DATA VALID, FIT POOR\" or \"DATA NOT "
        "VALID\" by these limits. A detector whose description states limits of its own (its key "
        "\"verdict\") is judged by those alone. --stats takes these limits from --settings "
        "FILE.")));
    for (std::size_t i = 0; i < limitTexts.size(); ++i)
        addLimit(form, i);
    int widest = 0;
    for (const QDoubleSpinBox *box : m_boxes)
        widest = std::max(widest, box->sizeHint().width());
    for (QDoubleSpinBox *box : m_boxes)
        box->setMinimumWidth(widest);
    auto *usual = new QPushButton(tr("Usua&l limits"), page);
    usual->setObjectName(QStringLiteral("usualLimits"));
    usual->setAutoDefault(false);
    connect(usual, &QPushButton::clicked, this, [this] {
        setLimits(VerdictLimits());
    });
    form->addRow(QString(), usual);
    form->setAlignment(usual, Qt::AlignLeft);
    setLimits(VerdictLimits());
    setPage(page);
}

//! Keeps the wheel from changing a limit that it passes over, and shows the field that a key leads to.
bool VerdictPage::eventFilter(QObject *watched, QEvent *event)
{
    auto *box = qobject_cast<QDoubleSpinBox *>(watched);
    if (box && event->type() == QEvent::FocusIn)
        ensureWidgetVisible(box);
    if (box && event->type() == QEvent::Wheel && !box->hasFocus()) {
        event->ignore();
        return true;
    }
    return ScrolledPage::eventFilter(watched, event);
}

//! Adds a field, and beside it what it means and what is usual.
void VerdictPage::addLimit(QFormLayout *form, std::size_t index)
{
    const LimitText &text = limitTexts[index];
    QDoubleSpinBox *box = m_boxes[index] = newBox(text);
    for (const VerdictLimitField &field : verdictLimitFields)
        if (field.limit == text.limit)
            box->setObjectName(QLatin1String(field.key));
    box->setValue(VerdictLimits().*text.limit * text.scale);
    const QString usual = box->text().replace(QLatin1Char(' '), QChar(QChar::Nbsp));
    const QString meaning = tr("%1 Usual: %2.").arg(tr(text.meaning), usual);
    box->setToolTip(meaning);
    box->installEventFilter(this);
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(box, 0, Qt::AlignTop); // beside its label
    layout->addWidget(new Explanation(meaning), 1);
    addFieldRow(form, tr(text.label), row, box);
}

VerdictLimits VerdictPage::limits() const
{
    VerdictLimits limits;
    for (std::size_t i = 0; i < limitTexts.size(); ++i)
        limits.*limitTexts[i].limit = m_boxes[i]->value() / limitTexts[i].scale;
    return limits;
}

void VerdictPage::setLimits(const VerdictLimits &limits)
{
    for (std::size_t i = 0; i < limitTexts.size(); ++i)
        m_boxes[i]->setValue(limits.*limitTexts[i].limit * limitTexts[i].scale);
}

} // namespace Monitor
