// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

#include <optional>

class QAbstractItemModel;
class QLabel;
class QModelIndex;

namespace Corvale_Qt {
class RVXLatestPlotDataProxyModel;
class RVXZeroingProxyModel;
} // namespace Corvale_Qt

namespace Monitor {

class Baseline;
class Session;
class StaleMarks;
class ValueTable;

/*! The newest value of each channel, with a check box that shows the channel in the plots. Enter toggles the box,
    because Space pauses. */
class LatestValuePanel : public QWidget
{
    Q_OBJECT

public:
    explicit LatestValuePanel(Session &session, QWidget *parent = nullptr);
    //! Returns the table of names and newest values, as it is shown.
    QAbstractItemModel *values() const;
    //! Copies the time, if there is one, and the values with all digits: lines of name, number and unit with tabs in between.
    void copyValues() const;
    //! Shows values in a unit if their quantity has it; in the one that suits each value if the symbol is empty.
    void setValueUnit(const QString &symbol);
    //! Subtracts what \a baseline says from the values.
    void follow(Baseline *baseline);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void checkAll(bool on);
    void toggle(const QModelIndex &cell);
    void fitNames();
    int valueWidth() const;
    int leastNameWidth() const;

    Session &m_session;
    Corvale_Qt::RVXZeroingProxyModel *m_zeroed;
    Corvale_Qt::RVXLatestPlotDataProxyModel *m_latest;
    StaleMarks *m_marks;
    QLabel *m_baseline;
    ValueTable *m_table;
    mutable std::optional<int> m_leastNameWidth; //!< until the names, the font or the size change
};

} // namespace Monitor
