// SPDX-License-Identifier: LGPL-2.1-or-later
#include "monitor/window/ValueAxisDialog.h"

#include <corvale_qt/scope/RVXScope.h>
#include <corvale_qt/scope/RVXScopePlotView.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace Monitor {

using namespace Corvale_Qt;

ValueAxisDialog::ValueAxisDialog(RVXScope &scope, QWidget *parent)
    : QDialog(parent)
    , m_scope(scope)
    , m_minimum(new QLineEdit(this))
    , m_maximum(new QLineEdit(this))
    , m_unit(new QComboBox(this))
    , m_refusal(new QLabel(this))
{
    setWindowTitle(tr("Value axis"));
    m_minimum->setObjectName(QStringLiteral("minimum"));
    m_maximum->setObjectName(QStringLiteral("maximum"));
    m_unit->setObjectName(QStringLiteral("unit"));
    m_refusal->setObjectName(QStringLiteral("refusal"));
    m_refusal->setWordWrap(true);
    const QString hint = tr("In the unit of the axis, or with a unit: -20, 250 pA. Enter sets it.");
    m_minimum->setToolTip(hint);
    m_maximum->setToolTip(hint);
    m_unit->setToolTip(tr("Automatic chooses the unit that suits the scale."));

    auto *form = new QFormLayout(this);
    form->addRow(tr("Ma&ximum:"), m_maximum);
    form->addRow(tr("Mi&nimum:"), m_minimum);
    form->addRow(tr("&Unit:"), m_unit);
    auto *logarithmic = new QCheckBox(tr("&Logarithmic"), this);
    logarithmic->setObjectName(QStringLiteral("logarithmic"));
    logarithmic->setToolTip(tr("Values that are 0 or negative cannot be shown then; the plot names "
                               "their channels (Alt+L)"));
    logarithmic->setChecked(scope.plotView()->isLogarithmic());
    connect(logarithmic, &QCheckBox::toggled, scope.plotView(), &RVXScopePlotView::setLogarithmic);
    connect(scope.plotView(),
            &RVXScopePlotView::logarithmicChanged,
            logarithmic,
            &QCheckBox::setChecked);
    form->addRow(logarithmic);
    form->addRow(m_refusal);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton *apply = buttons->addButton(tr("&Set range"), QDialogButtonBox::ApplyRole);
    QPushButton *automatic = buttons->addButton(tr("&Automatic"), QDialogButtonBox::ResetRole);
    apply->setToolTip(tr("Show the range from minimum to maximum (Enter)"));
    automatic->setToolTip(tr("Let the range follow the readings (Alt+A)"));
    apply->setDefault(true);
    automatic->setObjectName(QStringLiteral("automatic"));
    form->addRow(buttons);

    connect(apply, &QPushButton::clicked, this, &ValueAxisDialog::applyRange);
    connect(automatic, &QPushButton::clicked, this, &ValueAxisDialog::applyAutomatic);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_unit, qOverload<int>(&QComboBox::activated), this, &ValueAxisDialog::applyUnit);
    const RVXScopePlotView *view = scope.plotView();
    connect(view, &RVXScopePlotView::rangeChanged, this, &ValueAxisDialog::showRange);
    connect(view, &RVXScopePlotView::shownUnitChanged, this, [this] {
        showUnits();
        showRange();
    });
}

void ValueAxisDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    showUnits();
    showRange();
    m_refusal->clear();
    m_maximum->setFocus(Qt::ShortcutFocusReason);
    m_maximum->selectAll();
}

//! Sets the range that is typed, or says why it cannot be shown.
void ValueAxisDialog::applyRange()
{
    RVXScopePlotView *view = m_scope.plotView();
    const double minimum = view->fromShownValue(m_minimum->text());
    const double maximum = view->fromShownValue(m_maximum->text());
    if (std::isnan(minimum) || std::isnan(maximum)) {
        const QString text = std::isnan(maximum) ? m_maximum->text() : m_minimum->text();
        m_refusal->setText(
            tr("\"%1\" is not a value in %2. Write one like -20, or with its unit like 250 pA.")
                .arg(text, view->shownUnit()));
        return;
    }
    if (!(minimum < maximum)) {
        m_refusal->setText(tr("The minimum must be below the maximum."));
        return;
    }
    m_refusal->clear();
    m_scope.setYScaleMode(RVXScope::PercentRanges);
    m_scope.SetPositiveOnly(false);
    m_scope.SetRange(minimum, maximum);
    m_scope.setYScaleIndex(RVXScopePlotView::FullRange);
}

void ValueAxisDialog::applyAutomatic()
{
    m_refusal->clear();
    m_scope.setYScaleIndex(RVXScopePlotView::AutoScale);
    m_scope.plotView()->resetRange();
}

void ValueAxisDialog::applyUnit()
{
    m_scope.plotView()->setValueUnit(m_unit->currentData().toString());
}

//! Shows the range in the shown unit, except in a field that is being typed in.
void ValueAxisDialog::showRange()
{
    const RVXScopePlotView *view = m_scope.plotView();
    const auto show = [view](QLineEdit *field, double value) {
        if (!field->isModified() || !field->hasFocus())
            field->setText(view->toShownValue(value));
    };
    show(m_minimum, view->yMinimum());
    show(m_maximum, view->yMaximum());
}

void ValueAxisDialog::showUnits()
{
    const RVXScopePlotView *view = m_scope.plotView();
    const QSignalBlocker blocker(m_unit);
    m_unit->clear();
    m_unit->addItem(tr("Automatic (%1)").arg(view->shownUnit()), QString());
    for (const QString &symbol : view->valueUnits())
        m_unit->addItem(symbol, symbol);
    m_unit->setCurrentIndex(std::max(m_unit->findData(view->valueUnit()), 0));
    m_unit->setEnabled(m_unit->count() > 1);
}

} // namespace Monitor
