// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvale_qt/beam/spots/RowSelection_p.h"
#include "tests/support/TestMain.h"

using namespace Corvale_Qt;
using Selection = QItemSelectionModel;

namespace {

constexpr int rowsOfTable = 600;

//! Returns each selected cell, as often as it is there.
QStringList cellsOf(const QItemSelection &selection)
{
    QStringList cells;
    for (const QModelIndex &index : selection.indexes())
        cells << QString("%1/%2").arg(index.row(), 4).arg(index.column());
    cells.sort();
    return cells;
}

//! A selection, and what it said of each change.
struct Watched
{
    explicit Watched(QAbstractItemModel *model)
        : selection(model)
    {
        QObject::connect(&selection,
                         &Selection::selectionChanged,
                         [this](const QItemSelection &selected, const QItemSelection &deselected) {
                             changes << "+" + cellsOf(selected).join(' ') + " -"
                                     + cellsOf(deselected).join(' ');
                         });
    }
    Selection selection;
    QStringList changes;
};

} // namespace

class tst_RowSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    //! Rows at random, few or many, are selected and announced as the selection model does it by itself, one row after another.
    void hostsSeeWhatTheSelectionModelDoes()
    {
        QStandardItemModel table(rowsOfTable, 3);
        Watched ours(&table), plain(&table);
        QRandomGenerator random(3);
        for (int step = 0; step < 60; ++step) {
            const int share = 1 + random.bounded(9), first = random.bounded(rowsOfTable / 2);
            QVector<int> rows;
            for (int row = first; row < rowsOfTable && step % 7 != 5; ++row) {
                if (random.bounded(10) < share)
                    rows << row;
            }
            Selection::SelectionFlags command = Selection::ClearAndSelect | Selection::Rows;
            if (step % 5 == 3)
                command = Selection::Toggle | Selection::Rows;
            else if (step % 5 == 4)
                command.setFlag(Selection::Current);
            if (step % 11 == 10) // a host selects a single cell
                command.setFlag(Selection::Rows, false);
            QItemSelection same;
            for (const int row : qAsConst(rows))
                same.select(table.index(row, 0), table.index(row, 0));
            // The same rows once more are no change.
            for (int again = 0; again < (step % 3 == 0 ? 2 : 1); ++again) {
                selectRows(ours.selection, QModelIndex(), rows, command);
                plain.selection.select(same, command);
            }
            QCOMPARE(cellsOf(ours.selection.selection()), cellsOf(plain.selection.selection()));
            QCOMPARE(ours.changes, plain.changes);
            ours.changes.clear();
            plain.changes.clear();
        }
    }
};

CORVALE_QT_TEST_MAIN(tst_RowSelection)
#include "tst_RowSelection.moc"
