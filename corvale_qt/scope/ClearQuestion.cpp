// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScope_p.h"
#include "corvale_qt/scope/YRanges_p.h"
#include "corvale_qt/units/LibraryTexts_p.h"

#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>

namespace Corvale_Qt {

namespace {

/*! Returns whether the operator agrees. The box is created on the heap, because the host may delete the panel, its parent,
    while it is open. */
bool operatorAgrees(RVXScope *panel, const QString &title, const QString &text, const QString &yes)
{
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Question, title, text, QMessageBox::Cancel, panel);
    QPushButton *const agree = box->addButton(yes, QMessageBox::DestructiveRole);
    box->setDefaultButton(QMessageBox::Cancel);
    box->exec();
    const bool agreed = box && box->clickedButton() == agree;
    delete box;
    return agreed;
}

} // namespace

//! Returns whether there are samples that could be cleared.
bool RVXScopePrivate::hasSamples() const
{
    return hasModel() && baseModel->rowCount() > 1;
}

//! Returns whether samples may be removed now; asks the operator if the panel is set to. False if the panel is gone since.
bool RVXScopePrivate::mayClear(const QString &title, const QString &text)
{
    if (!confirmClear || !hasSamples())
        return true;
    const QPointer<RVXScope> panel(q_ptr);
    const int samples = baseModel->rowCount() - 1;
    const QString question =
        Corvale_Qt::tr("%1\n%n sample(s) would go.", nullptr, samples).arg(text);
    return operatorAgrees(q_ptr, title, question, RVXScope::tr("&Remove the samples")) && panel;
}

void RVXScopePrivate::clearSamples()
{
    const QPointer<RVXScope> panel(q_ptr);
    if (hasSamples())
        Q_EMIT q_ptr->aboutToClear();
    // The proxy keeps the model that the host has replaced; the panel must not drop the samples of that one.
    if (panel && hasModel())
        averaging->Clear();
}

/*! Begins the chosen period with an empty buffer. Until the buffer is empty the control shows the period that still holds,
    so that nobody reads the other one from the panel. */
void RVXScopePrivate::choosePeriod(int index)
{
    const QPointer<RVXScope> panel(q_ptr);
    const auto show = [this](int entry) {
        const QSignalBlocker blocker(ui.comboBox_period); // its signal clears the samples
        ui.comboBox_period->setCurrentIndex(entry);
    };
    show(periodEntry(announced.period));
    if (!mayClear(RVXScope::tr("Period"),
                  RVXScope::tr("Another period begins with an empty buffer.")))
        return;
    clearSamples();
    if (!panel)
        return;
    const PanelChange change(*this);
    show(index);
    applyPeriod();
}

} // namespace Corvale_Qt
