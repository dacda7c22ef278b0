// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QTableView>

class QAbstractButton;

namespace Corvale_Qt {

class RVXTableViewPrivate;

/*! A table view that can show a button of the host in the corner between its headers, and that copies the selected
    cells as text.

    \code
    table->setCornerButton(new QToolButton);
    connect(table, &RVXTableView::cornerButtonClicked, this, &Panel::showColumnMenu);
    \endcode */
class CORVALE_QT_EXPORT RVXTableView : public QTableView
{
    Q_OBJECT

public:
    //! Creates a table view with Qt's own corner button, which selects all cells.
    explicit RVXTableView(QWidget *parent = nullptr);
    ~RVXTableView() override;

    //! Returns the host's button, or null if the corner shows Qt's own.
    QAbstractButton *cornerButton() const;
    /*! Puts \a button into the corner and deletes the previous one. The view takes ownership of the button, gives
        it the size of the corner, and shows it while both headers are shown, unless the host hides it. Null, or
        deleting the button, brings Qt's own corner button back. */
    void setCornerButton(QAbstractButton *button);

public Q_SLOTS:
    /*! Copies the selected cells to the clipboard in the order in which they are shown. Cells are separated by
        tabs, and each row ends with a line feed; cells in between that are not selected are left empty. A text
        that contains a tab, an end of line or a quote is quoted as in spreadsheets. Without a selection the
        clipboard does not change. */
    void copySelection() const;

Q_SIGNALS:
    //! Emitted when the user clicks the host's button.
    void cornerButtonClicked();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void updateGeometries() override;

private:
    Q_DECLARE_PRIVATE(RVXTableView)
    const QScopedPointer<RVXTableViewPrivate> d_ptr;
};

} // namespace Corvale_Qt
