// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvale_qt/corvale_qt_export.h"

#include <QTableView>

class QAbstractButton;

namespace Corvale_Qt {

class RVXTableViewPrivate;

/*! A table view that takes a button of the host into the corner between its headers, and copies the selected
    cells as text.

    \code
    table->setCornerButton(new QToolButton);
    connect(table, &RVXTableView::cornerButtonClicked, this, &Panel::showColumnMenu);
    \endcode */
class CORVALE_QT_EXPORT RVXTableView : public QTableView
{
    Q_OBJECT

public:
    explicit RVXTableView(QWidget *parent = nullptr);
    ~RVXTableView() override;

    //! The host's button, null where the built-in corner, which selects all, stands.
    QAbstractButton *cornerButton() const;
    /*! Puts \a button into the corner, where it takes the size that the headers leave, and is seen while both
        of them are, unless the host hides it. The view owns it from then on; a former one is deleted. Null brings the built-in corner
        back, and so does the button's deletion. */
    void setCornerButton(QAbstractButton *button);

public Q_SLOTS:
    /*! Puts the selected cells on the clipboard, row by row as they are shown: tabs between cells, an end of
        line behind each row, nothing for cells in between that are not selected. A text with a tab, an end of
        line or a quote in it stands in quotes, as spreadsheets write and read it. */
    void copySelection() const;

Q_SIGNALS:
    //! The host's button was clicked.
    void cornerButtonClicked();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void updateGeometries() override;

private:
    Q_DECLARE_PRIVATE(RVXTableView)
    const QScopedPointer<RVXTableViewPrivate> d_ptr;
};

} // namespace Corvale_Qt
