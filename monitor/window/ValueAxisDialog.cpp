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
    , m_view(*scope.plotView())
    , m_left(makeAxis(false))
    , m_right(makeAxis(true))
    , m_rightFields(new QWidget(this))
    , m_refusal(new QLabel(this))
{
    setWindowTitle(tr("Value axis"));
    m_refusal->setObjectName(QStringLiteral("refusal"));
    m_refusal->setWordWrap(true);
    auto *form = new QFormLayout(this);
    addFields(form);
    form->addRow(m_refusal);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton *apply = buttons->addButton(tr("&Set range"), QDialogButtonBox::ApplyRole);
    QPushButton *automatic = buttons->addButton(tr("&Automatic"), QDialogButtonBox::ResetRole);
    apply->setToolTip(tr("Show the range from minimum to maximum (Enter)"));
    automatic->setToolTip(tr("Let the range follow the readings (Alt+A)"));
    apply->setDefault(true);
    automatic->setObjectName(QStringLiteral("automatic"));
    form->addRow(buttons);

    connect(apply, &QPushButton::clicked, this, &ValueAxisDialog::applyRanges);
    connect(automatic, &QPushButton::clicked, this, &ValueAxisDialog::applyAutomatic);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(&m_view, &RVXScopePlotView::rangeChanged, this, [this] {
        showRange(m_left);
    });
    connect(&m_view, &RVXScopePlotView::shownUnitChanged, this, &ValueAxisDialog::showAll);
    connect(&m_view, &RVXScopePlotView::channelAxesChanged, this, &ValueAxisDialog::showAll);
    showAll();
}

ValueAxisDialog::Axis ValueAxisDialog::makeAxis(bool isRight)
{
    const Axis axis{isRight, new QLineEdit(this), new QLineEdit(this), new QComboBox(this)};
    const auto name = [isRight](const char *left, const char *right) {
        return QLatin1String(isRight ? right : left);
    };
    axis.minimum->setObjectName(name("minimum", "rightMinimum"));
    axis.maximum->setObjectName(name("maximum", "rightMaximum"));
    axis.unit->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    axis.unit->setObjectName(name("unit", "rightUnit"));
    const QString hint = tr("In the unit of the axis, or with a unit: -20, 250 pA. Enter sets it.");
    axis.minimum->setToolTip(hint);
    axis.maximum->setToolTip(hint);
    axis.unit->setToolTip(tr("Automatic chooses the unit that suits the scale."));
    connect(axis.unit, qOverload<int>(&QComboBox::activated), this, [this, isRight] {
        applyUnit(isRight ? m_right : m_left);
    });
    return axis;
}

void ValueAxisDialog::addFields(QFormLayout *form)
{
    form->addRow(tr("Ma&ximum:"), m_left.maximum);
    form->addRow(tr("Mi&nimum:"), m_left.minimum);
    form->addRow(tr("&Unit:"), m_left.unit);
    auto *right = new QFormLayout(m_rightFields);
    right->setContentsMargins(0, 0, 0, 0);
    right->addRow(tr("&Right maximum:"), m_right.maximum);
    right->addRow(tr("Ri&ght minimum:"), m_right.minimum);
    right->addRow(tr("Righ&t unit:"), m_right.unit);
    form->addRow(m_rightFields);
    auto *logarithmic = new QCheckBox(tr("&Logarithmic"), this);
    logarithmic->setObjectName(QStringLiteral("logarithmic"));
    logarithmic->setToolTip(tr("Values that are 0 or negative cannot be shown then; the plot names "
                               "their channels (Alt+L)"));
    logarithmic->setChecked(m_view.isLogarithmic());
    connect(logarithmic, &QCheckBox::toggled, &m_view, &RVXScopePlotView::setLogarithmic);
    connect(&m_view, &RVXScopePlotView::logarithmicChanged, logarithmic, &QCheckBox::setChecked);
    form->addRow(logarithmic);
}

void ValueAxisDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    forgetTyped();
    showAll();
    m_refusal->clear();
    m_left.maximum->setFocus(Qt::ShortcutFocusReason);
    m_left.maximum->selectAll();
}

//! Lets all fields show the ranges again.
void ValueAxisDialog::forgetTyped()
{
    for (QLineEdit *field : {m_left.minimum, m_left.maximum, m_right.minimum, m_right.maximum})
        field->setModified(false);
}

//! Returns whether Enter sets the range of an axis: that of the left one if nothing was typed for the right one.
bool ValueAxisDialog::isAskedFor(const Axis &axis) const
{
    const auto isTyped = [](const Axis &each) {
        return each.minimum->isModified() || each.maximum->isModified();
    };
    const bool ofRight = m_rightFields->isVisibleTo(this)
        && (isTyped(m_right) || m_right.minimum->hasFocus() || m_right.maximum->hasFocus());
    return axis.isRight ? ofRight : !ofRight || isTyped(m_left);
}

//! Returns the unit that an axis shows; empty without a unit.
QString ValueAxisDialog::unitOf(const Axis &axis) const
{
    return axis.isRight ? m_view.rightUnit() : m_view.shownUnit();
}

//! Sets the range that is typed for an axis. Returns false if it cannot be shown, and says why.
bool ValueAxisDialog::takeRange(const Axis &axis)
{
    const auto read = [&](const QLineEdit *field) {
        return axis.isRight ? m_view.fromRightValue(field->text())
                            : m_view.fromShownValue(field->text());
    };
    const double minimum = read(axis.minimum);
    const double maximum = read(axis.maximum);
    if (std::isnan(minimum) || std::isnan(maximum)) {
        const QString text = std::isnan(maximum) ? axis.maximum->text() : axis.minimum->text();
        const QString unit = unitOf(axis);
        m_refusal->setText(
            unit.isEmpty() ? tr("\"%1\" is not a number. Write one like -20 or 2.5e-7.").arg(text)
                           : tr("\"%1\" is not a value in %2. Write one like -20, or with its unit "
                                "like 250 pA.")
                                 .arg(text, unit));
        return false;
    }
    if (!(minimum < maximum)) {
        m_refusal->setText(tr("The minimum must be below the maximum."));
        return false;
    }
    axis.minimum->setModified(false);
    axis.maximum->setModified(false);
    if (axis.isRight) {
        m_view.setRightRange({minimum, maximum, m_view.rightRange().unit});
        return true;
    }
    m_scope.setYScaleMode(RVXScope::PercentRanges);
    m_scope.SetPositiveOnly(false);
    m_scope.SetRange(minimum, maximum);
    m_scope.setYScaleIndex(RVXScopePlotView::FullRange);
    Q_EMIT rangeTyped(minimum, maximum);
    return true;
}

void ValueAxisDialog::applyRanges()
{
    m_refusal->clear();
    const bool right = isAskedFor(m_right); // read before the left range is taken
    if (isAskedFor(m_left) && !takeRange(m_left))
        return;
    if (right)
        takeRange(m_right);
}

void ValueAxisDialog::applyAutomatic()
{
    m_refusal->clear();
    m_scope.setYScaleIndex(RVXScopePlotView::AutoScale);
    m_view.resetRange();
    m_view.resetRightRange();
    forgetTyped();
    showAll();
    Q_EMIT automaticChosen();
}

//! Sets the unit of an axis; the unit of the other one stays.
void ValueAxisDialog::applyUnit(const Axis &axis)
{
    const QStringList known = axis.isRight ? m_view.rightUnits() : m_view.valueUnits();
    QStringList symbols = m_view.valueUnit().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &symbol : known)
        symbols.removeAll(symbol);
    const QString chosen = axis.unit->currentData().toString();
    if (!chosen.isEmpty())
        symbols.append(chosen);
    m_view.setValueUnit(symbols.join(QLatin1Char(' ')));
}

void ValueAxisDialog::showAll()
{
    m_rightFields->setVisible(!m_view.rightUnit().isEmpty());
    for (const Axis &axis : {m_left, m_right}) {
        showUnits(axis);
        showRange(axis);
    }
    // Units of another stream may need more room than those with which the dialog was opened.
    m_rightFields->layout()->invalidate();
    m_rightFields->updateGeometry();
    resize(size().expandedTo(sizeHint()));
}

//! Shows the range in the shown unit, except in a field that is being typed in.
void ValueAxisDialog::showRange(const Axis &axis)
{
    const auto show = [&](QLineEdit *field, double value) {
        if (!field->isModified())
            field->setText(axis.isRight ? m_view.toRightValue(value) : m_view.toShownValue(value));
    };
    const ValueRange right = m_view.rightRange();
    const auto [minimum, maximum] =
        axis.isRight ? std::pair(right.minimum, right.maximum) : m_view.leftRange();
    show(axis.minimum, minimum);
    show(axis.maximum, maximum);
}

void ValueAxisDialog::showUnits(const Axis &axis)
{
    const QSignalBlocker blocker(axis.unit);
    const QStringList symbols = axis.isRight ? m_view.rightUnits() : m_view.valueUnits();
    const QStringList chosen = m_view.valueUnit().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    axis.unit->clear();
    const QString shown = unitOf(axis);
    axis.unit->addItem(shown.isEmpty() ? tr("Automatic") : tr("Automatic (%1)").arg(shown),
                       QString());
    for (const QString &symbol : symbols) {
        axis.unit->addItem(symbol, symbol);
        if (chosen.contains(symbol))
            axis.unit->setCurrentIndex(axis.unit->count() - 1);
    }
    axis.unit->setEnabled(axis.unit->count() > 1);
}

} // namespace Monitor
