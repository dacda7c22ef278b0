// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/widgets/RVXTableView.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMap>
#include <QPointer>

#include <set>

namespace Corvale_Qt {

namespace {

//! Returns \a text as spreadsheets write it, in quotes if necessary.
QString asTableField(QString text)
{
    static const QString special = "\t\n\r\"";
    const auto isSpecial = [](QChar c) {
        return special.contains(c);
    };
    if (std::none_of(text.cbegin(), text.cend(), isSpecial))
        return text;
    return '"' + text.replace('"', "\"\"") + '"';
}

} // namespace

class RVXTableViewPrivate
{
public:
    void showButton(bool isCorner);

    QPointer<QAbstractButton> cornerButton;
};

//! Shows the button if \a isCorner, but leaves a button hidden that the host hid. Qt marks explicitly hidden widgets.
void RVXTableViewPrivate::showButton(bool isCorner)
{
    const bool hiddenByHost =
        cornerButton->isHidden() && cornerButton->testAttribute(Qt::WA_WState_ExplicitShowHide);
    if (hiddenByHost)
        return;
    cornerButton->setVisible(isCorner);
    cornerButton->setAttribute(Qt::WA_WState_ExplicitShowHide, isCorner);
}

RVXTableView::RVXTableView(QWidget *parent)
    : QTableView(parent)
    , d_ptr(new RVXTableViewPrivate)
{
}

RVXTableView::~RVXTableView() = default;

QAbstractButton *RVXTableView::cornerButton() const
{
    Q_D(const RVXTableView);
    return d->cornerButton;
}

void RVXTableView::setCornerButton(QAbstractButton *button)
{
    Q_D(RVXTableView);
    if (button == d->cornerButton)
        return;
    delete d->cornerButton;
    d->cornerButton = button;
    if (!button)
        return;
    button->setParent(this);
    connect(button, &QAbstractButton::clicked, this, &RVXTableView::cornerButtonClicked);
    updateGeometries();
}

//! Places the host's button over Qt's own, which stays below it.
void RVXTableView::updateGeometries()
{
    Q_D(RVXTableView);
    QTableView::updateGeometries();
    if (!d->cornerButton)
        return;
    const bool isCorner = !horizontalHeader()->isHidden() && !verticalHeader()->isHidden();
    const QRect columns = horizontalHeader()->geometry();
    const QRect rows = verticalHeader()->geometry();
    d->cornerButton->setGeometry(rows.x(), columns.y(), rows.width(), columns.height());
    d->cornerButton->raise();
    d->showButton(isCorner);
}

void RVXTableView::keyPressEvent(QKeyEvent *event)
{
    if (!event->matches(QKeySequence::Copy)) {
        QTableView::keyPressEvent(event);
        return;
    }
    copySelection();
    event->accept();
}

void RVXTableView::copySelection() const
{
    QMap<int, QMap<int, QString>> cells;
    std::set<int> columns;
    for (const QModelIndex &index : selectedIndexes()) {
        const int row = verticalHeader()->visualIndex(index.row());
        const int column = horizontalHeader()->visualIndex(index.column());
        cells[row][column] = asTableField(index.data().toString());
        columns.insert(column);
    }
    // Without a selection the clipboard keeps its content.
    if (cells.isEmpty())
        return;

    QString text;
    for (const QMap<int, QString> &row : qAsConst(cells)) {
        QStringList line;
        for (int column : columns)
            line << row.value(column);
        text += line.join('\t') + '\n';
    }
    QGuiApplication::clipboard()->setText(text);
}

} // namespace Corvale_Qt
