// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/scope/RVXScope.h"
#include "corvale_qt/scope/SaveDialog_p.h"

namespace Corvale_Qt {

namespace {

constexpr int steps = 1000;
constexpr int patience = 700; // ms; what is saved sooner needs no dialog

} // namespace

SaveDialog::SaveDialog(QWidget *panel)
    : m_dialog(
        new QProgressDialog(RVXScope::tr("Saving data"), RVXScope::tr("Cancel"), 0, steps, panel))
    , m_progress([this](double share) {
        return show(share);
    })
{
    m_dialog->setObjectName(QStringLiteral("saveProgress"));
    m_dialog->setWindowTitle(RVXScope::tr("Save Data"));
    m_dialog->setMinimumDuration(patience);
    m_dialog->setWindowModality(Qt::WindowModal);
    m_dialog->setAutoReset(false); // the cancel of the last moment counts
    m_dialog->setValue(0);
}

SaveDialog::~SaveDialog()
{
    delete m_dialog;
}

//! Shows a share. The dialog runs the event loop, but only once it is visible. Returns whether to go on.
bool SaveDialog::show(double share)
{
    if (m_dialog)
        m_dialog->setValue(qBound(0, int(share * steps), steps - 1));
    m_wasCanceled = !m_dialog || m_dialog->wasCanceled(); // without a panel nobody wants the file
    return !m_wasCanceled;
}

} // namespace Corvale_Qt
