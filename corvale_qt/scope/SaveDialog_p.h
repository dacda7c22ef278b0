// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// Private: this header is not installed.

#include "corvale_qt/models/SaveProgress.h"

#include <QPointer>
#include <QProgressDialog>

namespace Corvale_Qt {

/*! Shows how far a save has come, with a button that cancels it. It appears only if the save takes long, and lets no other part of
    the window be used meanwhile. */
class SaveDialog
{
public:
    //! Watches what is saved while it lives. The host may delete \a panel, the parent of the dialog, at any time.
    explicit SaveDialog(QWidget *panel);
    ~SaveDialog();
    Q_DISABLE_COPY(SaveDialog)

    //! Returns whether the operator has canceled.
    bool wasCanceled() const { return m_wasCanceled; }

private:
    bool show(double share);

    QPointer<QProgressDialog> m_dialog; // on the heap, since its parent may delete it
    bool m_wasCanceled = false;
    SaveProgress m_progress;
};

} // namespace Corvale_Qt
