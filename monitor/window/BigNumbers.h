// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

class QComboBox;

namespace Monitor {

class BigText;
class DisplayTabs;
class LatestValuePanel;
class Session;

/*! A window with one number, or with the position and the width of the beam, as large as it fits: to be read from across a
    room. It says what abnormal state the number is in. */
class BigNumbers : public QWidget
{
    Q_OBJECT

public:
    BigNumbers(Session &session, DisplayTabs &displays, LatestValuePanel &values, QWidget *parent);

    //! Returns the lines that are shown.
    QStringList lines() const;

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void offerChoices();
    void refresh();
    void refreshIfDue();
    QStringList beamLines() const;
    QStringList channelLines(int row) const;
    QString stateText() const;

    Session &m_session;
    DisplayTabs &m_displays;
    LatestValuePanel &m_values;
    BigText *m_text;
    QComboBox *m_choice;
    double m_refreshedAt = 0.0;
};

} // namespace Monitor
